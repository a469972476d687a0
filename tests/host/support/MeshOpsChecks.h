#pragma once
// Helpers shared by the tests of the topological mesh operations: meshes glued from parts, and the
// invariants every operation must keep.

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "mesh/MeshTopology.h"

namespace meshops {

using mhost::MeshTopology;
using mhost::Vec3;
using mhost::Vec3f;

inline std::vector<int> cornersOf(const MeshTopology& mesh, int face) {
    return mesh.faceVertices(face).toVector();
}

// Both meshes in one: b's vertices and polygons follow a's, with no UVs.
inline MeshTopology glued(const MeshTopology& a, const MeshTopology& b) {
    std::vector<Vec3f> points;
    std::vector<int> counts;
    std::vector<int> connects;
    for (const MeshTopology* part : {&a, &b}) {
        const int base = static_cast<int>(points.size());
        for (int v = 0; v < part->numVertices(); ++v) points.push_back(part->point(v));
        for (int count : part->polygonCounts()) counts.push_back(count);
        for (int v : part->faces().items) connects.push_back(base + v);
    }
    return MeshTopology(points, counts, connects);
}

inline int boundaryEdgeCount(const MeshTopology& mesh) {
    int count = 0;
    for (int e = 0; e < mesh.numEdges(); ++e) count += mesh.adjacency().isBoundaryEdge(e) ? 1 : 0;
    return count;
}

// Every edge has one or two polygons, and two polygons on an edge run along it in opposite
// directions: the surface stays a consistently wound manifold.
inline void expectOrientedManifold(const MeshTopology& mesh) {
    std::map<std::pair<int, int>, int> directedUses;
    for (int f = 0; f < mesh.numFaces(); ++f) {
        const auto corners = mesh.faceVertices(f);
        for (int k = 0; k < corners.size(); ++k)
            ++directedUses[{corners[k], corners[(k + 1) % corners.size()]}];
    }
    for (const auto& [edge, uses] : directedUses) {
        EXPECT_EQ(1, uses) << "edge " << edge.first << "->" << edge.second << " runs the same way twice";
    }
    for (int e = 0; e < mesh.numEdges(); ++e)
        EXPECT_LE(mesh.adjacency().edgeFaces(e).size(), 2) << "edge " << e;
}

inline void expectPointNear(const Vec3& expected, const Vec3f& actual, double tolerance = 1e-6) {
    EXPECT_NEAR(expected.x, actual.x, tolerance);
    EXPECT_NEAR(expected.y, actual.y, tolerance);
    EXPECT_NEAR(expected.z, actual.z, tolerance);
}

// The UVs (u, v) at each corner of a polygon in `set`; empty when the polygon has none there.
inline std::vector<std::pair<float, float>> cornerUvs(const MeshTopology& mesh, int face,
                                                      const char* set = "map1") {
    const auto& uvSet = mesh.uvSets().get(set);
    std::vector<std::pair<float, float>> uvs;
    for (int c = mesh.faces().offsets[face]; c < mesh.faces().offsets[face + 1]; ++c) {
        const int id = uvSet.faceVertexUvIds[c];
        if (id < 0) return {};
        uvs.emplace_back(uvSet.u[id], uvSet.v[id]);
    }
    return uvs;
}

}  // namespace meshops
