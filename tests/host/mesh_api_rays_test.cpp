// Ray and closest-point queries through MFnMesh and MMeshIntersector: spaces, output arrays, misses,
// reach, and the accelerator kept with the mesh.

#include <maya/MDagModifier.h>
#include <maya/MFloatArray.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFloatVector.h>
#include <maya/MFnGeometryData.h>
#include <maya/MFnMeshData.h>
#include <maya/MMeshIntersector.h>

#include <cmath>
#include <limits>
#include <memory>

#include "meshnode/ShapeGeometry.h"
#include "support/MeshScene.h"

namespace {

using mhost::driver::runCommand;

// Every hit of a ray, in the arrays allIntersections fills.
struct Hits {
    bool any = false;
    MStatus status;
    MFloatPointArray points;
    MFloatArray params, bary1, bary2;
    MIntArray faces, triangles;
};

class MeshApiRays : public MeshSceneTest {
protected:
    void SetUp() override {
        MeshSceneTest::SetUp();
        cube = addMesh(unitCube(), "cube");
    }

    Hits cast(const MFloatPoint& source, const MFloatVector& direction, MSpace::Space space, bool both,
              float maxParam = 1000, bool sort = true, const MIntArray* faceIds = nullptr) {
        Hits hits;
        MFnMesh fn(cube);
        MMeshIsectAccelParams accel = MFnMesh::autoUniformGridParams();
        hits.any = fn.allIntersections(source, direction, faceIds, nullptr, false, space, maxParam, both,
                                       &accel, sort, hits.points, &hits.params, &hits.faces, &hits.triangles,
                                       &hits.bary1, &hits.bary2, 1e-6f, &hits.status);
        return hits;
    }

