// The access layer over the scene: finding the locator and the meshes, typed attribute access, and
// the locator's named attributes, with and without a locator.

#include <gtest/gtest.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>

#include <string>

#include "geometry/functions.h"
#include "tests/plugin/geometryScene.h"

namespace {

using kytest::values;
using SceneLookup = kytest::GeometryScene;
using LocatorAccess = kytest::GeometryScene;

MIntArray ints(std::initializer_list<int> list) {
    MIntArray array;
    for (int v : list) array.append(v);
    return array;
}

MPointArray points(int count) {
    MPointArray array;
    for (int i = 0; i < count; ++i) array.append(MPoint(i, 1.0, 2.0));
    return array;
}

}  // namespace

TEST_F(SceneLookup, LocatorIsTheFirstNodeWithTheMeshAttribute) {
    EXPECT_TRUE(findStrakeLocator().isNull());
    makePatchNode("kyPatchNode1");
    MObject first = makeLocator("kyStrakeShape1");
    makeLocator("kyStrakeShape2");
    EXPECT_EQ(findStrakeLocator(), first);
}

TEST_F(SceneLookup, ActiveAndSourceMeshes) {
    MStatus status;
    EXPECT_FALSE(getSourceMeshPath(status).isValid());
    EXPECT_EQ(status, MS::kInvalidParameter) << "no locator";
    MObject locator = makeLocator();
    EXPECT_FALSE(getSourceMeshPath(status).isValid());
    EXPECT_EQ(status, MS::kSuccess) << "nothing connected is no failure";

    MDagPath grid = makeGrid(3, 1);
    connectSource(grid, locator);
    EXPECT_EQ(getSourceMeshPath(status).fullPathName(), grid.fullPathName());

    EXPECT_FALSE(getActiveMeshPath().isValid()) << "empty selection";
    MGlobal::selectByName(MFnDependencyNode(locator).name(), MGlobal::kReplaceList);
    EXPECT_FALSE(getActiveMeshPath().isValid()) << "a locator first";
    MDagPath transform = grid;
    transform.pop();
    select(transform);
    EXPECT_EQ(getActiveMeshPath().fullPathName(), grid.fullPathName()) << "a transform extends to its shape";
}

TEST_F(SceneLookup, UpstreamPatchNodeMustFeedTheMeshDirectly) {
    MDagPath grid = makeGrid(1, 1);
    select(grid);
    MObject found;
    MStatus status;
    EXPECT_FALSE(getUpstreamPatchNode(found, status));
    EXPECT_EQ(status, MS::kFailure) << "no history";

    MObject patch = makePatchNode("kyPatchNode1");
    ASSERT_TRUE(mhost::driver::runCommand("connectAttr kyPatchNode1.outMesh " +
                                          std::string(grid.partialPathName().asChar()) + ".inMesh"));
    EXPECT_TRUE(getUpstreamPatchNode(found, status));
    EXPECT_EQ(found, patch);
    EXPECT_EQ(countHistoryNodes(), 2) << "the mesh and its patch node";
    EXPECT_FALSE(findPatchNodeByName(grid.partialPathName(), found)) << "a mesh is no patch node";
}

TEST_F(SceneLookup, PatchNodeNamesFillTheFirstGapWithAnEightBitCounter) {
    EXPECT_EQ(nextPatchNodeName("kyMeshShape"), "kyMeshShape1");
    makePatchNode("kyPatch1");
    makePatchNode("kyPatch3");
    ASSERT_TRUE(mhost::driver::runCommand("createNode transform -n kyPatch2"));
    EXPECT_EQ(nextPatchNodeName("kyPatch"), "kyPatch2") << "only patch node names count";

    for (int i = 1; i <= 127; ++i) makePatchNode("p" + std::to_string(i));
    EXPECT_EQ(nextPatchNodeName("p"), "p-128");
    for (int i = -128; i <= 0; ++i) makePatchNode("p" + std::to_string(i));
    EXPECT_EQ(nextPatchNodeName("p"), "p") << "every name of the 256-count cycle is taken";
}

