#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "core/ApiObject.h"
#include "mesh/ProceduralMeshes.h"

using mhost::MeshTopology;
using mhost::Vec3;

namespace {

constexpr double kPi = 3.14159265358979323846;

struct Sample {
    std::string name;
    std::function<MeshTopology()> make;
    int vertices, faces, euler, boundaryEdges;
    double volume;  // of the smooth shape, for closed meshes (0 to skip): the facets cut up to 6% off it
};

// Enclosed volume by the divergence theorem over the faces' fans: positive when normals point out.
double signedVolume(const MeshTopology& mesh) {
    double volume = 0;
    for (int f = 0; f < mesh.numFaces(); ++f) {
        const auto corners = mesh.faceVertices(f);
        const Vec3 a(mesh.point(corners[0]));
        for (int k = 1; k + 1 < corners.size(); ++k) {
            volume += dot(a, cross(Vec3(mesh.point(corners[k])), Vec3(mesh.point(corners[k + 1])))) / 6;
        }
    }
    return volume;
}

std::vector<Sample> samples() {
    mhost::LimbShape bent;
    bent.bendAngle = 1.2;
    bent.taper = 0.4;
    bent.segments = 10;
    bent.sides = 9;
    bent.capRings = 3;
    // Closed ring surfaces: rings x sides vertices plus 2 poles; quads between rings plus 2 fans.
    return {
        {"plane 3x2", [] { return mhost::makePlaneGrid(3, 2, 3, 2); }, 12, 6, 1, 10, 0},
        {"plane 40x25", [] { return mhost::makePlaneGrid(1, 1, 40, 25); }, 41 * 26, 1000, 1, 130, 0},
        {"sphere 3x2", [] { return mhost::makeUvSphere(1, 3, 2); }, 5, 6, 2, 0, -1},
        {"sphere 40x20", [] { return mhost::makeUvSphere(2, 40, 20); }, 40 * 19 + 2, 40 * 20, 2, 0,
         4 * kPi * 8 / 3},
        {"torus 48x16", [] { return mhost::makeTorus(3, 1, 48, 16); }, 48 * 16, 48 * 16, 0, 0,
         2 * kPi * kPi * 3},
        {"straight limb", [] { return mhost::makeLimb({}); }, 12 * (9 + 8) + 2, 12 * (8 + 8 + 2), 2, 0,
         kPi * 0.25 * 4 + 4 * kPi * 0.125 / 3},
        {"bent limb", [bent] { return mhost::makeLimb(bent); }, 9 * (11 + 6) + 2, 9 * (10 + 6 + 2), 2, 0, -1},
    };
}

}  // namespace

TEST(ProceduralMeshes, CountsTopologyAndOutwardWinding) {
    for (const Sample& sample : samples()) {
        SCOPED_TRACE(sample.name);
        const MeshTopology mesh = sample.make();
        EXPECT_EQ(sample.vertices, mesh.numVertices());
        EXPECT_EQ(sample.faces, mesh.numFaces());
        EXPECT_EQ(sample.euler, mesh.numVertices() - mesh.numEdges() + mesh.numFaces());
        int boundary = 0;
        for (int e = 0; e < mesh.numEdges(); ++e) boundary += mesh.adjacency().isBoundaryEdge(e);
        EXPECT_EQ(sample.boundaryEdges, boundary);
        for (int count : mesh.polygonCounts()) EXPECT_TRUE(count == 4 || count == 3);
        for (const Vec3& n : mesh.faceNormals()) ASSERT_NEAR(1.0, length(n), 1e-9) << "a face without area";
        if (sample.euler == 1) continue;
        const double volume = signedVolume(mesh);
        EXPECT_GT(volume, 0) << "faces wound inward";
        if (sample.volume > 0) {
            EXPECT_NEAR(sample.volume, volume, 0.06 * sample.volume);
        }
    }
}

TEST(ProceduralMeshes, EveryFaceVertexHasAUvInTheUnitSquare) {
    for (const Sample& sample : samples()) {
        SCOPED_TRACE(sample.name);
        const MeshTopology mesh = sample.make();
        const auto& map = mesh.uvSets().get("map1");
        ASSERT_EQ(static_cast<std::size_t>(mesh.numFaceVertices()), map.faceVertexUvIds.size());
        for (int id : map.faceVertexUvIds) {
            ASSERT_GE(id, 0);
            ASSERT_LT(id, static_cast<int>(map.u.size()));
            EXPECT_TRUE(map.u[id] >= 0 && map.u[id] <= 1 && map.v[id] >= 0 && map.v[id] <= 1);
        }
    }
}

TEST(ProceduralMeshes, PlaneLayoutAndUvsFollowTheGrid) {
    const MeshTopology plane = mhost::makePlaneGrid(4, 2, 4, 2);
    EXPECT_EQ(mhost::Vec3f(-2, 0, 1), plane.point(0));
    EXPECT_EQ(mhost::Vec3f(2, 0, -1), plane.point(14));
    for (const Vec3& n : plane.faceNormals()) EXPECT_EQ(Vec3(0, 1, 0), n);
    const auto& map = plane.uvSets().get("map1");
    EXPECT_FLOAT_EQ(0.25f, map.u[map.faceVertexUvIds[1]]);
    EXPECT_FLOAT_EQ(1.0f, map.v[map.faceVertexUvIds.back()]);
}

TEST(ProceduralMeshes, SphereVerticesLieOnTheSphereAndLimbBends) {
    const MeshTopology sphere = mhost::makeUvSphere(2.5, 16, 8);
    for (int v = 0; v < sphere.numVertices(); ++v) EXPECT_NEAR(2.5, length(Vec3(sphere.point(v))), 1e-6);
    EXPECT_EQ(mhost::Vec3f(0, -2.5f, 0), sphere.point(sphere.numVertices() - 2)) << "south pole before north";

    mhost::LimbShape shape;
    shape.bendAngle = kPi / 2;
    const MeshTopology limb = mhost::makeLimb(shape);
    // A quarter turn: the axis ends at (length / turn) * (1, 1, 0) heading +X; the tip pole is one
    // radius further.
    const double arc = shape.length / shape.bendAngle;
    EXPECT_NEAR(arc + shape.radius, limb.point(limb.numVertices() - 1).x, 1e-5);
    EXPECT_NEAR(arc, limb.point(limb.numVertices() - 1).y, 1e-5);
}

TEST(ProceduralMeshes, RejectsSizesAndDivisionsThatMakeNoMesh) {
    EXPECT_THROW(mhost::makePlaneGrid(0, 1, 1, 1), mhost::HostError);
    EXPECT_THROW(mhost::makePlaneGrid(1, 1, 0, 1), mhost::HostError);
    EXPECT_THROW(mhost::makeUvSphere(1, 2, 4), mhost::HostError);
    EXPECT_THROW(mhost::makeUvSphere(std::nan(""), 8, 4), mhost::HostError);
    EXPECT_THROW(mhost::makeTorus(1, 0.5, 8, 2), mhost::HostError);
    mhost::LimbShape shape;
    shape.taper = 1.0;
    EXPECT_THROW(mhost::makeLimb(shape), mhost::HostError);
}
