// ENTER, BACKSPACE and ESC with and without strokes, rows and anchors; the merge of two borders that
// ENTER applies; the divisions drag; the end of a relax stroke; and the undo staging around a
// gesture, each checked through the host's undo queue. Scenes: the plain and the tilted source of
// the patch tests, and a retopo mesh of two strips facing each other across a gap.

#include <maya/MFnMesh.h>
#include <maya/MQtUtil.h>

#include <QtWidgets/QSpinBox>

#include "drawing/GuiApplication.h"
#include "patch/kyStrakeToolCmd.h"
#include "tests/plugin/patchFlowScene.h"
#include "tool/helpTexts.h"

namespace kytest {
namespace {

std::string journalTail() {
    const std::vector<std::string> journal = mhost::driver::undoJournal();
    return journal.empty() ? std::string() : journal.back();
}

class KeyFlows : public PatchFlowScene, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        PatchFlowScene::SetUp();
        makePatchScene(GetParam());
    }

    std::string statusLine() const { return option("kyStrake_info1"); }
    std::string helpLine() const { return option("kyStrake_info2"); }

    // A scratch patch from two strokes and ENTER, with its far row taken as the player row.
    MDagPath scratchWithPlayerRow() {
        const MDagPath retopo = buildScratch();
        takeFarRowAsPlayerRow();
        return retopo;
    }
};

TEST_P(KeyFlows, EnterWithNothingBuildsNothingAndShowsTheActiveStatus) {
    const size_t entries = mhost::driver::undoJournal().size();
    context->completeAction();
    EXPECT_FALSE(getActiveMeshPath().isValid());
    EXPECT_EQ(mhost::driver::undoJournal().size(), entries);
    EXPECT_EQ(statusLine(), activatedText.asChar());
    EXPECT_EQ(helpLine(), helpStart.asChar());
}

TEST_P(KeyFlows, EnterAfterACtrlStrokeClearsStrokesAndRowWithoutBuilding) {
    const MDagPath retopo = scratchWithPlayerRow();
    const int faces = MFnMesh(retopo).numPolygons();
    clearPlayerVertices();
    // Two strokes that ENTER would otherwise make a scratch patch of.
    strokeOnSource(2.0, 7.0, 8.0, 7.0);
    strokeOnSource(2.0, 9.0, 8.0, 9.0);
    const size_t entries = mhost::driver::undoJournal().size();
    context->ctrlStroke = true;
    context->completeAction();
    EXPECT_EQ(strokeCount(), 0);
    EXPECT_FALSE(hasShadow());
    EXPECT_EQ(MFnMesh(retopo).numPolygons(), faces);
    EXPECT_EQ(mhost::driver::undoJournal().size(), entries);
}

TEST_P(KeyFlows, EnterAfterAShiftStrokeOnlyWritesTheTexts) {
    scratchWithPlayerRow();
    context->shiftStroke = true;
    const LocatorArrays rows = rowArrays(locator);
    const size_t entries = mhost::driver::undoJournal().size();
    context->completeAction();
    EXPECT_EQ(rowArrays(locator), rows);
    EXPECT_EQ(mhost::driver::undoJournal().size(), entries);
    EXPECT_EQ(statusLine(), activatedText.asChar());
}

TEST_P(KeyFlows, EnterWithAPlayerRowFinishesIt) {
    scratchWithPlayerRow();
    ASSERT_TRUE(hasPlayerVertices());
    context->completeAction();
    EXPECT_FALSE(hasPlayerVertices());
    EXPECT_FALSE(hasShadow());
    EXPECT_TRUE(intArray("newFaces", locator).empty());
    // finishRow's "strake created" is overwritten by the closing texts of ENTER.
    EXPECT_EQ(statusLine(), activatedText.asChar());
}

TEST_P(KeyFlows, BackspaceTakesOneStrokeAtATime) {
    strokeOnSource(2.0, 2.0, 8.0, 2.0);
    strokeOnSource(2.0, 5.0, 8.0, 5.0);
    ASSERT_EQ(strokeCount(), 2);
    context->deleteAction();
    EXPECT_EQ(strokeCount(), 1);
    context->deleteAction();
    EXPECT_EQ(strokeCount(), 0);
}

