#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <set>

#include "core/ApiObject.h"
#include "mesh/MeshNormals.h"
#include "mesh/MeshTopology.h"
#include "mesh/ProceduralMeshes.h"
#include "mesh/VertexFans.h"

using mhost::HostError;
using mhost::MeshTopology;
using mhost::Vec3;
using mhost::Vec3f;

namespace {

std::vector<int> cornersOf(const MeshTopology& mesh, int face) { return mesh.faceVertices(face).toVector(); }

// The normal of face-vertex `corner`, with the face it belongs to found from the offsets.
Vec3 cornerNormal(const MeshTopology& mesh, int corner) {
    const std::vector<int>& offsets = mesh.faces().offsets;
    const int face =
        static_cast<int>(std::upper_bound(offsets.begin(), offsets.end(), corner) - offsets.begin()) - 1;
    return mesh.faceVertexNormal(face, corner);
}

void expectNear(const Vec3& expected, const Vec3& actual, double tolerance = 1e-9) {
    EXPECT_NEAR(expected.x, actual.x, tolerance);
    EXPECT_NEAR(expected.y, actual.y, tolerance);
    EXPECT_NEAR(expected.z, actual.z, tolerance);
}

// Every relation of the adjacency agrees with the polygons and with the others.
void expectConsistentAdjacency(const MeshTopology& mesh) {
    const auto& adjacency = mesh.adjacency();
    for (int f = 0; f < mesh.numFaces(); ++f) {
        const auto corners = mesh.faceVertices(f);
        const auto edges = adjacency.faceEdges(f);
        ASSERT_EQ(corners.size(), edges.size());
        for (int k = 0; k < corners.size(); ++k) {
            EXPECT_EQ(edges[k], adjacency.findEdge(corners[k], corners[(k + 1) % corners.size()]));
            const auto faces = adjacency.edgeFaces(edges[k]);
            EXPECT_NE(faces.end(), std::find(faces.begin(), faces.end(), f));
            const auto around = adjacency.vertexFaces(corners[k]);
            EXPECT_NE(around.end(), std::find(around.begin(), around.end(), f));
        }
    }
    for (int e = 0; e < adjacency.numEdges(); ++e) {
        const auto [a, b] = adjacency.edgeVertices(e);
        for (int v : {a, b}) {
            const auto edges = adjacency.vertexEdges(v);
            EXPECT_NE(edges.end(), std::find(edges.begin(), edges.end(), e));
        }
        if (adjacency.isBoundaryEdge(e)) {
            EXPECT_TRUE(adjacency.isBoundaryVertex(a) && adjacency.isBoundaryVertex(b));
        }
    }
}

// The unit square in the XZ plane, facing +Y: vertices 0..3, one face.
MeshTopology unitSquare() {
    MeshTopology mesh;
    mesh.addPolygon({{0, 0, 0}, {1, 0, 0}, {1, 0, -1}, {0, 0, -1}}, true, 0.01);
    return mesh;
}

}  // namespace

TEST(MeshMerge, ReusesCornersWithinToleranceAndNumbersNewOnesInOrder) {
    MeshTopology mesh = unitSquare();
    // Shares the square's right edge (vertices 1 and 2), within tolerance but not exactly.
    const int face = mesh.addPolygon({{1.004, 0, 0.003}, {2, 0, 0}, {2, 0, -1}, {1, 0, -1.005}}, true, 0.01);
    EXPECT_EQ(1, face);
    EXPECT_EQ((std::vector<int>{1, 4, 5, 2}), cornersOf(mesh, 1));
    EXPECT_EQ(6, mesh.numVertices());
    EXPECT_EQ(Vec3f(1, 0, 0), mesh.point(1)) << "a reused vertex keeps its position";
    EXPECT_EQ(7, mesh.numEdges());
    expectConsistentAdjacency(mesh);
}