    MDagPath cube;
};

TEST_F(MeshApiRays, BothDirectionsSortedFindFacesBehindWithNegativeParams) {
    Hits hits = cast(MFloatPoint(0.5f, 0.5f, 0.25f), MFloatVector(0, 0, 1), MSpace::kObject, true);
    ASSERT_TRUE(hits.status);
    ASSERT_TRUE(hits.any);
    ASSERT_EQ(2u, hits.points.length());
    EXPECT_EQ((std::vector<int>{0, 1}), toVector(hits.faces)) << "z = 0 face behind, z = 1 face ahead";
    EXPECT_FLOAT_EQ(-0.25f, hits.params[0]);
    EXPECT_FLOAT_EQ(0.75f, hits.params[1]);
    EXPECT_TRUE(MPoint(hits.points[1]).isEquivalent(MPoint(0.5, 0.5, 1), 1e-6));
    ASSERT_EQ(2u, hits.triangles.length());
    ASSERT_EQ(2u, hits.bary1.length());
    Hits ahead = cast(MFloatPoint(0.5f, 0.5f, 0.25f), MFloatVector(0, 0, 1), MSpace::kObject, false);
    EXPECT_EQ(std::vector<int>{1}, toVector(ahead.faces));
}

TEST_F(MeshApiRays, MaxParamFaceFiltersAndMissesLimitTheHits) {
    Hits near = cast(MFloatPoint(0.5f, 0.5f, -1), MFloatVector(0, 0, 1), MSpace::kObject, false, 1.5f);
    EXPECT_EQ(std::vector<int>{0}, toVector(near.faces));
    MIntArray onlyFar = intArray({1});
    Hits filtered = cast(MFloatPoint(0.5f, 0.5f, -1), MFloatVector(0, 0, 1), MSpace::kObject, false, 1000,
                         true, &onlyFar);
    EXPECT_EQ(std::vector<int>{1}, toVector(filtered.faces));
    Hits miss = cast(MFloatPoint(5, 5, -1), MFloatVector(0, 0, 1), MSpace::kObject, true);
    EXPECT_TRUE(miss.status);
    EXPECT_FALSE(miss.any);
    EXPECT_EQ(0u, miss.points.length() + miss.faces.length() + miss.params.length());
    Hits unsorted =
        cast(MFloatPoint(0.5f, 0.5f, 0.25f), MFloatVector(0, 0, 1), MSpace::kObject, true, 1000, false);
    EXPECT_EQ(2u, unsorted.faces.length());
}

TEST_F(MeshApiRays, WorldSpaceRaysMeetTheMovedMeshAndKeepTheirParameters) {
    ASSERT_TRUE(runCommand("setAttr cube.translate 0 0 10; setAttr cube.scale 1 1 2"));
    Hits object = cast(MFloatPoint(0.5f, 0.5f, 0.25f), MFloatVector(0, 0, 1), MSpace::kObject, false);
    EXPECT_EQ(std::vector<int>{1}, toVector(object.faces)) << "object space ignores the transform";
    Hits world = cast(MFloatPoint(0.5f, 0.5f, 8), MFloatVector(0, 0, 1), MSpace::kWorld, false);
    ASSERT_EQ((std::vector<int>{0, 1}), toVector(world.faces));
    EXPECT_FLOAT_EQ(2.0f, world.params[0]);
    EXPECT_FLOAT_EQ(4.0f, world.params[1]);
    EXPECT_TRUE(MPoint(world.points[1]).isEquivalent(MPoint(0.5, 0.5, 12), 1e-5));
}

TEST_F(MeshApiRays, ClosestIntersectionTakesTheSmallestParameterEitherWay) {
    MFnMesh fn(cube);
    MFloatPoint hit;
    float param = 0;
    int face = -1, triangle = -1;
    MStatus status;
    EXPECT_TRUE(fn.closestIntersection(MFloatPoint(0.5f, 0.5f, 0.25f), MFloatVector(0, 0, 1), nullptr,
                                       nullptr, false, MSpace::kObject, 1000, true, nullptr, hit, &param,
                                       &face, &triangle, nullptr, nullptr, 1e-6f, &status));
    EXPECT_EQ(0, face);
    EXPECT_FLOAT_EQ(-0.25f, param);
    EXPECT_FALSE(fn.closestIntersection(MFloatPoint(0.5f, 0.5f, 0.25f), MFloatVector(0, 0, 1), nullptr,
                                        nullptr, false, MSpace::kObject, 0.5f, false, nullptr, hit, &param,
                                        &face, nullptr, nullptr, nullptr, 1e-6f, &status));
    EXPECT_TRUE(status);
}

TEST_F(MeshApiRays, UnusableRaysFail) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(MS::kInvalidParameter,
              cast(MFloatPoint(0, 0, 0), MFloatVector(0, 0, 0), MSpace::kObject, true).status.statusCode());
    EXPECT_EQ(MS::kInvalidParameter,
              cast(MFloatPoint(nan, 0, 0), MFloatVector(0, 0, 1), MSpace::kObject, true).status.statusCode());
    EXPECT_EQ(
        MS::kInvalidParameter,
        cast(MFloatPoint(0, 0, 0), MFloatVector(0, 0, 1), MSpace::kObject, true, -1).status.statusCode());
}

TEST_F(MeshApiRays, ClosestPointAndNormalComeBackInTheSpaceAsked) {
    ASSERT_TRUE(runCommand("setAttr cube.translate 5 0 0"));
    MFnMesh fn(cube);
    MPoint closest;
    int face = -1;
    ASSERT_TRUE(fn.getClosestPoint(MPoint(5.5, 3, 0.5), closest, MSpace::kWorld, &face));
    EXPECT_TRUE(closest.isEquivalent(MPoint(5.5, 1, 0.5)));
    EXPECT_EQ(3, face);
    MVector normal;
    ASSERT_TRUE(fn.getClosestNormal(MPoint(0.5, 0.5, -4), normal, MSpace::kObject, &face));
    EXPECT_TRUE(normal.isEquivalent(MVector(0, 0, -1), 1e-9));
    EXPECT_EQ(0, face);

    MFnMesh empty;
    empty.create(0, 0, MPointArray(), MIntArray(), MIntArray());
    EXPECT_EQ(MS::kFailure, empty.getClosestPoint(MPoint(), closest).statusCode());
}

