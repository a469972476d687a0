// Projection of new patch vertices onto the source mesh along their normals, both ways along the
// ray and within a reach, and the vote of the hit faces' normals on flipping the new faces.

#include <gtest/gtest.h>
#include <maya/MDagPath.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MMeshIntersector.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tests/plugin/patchGeometryScene.h"

namespace {

using kytest::pointsOf;

// The corners of a square in a plane of constant y, from (x0, z0) to (x1, z1).
MPointArray square(double x0, double z0, double x1, double z1, double y) {
    return pointsOf({MPoint(x0, y, z0), MPoint(x1, y, z0), MPoint(x1, y, z1), MPoint(x0, y, z1)});
}
// The face of the four corners from id `first` of a square, wound so that its normal is +Y when
// `up`, else -Y.
std::vector<int> winding(int first, bool up) {
    return up ? std::vector<int>{first, first + 3, first + 2, first + 1}
              : std::vector<int>{first, first + 1, first + 2, first + 3};
}

class SurfaceProjection : public kytest::PatchGeometryScene {
protected:
    void SetUp() override {
        PatchGeometryScene::SetUp();
        locator = makeLocator();
        accelParams = MFnMesh::autoUniformGridParams();
    }

    // Connects `path` as the source and stores its world face normals, as tool activation does.
    void useSource(const MDagPath& path) {
        connectSource(path, locator);
        MFnMesh mesh(path);
        MVectorArray normals;
        for (int f = 0; f < mesh.numPolygons(); ++f) {
            MVector normal;
            mesh.getPolygonNormal(f, normal, MSpace::kWorld);
            normals.append(normal);
        }
        ASSERT_TRUE(setVectorArrayAttr("inputNormals", locator, normals));
    }

    // Projects all vertices of `mesh`; the flip decision.
    bool projectAll(const MDagPath& mesh) {
        const MObject vertices = deltaVertices(0, MFnMesh(mesh).numVertices());
        return command.projectOnSource(mesh, vertices, accelParams, status);
    }

    // Rows 1 and 2 of the locator (row 3 empty).
    static void setRows(std::initializer_list<int> row1, std::initializer_list<int> row2) {
        MIntArray ids1, ids2;
        for (int id : row1) ids1.append(id);
        for (int id : row2) ids2.append(id);
        ASSERT_TRUE(writeShadowIndices(ids1, ids2, MIntArray()));
    }

    static MPointArray objectPoints(const MDagPath& path) {
        MPointArray points;
        MFnMesh(path).getPoints(points);
        return points;
    }