TEST(MeshMerge, CornerReusesVertexMadeByEarlierCornerOfSamePolygon) {
    MeshTopology mesh;
    // The fifth corner falls on the first: the pentagon becomes a quad on 4 new vertices.
    EXPECT_EQ(0, mesh.addPolygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.001, 0, 0}}, true, 0.01));
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3}), cornersOf(mesh, 0));
    EXPECT_EQ(4, mesh.numVertices());
    // Without merging the same corners make five vertices.
    MeshTopology unmerged;
    unmerged.addPolygon({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0.001, 0, 0}}, false, 0.01);
    EXPECT_EQ(5, unmerged.numVertices());
}

TEST(MeshMerge, ZeroToleranceMergesOnlyCoincidentPointsAndNearestWins) {
    MeshTopology mesh = unitSquare();
    mesh.addPolygon({{0, 0, 0}, {0, 0, 1}, {1e-6, 0, 1}}, true, 0.0);
    EXPECT_EQ((std::vector<int>{0, 4, 5}), cornersOf(mesh, 1));

    // Vertices 1 (0,0,-1) and 2 (1,0,-1) are both within 0.8 of (0.6,0,-1); vertex 2 is nearer.
    mesh.addPolygon({{0.6, 0, -1}, {0.5, 0, -3}, {3, 0, -3}}, true, 0.8);
    EXPECT_EQ(2, cornersOf(mesh, 2)[0]);
}

TEST(MeshMerge, MergeGridFollowsMovedPointsAndIsNotSharedByCopies) {
    MeshTopology mesh = unitSquare();
    mesh.addPolygon({{1, 0, 0}, {2, 0, 0}, {2, 0, -1}}, true, 0.01);  // builds the merge grid
    mesh.setPoint(4, Vec3f(5, 0, 5));
    mesh.addPolygon({{5, 0, 5}, {6, 0, 5}, {2, 0, 0}}, true, 0.01);
    EXPECT_EQ((std::vector<int>{4, 6, 7}), cornersOf(mesh, 2))
        << "reuses the moved vertex, not its old place";

    MeshTopology copy = mesh;
    copy.addPolygon({{9, 0, 9}, {10, 0, 9}, {10, 0, 10}}, true, 0.01);
    mesh.addPolygon({{9, 0, 9}, {10, 0, 9}, {5, 0, 5}}, true, 0.01);
    EXPECT_EQ((std::vector<int>{8, 9, 4}), cornersOf(mesh, 3))
        << "the copy's new vertices leaked into the original";
}

TEST(MeshMerge, RejectedPolygonLeavesMeshUntouched) {
    MeshTopology mesh = unitSquare();
    const auto version = mesh.version();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(mesh.addPolygon({{0, 0, 0}, {0.001, 0, 0}, {5, 0, 5}}, true, 0.01), HostError);
    EXPECT_THROW(mesh.addPolygon({{3, 0, 3}, {3.001, 0, 3}, {3, 0, 3.001}}, true, 0.01), HostError);
    EXPECT_THROW(mesh.addPolygon({{3, 0, 3}, {4, 0, 3}}, false, 0.0), HostError);
    EXPECT_THROW(mesh.addPolygon({{3, 0, 3}, {4, 0, nan}, {4, 0, 4}}, false, 0.0), HostError);
    EXPECT_THROW(mesh.addPolygon({{3, 0, 3}, {4, 0, 3}, {4, 0, 4}}, true, -1.0), HostError);
    EXPECT_EQ(4, mesh.numVertices());
    EXPECT_EQ(1, mesh.numFaces());
    EXPECT_EQ(version, mesh.version());
    // The merge grid was not polluted by the rejected corners.
    mesh.addPolygon({{3, 0, 3}, {4, 0, 3}, {4, 0, 4}}, true, 0.01);
    EXPECT_EQ((std::vector<int>{4, 5, 6}), cornersOf(mesh, 1));
}

