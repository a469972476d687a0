#include "mesh/UvSets.h"

#include <algorithm>

#include "core/ApiObject.h"

namespace mhost {
namespace {

[[noreturn]] void fail(const std::string& message) { throw HostError("UvSets: " + message); }

// The set called `name` in a const or mutable list.
template <class Sets>
auto& findIn(Sets& sets, const std::string& name) {
    const auto found =
        std::find_if(sets.begin(), sets.end(), [&](const UvSet& set) { return set.name == name; });
    if (found == sets.end()) fail("no UV set named '" + name + "'");
    return *found;
}

int largestAssignedId(const UvSet& set) {
    const auto& ids = set.faceVertexUvIds;
    return ids.empty() ? -1 : *std::max_element(ids.begin(), ids.end());
}

}  // namespace

UvSets::UvSets(int numFaceVertices) : current_(kDefaultSetName) {
    sets_.push_back(UvSet{kDefaultSetName, {}, {}, std::vector<int>(numFaceVertices, -1)});
}

std::vector<std::string> UvSets::names() const {
    std::vector<std::string> result;
    for (const UvSet& set : sets_) result.push_back(set.name);
    return result;
}

bool UvSets::has(const std::string& name) const {
    return std::any_of(sets_.begin(), sets_.end(), [&](const UvSet& set) { return set.name == name; });
}

const UvSet& UvSets::get(const std::string& name) const { return findIn(sets_, name); }

UvSet& UvSets::find(const std::string& name) { return findIn(sets_, name); }

void UvSets::setCurrent(const std::string& name) {
    get(name);
    current_ = name;
}

void UvSets::create(const std::string& name) {
    if (name.empty() || has(name)) fail("cannot create UV set '" + name + "': empty or already used");
    const std::size_t size = sets_.front().faceVertexUvIds.size();
    sets_.push_back(UvSet{name, {}, {}, std::vector<int>(size, -1)});
}

void UvSets::setUvs(const std::string& name, std::vector<float> u, std::vector<float> v) {
    UvSet& set = find(name);
    if (u.size() != v.size()) fail("u and v arrays differ in length in set '" + name + "'");
    if (largestAssignedId(set) >= static_cast<int>(u.size())) {
        fail("set '" + name + "' still assigns UV ids beyond the new " + std::to_string(u.size()) + " UVs");
    }
    set.u = std::move(u);
    set.v = std::move(v);
}

void UvSets::assignUvs(const std::string& name, const CompressedRows& faces, const std::vector<int>& uvCounts,
                       const std::vector<int>& uvIds) {
    UvSet& set = find(name);
    if (static_cast<int>(uvCounts.size()) != faces.numRows()) fail("one UV count per polygon is needed");
    std::vector<int> assigned(faces.items.size(), -1);
    std::size_t next = 0;
    for (int f = 0; f < faces.numRows(); ++f) {
        const int size = faces.row(f).size();
        if (uvCounts[f] == 0) continue;
        if (uvCounts[f] != size)
            fail("the UV count of polygon " + std::to_string(f) + " is neither 0 nor its size");
        if (next + size > uvIds.size()) fail("fewer UV ids than the UV counts add up to");
        for (int k = 0; k < size; ++k, ++next) {
            if (uvIds[next] < 0 || uvIds[next] >= static_cast<int>(set.u.size())) {
                fail("UV id " + std::to_string(uvIds[next]) + " out of range in set '" + name + "'");
            }
            assigned[faces.offsets[f] + k] = uvIds[next];
        }
    }
    if (next != uvIds.size()) fail("more UV ids than the UV counts add up to");
    set.faceVertexUvIds = std::move(assigned);
}

void UvSets::appendUnassigned(int count) {
    for (UvSet& set : sets_) set.faceVertexUvIds.insert(set.faceVertexUvIds.end(), count, -1);
}

}  // namespace mhost
