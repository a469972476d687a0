// The tool command's whole states: numbering of the far strake, the flip of new quads in the mesh
// arrays, the locator states and their restores, the stroke set work before a patch, the setters
// and the failures of undo and redo.

#include <maya/MFnMesh.h>

#include "patch/kyStrakeToolCmd.h"
#include "tests/plugin/patchFlowScene.h"

namespace kytest {
namespace {

MPointArray pointsOf(std::initializer_list<MPoint> points) {
    MPointArray array;
    for (const MPoint& point : points) array.append(point);
    return array;
}

TEST(LastStrakeIndices, FollowThePointMergeNumbering) {
    EXPECT_EQ(asVector(kyStrakeToolCmd::lastStrakeIndices(3, 2, 10)), Ids({13, 12, 15, 17}));
    EXPECT_EQ(asVector(kyStrakeToolCmd::lastStrakeIndices(1, 3, 0)), Ids({5, 4}));
    EXPECT_EQ(asVector(kyStrakeToolCmd::lastStrakeIndices(2, 1, 7)), Ids({8, 7, 9}));
    EXPECT_TRUE(asVector(kyStrakeToolCmd::lastStrakeIndices(0, 3, 10)).empty());
}

class ToolCommandStates : public PatchFlowScene {
protected:
    void SetUp() override {
        PatchFlowScene::SetUp();
        locator = makeLocator();
    }
    kyStrakeToolCmd cmd;
};

TEST_F(ToolCommandStates, CommitFlipsOnlyTheNewQuadsInTheArrays) {
    // 8 quads of which the last 3 are "new": entries 20 to 31 of the connects are reversed by fours.
    const MDagPath grid = makeGrid(8, 1);
    select(grid);
    const MObject node = makePatchNode("kyPatch1");
    MFnMesh mesh(grid);
    MIntArray counts, connects;
    mesh.getVertices(counts, connects);

    ASSERT_TRUE(cmd.commitPatchMesh(mesh, true, node, idArray({5, 6, 7})));
    const MIntArray& flipped = cmd.meshAfterState().polyconnect;
    ASSERT_EQ(flipped.length(), 32u);
    for (unsigned int i = 0; i < 20; ++i) EXPECT_EQ(flipped[i], connects[i]) << i;
    for (unsigned int quad = 5; quad < 8; ++quad)
        for (unsigned int k = 0; k < 4; ++k) EXPECT_EQ(flipped[4 * quad + k], connects[4 * quad + 3 - k]);

    // The node holds the whole mesh, the flip included.
    EXPECT_EQ(intArray("polyconnect", node), asVector(flipped));
    EXPECT_EQ(pointArray("vertexarray", node).length(), 18u);
    EXPECT_EQ(intArray("edgesharden", node).size(), static_cast<size_t>(mesh.numEdges()));

    ASSERT_TRUE(cmd.commitPatchMesh(mesh, false, node, idArray({5, 6, 7})));
    EXPECT_EQ(asVector(cmd.meshAfterState().polyconnect), asVector(connects));
}

TEST_F(ToolCommandStates, MeshSnapshotLabelsRunCrosswise) {
    select(makeGrid(2, 2));
    ASSERT_TRUE(cmd.saveMeshSnapshot("redo"));
    EXPECT_EQ(cmd.meshBeforeState().numverts, 9u);
    EXPECT_EQ(cmd.meshBeforeState().normalsin.length(), 16u);
    EXPECT_EQ(cmd.meshAfterState().numverts, 0u);
    ASSERT_TRUE(cmd.saveMeshSnapshot("sideways"));
    EXPECT_EQ(cmd.meshAfterState().numverts, 0u);
    ASSERT_TRUE(cmd.saveMeshSnapshot("undo"));
    EXPECT_EQ(cmd.meshAfterState().numpolys, 4u);

    MGlobal::clearSelectionList();
    EXPECT_EQ(cmd.saveMeshSnapshot("redo"), MS::kInvalidParameter);
}

TEST_F(ToolCommandStates, KeptStrokesSplitBySizesOrFallBackOnTheShadow) {
    MStatus status;
    setIntArrayAttr("sizesNondestruct", locator, idArray({3, 3}));
    setPointArrayAttr(
        "strokesNondestruct", locator,
        pointsOf({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(2, 0, 0), MPoint(0, 0, 1), MPoint(1, 0, 1)}));
    PolylineList kept = getNondestructStrokes(status);
    ASSERT_TRUE(status);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].length(), 3u);
    EXPECT_EQ(kept[1].length(), 2u);

    setIntArrayAttr("sizesNondestruct", locator, MIntArray());
    writeShadowStrokes(pointsOf({MPoint(0, 0, 5), MPoint(1, 0, 5)}), pointsOf({MPoint(0, 0, 6)}),
                       MPointArray());
    kept = getNondestructStrokes(status);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0][1], MPoint(1, 0, 5));

    mhost::driver::runCommand("delete " + std::string(MFnDependencyNode(locator).name().asChar()));
    getNondestructStrokes(status);
    EXPECT_EQ(status, MS::kFailure);
}