TEST(MeshBuild, RejectsBadArraysNamingTheFault) {
    const std::vector<Vec3f> four{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    const float inf = std::numeric_limits<float>::infinity();
    struct Case {
        std::vector<Vec3f> points;
        std::vector<int> counts, connects;
        const char* message;
    } cases[] = {
        {four, {4}, {0, 1, 2, 4}, "uses vertex 4"},
        {four, {4}, {0, 1, 2, -1}, "uses vertex -1"},
        {four, {4}, {0, 1, 2, 1}, "uses vertex 1 twice"},
        {four, {3}, {0, 1, 2, 3}, "add up to 3 but there are 4"},
        {four, {3, 3}, {0, 1, 2, 3}, "add up to more"},
        {four, {2, 2}, {0, 1, 2, 3}, "has 2 corners"},
        {{{0, 0, 0}, {1, inf, 0}, {1, 1, 0}}, {3}, {0, 1, 2}, "point 1 is not finite"},
    };
    for (const Case& c : cases) {
        try {
            MeshTopology mesh(c.points, c.counts, c.connects);
            ADD_FAILURE() << "accepted a mesh that should fail with: " << c.message;
        } catch (const HostError& error) {
            EXPECT_NE(std::string::npos, std::string(error.what()).find(c.message)) << error.what();
        }
    }
}

TEST(MeshBuild, KeepsUnusedVerticesAndHandlesEmptyMesh) {
    MeshTopology mesh({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {7, 7, 7}}, {3}, {0, 1, 2});
    EXPECT_EQ(4, mesh.numVertices());
    EXPECT_TRUE(mesh.adjacency().vertexFaces(3).empty());
    EXPECT_EQ(Vec3(0, 0, 0), mesh.vertexNormals(true)[3]);
    EXPECT_EQ(Vec3(7, 7, 7), mesh.boundingBox().max);

    const MeshTopology empty;
    EXPECT_EQ(0, empty.numEdges());
    EXPECT_TRUE(empty.faceNormals().empty());
    EXPECT_TRUE(empty.boundingBox().isEmpty());
    EXPECT_THROW(empty.point(0), std::out_of_range);
    EXPECT_THROW(MeshTopology(empty).setPoints({{1, 1, 1}}), HostError);
}

TEST(MeshAdjacency, OpenGridEdgesInFirstAppearanceOrderAndBoundary) {
    const MeshTopology mesh = mhost::makePlaneGrid(2, 2, 2, 2);  // faces: [0,1,4,3], [1,2,5,4], ...
    const auto& adjacency = mesh.adjacency();
    EXPECT_EQ(12, adjacency.numEdges());
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3}), adjacency.faceEdges(0).toVector());
    EXPECT_EQ((std::vector<int>{4, 5, 6, 1}), adjacency.faceEdges(1).toVector());
    EXPECT_EQ(std::make_pair(1, 4), adjacency.edgeVertices(1))
        << "direction of the polygon that used it first";
    EXPECT_EQ(1, adjacency.findEdge(4, 1));
    EXPECT_EQ(-1, adjacency.findEdge(0, 4));
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3}), adjacency.vertexFaces(4).toVector());
    EXPECT_EQ(4, adjacency.vertexEdges(4).size());
    int boundaryEdges = 0;
    for (int e = 0; e < adjacency.numEdges(); ++e) boundaryEdges += adjacency.isBoundaryEdge(e);
    EXPECT_EQ(8, boundaryEdges);
    for (int v = 0; v < 9; ++v) EXPECT_EQ(v != 4, adjacency.isBoundaryVertex(v)) << "vertex " << v;
    EXPECT_THROW(adjacency.edgeFaces(12), std::out_of_range);
    expectConsistentAdjacency(mesh);
}

TEST(MeshAdjacency, ClosedMeshesHaveEulerCharacteristicAndTwoFacesPerEdge) {
    const struct {
        MeshTopology mesh;
        int euler;
    } closed[] = {{mhost::makeUvSphere(1, 8, 5), 2},
                  {mhost::makeUvSphere(2, 3, 2), 2},
                  {mhost::makeTorus(2, 0.5, 9, 4), 0}};
    for (const auto& [mesh, euler] : closed) {
        EXPECT_EQ(euler, mesh.numVertices() - mesh.numEdges() + mesh.numFaces());
        for (int e = 0; e < mesh.numEdges(); ++e) ASSERT_EQ(2, mesh.adjacency().edgeFaces(e).size());
        for (int v = 0; v < mesh.numVertices(); ++v) ASSERT_FALSE(mesh.adjacency().isBoundaryVertex(v));
        expectConsistentAdjacency(mesh);
    }
}

