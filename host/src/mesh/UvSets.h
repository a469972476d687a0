#pragma once
// A mesh's named UV sets. Each set has its own u/v arrays and one UV id per face-vertex (-1 where no
// UV is assigned). A new mesh has the single set "map1", current, with no UVs.

#include <string>
#include <vector>

#include "mesh/IndexRange.h"

namespace mhost {

struct UvSet {
    std::string name;
    std::vector<float> u;
    std::vector<float> v;
    // Indexed like the mesh's face-vertex list (polygon by polygon, corner by corner).
    std::vector<int> faceVertexUvIds;
};

class UvSets {
public:
    static constexpr const char* kDefaultSetName = "map1";

    // "map1" with room for `numFaceVertices` unassigned face-vertices.
    explicit UvSets(int numFaceVertices = 0);

    std::vector<std::string> names() const;
    bool has(const std::string& name) const;
    // The set; throws HostError when there is none of that name.
    const UvSet& get(const std::string& name) const;
    const std::string& currentName() const { return current_; }
    // Throws HostError for an unknown name.
    void setCurrent(const std::string& name);
    // Adds an empty set with every face-vertex unassigned; throws HostError if the name is taken or empty.
    void create(const std::string& name);

    // Replaces the set's UV arrays (same lengths). Throws HostError if the lengths differ or if an
    // assigned UV id would no longer exist.
    void setUvs(const std::string& name, std::vector<float> u, std::vector<float> v);
    // Assigns UV ids polygon by polygon over the mesh's `faces`: uvCounts[f] is 0 (leave polygon f
    // unassigned) or its corner count; uvIds lists the ids of the assigned polygons' corners. Throws
    // HostError, changing nothing, on counts or ids that do not fit.
    void assignUvs(const std::string& name, const CompressedRows& faces, const std::vector<int>& uvCounts,
                   const std::vector<int>& uvIds);
    // Extends every set with `count` unassigned face-vertices, for a polygon appended to the mesh.
    void appendUnassigned(int count);

private:
    UvSet& find(const std::string& name);

    std::vector<UvSet> sets_;
    std::string current_;
};

}  // namespace mhost
