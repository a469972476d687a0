#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>

#include "core/ApiObject.h"
#include "mesh/FanTriangulation.h"
#include "mesh/MeshTopology.h"
#include "mesh/ProceduralMeshes.h"
#include "mesh/RayAccelerator.h"
#include "mesh/TriangleGeometry.h"

using mhost::HostError;
using mhost::MeshTopology;
using mhost::RayAccelerator;
using mhost::RayHit;
using mhost::RayQuery;
using mhost::Vec3;

namespace {

// The cube [-1, 1]^3, faces -Z, +Z, -X, +X, -Y, +Y in that order, normals out.
MeshTopology box() {
    return MeshTopology(
        {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1}, {-1, -1, 1}, {1, -1, 1}, {1, 1, 1}, {-1, 1, 1}},
        {4, 4, 4, 4, 4, 4}, {0, 3, 2, 1, 4, 5, 6, 7, 0, 4, 7, 3, 1, 2, 6, 5, 0, 1, 5, 4, 3, 7, 6, 2});
}

// 4 x 4 unit quads at y = 0: face (column i, row j) = 4j + i covers x in [i-2, i-1], z in [1-j, 2-j].
MeshTopology grid() { return mhost::makePlaneGrid(4, 4, 4, 4); }

RayQuery ray(const Vec3& origin, const Vec3& direction, bool bothDirections = false) {
    RayQuery query;
    query.origin = origin;
    query.direction = direction;
    query.bothDirections = bothDirections;
    return query;
}

std::vector<int> facesOf(const std::vector<RayHit>& hits) {
    std::vector<int> faces;
    for (const RayHit& hit : hits) faces.push_back(hit.faceId);
    return faces;
}

std::vector<double> paramsOf(const std::vector<RayHit>& hits) {
    std::vector<double> params;
    for (const RayHit& hit : hits) params.push_back(hit.param);
    return params;
}

void expectEachFaceOnce(const std::vector<RayHit>& hits) {
    std::map<int, int> count;
    for (const RayHit& hit : hits) EXPECT_EQ(1, ++count[hit.faceId]) << "face " << hit.faceId;
}

void expectNear(const Vec3& expected, const Vec3& actual, double tolerance = 1e-6) {
    EXPECT_NEAR(expected.x, actual.x, tolerance);
    EXPECT_NEAR(expected.y, actual.y, tolerance);
    EXPECT_NEAR(expected.z, actual.z, tolerance);
}

// The point a hit's barycentric pair names on its triangle.
Vec3 fromBarycentrics(const MeshTopology& mesh, int face, int triangle, double bary1, double bary2) {
    const auto fan = mhost::fanTriangulate(mesh.faces());
    const auto ids = fan.corners(fan.faceFirstTriangle[face] + triangle);
    return Vec3(mesh.point(ids[0])) * bary1 + Vec3(mesh.point(ids[1])) * bary2 +
           Vec3(mesh.point(ids[2])) * (1 - bary1 - bary2);
}

}  // namespace

TEST(MeshRays, BothDirectionsGiveNegativeParamsBehindAndSortAscending) {
    const MeshTopology mesh = box();
    const RayAccelerator accelerator(mesh);
    RayQuery query = ray({0.3, 0.2, 0.5}, {0, 0, 1}, true);
    auto hits = accelerator.allIntersections(query);
    EXPECT_EQ((std::vector<double>{-1.5, 0.5}), paramsOf(hits));
    EXPECT_EQ((std::vector<int>{0, 1}), facesOf(hits));
    expectNear({0.3, 0.2, -1}, hits[0].point);
    expectNear({0.3, 0.2, 1}, hits[1].point);

    query.sortHits = false;
    EXPECT_EQ((std::vector<double>{0.5, -1.5}), paramsOf(accelerator.allIntersections(query)))
        << "front first";
    query.maxParam = 1.0;
    EXPECT_EQ((std::vector<int>{1}), facesOf(accelerator.allIntersections(query)));
    query.maxParam = 1.5;
    EXPECT_EQ(2u, accelerator.allIntersections(query).size()) << "maxParam is inclusive";
    query.bothDirections = false;
    EXPECT_EQ((std::vector<int>{1}), facesOf(accelerator.allIntersections(query)));
}