TEST(MeshAdjacency, NonManifoldEdgeWithThreeFacesIsNotBoundary) {
    MeshTopology mesh;
    // Three fins around the edge (0,0,0)-(0,1,0).
    mesh.addPolygon({{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}}, true, 1e-4);
    mesh.addPolygon({{0, 0, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}}, true, 1e-4);
    mesh.addPolygon({{0, 1, 0}, {0, 0, 0}, {-1, 0, -1}, {-1, 1, -1}}, true, 1e-4);
    const auto& adjacency = mesh.adjacency();
    const int spine = adjacency.findEdge(0, 1);
    EXPECT_EQ(0, spine);
    EXPECT_EQ((std::vector<int>{0, 1, 2}), adjacency.edgeFaces(spine).toVector());
    EXPECT_FALSE(adjacency.isBoundaryEdge(spine));
    EXPECT_EQ(10, mesh.numEdges());
    EXPECT_EQ((std::vector<int>{0, 3, 6, 7}), adjacency.vertexEdges(0).toVector());
    EXPECT_TRUE(adjacency.isBoundaryVertex(0)) << "it also ends the fins' boundary edges";
    expectConsistentAdjacency(mesh);
    // Face-vertex normals stay finite around the non-manifold edge.
    for (int corner = 0; corner < mesh.numFaceVertices(); ++corner)
        EXPECT_NEAR(1.0, mhost::length(cornerNormal(mesh, corner)), 1e-9);
}

