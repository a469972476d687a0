#include "meshnode/MeshShapeNode.h"

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MPxNode.h>

#include "graph/ApiBridge.h"
#include "graph/BuiltinNodeTypes.h"
#include "meshnode/MeshAttributes.h"
#include "meshnode/MeshComponent.h"
#include "meshnode/MeshData.h"
#include "meshnode/ShapeGeometry.h"
#include "meshnode/VertexTweaks.h"

namespace mhost {
namespace {

void storeMesh(Node& node, const Attribute& attribute, int index, const MeshDataPtr& data) {
    PlugValue value;
    value.data = wrapData(data);
    node.values[{&attribute, index}] = value;
    noteValuesEdited(node);
}

MeshDataPtr copyOf(const PlugValue& value) {
    MeshDataPtr data = meshDataOf(value.data);
    return data ? std::static_pointer_cast<MeshData>(data->clone()) : std::make_shared<MeshData>();
}

// Computes outMesh and cachedInMesh together: both come from one evaluation of inMesh. The output
// keeps the accelerator of the one before, so that re-evaluating an unchanged mesh builds none.
void computeOutputs(Node& node) {
    const MeshShapeAttributes& a = meshShapeAttributes();
    const NodePtr self = node.self();
    MeshDataPtr input = copyOf(scene().evaluate({self, {a.inMesh.get(), -1}}));
    input->matrix = MMatrix();
    MeshDataPtr output = std::static_pointer_cast<MeshData>(input->clone());
    if (const MeshDataPtr previous = meshDataOf(node.storedValue({a.outMesh.get(), -1}).data))
        output->shareAcceleratorOf(*previous);
    const VertexTweaks tweaks = VertexTweaks::read(self, *a.pnts);
    if (!tweaks.empty()) tweaks.addTo(output->editMesh());
    storeMesh(node, *a.cachedInMesh, -1, input);
    storeMesh(node, *a.outMesh, -1, output);
    node.setClean({a.cachedInMesh.get(), -1});
    node.setClean({a.outMesh.get(), -1});
}

void computeWorldMesh(Node& node, int index) {
    const MeshShapeAttributes& a = meshShapeAttributes();
    const NodePtr self = node.self();
    MeshDataPtr world = copyOf(scene().evaluate({self, {a.outMesh.get(), -1}}));
    world->matrix = MDagPath::fromHostNode(self).inclusiveMatrix();
    storeMesh(node, *a.worldMesh, index, world);
}

class MeshShapeNode : public MPxNode {
public:
    MStatus compute(const MPlug& plug, MDataBlock&) override {
        try {
            const PlugRef ref = hostPlugOf(plug);
            const MeshShapeAttributes& a = meshShapeAttributes();
            const Attribute* attribute = ref.key.attribute;
            if (attribute == a.worldMesh.get())
                computeWorldMesh(*ref.node, ref.key.index);
            else if (attribute == a.outMesh.get() || attribute == a.cachedInMesh.get())
                computeOutputs(*ref.node);
            else
                return MS::kUnknownParameter;
            return MS::kSuccess;
        } catch (const std::exception&) {
            return MS::kFailure;
        }
    }
};

MeshShapeAttributes makeAttributes() {
    MeshShapeAttributes a;
    a.inMesh = makeMeshAttribute("inMesh", "i");
    a.outMesh = makeMeshAttribute("outMesh", "o");
    a.outMesh->storable = false;
    a.cachedInMesh = makeMeshAttribute("cachedInMesh", "ci");
    a.cachedInMesh->storable = false;
    a.worldMesh = makeMeshAttribute("worldMesh", "w");
    a.worldMesh->array = true;
    a.worldMesh->writable = false;
    a.worldMesh->storable = false;
    a.pnts = makeTweakArrayAttribute("pnts", "pt", {{{"pntx", "px"}, {"pnty", "py"}, {"pntz", "pz"}}});
    return a;
}

MBoundingBox boundsOf(const NodePtr& shape) {
    try {
        const Box3 box = shapeGeometry(shape)->mesh().boundingBox();
        if (box.isEmpty()) return MBoundingBox();
        return MBoundingBox(MPoint(box.min.x, box.min.y, box.min.z), MPoint(box.max.x, box.max.y, box.max.z));
    } catch (const std::exception&) {
        return MBoundingBox();
    }
}

MObject componentOf(const NodePtr& shape, const std::string& text) {
    // An attribute name is no component: it needs no evaluation of the shape's geometry.
    if (!looksLikeMeshComponent(text)) return MObject();
    try {
        auto component = parseMeshComponent(text, shapeGeometry(shape)->mesh());
        return component ? MObject(component) : MObject();
    } catch (const std::exception&) {
        return MObject();
    }
}

}  // namespace

const MeshShapeAttributes& meshShapeAttributes() {
    static const MeshShapeAttributes attributes = makeAttributes();
    return attributes;
}

NodeTypePtr makeMeshShapeType() {
    const MeshShapeAttributes& a = meshShapeAttributes();
    auto type = std::make_shared<NodeType>();
    type->name = "mesh";
    type->apiType = MFn::kMesh;
    type->isDag = true;
    type->isShape = true;
    type->create = [] { return new MeshShapeNode; };
    type->bounds = boundsOf;
    type->component = componentOf;
    addInheritedAttributes(*type);
    for (const AttributePtr& attribute : {a.inMesh, a.outMesh, a.cachedInMesh, a.worldMesh, a.pnts})
        type->addAttribute(attribute);
    type->affects[a.inMesh.get()] = {a.outMesh.get(), a.cachedInMesh.get()};
    type->affects[a.pnts.get()] = {a.outMesh.get()};
    type->affects[a.outMesh.get()] = {a.worldMesh.get()};
    return type;
}

}  // namespace mhost
