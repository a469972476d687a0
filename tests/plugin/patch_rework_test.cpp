// Rework of the last patch: a change of spans of each kind of patch (strake, bridge, scratch) by
// the script command, its refusals, the redraws by CTRL strokes, and the MMB-SHIFT spans drag with
// its one undo entry. Run on a plain source grid and on a moved and tilted one.

#include <maya/MFnMesh.h>
#include <maya/MItGeometry.h>

#include "patch/kyStrakeToolCmd.h"
#include "tests/plugin/patchFlowScene.h"

namespace kytest {
namespace {

class PatchRework : public PatchFlowScene, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        PatchFlowScene::SetUp();
        makePatchScene(GetParam());
    }

    // The scratch's far row as the player row, then a stroke at v = 9.5: a strake patch on it.
    MDagPath buildStrakePatch(int vSpans = 3) {
        const MDagPath retopo = buildScratch();
        takeFarRowAsPlayerRow();
        setOption("ky_vspan", vSpans);
        strokeOnSource(2.0, 9.5, 8.0, 9.5);
        return retopo;
    }

    // A scratch whose far row bows towards +v, and a SHIFT stroke from it: a bridge patch.
    MDagPath buildBridgePatch() {
        buildBowedScratch();
        takeFarRowAsPlayerRow();
        strokeOnSource(5.0, 7.8, 5.2, 9.6, kShift);
        return getActiveMeshPath();
    }

    // Local v of vertex `id` of `retopo`, on the grid's own axes.
    double localV(const MDagPath& retopo, int id) const {
        MPoint point;
        MFnMesh(retopo).getPoint(id, point, MSpace::kWorld);
        return (point * source.inclusiveMatrixInverse()).z;
    }

    void expectOnSourceFacingIt(const MDagPath& retopo) {
        EXPECT_LT(largestDistanceFromSource(retopo), 1e-4);
        EXPECT_EQ(facesAgainstSource(retopo), 0);
    }

    // Mouse events at view pixels, for the spans drag.
    void pressAt(short x, short y, int button, int modifiers) {
        MEvent event = mhost::makeEvent(x, y, button, modifiers);
        context->doPress(event, drawManager, frameContext);
    }
    void dragTo(short x, short y, int button, int modifiers) {
        MEvent event = mhost::makeEvent(x, y, button, modifiers);
        context->doDrag(event, drawManager, frameContext);
    }
    void releaseAt(short x, short y, int button, int modifiers) {
        MEvent event = mhost::makeEvent(x, y, button, modifiers);
        context->doRelease(event, drawManager, frameContext);
    }

    // A closed LMB stroke around the grid's middle.
    void circle(double radius) {
        press(*context, onSource(5.0 + radius, 5.0), kLeft);
        for (int i = 0; i <= 24; ++i) {
            const double angle = 2.0 * M_PI * i / 24;
            drag(*context, onSource(5.0 + radius * std::cos(angle), 5.0 + radius * std::sin(angle)), kLeft);
        }
        release(*context, onSource(5.0 + radius, 5.0), kLeft);
    }

    static int polygons(const MDagPath& path) { return MFnMesh(path).numPolygons(); }
    static bool exists(const std::string& name) {
        std::string result;
        mhost::driver::runCommand("objExists " + name, &result);
        return result == "1";
    }
    double pinch() const {
        double value = 0.0;
        getDoubleAttr("pinch", locator, value);
        return value;
    }
};

// ---------------------------------------------------------------------------------------------
// Change of spans by the script command

