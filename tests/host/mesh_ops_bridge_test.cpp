#include <gtest/gtest.h>

#include <cmath>

#include "core/ApiObject.h"
#include "mesh/ProceduralMeshes.h"
#include "mesh/ops/BridgeEdges.h"
#include "support/MeshOpsChecks.h"

using meshops::boundaryEdgeCount;
using meshops::cornerUvs;
using meshops::expectOrientedManifold;
using meshops::expectPointNear;
using mhost::bridgeEdges;
using mhost::HostError;
using mhost::MeshTopology;
using mhost::Vec3;
using mhost::Vec3f;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kThirtyDegrees = kPi / 6;

MeshTopology shifted(MeshTopology mesh, const Vec3& offset) {
    for (int v = 0; v < mesh.numVertices(); ++v) mesh.setPoint(v, Vec3f(Vec3(mesh.point(v)) + offset));
    return mesh;
}

// Two 3 x 1 grids facing +Y: vertices 0..7 at z 0.5 and -0.5, vertices 8..15 at z -1.5 and -2.5. The
// gap lies between the rows 4..7 and 8..11. Each vertex has one UV, (x, z).
MeshTopology twoStrips() {
    MeshTopology mesh = meshops::glued(mhost::makePlaneGrid(3, 1, 3, 1),
                                       shifted(mhost::makePlaneGrid(3, 1, 3, 1), {0, 0, -2}));
    std::vector<float> u, v;
    for (int i = 0; i < mesh.numVertices(); ++i) {
        u.push_back(mesh.point(i).x);
        v.push_back(mesh.point(i).z);
    }
    mesh.setUvs("map1", u, v);
    mesh.assignUvs("map1", mesh.polygonCounts(), mesh.faces().items);
    return mesh;
}

std::vector<int> edgesAlong(const MeshTopology& mesh, const std::vector<int>& row, bool closed = false) {
    std::vector<int> edges;
    const std::size_t n = row.size();
    for (std::size_t i = 0; i < (closed ? n : n - 1); ++i) {
        edges.push_back(mesh.adjacency().findEdge(row[i], row[(i + 1) % n]));
    }
    return edges;
}

std::vector<int> joined(std::vector<int> a, const std::vector<int>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// An open tube around Y of `sides` quads, bottom ring at y0 (ids 0..sides-1), top ring at y1; its first
// vertex at `turn` radians about Y.
MeshTopology tube(int sides, double y0, double y1, double turn) {
    std::vector<Vec3f> points;
    for (double y : {y0, y1}) {
        for (int k = 0; k < sides; ++k) {
            const double angle = turn + 2 * kPi * k / sides;
            points.emplace_back(Vec3(std::cos(angle), y, std::sin(angle)));
        }
    }
    std::vector<int> connects;
    for (int k = 0; k < sides; ++k) {
        const int next = (k + 1) % sides;
        connects.insert(connects.end(), {k, sides + k, sides + next, next});
    }
    return MeshTopology(points, std::vector<int>(sides, 4), connects);
}

std::vector<int> range(int first, int count) {
    std::vector<int> ids(count);
    for (int i = 0; i < count; ++i) ids[i] = first + i;
    return ids;
}

}  // namespace

TEST(MeshOpsBridge, ChainsJoinedByOneRowOfQuadsMakeOneGrid) {
    const MeshTopology mesh = twoStrips();
    const auto edges = joined(edgesAlong(mesh, {4, 5, 6, 7}), edgesAlong(mesh, {11, 10, 9, 8}));
    const MeshTopology bridged = bridgeEdges(mesh, joined(edges, {edges[0]}), 0, kThirtyDegrees);
    EXPECT_EQ(16, bridged.numVertices()) << "a repeated edge counts once";
    EXPECT_EQ(9, bridged.numFaces());
    EXPECT_EQ(24, bridged.numEdges());
    EXPECT_EQ(12, boundaryEdgeCount(bridged));
    expectOrientedManifold(bridged);
    for (int i = 0; i < 4; ++i) EXPECT_GE(bridged.adjacency().findEdge(4 + i, 8 + i), 0) << "rung " << i;
    for (int f = 0; f < 6; ++f) EXPECT_EQ(cornerUvs(mesh, f), cornerUvs(bridged, f)) << "face " << f;
    for (int f = 6; f < 9; ++f) EXPECT_TRUE(cornerUvs(bridged, f).empty()) << "new face " << f;
}

TEST(MeshOpsBridge, DivisionsAddInterpolatedRowsFromTheFirstListedSide) {
    const MeshTopology mesh = twoStrips();
    const auto edges = joined(edgesAlong(mesh, {8, 9, 10, 11}), edgesAlong(mesh, {4, 5, 6, 7}));
    const MeshTopology bridged = bridgeEdges(mesh, edges, 2, kThirtyDegrees);
    EXPECT_EQ(16 + 8, bridged.numVertices());
    EXPECT_EQ(6 + 9, bridged.numFaces());
    expectOrientedManifold(bridged);
    // Side A is the far strip, walked the way its quads run along the row: from 8 to 11.
    expectPointNear({-1.5, 0, -1.5 + 1.0 / 3}, bridged.point(16));
    expectPointNear({1.5, 0, -1.5 + 1.0 / 3}, bridged.point(19));
    expectPointNear({-1.5, 0, -1.5 + 2.0 / 3}, bridged.point(20));
    EXPECT_EQ((std::vector<int>{9, 8, 16, 17}), meshops::cornersOf(bridged, 6));
}