TEST_F(MeshApiRays, IntersectorTakesPointsThroughItsMatrixAndAnswersInObjectSpace) {
    ASSERT_TRUE(runCommand("setAttr cube.translate 0 10 0"));
    MObject shape = cube.node();
    MMeshIntersector intersector;
    MPointOnMesh onMesh;
    EXPECT_FALSE(intersector.isCreated());
    EXPECT_EQ(MS::kFailure, intersector.getClosestPoint(MPoint(), onMesh).statusCode());
    ASSERT_TRUE(intersector.create(shape, cube.inclusiveMatrix()));
    EXPECT_TRUE(intersector.isCreated());
    ASSERT_TRUE(intersector.getClosestPoint(MPoint(0.5, 13, 0.5), onMesh));
    EXPECT_TRUE(MPoint(onMesh.getPoint()).isEquivalent(MPoint(0.5, 1, 0.5), 1e-6));
    EXPECT_TRUE(MVector(onMesh.getNormal()).isEquivalent(MVector(0, 1, 0), 1e-6));
    EXPECT_EQ(3, onMesh.faceIndex());
    float u = -1, v = -1;
    onMesh.getBarycentricCoords(u, v);
    EXPECT_GE(u, 0.0f);
    EXPECT_GE(v, 0.0f);
    EXPECT_LE(u + v, 1.0f + 1e-6f);
    EXPECT_EQ(MS::kFailure, intersector.getClosestPoint(MPoint(0.5, 13, 0.5), onMesh, 1.5).statusCode());
    EXPECT_EQ(MS::kInvalidParameter,
              intersector.getClosestPoint(MPoint(0.5, 13, 0.5), onMesh, -1).statusCode());
    MObject notAMesh = pathTo("cube").node();
    EXPECT_EQ(MS::kInvalidParameter, intersector.create(notAMesh).statusCode());
    EXPECT_FALSE(intersector.isCreated());
}

TEST_F(MeshApiRays, TheAcceleratorIsBuiltOncePerMeshAndAgainAfterAChange) {
    cast(MFloatPoint(0.5f, 0.5f, -1), MFloatVector(0, 0, 1), MSpace::kObject, false);
    const auto data = mhost::shapeGeometry(cube.hostNodes().back());
    const auto first = data->sharedAccelerator();
    cast(MFloatPoint(0.2f, 0.5f, -1), MFloatVector(0, 0, 1), MSpace::kObject, false);
    EXPECT_EQ(first, mhost::shapeGeometry(cube.hostNodes().back())->sharedAccelerator());
    ASSERT_TRUE(runCommand("dgdirty cubeShape"));
    cast(MFloatPoint(0.2f, 0.5f, -1), MFloatVector(0, 0, 1), MSpace::kObject, false);
    EXPECT_EQ(first, mhost::shapeGeometry(cube.hostNodes().back())->sharedAccelerator())
        << "re-evaluating an unchanged mesh keeps its accelerator";
    ASSERT_TRUE(MFnMesh(cube).setPoint(0, MPoint(0, 0, -3)));
    Hits moved = cast(MFloatPoint(0.2f, 0.1f, -5), MFloatVector(0, 0, 1), MSpace::kObject, false, 3);
    EXPECT_EQ(std::vector<int>{0}, toVector(moved.faces)) << "the moved corner is seen";
    EXPECT_NE(first, mhost::shapeGeometry(cube.hostNodes().back())->sharedAccelerator());
}

// A deleted mesh waits in the undo queue without its hierarchy; an intersector made before keeps its
// own, and the mesh brought back by undo answers as before.
TEST_F(MeshApiRays, ADeletedMeshLetsGoOfItsAcceleratorAndUndoBringsItsAnswersBack) {
    const Hits before = cast(MFloatPoint(0.2f, 0.5f, -1), MFloatVector(0, 0, 1), MSpace::kObject, true);
    auto intersector = std::make_unique<MMeshIntersector>();
    MObject shape = cube.node();
    ASSERT_TRUE(intersector->create(shape));
    const std::weak_ptr<const mhost::RayAccelerator> built =
        mhost::shapeGeometry(cube.hostNodes().back())->sharedAccelerator();
    const auto shapeNode = cube.hostNodes().back();
    ASSERT_TRUE(runCommand("delete cube"));
    EXPECT_FALSE(built.expired()) << "the intersector still holds it";
    MPointOnMesh onMesh;
    EXPECT_TRUE(intersector->getClosestPoint(MPoint(0.5, 0.5, -2), onMesh));
    intersector.reset();
    EXPECT_TRUE(built.expired()) << "nothing in the deleted node holds it";

    ASSERT_TRUE(mhost::driver::undo());
    const Hits after = cast(MFloatPoint(0.2f, 0.5f, -1), MFloatVector(0, 0, 1), MSpace::kObject, true);
    EXPECT_EQ(toVector(before.faces), toVector(after.faces));
    EXPECT_EQ(before.params.length(), after.params.length());
    EXPECT_EQ(shapeNode, cube.hostNodes().back());
}

