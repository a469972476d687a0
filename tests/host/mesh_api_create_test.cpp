// MFnMesh::create and addPolygon: where new meshes go, what they return, point merging, and bad input.

#include <maya/MFloatArray.h>
#include <maya/MFnMeshData.h>
#include <maya/MItDependencyNodes.h>

#include <cmath>
#include <limits>

#include "support/MeshScene.h"

namespace {

using mhost::driver::runCommand;

class MeshApiCreate : public MeshSceneTest {};

int countNodes(MFn::Type type) {
    int count = 0;
    for (MItDependencyNodes it(type); !it.isDone(); it.next()) ++count;
    return count;
}

// Corners of the unit quad at height y, counter-clockwise seen from above.
MPointArray quadAt(double x, double y = 0) {
    return pointArray({MPoint(x, y, 0), MPoint(x, y, -1), MPoint(x + 1, y, -1), MPoint(x + 1, y, 0)});
}

TEST_F(MeshApiCreate, CreateWithoutParentMakesTransformAndShapeAndReturnsTheTransform) {
    MFnMesh fn;
    MStatus status;
    MObject result =
        fn.create(4, 1, quadAt(0), intArray({4}), intArray({0, 1, 2, 3}), MObject::kNullObj, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(MFn::kTransform, result.apiType());
    EXPECT_EQ(MFn::kMesh, fn.object().apiType());
    EXPECT_STREQ("|polySurface1|polySurfaceShape1", fn.fullPathName().asChar());
    EXPECT_EQ(4, fn.numVertices());
    EXPECT_EQ(1, fn.numPolygons());
    EXPECT_EQ(4, fn.numEdges());
}

TEST_F(MeshApiCreate, CreateUnderATransformReturnsTheNewShape) {
    ASSERT_TRUE(runCommand("createNode transform -n holder"));
    MObject holder = pathTo("holder").node();
    MFnMesh fn;
    MObject result = fn.create(4, 1, quadAt(0), intArray({4}), intArray({0, 1, 2, 3}), holder);
    EXPECT_EQ(MFn::kMesh, result.apiType());
    EXPECT_EQ(result, fn.object());
    EXPECT_STREQ("|holder|polySurfaceShape1", fn.fullPathName().asChar());
}

TEST_F(MeshApiCreate, CreateFillsMeshDataAndAnEmptyShapeMadeByCreateNode) {
    MFnMeshData dataFn;
    MObject data = dataFn.create();
    MFnMesh fn;
    EXPECT_EQ(data, fn.create(4, 1, quadAt(0), intArray({4}), intArray({0, 1, 2, 3}), data));
    EXPECT_EQ(4, MFnMesh(data).numVertices());

    std::string shapeName;
    ASSERT_TRUE(runCommand("createNode mesh -n retopoShape", &shapeName));
    EXPECT_EQ("retopoShape", shapeName);
    MFnMesh shapeFn(pathTo("retopoShape"));
    EXPECT_EQ(0, shapeFn.numVertices());
    EXPECT_EQ(
        pathTo("retopoShape").node(),
        shapeFn.create(4, 1, quadAt(0), intArray({4}), intArray({0, 1, 2, 3}), pathTo("retopoShape").node()));
    EXPECT_EQ(1, MFnMesh(pathTo("retopoShape")).numPolygons());
}

TEST_F(MeshApiCreate, CreateWithUvsKeepsThemInTheCurrentSetForAssignment) {
    MFloatArray u, v;
    for (float value : {0.f, 0.f, 1.f, 1.f}) u.append(value);
    for (float value : {0.f, 1.f, 1.f, 0.f}) v.append(value);
    MFnMesh fn;
    fn.create(4, 1, quadAt(0), intArray({4}), intArray({0, 1, 2, 3}), u, v);
    EXPECT_STREQ("map1", fn.currentUVSetName().asChar());
    EXPECT_EQ(4, fn.numUVs());
    MIntArray counts, ids;
    ASSERT_TRUE(fn.getAssignedUVs(counts, ids));
    EXPECT_EQ(std::vector<int>{0}, toVector(counts));
    ASSERT_TRUE(fn.assignUVs(intArray({4}), intArray({3, 2, 1, 0})));
    ASSERT_TRUE(fn.getAssignedUVs(counts, ids));
    EXPECT_EQ(std::vector<int>{4}, toVector(counts));
    EXPECT_EQ((std::vector<int>{3, 2, 1, 0}), toVector(ids));
    EXPECT_EQ(MS::kInvalidParameter, fn.assignUVs(intArray({4}), intArray({0, 1, 2, 9})).statusCode());
    EXPECT_EQ(MS::kInvalidParameter, fn.assignUVs(intArray({3}), intArray({0, 1, 2})).statusCode());
}

TEST_F(MeshApiCreate, MeshWithoutUvsReadsAndTakesEmptyAssignments) {
    MDagPath cube = addMesh(unitCube(), "cube");
    MFnMesh fn(cube);
    MFloatArray u, v;
    MIntArray counts, ids;
    ASSERT_TRUE(fn.getUVs(u, v));
    ASSERT_TRUE(fn.getAssignedUVs(counts, ids));
    EXPECT_EQ(0u, u.length() + counts.length() + ids.length());
    EXPECT_TRUE(fn.assignUVs(counts, ids));
}

TEST_F(MeshApiCreate, BadArraysFailAndCreateNothing) {
    const MPointArray corners = quadAt(0);
    const MPoint nan(std::numeric_limits<double>::quiet_NaN(), 0, 0);
    const struct {
        int numVertices, numPolygons;
        MPointArray points;
        MIntArray counts, connects;
    } cases[] = {
        {4, 1, corners, intArray({4}), intArray({0, 1, 2, 7})},  // id out of range
        {4, 1, corners, intArray({4}), intArray({0, 1, 2})},     // counts exceed connects
        {4, 1, corners, intArray({2}), intArray({0, 1})},        // too few corners
        {4, 1, corners, intArray({4}), intArray({0, 1, 1, 2})},  // repeated corner
        {4, 2, corners, intArray({4}), intArray({0, 1, 2, 3})},  // numPolygons disagrees
        {5, 1, corners, intArray({4}), intArray({0, 1, 2, 3})},  // fewer points than vertices
        {3, 1, pointArray({MPoint(), nan, MPoint(0, 0, 1)}), intArray({3}), intArray({0, 1, 2})},
    };
    for (const auto& c : cases) {
        MFnMesh fn;
        MStatus status;
        EXPECT_TRUE(fn.create(c.numVertices, c.numPolygons, c.points, c.counts, c.connects, MObject::kNullObj,
                              &status)
                        .isNull());
        EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    }
    EXPECT_EQ(0, countNodes(MFn::kMesh));
    EXPECT_EQ(0, countNodes(MFn::kTransform));
}

TEST_F(MeshApiCreate, AddPolygonOnAnUnattachedSetMakesANewMeshUnderANewTransform) {
    MFnMesh fn;
    int face = -1;
    MStatus status;
    MObject result = fn.addPolygon(quadAt(0), face, true, 1e-3, MObject::kNullObj, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(0, face);
    EXPECT_EQ(MFn::kTransform, result.apiType());
    EXPECT_EQ(MFn::kMesh, fn.object().apiType());
    fn.addPolygon(quadAt(1), face, true, 1e-3);
    EXPECT_EQ(1, face);
    EXPECT_EQ(6, fn.numVertices());
    EXPECT_EQ(1, countNodes(MFn::kMesh));
}

TEST_F(MeshApiCreate, AddPolygonOnAnEmptyShapeMakesAMeshOfItsOwnAndLeavesTheShapeEmpty) {
    ASSERT_TRUE(runCommand("createNode mesh -n emptyShape"));
    MFnMesh fn(pathTo("emptyShape"));
    MObject result = fn.addPolygon(quadAt(0));
    EXPECT_EQ(MFn::kTransform, result.apiType());
    EXPECT_NE(pathTo("emptyShape").node(), fn.object());
    EXPECT_EQ(4, fn.numVertices());
    EXPECT_TRUE(fn.dagPath().isValid());
    EXPECT_EQ(0, MFnMesh(pathTo("emptyShape")).numVertices());
}

TEST_F(MeshApiCreate, AddPolygonReusesCornersWithinToleranceAndNumbersNewOnesInOrder) {
    MFnMesh fn;
    fn.addPolygon(quadAt(0), true, 1e-3);
    // Corners 0 and 1 of the second quad fall on vertices 3 and 2; corners 2 and 3 are new.
    int face = -1;
    MPointArray second =
        pointArray({MPoint(1.0004, 0, 0), MPoint(1, 0, -1), MPoint(2, 0, -1), MPoint(2, 0, 0)});
    fn.addPolygon(second, face, true, 1e-3);
    MIntArray vertices;
    ASSERT_TRUE(fn.getPolygonVertices(face, vertices));
    EXPECT_EQ((std::vector<int>{3, 2, 4, 5}), toVector(vertices));
    // Without merging, every corner is a new vertex.
    fn.addPolygon(second, face, false, 1e-3);
    ASSERT_TRUE(fn.getPolygonVertices(face, vertices));
    EXPECT_EQ((std::vector<int>{6, 7, 8, 9}), toVector(vertices));
    EXPECT_EQ(10, fn.numVertices());
}

TEST_F(MeshApiCreate, AddPolygonRefusesDegenerateAndNonFiniteCornersAndLeavesTheMesh) {
    MFnMesh fn;
    fn.addPolygon(quadAt(0), true, 1e-3);
    int face = 42;
    MStatus status;
    MPointArray collapsed = pointArray({MPoint(0, 0, 0), MPoint(0.0001, 0, 0), MPoint(1, 0, -1)});
    fn.addPolygon(collapsed, face, true, 1e-3, MObject::kNullObj, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    MPointArray broken = quadAt(3);
    broken[2] = MPoint(std::numeric_limits<double>::infinity(), 0, 0);
    fn.addPolygon(broken, face, true, 1e-3, MObject::kNullObj, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    EXPECT_EQ(42, face);
    EXPECT_EQ(4, fn.numVertices());
    EXPECT_EQ(1, fn.numPolygons());
}

TEST_F(MeshApiCreate, EdgeSmoothingRoundTripsAndRejectsUnknownEdges) {
    MFnMesh fn(addMesh(unitCube(), "cube"));
    ASSERT_TRUE(fn.setEdgeSmoothings(intArray({0, 3}), intArray({0, 0})));
    EXPECT_TRUE(fn.cleanupEdgeSmoothing());
    EXPECT_FALSE(fn.isEdgeSmooth(0));
    EXPECT_FALSE(fn.isEdgeSmooth(3));
    EXPECT_TRUE(fn.isEdgeSmooth(1));
    EXPECT_EQ(MS::kInvalidParameter, fn.setEdgeSmoothings(intArray({1, 12}), intArray({0, 0})).statusCode());
    EXPECT_TRUE(fn.isEdgeSmooth(1)) << "a rejected list changes nothing";
    EXPECT_EQ(MS::kInvalidParameter, fn.setEdgeSmoothings(intArray({1}), intArray({0, 1})).statusCode());
    MStatus status;
    fn.isEdgeSmooth(-1, &status);
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
}

}  // namespace