TEST(MeshOpsBridge, LoopsPairAtTheStartAndDirectionOfLeastDistance) {
    constexpr int kSides = 6;
    // B is turned by two steps and listed backwards: only the right pairing keeps the bridge straight.
    const MeshTopology mesh = meshops::glued(tube(kSides, 0, 1, 0), tube(kSides, 2, 3, 2 * 2 * kPi / kSides));
    auto bottomOfB = range(2 * kSides, kSides);
    std::reverse(bottomOfB.begin(), bottomOfB.end());
    const auto edges =
        joined(edgesAlong(mesh, range(kSides, kSides), true), edgesAlong(mesh, bottomOfB, true));
    const MeshTopology bridged = bridgeEdges(mesh, edges, 1, kThirtyDegrees);
    EXPECT_EQ(5 * kSides, bridged.numVertices());
    EXPECT_EQ(4 * kSides, bridged.numFaces());
    EXPECT_EQ(2 * kSides, boundaryEdgeCount(bridged));
    expectOrientedManifold(bridged);
    for (int v = 4 * kSides; v < 5 * kSides; ++v) {
        const Vec3 p(bridged.point(v));
        EXPECT_NEAR(1.5, p.y, 1e-6);
        EXPECT_NEAR(1.0, std::hypot(p.x, p.z), 1e-6) << "vertex " << v << " halves a skewed pair";
    }
}

TEST(MeshOpsBridge, SmoothingAngleDecidesTheNewEdgesOnly) {
    const MeshTopology mesh = twoStrips();
    const auto edges = joined(edgesAlong(mesh, {4, 5, 6, 7}), edgesAlong(mesh, {8, 9, 10, 11}));
    const MeshTopology hard = bridgeEdges(mesh, edges, 1, 0);
    const MeshTopology soft = bridgeEdges(mesh, edges, 1, kThirtyDegrees);
    const int middleRow = hard.adjacency().findEdge(17, 18);
    const int rung = hard.adjacency().findEdge(5, 18);  // side A runs 7, 6, 5, 4
    EXPECT_FALSE(hard.isEdgeSmooth(middleRow));
    EXPECT_FALSE(hard.isEdgeSmooth(rung));
    EXPECT_TRUE(soft.isEdgeSmooth(middleRow));
    EXPECT_TRUE(soft.isEdgeSmooth(rung));
    EXPECT_TRUE(hard.isEdgeSmooth(hard.adjacency().findEdge(5, 6))) << "a former border edge keeps its flag";
}

TEST(MeshOpsBridge, BadSidesThrowAndBuildNothing) {
    const MeshTopology mesh = twoStrips();
    const auto near = edgesAlong(mesh, {4, 5, 6, 7});
    const auto far = edgesAlong(mesh, {8, 9, 10, 11});
    EXPECT_THROW(bridgeEdges(mesh, {}, 0, 0), HostError);
    EXPECT_THROW(bridgeEdges(mesh, {mesh.numEdges()}, 0, 0), HostError);
    EXPECT_THROW(bridgeEdges(mesh, joined(near, far), -1, 0), HostError);
    EXPECT_THROW(bridgeEdges(mesh, near, 0, 0), HostError) << "one side only";
    EXPECT_THROW(bridgeEdges(mesh, joined(near, {far[0], far[1]}), 0, 0), HostError) << "lengths differ";
    EXPECT_THROW(bridgeEdges(mesh, {near[0], far[0], mesh.adjacency().findEdge(1, 5)}, 0, 0), HostError)
        << "an inner edge";

    // Two triangles meeting at vertex 0: its four border edges branch.
    const MeshTopology bowTie({{0, 0, 0}, {1, 0, 0}, {1, 0, -1}, {-1, 0, 0}, {-1, 0, 1}}, {3, 3},
                              {0, 1, 2, 0, 3, 4});
    const auto& adjacency = bowTie.adjacency();
    EXPECT_THROW(
        bridgeEdges(bowTie, {adjacency.findEdge(0, 1), adjacency.findEdge(0, 2), adjacency.findEdge(0, 3)}, 0,
                    0),
        HostError);

    const MeshTopology tubeAndStrip = meshops::glued(tube(3, 0, 1, 0), mhost::makePlaneGrid(3, 1, 3, 1));
    EXPECT_THROW(
        bridgeEdges(tubeAndStrip,
                    joined(edgesAlong(tubeAndStrip, {3, 4, 5}, true), edgesAlong(tubeAndStrip, {6, 7, 8, 9})),
                    0, 0),
        HostError)
        << "a loop cannot be bridged to a chain";
}
