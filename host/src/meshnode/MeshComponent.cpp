#include "meshnode/MeshComponent.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "core/ApiObject.h"

namespace mhost {
namespace {

struct ComponentKind {
    MFn::Type type;
    const char* name;
};

const ComponentKind kKinds[] = {
    {MFn::kMeshVertComponent, "vtx"},
    {MFn::kMeshEdgeComponent, "e"},
    {MFn::kMeshPolygonComponent, "f"},
};

const ComponentKind* kindOf(MFn::Type type) {
    for (const ComponentKind& kind : kKinds)
        if (kind.type == type) return &kind;
    return nullptr;
}

const ComponentKind* kindNamed(const std::string& name) {
    for (const ComponentKind& kind : kKinds)
        if (name == kind.name) return &kind;
    return nullptr;
}

std::optional<int> parseIndex(const std::string& text) {
    if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos)
        return std::nullopt;
    return std::atoi(text.c_str());
}

// Adds the ids of one bracket entry, "7", "2:5" or "*", checking them against the element count.
bool addEntry(const std::string& entry, int count, MeshComponent& component) {
    if (entry == "*") {
        for (int id = 0; id < count; ++id) component.add(id);
        return true;
    }
    const std::size_t colon = entry.find(':');
    const auto first = parseIndex(entry.substr(0, colon));
    const auto last = colon == std::string::npos ? first : parseIndex(entry.substr(colon + 1));
    if (!first || !last || *first > *last || *last >= count) return false;
    for (int id = *first; id <= *last; ++id) component.add(id);
    return true;
}

// "a:b" for a run, "a" for a single element.
std::string runText(int first, int last) {
    return first == last ? std::to_string(first) : std::to_string(first) + ":" + std::to_string(last);
}

}  // namespace

MeshComponent::MeshComponent(MFn::Type type) : type_(type) {
    if (!kindOf(type))
        throw HostError(std::string("MeshComponent: ") + typeName(type) + " is no mesh component");
}

// A brush builds a component of a vertex's few neighbours for every vertex it moves: scanning a
// short list beats hashing into a set made for it.
bool MeshComponent::contains(int element) const {
    constexpr std::size_t kScanned = 16;
    if (elements_.size() <= kScanned)
        return std::find(elements_.begin(), elements_.end(), element) != elements_.end();
    if (present_.empty()) present_.insert(elements_.begin(), elements_.end());
    return present_.count(element) > 0;
}

void MeshComponent::add(int element) {
    if (element < 0) throw HostError("MeshComponent: negative element " + std::to_string(element));
    if (contains(element)) return;
    elements_.push_back(element);
    if (!present_.empty()) present_.insert(element);
}

std::string MeshComponent::selectionSuffix() const {
    std::vector<int> sorted = elements_;
    std::sort(sorted.begin(), sorted.end());
    std::string runs;
    for (std::size_t i = 0; i < sorted.size();) {
        std::size_t end = i;
        while (end + 1 < sorted.size() && sorted[end + 1] == sorted[end] + 1) ++end;
        runs += (runs.empty() ? "" : ",") + runText(sorted[i], sorted[end]);
        i = end + 1;
    }
    return std::string(".") + kindOf(type_)->name + "[" + runs + "]";
}

bool isMeshComponentType(MFn::Type type) { return kindOf(type) != nullptr; }

MeshComponent* meshComponentOf(const MObject& object) {
    return dynamic_cast<MeshComponent*>(object.hostObject().get());
}

int elementCountOf(MFn::Type type, const MeshTopology& mesh) {
    if (type == MFn::kMeshVertComponent) return mesh.numVertices();
    if (type == MFn::kMeshEdgeComponent) return mesh.numEdges();
    return mesh.numFaces();
}

bool looksLikeMeshComponent(const std::string& text) {
    const std::size_t open = text.find('[');
    return open != std::string::npos && text.back() == ']' && kindNamed(text.substr(0, open));
}

MeshComponentPtr parseMeshComponent(const std::string& text, const MeshTopology& mesh) {
    if (!looksLikeMeshComponent(text)) return nullptr;
    const std::size_t open = text.find('[');
    const ComponentKind* kind = kindNamed(text.substr(0, open));
    auto component = std::make_shared<MeshComponent>(kind->type);
    const int count = elementCountOf(kind->type, mesh);
    const std::string inside = text.substr(open + 1, text.size() - open - 2);
    std::size_t from = 0;
    while (true) {
        const std::size_t comma = inside.find(',', from);
        if (!addEntry(inside.substr(from, comma - from), count, *component)) return nullptr;
        if (comma == std::string::npos) return component;
        from = comma + 1;
    }
}

}  // namespace mhost