// Along the row the spans are fixed by the row the patch stands on; across they follow ky_vspan.
TEST_P(PatchRework, SpansOfAStrakePatchChangeAcrossOnlyAndUndoAsOne) {
    const MDagPath retopo = buildStrakePatch(2);
    ASSERT_EQ(polygons(retopo), 12 + 8);
    const MeshState before = meshState(retopo);
    const LocatorArrays rowsBefore = rowArrays(locator);
    const std::vector<int> firstRow = intArray("shadowIndices1", locator);

    ASSERT_TRUE(mhost::driver::runCommand("kyStrakeCmd -uspan 6 -vspan 3"));
    EXPECT_EQ(polygons(retopo), 12 + 12);
    EXPECT_EQ(option("ky_uspan"), "4") << "-uspan is overwritten from the row";
    EXPECT_EQ(option("ky_vspan"), "3");
    EXPECT_EQ(intArray("playervtx", locator), asVector(kyStrakeToolCmd::lastStrakeIndices(4, 3, 20)));
    EXPECT_EQ(intArray("shadowIndices2", locator), intArray("playervtx", locator));
    EXPECT_EQ(intArray("shadowIndices1", locator), firstRow);
    for (int id : intArray("playervtx", locator)) EXPECT_NEAR(localV(retopo, id), 9.5, 0.05);
    expectOnSourceFacingIt(retopo);
    EXPECT_FALSE(exists("kyPatch3")) << "the last patch node is rewritten, not added to";
    const MeshState after = meshState(retopo);
    const LocatorArrays rowsAfter = rowArrays(locator);

    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == before);
    expectSameRows(rowArrays(locator), rowsBefore);
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_TRUE(meshState(retopo) == after);
    expectSameRows(rowArrays(locator), rowsAfter);
}

TEST_P(PatchRework, SpansOfABridgeSweepItAgainWithTheNewStrips) {
    const MDagPath retopo = buildBridgePatch();
    ASSERT_EQ(polygons(retopo), 12 + 12);
    ASSERT_TRUE(mhost::driver::runCommand("kyStrakeCmd -uspan 9 -vspan 5"));
    EXPECT_EQ(polygons(retopo), 12 + 5 * 4);
    EXPECT_EQ(option("ky_uspan"), "4") << "set from row 1";
    EXPECT_EQ(intArray("shadowIndices3", locator).size(), 5u);
    EXPECT_TRUE(intArray("shadowIndices2", locator).empty());
    EXPECT_EQ(shadowCount(), 1);
    expectOnSourceFacingIt(retopo);
}

TEST_P(PatchRework, SpansOfAScratchPatchTakeBothOptions) {
    const MDagPath retopo = buildScratch();
    ASSERT_EQ(polygons(retopo), 12);
    ASSERT_EQ(mhost::driver::runCommand("kyStrakeCmd -uspan 6 -vspan 2").statusCode(), MS::kSuccess);
    EXPECT_EQ(polygons(retopo), 6 * 2);
    EXPECT_EQ(MFnMesh(retopo).numVertices(), 7 * 3);
    EXPECT_EQ(getActiveMeshPath().fullPathName(), retopo.fullPathName());
    expectOnSourceFacingIt(retopo);
    EXPECT_FALSE(exists("polySurface2")) << "the rebuild leaves no mesh of its own behind";
}

TEST_P(PatchRework, AMeshWithoutHistoryRefusesAndLosesItsShadow) {
    const MDagPath retopo = buildStrakePatch();
    ASSERT_TRUE(mhost::driver::runCommand("delete -constructionHistory " +
                                          std::string(retopo.fullPathName().asChar())));
    select(retopo);
    const MeshState before = meshState(retopo);
    EXPECT_EQ(mhost::driver::runCommand("kyStrakeCmd -uspan 4 -vspan 5").statusCode(), MS::kInvalidParameter);
    EXPECT_FALSE(hasShadow());
    EXPECT_TRUE(meshState(retopo) == before);
    // With the shadow gone the next attempt has nothing to do.
    kyStrakeToolCmd command;
    MMeshIsectAccelParams accelParams;
    EXPECT_EQ(command.changeSpans(accelParams, false), MS::kSuccess);
}

TEST_P(PatchRework, NoShadowOrNoMeshChangesNothing) {
    const MDagPath retopo = buildStrakePatch();
    const MeshState before = meshState(retopo);
    kyStrakeToolCmd command;
    MMeshIsectAccelParams accelParams;
    MGlobal::clearSelectionList();
    EXPECT_EQ(command.changeSpans(accelParams, false), MS::kInvalidParameter);
    select(retopo);
    clearShadowStrokes();
    EXPECT_EQ(command.changeSpans(accelParams, false), MS::kSuccess);
    EXPECT_TRUE(meshState(retopo) == before);
    EXPECT_EQ(mhost::driver::runCommand("kyStrakeCmd -uspan 4 -vspan 5").statusCode(), MS::kInvalidParameter);
}