TEST_F(ToolCommandStates, LocatorRestoreNeedsAPlayerRowWhenTheOperationBegan) {
    writeShadowStrokes(pointsOf({MPoint(0, 0, 0), MPoint(1, 0, 0)}),
                       pointsOf({MPoint(0, 0, 1), MPoint(1, 0, 1)}), MPointArray());
    ASSERT_TRUE(cmd.saveLocatorState("undo"));
    ASSERT_TRUE(cmd.saveLocatorState("redo"));
    clearShadowStrokes();
    EXPECT_EQ(cmd.restoreLocatorState("undo"), MS::kInvalidParameter);
    EXPECT_EQ(cmd.restoreLocatorState("redo"), MS::kInvalidParameter);
    EXPECT_TRUE(pointArray("strokesShadow", locator).length() == 0);
}

TEST_F(ToolCommandStates, LocatorRestoreWritesThePlayerRowAsShadowRowTwo) {
    const MPointArray player = pointsOf({MPoint(0, 0, 2), MPoint(1, 0, 2), MPoint(2, 0, 2)});
    setPlayerVertices(idArray({4, 5, 6}));
    setPlayerLine(player);
    writeShadowIndices(idArray({1, 2, 3}), idArray({4, 5, 6}), MIntArray());
    writeShadowStrokes(pointsOf({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(2, 0, 0)}),
                       pointsOf({MPoint(9, 9, 9), MPoint(9, 9, 8), MPoint(9, 9, 7)}), MPointArray());
    ASSERT_TRUE(cmd.saveLocatorState("undo"));

    // Right after an empty "after" state, as the append workers' first redo does: all emptied.
    ASSERT_TRUE(cmd.restoreLocatorState("redo"));
    EXPECT_TRUE(intArray("playervtx", locator).empty());
    EXPECT_TRUE(intArray("shadowIndices1", locator).empty());
    EXPECT_EQ(pointArray("strokesShadow", locator).length(), 0u);

    ASSERT_TRUE(cmd.restoreLocatorState("undo"));
    EXPECT_EQ(intArray("playervtx", locator), Ids({4, 5, 6}));
    EXPECT_EQ(intArray("shadowIndices1", locator), Ids({1, 2, 3}));
    EXPECT_EQ(intArray("sizesShadow", locator), Ids({3, 3}));
    const MPointArray shadow = pointArray("strokesShadow", locator);
    ASSERT_EQ(shadow.length(), 6u);
    EXPECT_EQ(shadow[3], player[0]);  // the player row, not the second shadow polyline
    EXPECT_EQ(shadow[5], player[2]);
    // The kept strokes fell back on the shadow when saved, and are written back as such.
    EXPECT_EQ(intArray("sizesNondestruct", locator), Ids({3, 3}));
}

TEST_F(ToolCommandStates, StrokeSetWorkBeforeAPatch) {
    kyStrakeToolCmd writer;
    MStatus status;
    writer.appendStrokeToLocator(status, pointsOf({MPoint(0, 0, 5), MPoint(1, 0, 5), MPoint(3, 0, 5)}));
    writer.appendStrokeToLocator(status, pointsOf({MPoint(0, 0, 6), MPoint(2, 0, 6)}));
    writer.appendStrokeToLocator(status, MPointArray());
    EXPECT_EQ(status, MS::kInvalidParameter);

    ASSERT_TRUE(cmd.saveNondestructStrokes(1));
    EXPECT_EQ(intArray("sizesNondestruct", locator), Ids({4, 2}));
    const MPointArray kept = pointArray("strokesNondestruct", locator);
    EXPECT_EQ(kept[1], MPoint(1, 0, 5));
    EXPECT_EQ(kept[2], MPoint(1, 0, 5));  // inner points come out twice
    ASSERT_TRUE(cmd.saveNondestructStrokes(2));
    EXPECT_EQ(intArray("sizesNondestruct", locator), Ids({6, 3}));
    EXPECT_EQ(pointArray("strokesNondestruct", locator)[1], MPoint(0.5, 0, 5));

    ASSERT_TRUE(cmd.prependRowToStrokes(pointsOf({MPoint(0, 0, 4), MPoint(4, 0, 4)})));
    EXPECT_EQ(intArray("sizes", locator), Ids({2, 3, 2}));
    EXPECT_EQ(pointArray("strokes", locator)[2], MPoint(0, 0, 5));
}

