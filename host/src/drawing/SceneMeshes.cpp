#include "drawing/SceneMeshes.h"

#include <algorithm>

#include "drawing/DagVisibility.h"
#include "graph/Scene.h"
#include "meshnode/ShapeGeometry.h"

namespace mhost {
namespace {

bool isMeshShape(const NodePtr& node) { return node->type->apiType == MFn::kMesh; }

// The mesh shape a connection names: the shape itself, or the one mesh shape under a transform.
NodePtr meshShapeOf(const NodePtr& node) {
    if (isMeshShape(node)) return node;
    NodePtr shape;
    for (const auto& child : node->children) {
        if (!isMeshShape(child) || !isDrawn(child)) continue;
        if (shape) return nullptr;
        shape = child;
    }
    return shape;
}

NodePtr connectedSource() {
    for (const auto& node : scene().nodes()) {
        const Attribute* attribute = node->type->findAttribute("kyStrakeMesh");
        if (!attribute) continue;
        if (auto source = scene().sourceOf({node, {attribute, -1}}))
            if (NodePtr shape = meshShapeOf(source->node)) return shape;
    }
    return nullptr;
}

// The shape's mesh as it shows (history evaluated, tweaks applied), placed in the world.
std::optional<MeshView> worldMeshOf(const NodePtr& shape) {
    MeshDataPtr data = shapeGeometry(shape);
    if (!data) return std::nullopt;
    return makeMeshView(data->mesh(), MDagPath::fromHostNode(shape).inclusiveMatrix());
}

}  // namespace

PictureMeshes pictureMeshes() {
    PictureMeshes meshes;
    const NodePtr source = connectedSource();
    for (const auto& node : scene().nodes()) {
        if (!isMeshShape(node) || !isDrawn(node)) continue;
        std::optional<MeshView> view = worldMeshOf(node);
        if (!view) continue;
        if (node == source)
            meshes.source = std::move(view);
        else
            meshes.wireframes.push_back(std::move(*view));
    }
    if (source || meshes.wireframes.empty()) return meshes;
    auto largest = std::max_element(
        meshes.wireframes.begin(), meshes.wireframes.end(),
        [](const MeshView& a, const MeshView& b) { return a.polygons.size() < b.polygons.size(); });
    meshes.source = std::move(*largest);
    meshes.wireframes.erase(largest);
    return meshes;
}

}  // namespace mhost