TEST_P(PatchRework, RebuildingAStrakePatchNeedsTwoShadowRowsAndItsNode) {
    const MDagPath retopo = buildStrakePatch();
    kyStrakeToolCmd command;
    MMeshIsectAccelParams accelParams;
    const PolylineList rows = getShadowRows();
    ASSERT_TRUE(setPointArrayAttr("strokesShadow", locator, rows[0]));
    ASSERT_TRUE(setIntArrayAttr("sizesShadow", locator, idArray({static_cast<int>(rows[0].length())})));
    EXPECT_EQ(command.rebuildStrakePatch(retopo, accelParams, false), MS::kFailure);
    MStatus status;
    EXPECT_EQ(kyStrakeToolCmd::readShadowSecondSize(status), -1);
    EXPECT_EQ(status, MS::kFailure);

    // A bridge redraw with no patch node above the shape is refused by name.
    writeNondestructStroke(rows[0]);
    ASSERT_TRUE(mhost::driver::runCommand("delete -constructionHistory " +
                                          std::string(retopo.fullPathName().asChar())));
    select(retopo);
    EXPECT_EQ(command.redrawBridgePatch(retopo, accelParams), MS::kInvalidParameter);
}

// ---------------------------------------------------------------------------------------------
// A border row fitted to a stroke

TEST_P(PatchRework, FitRowToStrokeMovesOnlyTheRowAndARepeatedIdTakesTheLaterSample) {
    const MDagPath retopo = buildScratch();
    MPointArray stroke;
    for (int i = 0; i < 40; ++i) stroke.append(onSource(1.0 + 0.2 * i, 9.0));
    const MIntArray ids = idArray({5, 6, 7, 8, 9, 5});
    MPointArray original;
    MItGeometry(retopo).allPositions(original, MSpace::kWorld);
    const MeshState before = meshState(retopo);

    kyStrakeToolCmd command;
    MPointArray fitted;
    ASSERT_TRUE(command.fitRowToStroke(stroke, ids, retopo, fitted));
    const MPointArray samples = resampleStroke(stroke, 6);
    ASSERT_EQ(fitted.length(), original.length());
    for (unsigned int id = 0; id < fitted.length(); ++id) {
        if (id >= 5 && id <= 9) continue;
        EXPECT_EQ(fitted[id], original[id]) << id;
    }
    EXPECT_EQ(fitted[5], samples[5]);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(fitted[ids[i]], samples[i]) << i;
    EXPECT_TRUE(meshState(retopo) == before) << "the mesh is not touched";

    MPointArray untouched;
    EXPECT_EQ(command.fitRowToStroke(stroke, MIntArray(), retopo, untouched), MS::kInvalidParameter);
    MPointArray dot;
    dot.append(stroke[0]);
    EXPECT_EQ(command.fitRowToStroke(dot, ids, retopo, untouched), MS::kInvalidParameter);
}

// ---------------------------------------------------------------------------------------------
// Redraws by CTRL strokes

TEST_P(PatchRework, ACtrlStrokeOverAStrakePatchRedrawsItsFarStrake) {
    const MDagPath retopo = buildStrakePatch();
    const MeshState before = meshState(retopo);
    const std::vector<int> farRow = intArray("playervtx", locator);
    strokeOnSource(2.0, 8.8, 8.0, 8.8, kCtrl);
    EXPECT_EQ(polygons(retopo), 24);
    EXPECT_EQ(mhost::driver::undoJournal().back(), "kyStrakeCmd kyStrake_redrawPatch");
    EXPECT_EQ(intArray("playervtx", locator), farRow);
    for (int id : farRow) EXPECT_NEAR(localV(retopo, id), 8.8, 0.05);
    expectOnSourceFacingIt(retopo);
    const MeshState after = meshState(retopo);

    ASSERT_TRUE(mhost::driver::undo());
    for (int id : farRow) EXPECT_NEAR(localV(retopo, id), 9.5, 0.05);
    EXPECT_EQ(meshState(retopo).counts, before.counts);
    ASSERT_TRUE(mhost::driver::redo());
    for (int id : farRow) EXPECT_NEAR(localV(retopo, id), 8.8, 0.05);
    EXPECT_EQ(meshState(retopo).connects, after.connects);
}

