#include "meshnode/PolyTweakNode.h"

#include <maya/MPxNode.h>

#include "graph/ApiBridge.h"
#include "graph/BuiltinNodeTypes.h"
#include "meshnode/MeshAttributes.h"
#include "meshnode/MeshData.h"
#include "meshnode/VertexTweaks.h"

namespace mhost {
namespace {

struct PolyTweakAttributes {
    AttributePtr inputPolymesh, output, tweak;
};

const PolyTweakAttributes& polyTweakAttributes() {
    static const PolyTweakAttributes attributes = [] {
        PolyTweakAttributes a;
        a.inputPolymesh = makeMeshAttribute("inputPolymesh", "ip");
        a.output = makeMeshAttribute("output", "out");
        a.output->writable = false;
        a.output->storable = false;
        a.tweak =
            makeTweakArrayAttribute("tweak", "tk", {{{"tweakX", "tx"}, {"tweakY", "ty"}, {"tweakZ", "tz"}}});
        return a;
    }();
    return attributes;
}

class PolyTweakNode : public MPxNode {
public:
    MStatus compute(const MPlug& plug, MDataBlock&) override {
        try {
            const PlugRef ref = hostPlugOf(plug);
            const PolyTweakAttributes& a = polyTweakAttributes();
            if (ref.key.attribute != a.output.get()) return MS::kUnknownParameter;
            const MeshDataPtr input =
                meshDataOf(scene().evaluate({ref.node, {a.inputPolymesh.get(), -1}}).data);
            auto output =
                input ? std::static_pointer_cast<MeshData>(input->clone()) : std::make_shared<MeshData>();
            const VertexTweaks tweaks = VertexTweaks::read(ref.node, *a.tweak);
            if (!tweaks.empty()) tweaks.addTo(output->editMesh());
            ref.node->values[ref.key].data = wrapData(output);
            return MS::kSuccess;
        } catch (const std::exception&) {
            return MS::kFailure;
        }
    }
};

}  // namespace

NodeTypePtr makePolyTweakType() {
    const PolyTweakAttributes& a = polyTweakAttributes();
    auto type = std::make_shared<NodeType>();
    type->name = "polyTweak";
    type->apiType = MFn::kPolyTweak;
    type->create = [] { return new PolyTweakNode; };
    addInheritedAttributes(*type);
    for (const AttributePtr& attribute : {a.inputPolymesh, a.output, a.tweak}) type->addAttribute(attribute);
    type->affects[a.inputPolymesh.get()] = {a.output.get()};
    type->affects[a.tweak.get()] = {a.output.get()};
    return type;
}

}  // namespace mhost