TEST_F(LocatorAccess, TypedReadsAndWrites) {
    MIntArray untouched = ints({7});
    EXPECT_EQ(getIntArrayAttr("sizes", MObject::kNullObj, untouched), MS::kInvalidParameter);
    MStatus status;
    EXPECT_EQ(getIntAttr("mode", MObject::kNullObj, status), -1);
    EXPECT_EQ(status, MS::kInvalidParameter);

    // A typed array that was never written holds an empty array, not a null object.
    EXPECT_TRUE(getIntArrayAttr("ids", makeProbe(), untouched)) << "never written";
    EXPECT_TRUE(values(untouched).empty());
    MObject locator = makeLocator();
    EXPECT_FALSE(setIntAttr("noSuchAttribute", locator, 3));

    ASSERT_TRUE(setIntArrayAttr("sizes", locator, ints({3, 4})));
    ASSERT_TRUE(setIntAttr("mode", locator, -1));
    ASSERT_TRUE(setPoint3Attr("interPoint", locator, 1, 2, 3));
    MIntArray sizes;
    MPoint point(9, 9, 9, 9);
    EXPECT_TRUE(getIntArrayAttr("sizes", locator, sizes));
    EXPECT_EQ(values(sizes), std::vector<int>({3, 4}));
    EXPECT_EQ(getIntAttr("mode", locator, status), -1);
    EXPECT_TRUE(getPoint3Attr("interPoint", locator, point));
    EXPECT_EQ(point, MPoint(1, 2, 3, 1)) << "w is set to 1";
}

TEST_F(LocatorAccess, WithoutALocatorClearsSucceedAndReadsAreEmpty) {
    EXPECT_TRUE(clearStrokes());
    EXPECT_TRUE(clearShadowIndices());
    EXPECT_TRUE(clearFreePoints());
    EXPECT_TRUE(clearFuseData());
    MPointArray strokes;
    EXPECT_TRUE(getStrokes(MObject::kNullObj, strokes)) << "a null node is no failure for strokes";
    EXPECT_EQ(getPlayerVertices().length(), 0u);
    EXPECT_FALSE(hasStrokes());
    EXPECT_FALSE(isPlayerClosed());
    EXPECT_EQ(setPlayerLineFromIds(ints({1, 2})), MS::kInvalidParameter);
}

TEST_F(LocatorAccess, PlayerRowAndClears) {
    MObject locator = makeLocator();
    ASSERT_TRUE(setPlayerVertices(ints({4})));
    EXPECT_TRUE(isPlayerClosed()) << "one entry: first equals last";
    ASSERT_TRUE(setPlayerVertices(ints({4, 5, 6})));
    EXPECT_FALSE(isPlayerClosed());
    ASSERT_TRUE(setPlayerLine(points(3)));
    MPointArray line;
    ASSERT_TRUE(getPointArrayAttr("playersLine", locator, line));
    EXPECT_EQ(line.length(), 3u);
    EXPECT_EQ(getPlayerPoints().length(), 3u);

    ASSERT_TRUE(setPointArrayAttr("strokesShadow", locator, points(6)));
    ASSERT_TRUE(setIntArrayAttr("sizesShadow", locator, ints({3, 3})));
    ASSERT_TRUE(setPointArrayAttr("fusept", locator, points(2)));
    EXPECT_EQ(shadowCount(), 2);
    ASSERT_TRUE(clearFuseData());
    MPointArray shadow, fuse;
    ASSERT_TRUE(getShadowStrokes(shadow));
    EXPECT_EQ(shadow.length(), 6u) << "the shadow's points stay";
    EXPECT_FALSE(hasShadow()) << "its sizes go with the fuse data";
    ASSERT_TRUE(getPointArrayAttr("fusept", locator, fuse));
    EXPECT_EQ(fuse.length(), 0u);
}