// The redrawn bridge is not filed: the release ends on the bridge's single shadow polyline.
TEST_P(PatchRework, ACtrlStrokeOverABridgeSweepsItAlongTheNewStroke) {
    const MDagPath retopo = buildBridgePatch();
    const size_t steps = mhost::driver::undoJournal().size();
    setOption("ky_vspan", 2);
    strokeOnSource(5.0, 7.8, 5.0, 8.8, kCtrl);
    EXPECT_EQ(polygons(retopo), 12 + 2 * 4);
    EXPECT_EQ(intArray("shadowIndices3", locator).size(), 2u);
    double farthest = 0.0;
    for (int id = 0; id < MFnMesh(retopo).numVertices(); ++id)
        farthest = std::max(farthest, localV(retopo, id));
    EXPECT_LT(farthest, 9.3) << "the sweep follows the shorter stroke";
    expectOnSourceFacingIt(retopo);
    EXPECT_EQ(mhost::driver::undoJournal().size(), steps);
}

TEST_P(PatchRework, ACtrlStrokeAlongABarePlayerRowPullsTheRowOntoIt) {
    const MDagPath retopo = buildScratch();
    const MIntArray row = takeFarRowAsPlayerRow();
    clearShadowStrokes();
    strokeOnSource(2.0, 7.6, 8.0, 7.6, kCtrl);
    EXPECT_EQ(mhost::driver::undoJournal().back(), "kyStrakeCmd kyStrake_redrawBoundary");
    for (unsigned int i = 0; i < row.length(); ++i) EXPECT_NEAR(localV(retopo, row[i]), 7.6, 0.05);
    EXPECT_NEAR(localV(retopo, 0), 2.0, 0.05) << "the near row stays";
    EXPECT_EQ(strokeCount(), 0);

    ASSERT_TRUE(mhost::driver::undo());
    for (unsigned int i = 0; i < row.length(); ++i) EXPECT_NEAR(localV(retopo, row[i]), 7.0, 0.05);
    EXPECT_TRUE(intArray("playervtx", locator).empty());
    ASSERT_TRUE(mhost::driver::redo());
    for (unsigned int i = 0; i < row.length(); ++i) EXPECT_NEAR(localV(retopo, row[i]), 7.6, 0.05);
}

TEST_P(PatchRework, ACtrlStrokeOverAScratchPatchRedrawsItsSecondStroke) {
    const MDagPath retopo = buildScratch();
    strokeOnSource(2.0, 6.0, 8.0, 6.0, kCtrl);
    EXPECT_EQ(polygons(retopo), 12);
    EXPECT_EQ(mhost::driver::undoJournal().back(), "kyStrakeCmd kyStrake_redrawScratch");
    double farthest = 0.0;
    for (int id = 0; id < MFnMesh(retopo).numVertices(); ++id)
        farthest = std::max(farthest, localV(retopo, id));
    EXPECT_NEAR(farthest, 6.0, 0.05);
    expectOnSourceFacingIt(retopo);
    // A scratch has no player row to restore, and undo reports that after the points are back.
    EXPECT_FALSE(mhost::driver::undo());
    farthest = 0.0;
    for (int id = 0; id < MFnMesh(retopo).numVertices(); ++id)
        farthest = std::max(farthest, localV(retopo, id));
    EXPECT_NEAR(farthest, 7.0, 0.05);
}

// ---------------------------------------------------------------------------------------------
// The MMB-SHIFT spans drag

