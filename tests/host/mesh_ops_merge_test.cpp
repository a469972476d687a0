#include <gtest/gtest.h>

#include "core/ApiObject.h"
#include "mesh/ProceduralMeshes.h"
#include "mesh/ops/MergeVertices.h"
#include "mesh/ops/MoveVertices.h"
#include "support/MeshOpsChecks.h"

using meshops::cornersOf;
using meshops::cornerUvs;
using meshops::expectOrientedManifold;
using meshops::expectPointNear;
using mhost::HostError;
using mhost::mergeVertices;
using mhost::MeshTopology;
using mhost::Vec3;
using mhost::Vec3f;

namespace {

// Two unit quads side by side, facing +Y, each with its own vertices: 1 and 4, 2 and 7 coincide.
// Every corner has its own UV.
MeshTopology twoLooseQuads() {
    MeshTopology mesh(
        {{0, 0, 0}, {1, 0, 0}, {1, 0, -1}, {0, 0, -1}, {1, 0, 0}, {2, 0, 0}, {2, 0, -1}, {1, 0, -1}}, {4, 4},
        {0, 1, 2, 3, 4, 5, 6, 7});
    mesh.setUvs("map1", {0, .5f, .5f, 0, .5f, 1, 1, .5f}, {0, 0, 1, 1, 0, 0, 1, 1});
    mesh.assignUvs("map1", {4, 4}, {0, 1, 2, 3, 4, 5, 6, 7});
    return mesh;
}

std::vector<int> allVertices(const MeshTopology& mesh) {
    std::vector<int> ids(mesh.numVertices());
    for (int v = 0; v < mesh.numVertices(); ++v) ids[v] = v;
    return ids;
}

}  // namespace

TEST(MeshOpsMerge, CoincidentVerticesWeldAndLaterIdsCloseTheGap) {
    MeshTopology mesh = twoLooseQuads();
    mesh.setEdgeSmooth(mesh.adjacency().findEdge(5, 6), false);
    const auto result = mergeVertices(mesh, allVertices(mesh), 0.001, false);
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3, 1, 4, 5, 2}), result.vertexMap);
    EXPECT_EQ(6, result.mesh.numVertices());
    EXPECT_EQ((std::vector<int>{1, 4, 5, 2}), cornersOf(result.mesh, 1));
    EXPECT_EQ(7, result.mesh.numEdges());
    EXPECT_EQ(6, meshops::boundaryEdgeCount(result.mesh));
    expectOrientedManifold(result.mesh);
    EXPECT_EQ(cornerUvs(mesh, 1), cornerUvs(result.mesh, 1)) << "UVs stay with their corners";
    EXPECT_FALSE(result.mesh.isEdgeSmooth(result.mesh.adjacency().findEdge(4, 5)))
        << "hardness follows the edge";
    EXPECT_TRUE(result.mesh.isEdgeSmooth(result.mesh.adjacency().findEdge(1, 2)));
}

TEST(MeshOpsMerge, AlwaysMergeWeldsExactlyTwoVerticesWhateverTheDistance) {
    const MeshTopology mesh = twoLooseQuads();
    const auto merged = mergeVertices(mesh, {5, 1}, 0, true);
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3, 4, 1, 5, 6}), merged.vertexMap);
    expectPointNear({1.5, 0, 0}, merged.mesh.point(1));
    EXPECT_EQ((std::vector<int>{4, 1, 5, 6}), cornersOf(merged.mesh, 1));

    const auto apart = mergeVertices(mesh, {1, 5}, 0.01, false);
    EXPECT_EQ(8, apart.mesh.numVertices()) << "without -am the distance rules";
    const auto three = mergeVertices(mesh, {0, 1, 5}, 0.01, true);
    EXPECT_EQ(8, three.mesh.numVertices()) << "-am only concerns a pair";
}

TEST(MeshOpsMerge, WeldingAlongAChainOfNearVerticesMakesOneVertexAtTheCentroid) {
    const MeshTopology loose({{0, 0, 0}, {0.6f, 0, 0}, {1.2f, 0, 0}, {5, 0, 0}}, {}, {});
    const auto result = mergeVertices(loose, allVertices(loose), 0.7, false);
    EXPECT_EQ((std::vector<int>{0, 0, 0, 1}), result.vertexMap);
    expectPointNear({0.6, 0, 0}, result.mesh.point(0));
}