TEST_P(KeyFlows, BackspaceWithoutStrokesStepsTheAnchorsBack) {
    scratchWithPlayerRow();
    const MIntArray row = getPlayerVertices();
    context->anchorVertices = idArray({row[0], row[row.length() - 1]});
    context->anchorEdges = idArray({1, 2, 3});

    context->deleteAction();
    EXPECT_EQ(asVector(context->anchorVertices), Ids({row[0]}));
    EXPECT_TRUE(context->anchorEdges.length() == 0);
    EXPECT_FALSE(hasPlayerVertices());
    EXPECT_EQ(pointArray("playersLine", locator).length(), 0u) << "the row is gone from the view";
    EXPECT_EQ(pointArray("playerpts", locator).length(), 1u) << "the anchor's marker stays";

    context->deleteAction();
    EXPECT_EQ(context->anchorVertices.length(), 0u);
    EXPECT_EQ(pointArray("playerpts", locator).length(), 0u);

    setInfoLines("help", "status");
    context->deleteAction();
    EXPECT_EQ(statusLine(), "");
    EXPECT_EQ(helpLine(), "");
}

TEST_P(KeyFlows, BackspaceWithAnOppositeRowDropsItAndTheMagnet) {
    scratchWithPlayerRow();
    context->oppositeVertices = idArray({1, 2});
    context->oppositeEdges = idArray({3});
    context->magnetVertices = idArray({4});
    MPointArray preview;
    preview.append(MPoint(1, 2, 3));
    storeFuseData(preview, preview, MUintArray(), 1);
    setPointArrayAttr("magnetPt", locator, preview);

    context->deleteAction();
    EXPECT_EQ(context->oppositeVertices.length(), 0u);
    EXPECT_EQ(context->oppositeEdges.length(), 0u);
    EXPECT_EQ(context->magnetVertices.length(), 0u);
    EXPECT_EQ(pointArray("fusept", locator).length(), 0u);
    EXPECT_EQ(pointArray("magnetPt", locator).length(), 0u);
    EXPECT_TRUE(hasPlayerVertices()) << "the anchor row stays";
}

TEST_P(KeyFlows, EscapeClearsTheDataButNoBrushFlag) {
    scratchWithPlayerRow();
    strokeOnSource(2.0, 8.0, 8.0, 8.0);
    context->moveBrushArmed = true;
    context->abortAction();
    EXPECT_EQ(strokeCount(), 0);
    EXPECT_FALSE(hasPlayerVertices());
    EXPECT_FALSE(hasShadow());
    EXPECT_TRUE(context->moveBrushArmed);
    EXPECT_EQ(statusLine(), "Operation cancelled");
}

TEST_P(KeyFlows, SnapshotsFillTheSlotTheirLabelNames) {
    const MDagPath retopo = scratchWithPlayerRow();
    const MIntArray row = getPlayerVertices();
    context->takeSnapshot("redo");
    EXPECT_EQ(context->meshBeforeSnapshot.numverts, MFnMesh(retopo).numVertices());
    EXPECT_EQ(context->meshAfterSnapshot.numverts, 0);
    EXPECT_EQ(asVector(context->playersBefore), asVector(row));
    EXPECT_EQ(context->playersAfter.length(), 0u);

    setPlayerVertices(MIntArray());
    context->takeSnapshot("undo");
    EXPECT_EQ(context->meshAfterSnapshot.numverts, MFnMesh(retopo).numVertices());
    EXPECT_EQ(context->playersAfter.length(), 0u);
    EXPECT_EQ(asVector(context->playersBefore), asVector(row)) << "the redo slot is not touched";
}

TEST_P(KeyFlows, ARelaxStrokeEndsInOneEntryThatSwapsPositions) {
    const MDagPath retopo = scratchWithPlayerRow();
    context->savePositions();
    const MeshState before = meshState(retopo);
    MFnMesh mesh(retopo);
    MPoint moved;
    mesh.getPoint(3, moved);
    mesh.setPoint(3, moved + MVector(0.0, 0.25, 0.0));
    const MeshState after = meshState(retopo);

    ASSERT_TRUE(context->flushRelax());
    EXPECT_EQ(journalTail(), "kyStrakeCmd kyStrake_brushRelax");
    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == before);
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_TRUE(meshState(retopo) == after);
}

INSTANTIATE_TEST_SUITE_P(PlainAndTilted, KeyFlows, ::testing::Bool());