TEST_P(PatchRework, SpansDragStepsEvery25PixelsAndIsOneUndoEntry) {
    const MDagPath retopo = buildStrakePatch();
    ASSERT_EQ(polygons(retopo), 24);
    const MeshState before = meshState(retopo);
    const LocatorArrays rowsBefore = rowArrays(locator);
    const size_t steps = mhost::driver::undoJournal().size();

    pressAt(300, 200, kMiddle, kShift);
    dragTo(324, 200, kMiddle, kShift);
    EXPECT_EQ(option("ky_vspan"), "3");
    EXPECT_EQ(polygons(retopo), 24);
    dragTo(325, 200, kMiddle, kShift);
    EXPECT_EQ(option("ky_vspan"), "4");
    EXPECT_EQ(polygons(retopo), 12 + 16);
    dragTo(275, 200, kMiddle, kShift);
    EXPECT_EQ(option("ky_vspan"), "2");
    EXPECT_EQ(polygons(retopo), 12 + 8);
    dragTo(276, 200, kMiddle, kShift);
    EXPECT_EQ(option("ky_vspan"), "3") << "truncated towards zero: -24 px is no step";
    dragTo(250, 200, kMiddle, kShift);
    EXPECT_EQ(option("ky_vspan"), "1");
    EXPECT_EQ(0u, option("kyStrake_info1").find("Changing spans,Pinch value: 0"));
    releaseAt(250, 200, kMiddle, kShift);
    expectOnSourceFacingIt(retopo);

    EXPECT_EQ(mhost::driver::undoJournal().size(), steps + 1);
    EXPECT_EQ(mhost::driver::undoJournal().back(), "kyStrakeCmd kyStrake_changeSpans");
    const MeshState after = meshState(retopo);
    const LocatorArrays rowsAfter = rowArrays(locator);
    EXPECT_EQ(polygons(retopo), 12 + 4);

    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == before);
    expectSameRows(rowArrays(locator), rowsBefore);
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_TRUE(meshState(retopo) == after);
    expectSameRows(rowArrays(locator), rowsAfter);
}

TEST_P(PatchRework, SpansDragStopsAtOneAndFiftyAndClampsThePinch) {
    buildStrakePatch();
    pressAt(300, 200, kMiddle, kShift);
    dragTo(100, 350, kMiddle, kShift);
    EXPECT_EQ(option("ky_vspan"), "1");
    EXPECT_FLOAT_EQ(pinch(), 0.95f);
    dragTo(300 + 25 * 60, 50, kMiddle, kShift);
    EXPECT_EQ(option("ky_vspan"), "50");
    EXPECT_FLOAT_EQ(pinch(), -0.95f);
    dragTo(300, 275, kMiddle, kShift);
    EXPECT_FLOAT_EQ(pinch(), 0.5f);
    releaseAt(300, 275, kMiddle, kShift);
}

// Around a closed first chain only the spans along change, and never below four.
TEST_P(PatchRework, SpansDragOnARingKeepsFourSpansAtLeast) {
    setOption("ky_uspan", 5);
    circle(1.5);
    circle(3.0);
    context->completeAction();
    ASSERT_TRUE(isFirstChainClosed());
    pressAt(300, 200, kMiddle, kShift);
    dragTo(250, 200, kMiddle, kShift);
    EXPECT_EQ(option("ky_uspan"), "4");
    dragTo(200, 200, kMiddle, kShift);
    EXPECT_EQ(option("ky_uspan"), "4");
    EXPECT_EQ(option("ky_vspan"), "3");
    releaseAt(200, 200, kMiddle, kShift);
}

// A twist rebuilds the ring patch at each step and files the whole drag as one change of spans.
TEST_P(PatchRework, ATwistRebuildsTheRingAndUndoesAsOne) {
    circle(1.5);
    circle(3.0);
    context->completeAction();
    const MDagPath retopo = getActiveMeshPath();
    takeFarRowAsPlayerRow();
    circle(4.2);
    ASSERT_EQ(polygons(retopo), 24);
    ASSERT_TRUE(isPlayerClosed());
    const MeshState before = meshState(retopo);
    const size_t steps = mhost::driver::undoJournal().size();

    pressAt(300, 200, kMiddle, kCtrl);
    dragTo(304, 200, kMiddle, kCtrl);
    dragTo(308, 200, kMiddle, kCtrl);
    releaseAt(308, 200, kMiddle, kCtrl);
    EXPECT_EQ(polygons(retopo), 24);
    EXPECT_FALSE(meshState(retopo) == before);
    EXPECT_EQ(mhost::driver::undoJournal().size(), steps + 1);
    EXPECT_EQ(mhost::driver::undoJournal().back(), "kyStrakeCmd kyStrake_changeSpans");
    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == before);
}

INSTANTIATE_TEST_SUITE_P(PlainAndTransformedSource, PatchRework, ::testing::Bool());

}  // namespace
}  // namespace kytest