TEST(MeshRays, ParamsCountInMultiplesOfTheDirectionAndMaxParamCuts) {
    const MeshTopology mesh = box();
    const RayAccelerator accelerator(mesh);
    RayQuery query = ray({0.3, 0.2, -5}, {0, 0, 2});
    EXPECT_EQ((std::vector<double>{2, 3}), paramsOf(accelerator.allIntersections(query)));
    query.maxParam = 2.5;
    EXPECT_EQ((std::vector<double>{2}), paramsOf(accelerator.allIntersections(query)));
    query.maxParam = 1.9;
    EXPECT_TRUE(accelerator.allIntersections(query).empty());
}

TEST(MeshRays, FaceAndTriangleFiltersKeepOnlyMatchingHits) {
    const MeshTopology mesh = mhost::makeUvSphere(1, 12, 6);
    const RayAccelerator accelerator(mesh);
    RayQuery query = ray({0.1, -3, 0.2}, {0.05, 1, -0.03});
    const auto all = accelerator.allIntersections(query);
    ASSERT_EQ(2u, all.size());
    query.faceIds = std::vector<int>{all[1].faceId, 9999, -4};  // unsorted, with ids that do not exist
    EXPECT_EQ((std::vector<int>{all[1].faceId}), facesOf(accelerator.allIntersections(query)));
    EXPECT_EQ(all[1].faceId, accelerator.closestIntersection(query)->faceId);
    query.faceIds.reset();
    query.triangleIds = std::vector<int>{all[0].triangleId};
    for (const RayHit& hit : accelerator.allIntersections(query))
        EXPECT_EQ(all[0].triangleId, hit.triangleId);
    query.faceIds = std::vector<int>{};
    EXPECT_TRUE(accelerator.allIntersections(query).empty()) << "an empty list admits nothing";
}