// A retopo mesh of two strips of three quads, one at z 0 to 1 and one at z 2 to 3, lying just above
// the source; the inner rows (ids 4-7 and 8-11) face each other across the gap.
class BorderJoins : public ContextScene {
protected:
    void SetUp() override {
        ContextScene::SetUp();
        makeSourceScene();
        MPointArray points;
        for (double z : {0.0, 1.0, 2.0, 3.0})
            for (int x = 0; x < 4; ++x) points.append(MPoint(2.0 + x, -0.1, 3.0 + z));
        retopo = makeMesh(
            points,
            {{0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {8, 9, 13, 12}, {9, 10, 14, 13}, {10, 11, 15, 14}});
        select(retopo);
        context = makeContext();
        activate(*context);
    }

    // The inner rows as the anchor and merge picks leave them.
    void chooseMergeRows(const MIntArray& opposite) {
        setPlayerVertices(idArray({4, 5, 6, 7}));
        setPlayerLineFromIds(idArray({4, 5, 6, 7}));
        context->anchorVertices = idArray({4, 7});
        context->anchorEdges = idArray({0, 1, 2});
        context->oppositeVertices = opposite;
        context->oppositeVerticesAlt = opposite;
        context->oppositeEdges = idArray({10, 11, 12});
    }

    MPoint world(int id) const {
        MPoint point;
        MFnMesh(retopo).getPoint(id, point, MSpace::kWorld);
        return point;
    }
    // Anchors on the first strip's inner row, then the opposite row from `opposite` on the other.
    void pickBridgeRows(int opposite) {
        press(*context, world(4), kLeft, kShiftCtrl);
        press(*context, world(7), kLeft, kShiftCtrl);
        press(*context, world(opposite), kMiddle, kCtrl);
    }

    MDagPath retopo;
    kyStrakeContext* context = nullptr;
};

TEST_F(BorderJoins, EnterBridgesTheAnchorRowToTheOppositeRowAsOneUndoStep) {
    const MeshState before = meshState(retopo);
    pickBridgeRows(8);
    ASSERT_TRUE(context->isBridgeReady());
    const size_t entries = mhost::driver::undoJournal().size();
    context->completeAction();

    // ky_bdiv was never set: one division, so two quads across each of the three edge pairs.
    EXPECT_EQ(MFnMesh(retopo).numPolygons(), 6 + 6);
    EXPECT_EQ(option("kyStrake_info1"), "Bridge creagted");
    EXPECT_FALSE(context->isBridgeReady());
    EXPECT_FALSE(hasPlayerVertices());
    EXPECT_EQ(pointArray("fusept", locator).length(), 0u);
    ASSERT_EQ(mhost::driver::undoJournal().size(), entries + 1);
    EXPECT_EQ(mhost::driver::undoJournal().back().rfind("polyBridgeEdge -divisions 1 -direction 0", 0), 0u);

    // The bridge is the host's own command: its undo and redo swap the mesh and leave the locator,
    // which ENTER cleared, as it is.
    const MeshState after = meshState(retopo);
    const LocatorArrays rows = rowArrays(locator);
    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == before);
    EXPECT_EQ(rowArrays(locator), rows);
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_TRUE(meshState(retopo) == after);
    EXPECT_EQ(rowArrays(locator), rows);
}

TEST_F(BorderJoins, TheBridgeTakesItsDivisionsFromThePanelOption) {
    setOption("ky_bdiv", 3);
    pickBridgeRows(8);
    context->completeAction();
    EXPECT_EQ(MFnMesh(retopo).numPolygons(), 6 + 3 * 4);
}

