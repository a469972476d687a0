#include "meshnode/VertexTweaks.h"

#include <set>

#include "graph/Scene.h"

namespace mhost {
namespace {

// Logical indices holding a value or taking part in a connection, ascending.
std::set<int> usedElements(const NodePtr& node, const Attribute& array) {
    const std::vector<int> stored = node->existingIndices(&array);
    std::set<int> indices(stored.begin(), stored.end());
    for (const Connection& c : scene().connectionsOf(*node)) {
        const PlugRef& end = c.destination;
        if (end.node == node && end.key.index >= 0 && end.key.attribute->arrayAncestor() == &array)
            indices.insert(end.key.index);
    }
    return indices;
}

}  // namespace

VertexTweaks VertexTweaks::read(const NodePtr& node, const Attribute& array) {
    VertexTweaks tweaks;
    for (int index : usedElements(node, array)) {
        double xyz[3] = {0, 0, 0};
        for (std::size_t axis = 0; axis < array.children.size() && axis < 3; ++axis)
            xyz[axis] = scene().evaluate({node, {array.children[axis].get(), index}}).numbers[0];
        const Vec3 offset(xyz[0], xyz[1], xyz[2]);
        if (offset != Vec3()) tweaks.offsets_.emplace_back(index, offset);
    }
    return tweaks;
}

void VertexTweaks::shift(MeshTopology& mesh, double sign) const {
    for (const auto& [vertex, offset] : offsets_) {
        if (vertex >= mesh.numVertices()) break;
        const Vec3f moved(Vec3(mesh.point(vertex)) + offset * sign);
        if (isFinite(moved)) mesh.setPoint(vertex, moved);
    }
}

}  // namespace mhost
