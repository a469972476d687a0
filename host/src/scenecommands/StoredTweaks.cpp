#include "scenecommands/StoredTweaks.h"

#include <set>

#include "graph/Scene.h"
#include "meshnode/MeshShapeNode.h"

namespace mhost {
namespace {

const Attribute* pntsAttribute() { return meshShapeAttributes().pnts.get(); }

}  // namespace

StoredTweaks StoredTweaks::of(const NodePtr& shape) {
    StoredTweaks tweaks;
    for (int index : shape->existingIndices(pntsAttribute()))
        tweaks.values_[index] = shape->storedValue({pntsAttribute(), index});
    return tweaks;
}

bool StoredTweaks::allZero() const {
    for (const auto& [index, value] : values_) {
        if (offset(index) != Vec3()) return false;
    }
    return true;
}

Vec3 StoredTweaks::offset(int vertex) const {
    const auto found = values_.find(vertex);
    if (found == values_.end()) return Vec3();
    const auto& numbers = found->second.numbers;
    return {numbers[0], numbers[1], numbers[2]};
}

void StoredTweaks::setOffset(int vertex, const Vec3& offset) {
    PlugValue& value = values_[vertex];
    value.numbers = {offset.x, offset.y, offset.z, 0};
}

StoredTweaks StoredTweaks::zeroed() const {
    StoredTweaks zero;
    for (const auto& [index, value] : values_) zero.setOffset(index, Vec3());
    return zero;
}

void StoredTweaks::writeTo(const NodePtr& shape) const {
    const std::vector<int> present = shape->existingIndices(pntsAttribute());
    std::set<int> indices(present.begin(), present.end());
    for (const auto& [index, value] : values_) indices.insert(index);
    for (int index : indices) {
        const auto found = values_.find(index);
        scene().setValue({shape, {pntsAttribute(), index}},
                         found == values_.end() ? PlugValue() : found->second);
    }
}

}  // namespace mhost