TEST_F(BorderJoins, AnOppositeRowOfJustAsManyEdgesIsBridged) {
    // The second strip shrinks to one quad: the walk round it takes three edges, one per anchor edge.
    MPointArray points;
    MFnMesh(retopo).getPoints(points);
    retopo = makeMesh(points, {{0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {8, 9, 13, 12}});
    select(retopo);
    pickBridgeRows(8);
    ASSERT_EQ(context->oppositeEdges.length(), context->anchorEdges.length());
    const size_t entries = mhost::driver::undoJournal().size();
    context->completeAction();
    EXPECT_EQ(mhost::driver::undoJournal().size(), entries + 1);
    EXPECT_EQ(option("kyStrake_info1"), "Bridge creagted");
}

TEST_F(BorderJoins, ABridgeToAShorterRowRunsNothingAndKeepsTheRows) {
    // The second strip shrinks to one triangle, whose whole border has three edges; the anchors
    // take the first strip's border round one end, four edges.
    MPointArray points;
    MFnMesh(retopo).getPoints(points);
    retopo = makeMesh(points, {{0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {8, 9, 12}});
    select(retopo);
    const MeshState before = meshState(retopo);
    press(*context, world(0), kLeft, kShiftCtrl);
    press(*context, world(7), kLeft, kShiftCtrl);
    press(*context, world(8), kMiddle, kCtrl);
    ASSERT_EQ(context->anchorEdges.length(), 4u);
    ASSERT_LT(context->oppositeEdges.length(), context->anchorEdges.length());
    const size_t entries = mhost::driver::undoJournal().size();
    context->completeAction();
    EXPECT_TRUE(meshState(retopo) == before);
    EXPECT_EQ(mhost::driver::undoJournal().size(), entries);
    EXPECT_EQ(option("kyStrake_info1"), activatedText.asChar());
    EXPECT_TRUE(context->isBridgeReady()) << "the rows stay for another pick";
}

// The merge's script moves each vertex of a pair and then merges them all; the host files each of
// those commands as a step of its own, as Maya does, so undoing the merge takes them all back.
TEST_F(BorderJoins, EnterMergesTheRowsAtTheirMidpointsAndUndoTakesItBack) {
    const MeshState before = meshState(retopo);
    const size_t entries = mhost::driver::undoJournal().size();
    chooseMergeRows(idArray({8, 9, 10, 11}));
    context->completeAction();

    MFnMesh mesh(retopo);
    EXPECT_EQ(mesh.numVertices(), 12);
    EXPECT_EQ(mesh.numPolygons(), 6);
    int onSeam = 0;
    for (int i = 0; i < mesh.numVertices(); ++i) {
        MPoint point;
        mesh.getPoint(i, point);
        onSeam += std::abs(point.z - 4.5) < 1e-9;
    }
    EXPECT_EQ(onSeam, 4);
    EXPECT_EQ(option("kyStrake_info1"), "Boundary edges merged");
    EXPECT_FALSE(hasPlayerVertices());
    EXPECT_EQ(context->anchorVertices.length(), 0u);
    EXPECT_EQ(context->oppositeVerticesAlt.length(), 0u);

    const std::vector<std::string> journal = mhost::driver::undoJournal();
    ASSERT_EQ(journal.size(), entries + 9) << "eight moves and the merge";
    EXPECT_EQ(journal.back().rfind("polyMergeVertex -am 1 -d 0.01 ", 0), 0u);
    const MeshState after = meshState(retopo);
    for (int step = 0; step < 9; ++step) ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == before);
    for (int step = 0; step < 9; ++step) ASSERT_TRUE(mhost::driver::redo());
    EXPECT_TRUE(meshState(retopo) == after);
}

TEST_F(BorderJoins, AShorterOppositeRowMergesOnlyThePairsItHas) {
    chooseMergeRows(idArray({8, 9}));
    context->completeAction();
    MFnMesh mesh(retopo);
    EXPECT_EQ(mesh.numVertices(), 14);
    EXPECT_EQ(option("kyStrake_info1"), "Boundary edges merged");
}

TEST_F(BorderJoins, AMergeOfVerticesTheMeshNoLongerHasChangesNothing) {
    const MeshState before = meshState(retopo);
    chooseMergeRows(idArray({8, 9, 10, 40}));
    setInfoLine1("before");
    context->completeAction();
    EXPECT_TRUE(meshState(retopo) == before);
    EXPECT_NE(option("kyStrake_info1"), "Boundary edges merged");
    EXPECT_TRUE(hasPlayerVertices()) << "the rows stay for another try";
}

// The divisions drag with the panel's spin box wired to the option, as the panel does it, and
// without a panel.
class DivisionsDrag : public BorderJoins {
protected:
    void SetUp() override {
        BorderJoins::SetUp();
        setOption("ky_bdiv", 2);
        // A bridge preview stands: the fuse mesh is what the drag tests for.
        MPointArray preview;
        preview.append(MPoint(0, 0, 0));
        storeFuseData(preview, preview, MUintArray(), 1);
        context->pressX = 100;
    }

    void wirePanel() {
        mhost::ensureGuiApplication();
        spin = std::make_unique<QSpinBox>();
        spin->setObjectName("bridgeSpin");
        spin->setRange(0, 50);
        QObject::connect(spin.get(), qOverload<int>(&QSpinBox::valueChanged), [](int value) {
            mhost::driver::runCommand("optionVar -iv ky_bdiv " + std::to_string(value));
        });
    }

    std::string dragTo(short x) {
        context->currentX = x;
        context->divisionsDrag();
        return option("ky_bdiv");
    }

    std::unique_ptr<QSpinBox> spin;
};

TEST_F(DivisionsDrag, FiftyPixelsMakeOneDivisionWithinZeroToFifty) {
    wirePanel();
    EXPECT_EQ(dragTo(149), "2");
    EXPECT_EQ(dragTo(150), "3");
    EXPECT_EQ(dragTo(100 - 50), "1");
    EXPECT_EQ(dragTo(100 - 200), "0");
    EXPECT_EQ(dragTo(100 + 5000), "50");
    EXPECT_EQ(context->bridgeDivisionsAtPress, 2) << "the value at the press is the base throughout";
}

TEST_F(DivisionsDrag, WithoutAPanelOrForAMergeNothingMoves) {
    EXPECT_EQ(dragTo(400), "2");
    wirePanel();
    context->oppositeVerticesAlt = idArray({8});
    EXPECT_EQ(dragTo(400), "2");
    context->oppositeVerticesAlt.clear();
    clearFuseData();
    EXPECT_EQ(dragTo(400), "2") << "no preview, no divisions";
}

}  // namespace
}  // namespace kytest
