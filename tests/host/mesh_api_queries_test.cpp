// MFnMesh queries and point edits: topology, object and world space, normals, and misuse.

#include <maya/MFloatPointArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MItMeshPolygon.h>

#include <limits>

#include "support/MeshScene.h"

namespace {

using mhost::driver::runCommand;

class MeshApiQueries : public MeshSceneTest {
protected:
    void SetUp() override {
        MeshSceneTest::SetUp();
        cube = addMesh(unitCube(), "cube");
        // 2 x 1 quads in the XZ plane, facing +Y: an open mesh.
        strip = addMesh(mhost::makePlaneGrid(2, 1, 2, 1), "strip");
    }
    MDagPath cube, strip;
};

TEST_F(MeshApiQueries, CountsAndPolygonsMatchTheArraysTheMeshWasMadeFrom) {
    MFnMesh fn(cube);
    EXPECT_EQ(8, fn.numVertices());
    EXPECT_EQ(12, fn.numEdges());
    EXPECT_EQ(6, fn.numPolygons());
    EXPECT_EQ(24, fn.numFaceVertices());
    EXPECT_EQ(4, fn.polygonVertexCount(5));
    MIntArray counts, connects;
    ASSERT_TRUE(fn.getVertices(counts, connects));
    EXPECT_EQ(unitCube().polygonCounts(), toVector(counts));
    EXPECT_EQ(unitCube().faces().items, toVector(connects));
    int2 ends;
    ASSERT_TRUE(fn.getEdgeVertices(0, ends));
    EXPECT_EQ(0, ends[0]);
    EXPECT_EQ(2, ends[1]);
}

TEST_F(MeshApiQueries, BoundaryIsFoundOnOpenMeshesOnly) {
    MFnMesh closed(cube), open(strip);
    for (int f = 0; f < 6; ++f) EXPECT_FALSE(closed.onBoundary(f));
    EXPECT_TRUE(open.onBoundary(0));
    EXPECT_TRUE(open.onBoundary(1));
}

TEST_F(MeshApiQueries, WorldSpaceGoesThroughTheTransformAndBack) {
    ASSERT_TRUE(runCommand("setAttr cube.translate 10 0 0; setAttr cube.scale 2 2 2"));
    MFnMesh fn(cube);
    MPoint p;
    ASSERT_TRUE(fn.getPoint(7, p, MSpace::kWorld));
    EXPECT_TRUE(p.isEquivalent(MPoint(12, 2, 2)));
    ASSERT_TRUE(fn.getPoint(7, p, MSpace::kObject));
    EXPECT_TRUE(p.isEquivalent(MPoint(1, 1, 1)));
    ASSERT_TRUE(fn.setPoint(0, MPoint(10, -2, 0), MSpace::kWorld));
    ASSERT_TRUE(fn.getPoint(0, p));
    EXPECT_TRUE(p.isEquivalent(MPoint(0, -1, 0)));
    MFloatPointArray world;
    ASSERT_TRUE(fn.getPoints(world, MSpace::kWorld));
    ASSERT_EQ(8u, world.length());
    EXPECT_TRUE(MPoint(world[1]).isEquivalent(MPoint(12, 0, 0)));
}

TEST_F(MeshApiQueries, SetPointsNeedsOnePointPerVertexAndRawPointsFollow) {
    MFnMesh fn(cube);
    MPointArray points;
    ASSERT_TRUE(fn.getPoints(points));
    for (unsigned int i = 0; i < points.length(); ++i) points[i].y += 5;
    ASSERT_TRUE(fn.setPoints(points));
    const float* raw = fn.getRawPoints(nullptr);
    ASSERT_NE(nullptr, raw);
    EXPECT_EQ(6.0f, raw[3 * 7 + 1]);
    points.remove(0);
    EXPECT_EQ(MS::kInvalidParameter, fn.setPoints(points).statusCode());
    points.append(MPoint(0, std::numeric_limits<double>::quiet_NaN(), 0));
    EXPECT_EQ(MS::kInvalidParameter, fn.setPoints(points).statusCode());
    MPoint p;
    fn.getPoint(0, p);
    EXPECT_TRUE(p.isEquivalent(MPoint(0, 5, 0))) << "failed setPoints leave the points";
}

TEST_F(MeshApiQueries, NormalsFollowWindingAndTurnWithTheTransform) {
    MFnMesh fn(cube);
    MVector normal;
    ASSERT_TRUE(fn.getPolygonNormal(3, normal));
    EXPECT_TRUE(normal.isEquivalent(MVector(0, 1, 0)));
    ASSERT_TRUE(runCommand("setAttr cube.rotate 0 0 1.5707963267948966; setAttr cube.scale 1 4 1"));
    ASSERT_TRUE(fn.getPolygonNormal(3, normal, MSpace::kWorld));
    EXPECT_TRUE(normal.isEquivalent(MVector(-1, 0, 0), 1e-9)) << normal.x << " " << normal.y;
    MFloatVectorArray normals;
    ASSERT_TRUE(fn.getVertexNormals(true, normals));
    ASSERT_EQ(8u, normals.length());
    const double third = 1 / std::sqrt(3.0);
    EXPECT_TRUE(MVector(normals[7]).isEquivalent(MVector(third, third, third), 1e-6));
    ASSERT_TRUE(fn.getVertexNormal(4, false, normal));
    EXPECT_TRUE(normal.isEquivalent(MVector(-third, -third, third), 1e-9));
}

// The bulk normals are the corners' normals an iterator gives one by one, hard edges included.
TEST_F(MeshApiQueries, BulkFaceVertexNormalsMatchTheCornersOneByOne) {
    MFnMesh fn(cube);
    ASSERT_TRUE(fn.setEdgeSmoothing(0, false));
    ASSERT_TRUE(runCommand("setAttr cube.rotate 0.3 0 0"));
    for (MSpace::Space space : {MSpace::kObject, MSpace::kWorld}) {
        MFloatVectorArray normals;
        MIntArray counts, ids;
        ASSERT_TRUE(fn.getNormals(normals, space));
        ASSERT_TRUE(fn.getNormalIds(counts, ids));
        ASSERT_EQ(6u, counts.length());
        ASSERT_EQ(24u, ids.length());
        unsigned int corner = 0;
        for (MItMeshPolygon polygons(cube); !polygons.isDone(); polygons.next()) {
            ASSERT_EQ(static_cast<int>(polygons.polygonVertexCount()), counts[polygons.index()]);
            for (int k = 0; k < counts[polygons.index()]; ++k, ++corner) {
                MVector expected;
                ASSERT_TRUE(polygons.getNormal(k, expected, space));
                EXPECT_TRUE(MVector(normals[ids[corner]]).isEquivalent(expected, 1e-6)) << corner;
            }
        }
    }
}

TEST_F(MeshApiQueries, BadIdsAndSpacesGiveFailingStatuses) {
    MFnMesh fn(cube);
    MPoint p;
    MVector n;
    MIntArray ids;
    int2 ends;
    EXPECT_EQ(MS::kInvalidParameter, fn.getPoint(8, p).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, fn.setPoint(-1, p).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, fn.getPolygonNormal(6, n).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, fn.getVertexNormal(99, true, n).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, fn.getPolygonVertices(-3, ids).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, fn.getEdgeVertices(12, ends).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, fn.getPoint(0, p, MSpace::kInvalid).statusCode());
    MStatus status;
    fn.polygonVertexCount(6, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    fn.onBoundary(6, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
}

TEST_F(MeshApiQueries, AnUnattachedSetOrADeletedShapeFails) {
    MFnMesh unattached;
    MStatus status;
    EXPECT_EQ(0, unattached.numVertices(&status));
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    MFnMesh fn(strip);
    ASSERT_TRUE(runCommand("delete strip"));
    fn.numPolygons(&status);
    EXPECT_FALSE(status);
    MFnMesh onTransform(pathTo("cube").node(), &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode()) << "a transform object is no mesh";
    MFnMesh throughTransform(pathTo("cube"), &status);
    EXPECT_TRUE(status) << "a transform's path leads to its mesh shape";
    EXPECT_EQ(8, throughTransform.numVertices());
}

}  // namespace