TEST(MeshRays, BarycentricsFollowMayasConvention) {
    const MeshTopology triangle({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {3}, {0, 1, 2});
    const RayAccelerator accelerator(triangle);
    const auto hit = accelerator.closestIntersection(ray({0.2, 0.3, 1}, {0, 0, -1}));
    ASSERT_TRUE(hit);
    EXPECT_NEAR(0.5, hit->bary1, 1e-6);  // weight of corner 0
    EXPECT_NEAR(0.2, hit->bary2, 1e-6);  // weight of corner 1
    const auto near = accelerator.closestPoint({0.2, 0.3, 1}, 10);
    ASSERT_TRUE(near);
    EXPECT_NEAR(0.5, near->bary1, 1e-12);
    EXPECT_NEAR(0.2, near->bary2, 1e-12);

    const MeshTopology sphere = mhost::makeUvSphere(2, 10, 7);
    const RayAccelerator onSphere(sphere);
    for (const RayHit& h : onSphere.allIntersections(ray({0.3, 0.1, -4}, {0.1, 0.05, 1}, true))) {
        expectNear(h.point, fromBarycentrics(sphere, h.faceId, h.triangleId, h.bary1, h.bary2));
    }
}

// The surface is crossed once, so a ray through a shared edge or corner reports at least one of the
// polygons there and none of them twice.
TEST(MeshRays, RaysThroughSharedEdgesAndCornersReportEachFaceOnce) {
    const MeshTopology mesh = grid();
    const RayAccelerator accelerator(mesh);
    const auto expectCrossing = [&](double x, double z, std::vector<int> around) {
        const auto hits = accelerator.allIntersections(ray({x, 3, z}, {0, -1, 0}));
        ASSERT_FALSE(hits.empty());
        expectEachFaceOnce(hits);
        for (const RayHit& hit : hits) {
            EXPECT_NE(around.end(), std::find(around.begin(), around.end(), hit.faceId))
                << "face " << hit.faceId;
            EXPECT_DOUBLE_EQ(3.0, hit.param);
        }
    };
    expectCrossing(0, 0, {5, 6, 9, 10});  // grid vertex shared by four quads
    expectCrossing(0, 0.5, {5, 6});       // edge between two quads
    expectCrossing(0, 1, {1, 2, 5, 6});   // corner where quad 6's two triangles also meet
    EXPECT_EQ((std::vector<int>{6}), facesOf(accelerator.allIntersections(ray({0.5, 3, 0.5}, {0, -1, 0}))))
        << "diagonal between a quad's two triangles";

    // Grazing rays along an edge: no face may come twice.
    expectEachFaceOnce(accelerator.allIntersections(ray({-3, 0, 0}, {1, 0, 0}, true)));
    expectEachFaceOnce(accelerator.allIntersections(ray({0, 0, 5}, {0, 0, -1}, true)));
    const MeshTopology cube = box();
    const auto alongCubeEdge = RayAccelerator(cube).allIntersections(ray({1, 1, -5}, {0, 0, 1}));
    expectEachFaceOnce(alongCubeEdge);
    EXPECT_EQ((std::vector<int>{0, 1}), facesOf(alongCubeEdge)) << "enters and leaves at the edge's corners";
}

TEST(MeshRays, MissesAndClosestIntersection) {
    const MeshTopology mesh = box();
    const RayAccelerator accelerator(mesh);
    EXPECT_TRUE(accelerator.allIntersections(ray({5, 5, 5}, {1, 0, 0}, true)).empty());
    EXPECT_FALSE(accelerator.closestIntersection(ray({0, 0, -5}, {0, 0, -1})));

    const auto outside = accelerator.closestIntersection(ray({0.3, 0.2, -5}, {0, 0, 1}));
    ASSERT_TRUE(outside);
    EXPECT_EQ(0, outside->faceId);
    EXPECT_DOUBLE_EQ(4.0, outside->param);
    const auto behind = accelerator.closestIntersection(ray({0.3, 0.2, -0.5}, {0, 0, 1}, true));
    ASSERT_TRUE(behind);
    EXPECT_EQ(0, behind->faceId);
    EXPECT_DOUBLE_EQ(-0.5, behind->param);
    const auto ahead = accelerator.closestIntersection(ray({0.3, 0.2, 0.4}, {0, 0, 1}, true));
    ASSERT_TRUE(ahead);
    EXPECT_NEAR(0.6, ahead->param, 1e-6) << "ray parameters are single precision";
}

TEST(MeshRays, BadQueriesThrow) {
    const MeshTopology mesh = box();
    const RayAccelerator accelerator(mesh);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    RayQuery negative = ray({0, 0, -5}, {0, 0, 1});
    negative.maxParam = -1;
    for (const RayQuery& q : {ray({0, 0, -5}, {0, 0, 0}), ray({nan, 0, -5}, {0, 0, 1}), negative}) {
        EXPECT_THROW(accelerator.allIntersections(q), HostError);
        EXPECT_THROW(accelerator.closestIntersection(q), HostError);
    }
    EXPECT_THROW(accelerator.closestPoint({nan, 0, 0}, 1), HostError);
    EXPECT_THROW(accelerator.closestPoint({0, 0, 0}, -1), HostError);
}

TEST(MeshClosestPoint, OnFaceOnEdgeAndBeyondReach) {
    const MeshTopology plane = grid();
    const RayAccelerator onPlane(plane);
    const auto onFace = onPlane.closestPoint({0.25, 2, 0.75}, 5);
    ASSERT_TRUE(onFace);
    expectNear({0.25, 0, 0.75}, onFace->point);
    EXPECT_DOUBLE_EQ(2.0, onFace->distance);
    EXPECT_EQ(6, onFace->faceId);
    expectNear({0, 1, 0}, onFace->normal);
    EXPECT_TRUE(onPlane.closestPoint({0.25, 2, 0.75}, 2.0)) << "the reach is inclusive";
    EXPECT_FALSE(onPlane.closestPoint({0.25, 2, 0.75}, 1.9));

    const MeshTopology cube = box();
    const RayAccelerator onCube(cube);
    const auto onEdge = onCube.closestPoint({2, 2, 0.3}, std::numeric_limits<double>::max());
    ASSERT_TRUE(onEdge);
    expectNear({1, 1, 0.3}, onEdge->point);
    EXPECT_NEAR(std::sqrt(2.0), onEdge->distance, 1e-12);
    EXPECT_EQ(3, onEdge->faceId) << "equally near faces: the lower triangle wins";
    expectNear({1, 0, 0}, onEdge->faceNormal);
    expectNear(mhost::normalized(Vec3(1, 1, 0.3)), onEdge->normal);  // blend of the corner normals
    const auto inside = onCube.closestPoint({0.1, 0.2, 0.9}, 1);
    ASSERT_TRUE(inside);
    EXPECT_EQ(1, inside->faceId);
    EXPECT_NEAR(0.1, inside->distance, 1e-12);
}

TEST(MeshClosestPoint, MatchesBruteForceOnATorus) {
    const MeshTopology torus = mhost::makeTorus(2, 0.6, 24, 10);
    const RayAccelerator accelerator(torus);
    const auto fan = mhost::fanTriangulate(torus.faces());
    std::mt19937 random(7);
    std::uniform_real_distribution<double> coordinate(-3.5, 3.5);
    for (int i = 0; i < 200; ++i) {
        const Vec3 p{coordinate(random), coordinate(random) * 0.5, coordinate(random)};
        double best = std::numeric_limits<double>::infinity();
        for (int t = 0; t < fan.numTriangles(); ++t) {
            const auto ids = fan.corners(t);
            const auto on = mhost::closestPointOnTriangle(
                p, Vec3(torus.point(ids[0])), Vec3(torus.point(ids[1])), Vec3(torus.point(ids[2])));
            best = std::min(best, mhost::length(on.point - p));
        }
        const auto found = accelerator.closestPoint(p, 10);
        ASSERT_TRUE(found);
        ASSERT_NEAR(best, found->distance, 1e-9) << "query " << i;
    }
}

TEST(MeshRays, LineFromInsideClosedSurfaceLeavesOnceEachWay) {
    const MeshTopology sphere = mhost::makeUvSphere(1.5, 16, 9);
    const RayAccelerator accelerator(sphere);
    std::mt19937 random(11);
    std::uniform_real_distribution<double> coordinate(-0.8, 0.8);
    int totalHits = 0;
    for (int i = 0; i < 200; ++i) {
        const Vec3 origin{coordinate(random), coordinate(random), coordinate(random)};
        const Vec3 direction{coordinate(random), coordinate(random), coordinate(random)};
        const auto hits = accelerator.allIntersections(ray(origin, direction, true));
        // From inside a closed convex surface a line leaves once each way.
        ASSERT_EQ(2u, hits.size()) << "ray " << i;
        EXPECT_LT(hits[0].param, 0);
        EXPECT_GT(hits[1].param, 0);
        for (const RayHit& hit : hits) EXPECT_NEAR(1.5, mhost::length(hit.point), 0.05);
        totalHits += static_cast<int>(hits.size());
    }
    EXPECT_EQ(400, totalHits);
}

TEST(MeshRayAccelerator, EmptyMeshFindsNothing) {
    const MeshTopology empty;
    const RayAccelerator accelerator(empty);
    EXPECT_EQ(0, accelerator.numTriangles());
    EXPECT_TRUE(accelerator.allIntersections(ray({0, 0, 0}, {0, 0, 1}, true)).empty());
    EXPECT_FALSE(accelerator.closestIntersection(ray({0, 0, 0}, {0, 0, 1})));
    EXPECT_FALSE(accelerator.closestPoint({0, 0, 0}, 1e30));
}

TEST(MeshRayAccelerator, CacheReusesForSameVersionAndRebuildsAfterChange) {
    MeshTopology plane = grid();
    mhost::RayAcceleratorCache cache;
    const RayAccelerator& first = cache.acceleratorFor(plane);
    const MeshTopology copy = plane;
    EXPECT_TRUE(first.isBuiltFor(copy));
    EXPECT_EQ(&first, &cache.acceleratorFor(copy));

    std::vector<mhost::Vec3f> raised;
    for (int v = 0; v < plane.numVertices(); ++v) raised.push_back(plane.point(v) + mhost::Vec3f(0, 1, 0));
    plane.setPoints(raised);
    EXPECT_FALSE(first.isBuiltFor(plane));
    const auto hits = cache.acceleratorFor(plane).allIntersections(ray({0.5, 3, 0.5}, {0, -1, 0}));
    EXPECT_EQ((std::vector<double>{2}), paramsOf(hits));
    EXPECT_TRUE(cache.acceleratorFor(plane).isBuiltFor(plane));
    EXPECT_FALSE(cache.acceleratorFor(plane).isBuiltFor(copy));
}

// A mesh whose vertices move keeps one hierarchy, refitted in place; its answers are those of a new
// build on the moved mesh, and an accelerator someone still holds is left as it was.
TEST(MeshRayAccelerator, MovedVerticesRefitAndAnswerAsANewBuild) {
    MeshTopology torus = mhost::makeTorus(2, 0.6, 24, 10);
    mhost::RayAcceleratorCache cache;
    const auto held = cache.sharedAcceleratorFor(torus);
    EXPECT_FALSE(held->isRefittable());
    const MeshTopology original = torus;

    std::mt19937 random(3);
    std::uniform_real_distribution<double> offset(-0.2, 0.2);
    std::uniform_real_distribution<double> coordinate(-3.0, 3.0);
    for (int round = 0; round < 3; ++round) {
        for (int v = round; v < torus.numVertices(); v += 7)
            torus.setPoint(v, torus.point(v) + mhost::Vec3f(Vec3(offset(random), offset(random), offset(random))));
        const auto current = cache.sharedAcceleratorFor(torus);
        EXPECT_TRUE(current->isRefittable());
        EXPECT_TRUE(current->isBuiltFor(torus));
        const RayAccelerator fresh(torus);
        for (int i = 0; i < 100; ++i) {
            const Vec3 p{coordinate(random), coordinate(random) * 0.4, coordinate(random)};
            const auto found = current->closestPoint(p, 10);
            const auto expected = fresh.closestPoint(p, 10);
            ASSERT_TRUE(found && expected);
            EXPECT_EQ(expected->point, found->point);
            EXPECT_EQ(expected->faceId, found->faceId);
            EXPECT_EQ(expected->normal, found->normal);
            const RayQuery line = ray(p, Vec3(0.3, -1, 0.2), true);
            EXPECT_EQ(paramsOf(fresh.allIntersections(line)), paramsOf(current->allIntersections(line)));
            EXPECT_EQ(facesOf(fresh.allIntersections(line)), facesOf(current->allIntersections(line)));
        }
    }
    EXPECT_TRUE(held->isBuiltFor(original));
    EXPECT_EQ(RayAccelerator(original).closestPoint({2.5, 0, 0}, 10)->point, held->closestPoint({2.5, 0, 0}, 10)->point);
    RayAccelerator plain(original);
    EXPECT_THROW(plain.refit(torus), HostError);
    RayAccelerator refittable(original, true);
    EXPECT_THROW(refittable.refit(grid()), HostError);
}
