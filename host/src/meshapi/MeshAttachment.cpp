#include "meshapi/MeshAttachment.h"

#include <algorithm>

namespace mhost {

bool MeshAttachment::stillResolves(const MObject& object, const MDagPath& path) const {
    if (mesh_.isNull() || object.hostObject().get() != object_) return false;
    const auto& nodes = path.hostNodes();
    return std::equal(
        nodes.begin(), nodes.end(), pathNodes_.begin(), pathNodes_.end(),
        [](const NodePtr& node, const Node* kept) { return node.get() == kept && node->alive; });
}

const MeshRef& MeshAttachment::mesh(const MObject& object, const MDagPath& path) {
    if (stillResolves(object, path)) return mesh_;
    mesh_ = nodeOf(object) ? MeshRef::of(path) : MeshRef::of(object);
    world_.forget();
    object_ = object.hostObject().get();
    pathNodes_.clear();
    for (const NodePtr& node : path.hostNodes()) pathNodes_.push_back(node.get());
    return mesh_;
}

// Mesh data carries its own matrix, which no transform edit announces: its frame is taken afresh.
const MeshSpace& MeshAttachment::worldSpace() { return world_.of(mesh_, !mesh_.isShape()); }

}  // namespace mhost
