#include "meshapi/MeshWalk.h"

#include <algorithm>
#include <unordered_set>

#include "meshnode/MeshComponent.h"

namespace mhost {

MeshWalk::MeshWalk(MeshRef mesh, MFn::Type kind, std::optional<std::vector<int>> elements)
    : mesh_(std::move(mesh)), kind_(kind), elements_(std::move(elements)) {
    mesh_.data();
}

int MeshWalk::count() const {
    return elements_ ? static_cast<int>(elements_->size()) : elementCountOf(kind_, topology());
}

void MeshWalk::reset() {
    position_ = 0;
    world_.reset();
}

// One look at the mesh per call: iterators call this once or twice per element.
int MeshWalk::current() const {
    const int total = elementCountOf(kind_, topology());
    const int size = elements_ ? static_cast<int>(elements_->size()) : total;
    if (position_ >= size) throw std::out_of_range("mesh iterator: the iteration is done");
    const int id = elements_ ? (*elements_)[position_] : position_;
    checkIndex("mesh iterator", "element", id, total);
    return id;
}

void MeshWalk::checkElements() const {
    if (!elements_) return;
    const int total = elementCountOf(kind_, topology());
    for (int id : *elements_) checkIndex("mesh iterator", "element", id, total);
}

int MeshWalk::moveTo(int id) {
    checkIndex("mesh iterator", "element", id, elementCountOf(kind_, topology()));
    const int previous = isDone() ? -1 : current();
    if (!elements_) {
        position_ = id;
        return previous;
    }
    const auto found = std::find(elements_->begin(), elements_->end(), id);
    if (found == elements_->end())
        throw std::out_of_range("mesh iterator: element " + std::to_string(id) + " is not in the component");
    position_ = static_cast<int>(found - elements_->begin());
    return previous;
}

const MeshSpace& MeshWalk::frame(MSpace::Space space) const {
    if (!MeshSpace::isWorldSpace(space)) return MeshSpace::objectSpace();
    if (!world_) world_ = mesh_.worldSpace();
    return *world_;
}

std::optional<std::vector<int>> componentElements(const MObject& component, MFn::Type kind) {
    if (component.isNull()) return std::nullopt;
    const MeshComponent* mesh = meshComponentOf(component);
    if (!mesh || mesh->apiType() != kind)
        throw HostError(std::string("mesh iterator: the component is no ") + typeName(kind));
    return mesh->elements();
}

std::optional<std::vector<int>> componentVertices(const MObject& component, const MeshTopology& mesh) {
    if (component.isNull()) return std::nullopt;
    const MeshComponent* parts = meshComponentOf(component);
    if (!parts) throw HostError("mesh iterator: the component is no mesh component");
    if (parts->apiType() == MFn::kMeshVertComponent) {
        // Ids past the mesh's last vertex name nothing and are passed over.
        std::vector<int> vertices;
        vertices.reserve(parts->elements().size());
        for (int id : parts->elements())
            if (id < mesh.numVertices()) vertices.push_back(id);
        return vertices;
    }
    std::vector<int> vertices;
    std::unordered_set<int> seen;
    const auto take = [&](int v) {
        if (seen.insert(v).second) vertices.push_back(v);
    };
    for (int id : parts->elements()) {
        if (parts->apiType() == MFn::kMeshPolygonComponent) {
            for (int v : mesh.faceVertices(id)) take(v);
        } else {
            const auto ends = mesh.adjacency().edgeVertices(id);
            take(ends.first);
            take(ends.second);
        }
    }
    return vertices;
}

}  // namespace mhost
