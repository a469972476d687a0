#include <gtest/gtest.h>

#include <cmath>

#include "core/ApiObject.h"
#include "mesh/ProceduralMeshes.h"
#include "mesh/ops/SplitEdgeRing.h"
#include "support/MeshOpsChecks.h"

using meshops::cornersOf;
using meshops::cornerUvs;
using meshops::expectOrientedManifold;
using meshops::expectPointNear;
using mhost::HostError;
using mhost::MeshTopology;
using mhost::splitEdgeRing;
using mhost::Vec3;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kThirtyDegrees = kPi / 6;

int polygonsOfSize(const MeshTopology& mesh, int size) {
    int count = 0;
    for (int f = 0; f < mesh.numFaces(); ++f) count += mesh.faceVertices(f).size() == size ? 1 : 0;
    return count;
}

int eulerCharacteristic(const MeshTopology& mesh) {
    return mesh.numVertices() - mesh.numEdges() + mesh.numFaces();
}

// A 3 x 2 grid: vertex j * 4 + i at x = -1.5 + i, z = 1 - j, faces [a, a+1, a+5, a+4].
MeshTopology grid() { return mhost::makePlaneGrid(3, 2, 3, 2); }

}  // namespace

TEST(MeshOpsSplitRing, OpenRingCutsEachQuadOfTheColumnInTwo) {
    const MeshTopology mesh = grid();
    const MeshTopology split = splitEdgeRing(mesh, {mesh.adjacency().findEdge(0, 1)}, 0.25, kThirtyDegrees);
    EXPECT_EQ(12 + 3, split.numVertices());
    EXPECT_EQ(6 + 2, split.numFaces());
    EXPECT_EQ(8, polygonsOfSize(split, 4));
    expectOrientedManifold(split);
    // New vertices in ring order, a quarter of the way from the ring's start side (x = -1.5).
    for (int i = 0; i < 3; ++i) expectPointNear({-1.25, 0, 1.0 - i}, split.point(12 + i));
    EXPECT_EQ((std::vector<int>{0, 12, 13, 4}), cornersOf(split, 0)) << "the half with the first corner";
    EXPECT_EQ((std::vector<int>{12, 1, 5, 13}), cornersOf(split, 6)) << "the other half, appended";
    const auto uvs = cornerUvs(split, 6);
    ASSERT_EQ(4u, uvs.size());
    EXPECT_NEAR(0.25 / 3, uvs[0].first, 1e-6);
    EXPECT_NEAR(0.0, uvs[0].second, 1e-6);
    EXPECT_EQ(cornerUvs(split, 1), cornerUvs(mesh, 1)) << "untouched faces keep their UVs";
}

TEST(MeshOpsSplitRing, WeightRunsFromTheFirstListedEdgesFirstVertex) {
    const MeshTopology mesh = grid();
    const int edge = mesh.adjacency().findEdge(5, 6);  // inside, between faces 1 and 4
    const auto [from, to] = mesh.adjacency().edgeVertices(edge);
    ASSERT_EQ(6, from) << "face 1 runs along it from 6 to 5";
    const MeshTopology split =
        splitEdgeRing(mesh, {edge, mesh.adjacency().findEdge(1, 2)}, 0.1, kThirtyDegrees);
    EXPECT_EQ(12 + 3, split.numVertices()) << "both listed edges lie on one ring";
    // The listed edge sits in the middle of its ring.
    expectPointNear(Vec3(mesh.point(from)) + (Vec3(mesh.point(to)) - Vec3(mesh.point(from))) * 0.1,
                    split.point(13));
    for (int v = 12; v < 15; ++v) EXPECT_NEAR(0.4, split.point(v).x, 1e-6) << "the start side carries across";
}

TEST(MeshOpsSplitRing, ClosedRingAroundATorusAddsALoop) {
    const MeshTopology torus = mhost::makeTorus(2, 0.5, 8, 6);
    const MeshTopology split = splitEdgeRing(torus, {0}, 0.5, kThirtyDegrees);
    const int added = split.numVertices() - torus.numVertices();
    EXPECT_TRUE(added == 8 || added == 6) << added;
    EXPECT_EQ(torus.numFaces() + added, split.numFaces());
    EXPECT_EQ(split.numFaces(), polygonsOfSize(split, 4));
    EXPECT_EQ(0, meshops::boundaryEdgeCount(split));
    EXPECT_EQ(0, eulerCharacteristic(split));
    expectOrientedManifold(split);
}

TEST(MeshOpsSplitRing, RingStopsAtTrianglesWhichTakeTheNewVertex) {
    const MeshTopology sphere = mhost::makeUvSphere(1, 8, 4);  // 3 rings of quads between two fans
    int edge = -1;  // an edge of the lowest ring, between a quad and a pole triangle
    for (int e = 0; e < sphere.numEdges() && edge < 0; ++e) {
        const auto faces = sphere.adjacency().edgeFaces(e);
        if (faces.size() == 2 &&
            sphere.faceVertices(faces[0]).size() + sphere.faceVertices(faces[1]).size() == 7)
            edge = e;
    }
    ASSERT_GE(edge, 0);
    const MeshTopology split = splitEdgeRing(sphere, {edge}, 0.5, kThirtyDegrees);
    EXPECT_EQ(sphere.numVertices() + 3, split.numVertices());
    EXPECT_EQ(sphere.numFaces() + 2, split.numFaces());
    EXPECT_EQ(16 - 2, polygonsOfSize(split, 3)) << "a triangle at each end becomes a quad";
    EXPECT_EQ(2, eulerCharacteristic(split));
    expectOrientedManifold(split);
    for (int f = 0; f < split.numFaces(); ++f) EXPECT_FALSE(cornerUvs(split, f).empty()) << "face " << f;
}

TEST(MeshOpsSplitRing, SplitEdgesStayHardAndNewEdgesFollowTheSmoothingAngle) {
    MeshTopology mesh = grid();
    mesh.setEdgeSmooth(mesh.adjacency().findEdge(4, 5), false);
    const MeshTopology soft = splitEdgeRing(mesh, {mesh.adjacency().findEdge(0, 1)}, 0.5, kThirtyDegrees);
    const auto& adjacency = soft.adjacency();
    EXPECT_FALSE(soft.isEdgeSmooth(adjacency.findEdge(4, 13)));
    EXPECT_FALSE(soft.isEdgeSmooth(adjacency.findEdge(13, 5)));
    EXPECT_TRUE(soft.isEdgeSmooth(adjacency.findEdge(12, 13)));
    const MeshTopology hard = splitEdgeRing(mesh, {mesh.adjacency().findEdge(0, 1)}, 0.5, 0);
    EXPECT_FALSE(hard.isEdgeSmooth(hard.adjacency().findEdge(12, 13)));
}

TEST(MeshOpsSplitRing, BadInputThrows) {
    const MeshTopology mesh = grid();
    EXPECT_THROW(splitEdgeRing(mesh, {}, 0.5, 0), HostError);
    EXPECT_THROW(splitEdgeRing(mesh, {mesh.numEdges()}, 0.5, 0), HostError);
    EXPECT_THROW(splitEdgeRing(mesh, {0}, -0.1, 0), HostError);
    EXPECT_THROW(splitEdgeRing(mesh, {0}, 1.5, 0), HostError);
    EXPECT_THROW(splitEdgeRing(mesh, {0}, std::nan(""), 0), HostError);
}
