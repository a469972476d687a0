#pragma once
// An editable copy of a mesh for the topological operations. Polygons are lists of corner ids; a
// corner knows its vertex and its UV id in every UV set, so an operation that cuts, joins or renumbers
// polygons moves corner ids around and the UVs follow without further work. Hard edges are kept by
// their end vertices, so they survive any renumbering of edges. build() makes the new MeshTopology.
//
// Draft corners start as the source's face-vertices (corner c is face-vertex c of the source).

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

class MeshDraft {
public:
    explicit MeshDraft(const MeshTopology& source);

    int numVertices() const { return static_cast<int>(points_.size()); }
    const Vec3f& point(int vertex) const { return points_.at(vertex); }
    // Appends a vertex and returns its id.
    int addVertex(const Vec3f& p);

    // Corner ids of every polygon in winding order; operations edit this list directly.
    std::vector<std::vector<int>>& polygons() { return polygons_; }
    const std::vector<std::vector<int>>& polygons() const { return polygons_; }
    // The vertex ids of one polygon.
    std::vector<int> polygonVertices(int polygon) const;

    int cornerVertex(int corner) const { return cornerVertex_.at(corner); }
    // Appends a corner on `vertex` with one UV id per UV set (-1: unassigned) and returns its id.
    int addCorner(int vertex, const std::vector<int>& uvIds);
    // Appends a corner on `vertex` with no UV in any set.
    int addCorner(int vertex) { return addCorner(vertex, std::vector<int>(numUvSets(), -1)); }

    int numUvSets() const { return static_cast<int>(uvSets_.size()); }
    // The corner's UV id in set `set`, -1 when unassigned.
    int cornerUv(int set, int corner) const { return uvSets_.at(set).cornerUv.at(corner); }
    // Appends the UV (u, v) to set `set` and returns its id.
    int addUv(int set, float u, float v);
    std::pair<float, float> uv(int set, int id) const;

    // An edge is hard when its two end vertices are listed here, in either order.
    bool isHard(int a, int b) const { return hardEdges_.count(edgeKey(a, b)) != 0; }
    void setHard(int a, int b) { hardEdges_.insert(edgeKey(a, b)); }

    // Gives vertex v the id newIds[v] and the position newPoints[newIds[v]]; corners and hard edges
    // follow. Every corner's vertex must keep an id (newIds[v] >= 0); vertices mapped to -1 disappear.
    // Hard edges whose ends become one vertex are dropped.
    void renumberVertices(const std::vector<int>& newIds, std::vector<Vec3f> newPoints);

    // The mesh with the draft's points, polygons, UV sets (a polygon gets UVs in a set only when all
    // its corners have one there) and hard edges. Throws HostError (from MeshTopology) on a polygon
    // with fewer than 3 corners or a repeated vertex. O(corners + edges).
    MeshTopology build() const;

private:
    struct DraftUvSet {
        std::string name;
        std::vector<float> u;
        std::vector<float> v;
        std::vector<int> cornerUv;
    };

    static std::pair<int, int> edgeKey(int a, int b) {
        return a < b ? std::make_pair(a, b) : std::make_pair(b, a);
    }
    void copyPolygons(const MeshTopology& source);
    void copyUvSets(const MeshTopology& source);
    void copyHardEdges(const MeshTopology& source);
    void buildUvSets(MeshTopology& mesh) const;
    void buildHardEdges(MeshTopology& mesh) const;

    std::vector<Vec3f> points_;
    std::vector<std::vector<int>> polygons_;
    std::vector<int> cornerVertex_;
    std::vector<DraftUvSet> uvSets_;
    std::string currentUvSet_;
    std::set<std::pair<int, int>> hardEdges_;
};

}  // namespace mhost