TEST(MeshOpsMerge, CollapsedEdgesTurnQuadsIntoTrianglesAndCollapsedPolygonsGo) {
    const MeshTopology grid = mhost::makePlaneGrid(2, 1, 2, 1);  // faces [0 1 4 3], [1 2 5 4]
    const auto quads = mergeVertices(grid, {1, 4}, 0, true);
    ASSERT_EQ(2, quads.mesh.numFaces());
    EXPECT_EQ((std::vector<int>{0, 1, 3}), cornersOf(quads.mesh, 0));
    EXPECT_EQ((std::vector<int>{1, 2, 4}), cornersOf(quads.mesh, 1));
    expectOrientedManifold(quads.mesh);
    EXPECT_EQ(3u, cornerUvs(quads.mesh, 0).size()) << "the surviving corners keep their UVs";

    const MeshTopology fan({{0, 0, 0}, {1, 0, 0}, {1, 0, -1}, {0, 0, -1}}, {3, 3}, {0, 1, 2, 0, 2, 3});
    const auto triangles = mergeVertices(fan, {1, 2}, 0, true);
    ASSERT_EQ(1, triangles.mesh.numFaces()) << "the triangle on the welded edge disappears";
    EXPECT_EQ((std::vector<int>{0, 1, 2}), cornersOf(triangles.mesh, 0));
}

TEST(MeshOpsMerge, PolygonMeetingAWeldedVertexTwiceIsCutIntoLoops) {
    const MeshTopology pentagon({{0, 0, 0}, {1, 0, 0}, {1.5f, 0, -1}, {0.5f, 0, -2}, {-0.5f, 0, -1}}, {5},
                                {0, 1, 2, 3, 4});
    const auto result = mergeVertices(pentagon, {0, 2}, 0, true);
    ASSERT_EQ(1, result.mesh.numFaces()) << "the two-corner loop 0-1 is dropped";
    EXPECT_EQ((std::vector<int>{0, 2, 3}), cornersOf(result.mesh, 0));
    EXPECT_EQ(4, result.mesh.numVertices()) << "a vertex left without polygons is kept";
}

// The border fuse the tool performs: both borders moved onto their midpoints, then welded pairwise.
TEST(MeshOpsMerge, MovedBordersWeldIntoOneGrid) {
    const MeshTopology near = mhost::makePlaneGrid(3, 1, 3, 1);
    MeshTopology far = mhost::makePlaneGrid(3, 1, 3, 1);
    for (int v = 0; v < far.numVertices(); ++v)
        far.setPoint(v, Vec3f(Vec3(far.point(v)) + Vec3(0, 0.1, -1.2)));
    MeshTopology mesh = meshops::glued(near, far);
    std::vector<int> fused;
    for (int i = 0; i < 4; ++i) {
        const int a = 4 + i;  // near's far row
        const int b = 8 + i;  // far's near row
        const Vec3 mid = (Vec3(mesh.point(a)) + Vec3(mesh.point(b))) * 0.5;
        mesh = mhost::moveVertices(mesh, {a, b}, mid, false);
        fused.insert(fused.end(), {a, b});
    }
    const auto result = mergeVertices(mesh, fused, 0.01, true);
    EXPECT_EQ(12, result.mesh.numVertices());
    EXPECT_EQ(6, result.mesh.numFaces());
    EXPECT_EQ(17, result.mesh.numEdges());
    EXPECT_EQ(10, meshops::boundaryEdgeCount(result.mesh));
    expectOrientedManifold(result.mesh);
}

TEST(MeshOpsMerge, BadInputThrowsAndBuildsNothing) {
    const MeshTopology mesh = twoLooseQuads();
    EXPECT_THROW(mergeVertices(mesh, {}, 0.1, false), HostError);
    EXPECT_THROW(mergeVertices(mesh, {0, 8}, 0.1, false), HostError);
    EXPECT_THROW(mergeVertices(mesh, {-1}, 0.1, false), HostError);
    EXPECT_THROW(mergeVertices(mesh, {0, 1}, -0.1, false), HostError);
    EXPECT_THROW(mergeVertices(mesh, {0, 1}, std::nan(""), false), HostError);
}