TEST(MeshNormals, NewellHandlesConcaveAndNonPlanarPolygons) {
    MeshTopology mesh;
    // An L-shaped hexagon, counter-clockwise seen from +Z, whose first corner is reflex.
    mesh.addPolygon({{1, 1, 0}, {0, 1, 0}, {0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {1, 2, 0}}, false, 0);
    mesh.addPolygon({{1, 2, 5}, {2, 2, 5}, {2, 0, 5}, {0, 0, 5}, {0, 1, 5}, {1, 1, 5}}, false, 0);
    // A skew quad whose corners alternate 0.1 above and below z = 9.
    mesh.addPolygon({{0, 0, 9.1}, {1, 0, 8.9}, {1, 1, 9.1}, {0, 1, 8.9}}, false, 0);
    expectNear({0, 0, 1}, mesh.faceNormals()[0]);
    expectNear({0, 0, -1}, mesh.faceNormals()[1]);
    expectNear({0, 0, 1}, mesh.faceNormals()[2]);
}

TEST(MeshNormals, VertexNormalsWeightCornersByAngle) {
    // The corner at the origin of the box [-1, 0]^3, the +Z face split into two 45-degree triangles.
    const MeshTopology mesh(
        {{0, 0, 0}, {0, -1, 0}, {0, -1, -1}, {0, 0, -1}, {-1, 0, -1}, {-1, 0, 0}, {-1, -1, 0}}, {4, 4, 3, 3},
        {0, 1, 2, 3, 0, 3, 4, 5, 0, 5, 6, 0, 6, 1});
    expectNear({1, 0, 0}, mesh.faceNormals()[0]);
    expectNear({0, 1, 0}, mesh.faceNormals()[1]);
    expectNear({0, 0, 1}, mesh.faceNormals()[2]);
    expectNear(Vec3(1, 1, 1) * (1 / std::sqrt(3.0)), mesh.vertexNormals(true)[0]);
    expectNear(Vec3(1, 1, 2) * (1 / std::sqrt(6.0)), mesh.vertexNormals(false)[0]);
}

TEST(MeshNormals, HardEdgeSplitsFaceVertexNormals) {
    // Two quads folded 90 degrees along the edge (1,0,0)-(1,0,-1).
    MeshTopology mesh = unitSquare();
    mesh.addPolygon({{1, 0, -1}, {1, 0, 0}, {1, -1, 0}, {1, -1, -1}}, true, 1e-4);  // vertices 2, 1, 4, 5
    const int fold = mesh.adjacency().findEdge(1, 2);
    ASSERT_TRUE(mesh.isEdgeSmooth(fold));
    expectNear({1, 0, 0}, mesh.faceNormals()[1]);
    const Vec3 bisector = Vec3(1, 1, 0) * (1 / std::sqrt(2.0));
    expectNear(bisector, cornerNormal(mesh, 1));  // face 0, corner at vertex 1
    expectNear(bisector, cornerNormal(mesh, 5));  // face 1, same vertex
    expectNear({0, 1, 0}, cornerNormal(mesh, 0));

    const auto version = mesh.version();
    mesh.setEdgeSmooth(fold, false);
    EXPECT_NE(version, mesh.version());
    EXPECT_FALSE(mesh.isEdgeSmooth(fold));
    expectNear({0, 1, 0}, cornerNormal(mesh, 1));
    expectNear({1, 0, 0}, cornerNormal(mesh, 5));
    // A split corner's normal follows its face when a vertex of that face moves.
    mesh.setPoint(4, {1.5f, -1, 0});
    EXPECT_GT(mhost::length(mesh.faceNormals()[1] - Vec3(1, 0, 0)), 0.1);
    expectNear(mesh.faceNormals()[1], cornerNormal(mesh, 5));
    EXPECT_THROW(mesh.setEdgeSmooth(mesh.numEdges(), true), std::out_of_range);
}

// Two triangles on the same three vertices, wound opposite ways: every vertex normal sums to zero,
// and each corner takes its own face's normal instead.
TEST(MeshNormals, ACornerWhoseVertexNormalVanishesTakesItsFaceNormal) {
    const MeshTopology folded({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3, 3}, {0, 1, 2, 0, 2, 1});
    EXPECT_NEAR(0.0, mhost::length(folded.vertexNormals(true)[0]), 1e-12);
    expectNear({0, 0, 1}, cornerNormal(folded, 0));
    expectNear({0, 0, -1}, cornerNormal(folded, 3));
}

// Two triangles meeting only at vertex 0, in the XY and XZ planes, all edges smooth: no edge joins
// their corners at that vertex, so each keeps its own face's normal there, while the vertex normal
// blends both. Unsplit vertices share the vertex normal to the bit.
TEST(MeshNormals, APinchedVertexKeepsOneNormalPerFanAndOthersTakeTheVertexNormal) {
    const MeshTopology pinched({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}, {3, 3},
                               {0, 1, 2, 0, 3, 4});
    expectNear({0, 0, 1}, cornerNormal(pinched, 0));
    expectNear({0, 1, 0}, cornerNormal(pinched, 3));
    expectNear(Vec3(0, 1, 1) * (1 / std::sqrt(2.0)), pinched.vertexNormals(true)[0]);
    EXPECT_EQ(pinched.vertexNormals(true)[1], cornerNormal(pinched, 1));
    EXPECT_EQ(pinched.vertexNormals(true)[4], cornerNormal(pinched, 5));

    // Before and after a vertex moves, with the corners' normals read in between.
    MeshTopology sphere = mhost::makeUvSphere(1.0, 10, 6);
    for (int moves = 0; moves < 2; ++moves) {
        for (int corner = 0; corner < sphere.numFaceVertices(); ++corner)
            EXPECT_EQ(sphere.vertexNormals(true)[sphere.faces().items[corner]], cornerNormal(sphere, corner));
        sphere.setPoint(3, sphere.point(3) * 1.2f);
    }
}

// Whether a mesh can skip the corner grouping: only when no vertex could have two corner normals.
TEST(MeshNormals, WholeFansAreToldWithoutTheEdgeTable) {
    EXPECT_TRUE(mhost::everyVertexFanIsWhole(mhost::makeUvSphere(1.0, 10, 6)));
    EXPECT_TRUE(mhost::everyVertexFanIsWhole(mhost::makeTorus(3.0, 1.0, 12, 8)));
    MeshTopology withLoose({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {5, 5, 5}}, {3}, {0, 1, 2});
    EXPECT_TRUE(mhost::everyVertexFanIsWhole(withLoose)) << "a vertex no polygon uses has no fan to split";

    const MeshTopology pinched({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}, {3, 3},
                               {0, 1, 2, 0, 3, 4});
    EXPECT_FALSE(mhost::everyVertexFanIsWhole(pinched));
    // A third triangle sharing an edge with each of the pinched pair makes the fan whole again.
    const MeshTopology bridged({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}, {3, 3, 3},
                               {0, 1, 2, 0, 3, 4, 0, 2, 3});
    EXPECT_TRUE(mhost::everyVertexFanIsWhole(bridged));
    // Three fins on one edge: whole, though not manifold.
    MeshTopology fins;
    fins.addPolygon({{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 0}}, true, 1e-4);
    fins.addPolygon({{0, 0, 0}, {0, 1, 0}, {0, 1, 1}, {0, 0, 1}}, true, 1e-4);
    fins.addPolygon({{0, 1, 0}, {0, 0, 0}, {-1, 0, -1}, {-1, 1, -1}}, true, 1e-4);
    EXPECT_TRUE(mhost::everyVertexFanIsWhole(fins));

    MeshTopology folded = unitSquare();
    folded.addPolygon({{1, 0, -1}, {1, 0, 0}, {1, -1, 0}, {1, -1, -1}}, true, 1e-4);
    EXPECT_TRUE(mhost::everyVertexFanIsWhole(folded));
    folded.setEdgeSmooth(folded.adjacency().findEdge(1, 2), false);
    EXPECT_FALSE(mhost::everyVertexFanIsWhole(folded)) << "a hard edge always needs the full grouping";
}

TEST(MeshNormals, CachedResultsFollowPointEdits) {
    MeshTopology mesh = unitSquare();
    expectNear({0, 1, 0}, mesh.faceNormals()[0]);
    const MeshTopology before = mesh;
    mesh.setPoints({{0, 0, 0}, {0, 0, -1}, {0, 1, -1}, {0, 1, 0}});  // now in the YZ plane, facing +X
    expectNear({1, 0, 0}, mesh.faceNormals()[0]);
    expectNear({1, 0, 0}, mesh.vertexNormals(true)[2]);
    EXPECT_EQ(Vec3(0, 1, 0), mesh.boundingBox().max);
    expectNear({0, 1, 0}, before.faceNormals()[0]);  // a copy keeps its own results
    EXPECT_THROW(mesh.setPoint(0, Vec3f(std::nanf(""), 0, 0)), HostError);
}

// A sphere (triangle fans at the poles, quads between) with its vertices moved one by one: the
// normals brought up to date where they moved equal, to the last bit, those of the same points built
// afresh, and a copy taken before the moves keeps the normals it had.
// A mesh big enough for the whole-mesh passes to split over threads gives the bits a vertex-by-vertex
// recomputation gives, so no thread count changes an answer.
TEST(MeshNormals, PassesSplitOverThreadsMatchOneVertexAtATime) {
    const MeshTopology torus = mhost::makeTorus(3.0, 1.0, 420, 260);
    ASSERT_GT(torus.numVertices(), 100000);
    std::vector<int> all(torus.numVertices());
    std::iota(all.begin(), all.end(), 0);
    std::vector<int> faces(torus.numFaces());
    std::iota(faces.begin(), faces.end(), 0);
    std::vector<Vec3> faceNormals(faces.size()), vertexNormals(all.size());
    mhost::updateFaceNormals(torus, faces, faceNormals);
    mhost::updateVertexNormals(torus, faceNormals, all, true, vertexNormals);
    EXPECT_TRUE(faceNormals == mhost::computeFaceNormals(torus));
    EXPECT_TRUE(vertexNormals == torus.vertexNormals(true));
}

TEST(MeshNormals, VerticesMovedOneByOneGiveTheNormalsOfAFreshBuild) {
    MeshTopology sphere = mhost::makeUvSphere(1.0, 12, 7);
    const std::vector<Vec3> faceNormalsBefore = sphere.faceNormals();
    const std::vector<Vec3> angleNormalsBefore = sphere.vertexNormals(true);
    sphere.vertexNormals(false);
    const MeshTopology before = sphere;

    // Few enough to be updated in place: a pole, a seam vertex and a band vertex, one of them twice.
    for (int vertex : {0, 13, 40, 13})
        sphere.setPoint(vertex, sphere.point(vertex) * 1.3f + Vec3f(0.05f, 0, 0));
    const auto rebuilt = [](const MeshTopology& mesh) {
        std::vector<Vec3f> points;
        for (int v = 0; v < mesh.numVertices(); ++v) points.push_back(mesh.point(v));
        return MeshTopology(points, mesh.polygonCounts(), mesh.faces().items);
    };
    const MeshTopology fresh = rebuilt(sphere);
    EXPECT_EQ(fresh.faceNormals(), sphere.faceNormals());
    EXPECT_EQ(fresh.vertexNormals(true), sphere.vertexNormals(true));
    EXPECT_EQ(fresh.vertexNormals(false), sphere.vertexNormals(false));
    EXPECT_NE(angleNormalsBefore, sphere.vertexNormals(true));
    EXPECT_EQ(faceNormalsBefore, before.faceNormals());
    EXPECT_EQ(angleNormalsBefore, before.vertexNormals(true));

    // Past a quarter of the vertices the normals are computed whole again, with the same result.
    for (int v = 0; v < sphere.numVertices(); ++v) sphere.setPoint(v, sphere.point(v) * 0.5f);
    EXPECT_EQ(rebuilt(sphere).vertexNormals(true), sphere.vertexNormals(true));
}

TEST(MeshUvSets, DefaultSetGrowsWithPolygonsAndAssignmentsAreValidated) {
    MeshTopology mesh = unitSquare();
    EXPECT_EQ("map1", mesh.uvSets().currentName());
    EXPECT_EQ((std::vector<int>{-1, -1, -1, -1}), mesh.uvSets().get("map1").faceVertexUvIds);
    mesh.setUvs("map1", {0, 1, 1, 0}, {0, 0, 1, 1});
    mesh.assignUvs("map1", {4}, {0, 1, 2, 3});
    mesh.addPolygon({{1, 0, 0}, {2, 0, 0}, {2, 0, -1}}, true, 0.01);
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3, -1, -1, -1}), mesh.uvSets().get("map1").faceVertexUvIds);

    EXPECT_THROW(mesh.assignUvs("map1", {4, 2}, {0, 1, 2, 3, 0, 1}), HostError);  // 2 is not 0 or 3
    EXPECT_THROW(mesh.assignUvs("map1", {4, 0}, {0, 1, 2, 4}), HostError);        // no UV 4
    EXPECT_THROW(mesh.assignUvs("map1", {4, 0}, {0, 1, 2}), HostError);
    EXPECT_THROW(mesh.setUvs("map1", {0, 1}, {0, 1}), HostError) << "would orphan assigned UV ids";
    EXPECT_THROW(mesh.setUvs("map1", {0, 1}, {0}), HostError);
    EXPECT_THROW(mesh.assignUvs("nope", {0, 0}, {}), HostError);

    mesh.createUvSet("detail");
    EXPECT_THROW(mesh.createUvSet("detail"), HostError);
    mesh.setCurrentUvSet("detail");
    EXPECT_EQ((std::vector<std::string>{"map1", "detail"}), mesh.uvSets().names());
    EXPECT_EQ(7u, mesh.uvSets().get("detail").faceVertexUvIds.size());
}

TEST(MeshVersion, EveryChangeTakesANewVersionAndCopiesShareIt) {
    MeshTopology mesh = unitSquare();
    std::set<std::uint64_t> seen{mesh.version()};
    const MeshTopology copy = mesh;
    EXPECT_EQ(copy.version(), mesh.version());
    mesh.setPoint(0, Vec3f(0, 1, 0));
    EXPECT_TRUE(seen.insert(mesh.version()).second);
    mesh.addPolygon({{5, 0, 0}, {6, 0, 0}, {6, 0, 1}}, false, 0);
    EXPECT_TRUE(seen.insert(mesh.version()).second);
    mesh.setUvs("map1", {0.5f}, {0.5f});
    EXPECT_TRUE(seen.insert(mesh.version()).second);
    EXPECT_TRUE(seen.insert(MeshTopology().version()).second) << "versions are unique across meshes";
}
