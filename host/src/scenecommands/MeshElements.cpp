#include "scenecommands/MeshElements.h"

#include "commands/MessageLog.h"
#include "graph/NameLookup.h"
#include "meshnode/MeshComponent.h"
#include "meshnode/ShapeGeometry.h"

namespace mhost {
namespace {

const char* elementWord(MFn::Type type) { return type == MFn::kMeshEdgeComponent ? "edges" : "vertices"; }

// The mesh shape a plain name stands for: the shape itself, or a transform's mesh child.
NodePtr meshShapeNamed(const NodePtr& node) {
    if (node->type->apiType == MFn::kMesh) return node;
    for (const NodePtr& child : node->children) {
        if (child->type->apiType == MFn::kMesh) return child;
    }
    return nullptr;
}

// Adds the ids one name gives, or returns the error line.
std::string idsOfName(const std::string& command, const std::string& name, MFn::Type type,
                      bool wholeMeshAllowed, NodePtr& shape, std::vector<int>& ids) {
    const std::string noElements = command + ": " + name + " names no mesh " + elementWord(type);
    const NameMatch match = lookUpName(name);
    if (!match.node) return "No object matches name: " + name;
    if (match.component.isNull()) {
        shape = wholeMeshAllowed ? meshShapeNamed(match.node) : nullptr;
        if (!shape) return noElements;
        for (int v = 0; v < shapeGeometry(shape)->mesh().numVertices(); ++v) ids.push_back(v);
        return "";
    }
    const MeshComponent* component = meshComponentOf(match.component);
    if (!component || component->apiType() != type) return noElements;
    shape = match.node;
    ids.insert(ids.end(), component->elements().begin(), component->elements().end());
    return "";
}

}  // namespace

MStatus resolveMeshElements(const std::string& command, const MStringArray& names, MFn::Type type,
                            bool wholeMeshAllowed, MeshElements& elements) {
    elements = MeshElements();
    for (unsigned int i = 0; i < names.length(); ++i) {
        NodePtr shape;
        std::string error =
            idsOfName(command, names[i].asChar(), type, wholeMeshAllowed, shape, elements.ids);
        if (error.empty() && elements.shape && shape != elements.shape)
            error = command + ": the " + elementWord(type) + " must all belong to one mesh";
        if (!error.empty()) {
            messageLog().error(error);
            return MS::kInvalidParameter;
        }
        elements.shape = shape;
    }
    return MS::kSuccess;
}

}  // namespace mhost