    kyStrakeToolCmd command;
    MObject locator;
    MMeshIsectAccelParams accelParams;
    MStatus status;
};

// Source and patch share one rotated and moved transform, so in object space the projection is a
// plain drop from y = `height` to y = 0, while in world space it runs along a slanted normal.
class TiltedSource : public SurfaceProjection {
protected:
    MDagPath makeTilted(const MPointArray& points, const std::vector<std::vector<int>>& faces) {
        const MDagPath path = makeMesh(points, faces);
        setTransformValue(path, "rotateX", 0.4);
        setTransformValue(path, "rotateZ", -0.3);
        setTransformValue(path, "translateX", 1.5);
        setTransformValue(path, "translateY", -2.0);
        return path;
    }
    void SetUp() override {
        SurfaceProjection::SetUp();
        useSource(makeTilted(square(-3, -3, 3, 3, 0.0), {winding(0, false)}));
    }
    // A patch square at `height` over the source, wound to agree (-Y like the source) or not.
    MDagPath makePatch(double height, bool agreeing) {
        return makeTilted(square(-1, -1, 1, 1, height), {winding(0, !agreeing)});
    }
};

TEST_F(TiltedSource, MovesVerticesOntoTheSourceAlongTheirNormals) {
    for (bool agreeing : {true, false}) {
        const MDagPath patch = makePatch(2.0, agreeing);
        const MPointArray before = objectPoints(patch);

        EXPECT_EQ(projectAll(patch), !agreeing) << "agreeing " << agreeing;
        EXPECT_TRUE(status);
        const MPointArray after = objectPoints(patch);
        ASSERT_EQ(after.length(), 4u);
        for (unsigned int i = 0; i < 4; ++i) {
            EXPECT_NEAR(after[i].y, 0.0, 1e-4) << i;
            EXPECT_NEAR(after[i].x, before[i].x, 1e-4) << i;
            EXPECT_NEAR(after[i].z, before[i].z, 1e-4) << i;
        }
    }
}

TEST_F(TiltedSource, VertexBeyondTheReachStaysAndCountsAsNoHit) {
    EXPECT_DOUBLE_EQ(kyStrakeToolCmd::distanceSnap(), 100.0);
    const MDagPath patch = makePatch(150.0, true);
    const MPointArray before = objectPoints(patch);

    EXPECT_TRUE(projectAll(patch)) << "no hit at all counts as reversed";
    const MPointArray after = objectPoints(patch);
    for (unsigned int i = 0; i < 4; ++i) EXPECT_NEAR(after[i].distanceTo(before[i]), 0.0, 1e-4) << i;

    ASSERT_TRUE(MGlobal::setOptionVarValue("ky_distancesnap", 200.0));
    EXPECT_FALSE(projectAll(patch));
    EXPECT_NEAR(objectPoints(patch)[0].y, 0.0, 1e-3);
}

TEST_F(TiltedSource, InvalidPathProjectsTheActiveMesh) {
    const MDagPath patch = makePatch(1.0, true);
    select(patch);
    const MObject vertices = deltaVertices(0, 4);

    EXPECT_FALSE(command.projectOnSource(MDagPath(), vertices, accelParams, status));
    EXPECT_NEAR(objectPoints(patch)[2].y, 0.0, 1e-4);
}

TEST_F(TiltedSource, OnlyTheComponentsVerticesMove) {
    const MDagPath patch = makePatch(1.0, true);
    MIntArray ids;
    ids.append(2);
    ids.append(0);
    EXPECT_FALSE(
        command.projectOnSource(patch, makeComponent(ids, MFn::kMeshVertComponent), accelParams, status));

    const MPointArray after = objectPoints(patch);
    EXPECT_NEAR(after[0].y, 0.0, 1e-4);
    EXPECT_NEAR(after[1].y, 1.0, 1e-4);
    EXPECT_NEAR(after[2].y, 0.0, 1e-4);
    EXPECT_NEAR(after[3].y, 1.0, 1e-4);
}

TEST_F(SurfaceProjection, VertexInsideAClosedShellProjectsOntoTheNearSide) {
    useSource(makeSphere(5.0, 16, 24));
    // A small square at x = 3 inside the sphere, facing outwards (+X): the surface lies behind it
    // along the ray (at about -2), the far side ahead (at about 8).
    const MDagPath patch = makeMesh(
        pointsOf({MPoint(3, -0.5, -0.5), MPoint(3, 0.5, -0.5), MPoint(3, 0.5, 0.5), MPoint(3, -0.5, 0.5)}),
        {{0, 1, 2, 3}});

    EXPECT_FALSE(projectAll(patch)) << "outward normals agree with the sphere's";
    const MPointArray after = objectPoints(patch);
    for (unsigned int i = 0; i < 4; ++i) {
        const double radius = after[i].distanceTo(MPoint::origin);
        EXPECT_GT(after[i].x, 4.5) << i;
        EXPECT_GT(radius, 4.8) << i;
        EXPECT_LT(radius, 5.0 + 1e-4) << i;
    }
}

TEST_F(SurfaceProjection, NearestHitWinsWhicheverSideOfTheVertex) {
    // Two source sheets, at y = 1.0 and y = -0.2; patch vertices at y = 0.5 facing +Y, so the ray
    // (along -Y) meets them at parameters -0.5 and 0.7.
    MPointArray sheets = square(-2, -2, 2, 2, 1.0);
    const MPointArray lower = square(-2, -2, 2, 2, -0.2);
    for (unsigned int i = 0; i < lower.length(); ++i) sheets.append(lower[i]);
    useSource(makeMesh(sheets, {winding(0, true), winding(4, true)}));
    const MDagPath patch = makeMesh(square(-1, -1, 1, 1, 0.5), {winding(0, true)});

    EXPECT_FALSE(projectAll(patch));
    const MPointArray after = objectPoints(patch);
    for (unsigned int i = 0; i < 4; ++i) EXPECT_NEAR(after[i].y, 1.0, 1e-4) << i;
}

// Normals stored for the two source faces, against the real ones (-Y): the vote, and the result.
struct VoteCase {
    MVector face0;
    MVector face1;
    bool reversed;
};

void PrintTo(const VoteCase& value, std::ostream* out) {
    *out << "(" << value.face0.x << ", " << value.face0.y << ", " << value.face0.z << ") and ("
         << value.face1.x << ", " << value.face1.y << ", " << value.face1.z << ")";
}

class SurfaceProjectionVote : public SurfaceProjection, public ::testing::WithParamInterface<VoteCase> {};

TEST_P(SurfaceProjectionVote, FlipsUnlessMostHitsAgree) {
    // Source faces 0 (x 0..2) and 1 (x 2..4); one patch square over each, both facing -Y.
    MPointArray sourcePoints = square(0, 0, 2, 2, 0.0);
    const MPointArray right = square(2, 0, 4, 2, 0.0);
    for (unsigned int i = 0; i < right.length(); ++i) sourcePoints.append(right[i]);
    useSource(makeMesh(sourcePoints, {winding(0, false), winding(4, false)}));
    MVectorArray normals;
    normals.append(GetParam().face0);
    normals.append(GetParam().face1);
    ASSERT_TRUE(setVectorArrayAttr("inputNormals", locator, normals));

    MPointArray patchPoints = square(0.5, 0.5, 1.5, 1.5, 0.3);
    const MPointArray patchRight = square(2.5, 0.5, 3.5, 1.5, 0.3);
    for (unsigned int i = 0; i < patchRight.length(); ++i) patchPoints.append(patchRight[i]);
    const MDagPath patch = makeMesh(patchPoints, {winding(0, false), winding(4, false)});

    EXPECT_EQ(projectAll(patch), GetParam().reversed);
}

const MVector kAgree(0, -1, 0);
const MVector kOppose(0, 1, 0);
const MVector kAcross(1, 0, 0);

INSTANTIATE_TEST_SUITE_P(Votes, SurfaceProjectionVote,
                         ::testing::Values(VoteCase{kAgree, kAgree, false}, VoteCase{kAgree, kOppose, true},
                                           VoteCase{kOppose, kOppose, true}, VoteCase{kAcross, kAcross, true},
                                           VoteCase{kAgree, kAcross, true}));

class DirectionOnly : public SurfaceProjection {
protected:
    void SetUp() override {
        SurfaceProjection::SetUp();
        useSource(makeSphere(5.0, 12, 16));
    }
    // A square just above the sphere's top, facing up (agreeing) or down, selected as the
    // retopo mesh.
    MDagPath makeCap(bool facingUp) {
        const MDagPath patch = makeMesh(square(-0.3, -0.3, 0.3, 0.3, 5.2), {winding(0, facingUp)});
        select(patch);
        return patch;
    }
};

TEST_F(DirectionOnly, SecondRowsFirstVertexDecidesAndNothingMoves) {
    for (bool facingUp : {true, false}) {
        const MDagPath patch = makeCap(facingUp);
        setRows({}, {2, 3});
        const MPointArray before = objectPoints(patch);

        EXPECT_EQ(command.projectOnSource(patch, MObject::kNullObj, accelParams, status), !facingUp)
            << facingUp;
        const MPointArray after = objectPoints(patch);
        for (unsigned int i = 0; i < 4; ++i) EXPECT_EQ(after[i].distanceTo(before[i]), 0.0) << i;
    }
    // Row 1 alone tells nothing.
    setRows({0, 1}, {});
    EXPECT_FALSE(command.projectOnSource(MDagPath(), MObject::kNullObj, accelParams, status));
}

TEST_F(SurfaceProjection, DirectionOnlyCountsARowAtRightAnglesAsReversed) {
    useSource(makeMesh(square(-2, -2, 2, 2, 0.0), {winding(0, false)}));
    // An upright square facing +X over a source facing -Y.
    const MDagPath patch = makeMesh(
        pointsOf({MPoint(0.2, 1, -0.5), MPoint(0.2, 2, -0.5), MPoint(0.2, 2, 0.5), MPoint(0.2, 1, 0.5)}),
        {{0, 1, 2, 3}});
    select(patch);
    setRows({}, {0});
    EXPECT_TRUE(command.projectOnSource(patch, MObject::kNullObj, accelParams, status));
}

TEST_F(SurfaceProjection, WithoutASourceReportsTheFailureAndMovesNothing) {
    const MDagPath patch = makeMesh(square(0, 0, 1, 1, 0.5), {winding(0, true)});
    testing::internal::CaptureStderr();
    const bool reversed = projectAll(patch);
    const std::string errors = testing::internal::GetCapturedStderr();

    EXPECT_TRUE(reversed);
    EXPECT_FALSE(status);
    EXPECT_NE(errors.find("API error detected in kyStrakeToolCmd"), std::string::npos) << errors;
    EXPECT_NEAR(objectPoints(patch)[0].y, 0.5, 1e-6);
}

}  // namespace