TEST_F(ToolCommandStates, TheSpineStartsAtTheMiddleOfThePlayerRow) {
    PolylineList strokes{pointsOf({MPoint(5, 5, 5), MPoint(6, 6, 6)})};
    EXPECT_EQ(cmd.seedSpineStart(strokes), MS::kInvalidParameter);  // no player row
    setPlayerLine(pointsOf({MPoint(0, 0, 0), MPoint(2, 0, 0), MPoint(4, 0, 2)}));
    ASSERT_TRUE(cmd.seedSpineStart(strokes));
    EXPECT_EQ(strokes[0][0], MPoint(2, 0, 0));
    setPlayerLine(pointsOf({MPoint(0, 0, 0), MPoint(2, 0, 0), MPoint(4, 0, 2), MPoint(6, 0, 2)}));
    ASSERT_TRUE(cmd.seedSpineStart(strokes));
    EXPECT_EQ(strokes[0][0], MPoint(3, 0, 1));
    EXPECT_EQ(strokes[0][1], MPoint(6, 6, 6));
    PolylineList none;
    EXPECT_EQ(cmd.seedSpineStart(none), MS::kInvalidParameter);
}

TEST_F(ToolCommandStates, PointRestoresNeedTheSameVertexCount) {
    const MDagPath grid = makeGrid(1, 1);
    EXPECT_EQ(cmd.restorePoints(grid, pointsOf({MPoint(0, 0, 0)})), MS::kInvalidParameter);
    EXPECT_EQ(meshState(grid).points[0], 0.0);
    const MPointArray moved = pointsOf({MPoint(0, 1, 0), MPoint(1, 1, 0), MPoint(0, 1, 1), MPoint(1, 1, 1)});
    ASSERT_TRUE(cmd.restorePoints(grid, moved));
    EXPECT_EQ(meshState(grid).points[1], 1.0);
}

TEST_F(ToolCommandStates, SettersChooseTheOperation) {
    cmd.setTweak(MPointArray(), MPointArray());
    EXPECT_EQ(cmd.operation, kyStrakeToolCmd::kTweak);
    cmd.setBrushRelax(MPointArray(), MPointArray(), idArray({1}), idArray({2, 3}));
    EXPECT_EQ(cmd.operation, kyStrakeToolCmd::kBrushRelax);
    EXPECT_EQ(asVector(cmd.locatorAfterState().shadowIndices3), Ids({2, 3}));
    // A twist becomes a change of spans as soon as its mesh is handed over.
    cmd.operation = kyStrakeToolCmd::kTwist;
    cmd.setMeshBefore(MeshSnapshot());
    EXPECT_EQ(cmd.operation, kyStrakeToolCmd::kChangeSpans);
    cmd.setBevelText("polySplitRing");
    EXPECT_EQ(cmd.operation, kyStrakeToolCmd::kBevel);
}

// The road of the spans drag: whole meshes handed over, written into the patch node above the mesh,
// with the rows going crosswise ("undo" restores the rows after, "redo" those before).
TEST_F(ToolCommandStates, AChangeOfSpansWritesItsMeshesIntoTheUpstreamNode) {
    kyStrakeToolCmd reader;
    select(makeGrid(3, 1));
    ASSERT_TRUE(reader.saveMeshSnapshot("undo"));
    const MeshState wide = meshState(getActiveMeshPath());

    const MDagPath retopo = makeGrid(2, 2);
    const MeshState square = meshState(retopo);
    select(retopo);
    MObject node;
    ASSERT_TRUE(applyPatchCommand("kyPatch1", retopo, node));
    ASSERT_TRUE(reader.saveMeshSnapshot("redo"));

    cmd.setMeshBefore(reader.meshBeforeState());
    cmd.setMeshAfter(reader.meshAfterState());
    cmd.setRowIds(idArray({0, 1, 2}), idArray({0, 1}), MIntArray(), MIntArray(), idArray({4, 5, 6}),
                  idArray({1, 2}), MIntArray(), MIntArray());
    ASSERT_TRUE(cmd.redoIt());
    EXPECT_TRUE(meshState(retopo) == wide);
    EXPECT_EQ(intArray("playervtx", locator), Ids({4, 5, 6}));
    EXPECT_EQ(intArray("shadowIndices1", locator), Ids({1, 2}));
    ASSERT_TRUE(cmd.undoIt());
    EXPECT_TRUE(meshState(retopo) == square);
    EXPECT_EQ(intArray("playervtx", locator), Ids({0, 1, 2}));
    EXPECT_EQ(intArray("shadowIndices1", locator), Ids({0, 1}));
}

TEST_F(ToolCommandStates, RedoWithNothingSelectedFindsNoTarget) {
    for (uint32_t id : {0u, 1u, 5u, 7u, 8u, 14u}) {
        cmd.operation = id;
        EXPECT_EQ(cmd.redoIt(), MS::kUnknownParameter) << id;
    }
}

TEST_F(ToolCommandStates, UndoOfAPatchWhoseNodeWasDeletedByHandFails) {
    select(makeGrid(2, 2));
    cmd.operation = kyStrakeToolCmd::kAppendPatch;
    cmd.patchName = "kyPatch7";
    EXPECT_EQ(cmd.undoIt(), MS::kInvalidParameter);
    cmd.operation = kyStrakeToolCmd::kChangeSpans;
    EXPECT_EQ(cmd.undoIt(), MS::kInvalidParameter);
}

}  // namespace
}  // namespace kytest