TEST_F(MeshApiRays, OneFunctionSetFollowsMovesEditsAndANewObject) {
    ASSERT_TRUE(runCommand("createNode transform -n rig"));
    MDagModifier reparent;
    ASSERT_TRUE(reparent.reparentNode(pathTo("cube").node(), pathTo("rig").node()));
    ASSERT_TRUE(reparent.doIt());
    const MDagPath grouped = pathTo("cube");
    MFnMesh fn(grouped);
    const auto firstHitZ = [&fn](MSpace::Space space) {
        MFloatPoint hit;
        float param = 0;
        int face = -1;
        const bool any = fn.closestIntersection(MFloatPoint(0.5f, 0.5f, -50), MFloatVector(0, 0, 1), nullptr,
                                                nullptr, false, space, 1000, false, nullptr, hit, &param,
                                                &face, nullptr, nullptr, nullptr, 1e-6f);
        return any ? hit.z : std::numeric_limits<float>::quiet_NaN();
    };
    EXPECT_FLOAT_EQ(0.0f, firstHitZ(MSpace::kWorld));
    ASSERT_TRUE(runCommand("setAttr rig.translateZ 3"));
    EXPECT_FLOAT_EQ(3.0f, firstHitZ(MSpace::kWorld)) << "a parent's move is seen";
    EXPECT_FLOAT_EQ(0.0f, firstHitZ(MSpace::kObject));
    ASSERT_TRUE(runCommand("setAttr cube.scaleZ 2; setAttr rig.translateZ 0"));
    MFnMesh other(grouped);
    MPointArray points;
    ASSERT_TRUE(other.getPoints(points));
    for (unsigned i = 0; i < points.length(); ++i) points[i].z -= 1;
    ASSERT_TRUE(other.setPoints(points));
    const MDagPath moved = addMesh(unitCube(), "other");
    ASSERT_TRUE(runCommand("setAttr other.translateZ -7"));
    EXPECT_FLOAT_EQ(-2.0f, firstHitZ(MSpace::kWorld)) << "another set's edit and the scale are both seen";

    // No transform changes between the last ray and the next: only the new object tells.
    ASSERT_TRUE(fn.setObject(moved));
    EXPECT_FLOAT_EQ(-7.0f, firstHitZ(MSpace::kWorld)) << "setObject resolves the new mesh and its frame";
    ASSERT_TRUE(runCommand("delete other"));
    EXPECT_TRUE(std::isnan(firstHitZ(MSpace::kWorld))) << "a deleted mesh answers nothing";
}

TEST_F(MeshApiRays, RaysThroughMeshDataFollowItsMatrix) {
    MFnMeshData dataFn;
    MObject data = dataFn.create();
    MFnMesh builder;
    const MPointArray square =
        pointArray({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(1, 1, 0), MPoint(0, 1, 0)});
    builder.create(4, 1, square, intArray({4}), intArray({0, 1, 2, 3}), data);
    MFnMesh fn(data);
    const auto hitZ = [&fn] {
        MFloatPoint hit;
        fn.closestIntersection(MFloatPoint(0.5f, 0.5f, -50), MFloatVector(0, 0, 1), nullptr, nullptr, false,
                               MSpace::kWorld, 1000, false, nullptr, hit, nullptr, nullptr, nullptr, nullptr,
                               nullptr, 1e-6f);
        return hit.z;
    };
    EXPECT_FLOAT_EQ(0.0f, hitZ());
    const double lift[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 4, 1}};
    ASSERT_TRUE(MFnGeometryData(data).setMatrix(MMatrix(lift)));
    EXPECT_FLOAT_EQ(4.0f, hitZ()) << "the data's new matrix, which no transform edit announces";
}

}  // namespace
