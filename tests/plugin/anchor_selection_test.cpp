// Anchor selection: border walks between anchors, the opposite row of a bridge or merge, the
// preview written for them, the magnet merge and the texts, driven through press, drag and
// release of the context.

#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>

#include <algorithm>

#include "tests/plugin/anchorScene.h"
#include "tool/anchorRows.h"

namespace kytest {
namespace {

using AnchorSelection = AnchorScene;

const std::string kBrushHelp =
    "MMB-CTRL-SHIFT: Relax brush. Drag on the retopo mesh to proceed,MMB: Move brush.Drag on the retopo mesh "
    "to proceed,Press and hold one of these keys to change the brush properties,n: (Relax intensity),b: "
    "(Relax "
    "radius),m: (Move radius),";

TEST_F(AnchorSelection, TwoAnchorsSelectTheShorterSideWithTheirTexts) {
    useStrip(true);
    pickAnchor(0);
    EXPECT_EQ(asVector(context->anchorVertices), Ids({0}));
    EXPECT_TRUE(playerRow().empty());  // one anchor is no row yet, only its marker
    EXPECT_TRUE(samePoints(pointArray("playersLine", locator), worlds({0})));
    EXPECT_EQ(option("kyStrake_info1"), "1 anchor point(s) selected,");
    EXPECT_EQ(option("kyStrake_info2"),
              "Select another anchor point to have a strake selection,LMB-CTRL-SHIFT: Select the boundary "
              "vertices for strake creation,_________________________," +
                  kBrushHelp);

    pickAnchor(4);
    EXPECT_EQ(option("kyStrake_info1"), "2 anchor point(s) selected,");
    EXPECT_EQ(
        option("kyStrake_info2"),
        "A strake is selected,LMB-CTRL-SHIFT: Reselect the same point to have a closed selection whenever "
        "it is possible,BACKSPACE: Remove the last point from selectionLMB: Trace a stroke on the source "
        "mesh to generate a patch,LMB-SHIFT: Drag on the source surface to draw a perpendiclar patch,"
        "CTRL-LMB: Drag to redraw the last strake stroke,_________________________,MMB-CTRL = On an "
        "opposite boundary vertex to create a bridge,MMB-SHIFT = On an opposite boundary vertex to merge "
        "the strakes,_________________________," +
            kBrushHelp + "_________________________,ENTER: Apply the operation,ESC: Abort the operation,");
    EXPECT_EQ(playerRow(), Ids({0, 1, 2, 3, 4}));  // four edges along the bottom, not six round
    // World positions of the moved and tilted mesh.
    EXPECT_TRUE(samePoints(pointArray("playerpts", locator), worlds({0, 1, 2, 3, 4})));
    EXPECT_TRUE(samePoints(pointArray("playersLine", locator), worlds({0, 1, 2, 3, 4})));
}

TEST_F(AnchorSelection, ShorterSideWinsAroundAHoleAndATieTakesTheFirstBorderEdge) {
    useHoleGrid();
    pickAnchors({6, 16});
    EXPECT_EQ(playerRow(), Ids({6, 11, 16}));  // two edges down rather than six round the top

    context->clearAnchors();
    // 11 and 13 face each other across the hole: four edges either way. The first border edge at
    // 11 in the host's order is 6-11, so the walk goes over the top.
    pickAnchors({11, 13});
    EXPECT_EQ(playerRow(), Ids({11, 6, 7, 8, 13}));
    context->clearAnchors();
    pickAnchors({13, 11});
    EXPECT_EQ(playerRow(), Ids({13, 8, 7, 6, 11}));

    context->clearAnchors();
    pickAnchors({6, 7});
    EXPECT_EQ(playerRow(), Ids({6, 7}));
    EXPECT_EQ(context->anchorEdges.length(), 1u);
}

TEST_F(AnchorSelection, SamePointTwiceClosesTheBorder) {
    useHoleGrid();
    pickAnchors({6, 6});
    EXPECT_EQ(playerRow(), Ids({6, 7, 8, 13, 18, 17, 16, 11, 6}));
    EXPECT_TRUE(isPlayerClosed());

    // The outer border of the strip closes the same way.
    context->clearAnchors();
    retopo = makeQuads(4, 2, {});
    select(retopo);
    pickAnchors({0, 0});
    EXPECT_EQ(playerRow(), Ids({0, 1, 2, 3, 4, 9, 14, 13, 12, 11, 10, 5, 0}));
}

TEST_F(AnchorSelection, ThirdAnchorReplacesTheSecondAndKeepsTheSide) {
    useHoleGrid();
    pickAnchors({6, 16});
    ASSERT_EQ(playerRow(), Ids({6, 11, 16}));
    // 8 is two edges from 6 over the top, yet the row goes on along the side it took.
    pickAnchor(8);
    EXPECT_EQ(asVector(context->anchorVertices), Ids({6, 8}));
    EXPECT_EQ(playerRow(), Ids({6, 11, 16, 17, 18, 13, 8}));
    EXPECT_EQ(option("kyStrake_info1"), "2 anchor point(s) selected,");
}

TEST_F(AnchorSelection, PicksOffTheBorderSelectNothing) {
    useStrip();
    const std::string help = option("kyStrake_info2");
    pickAnchor(7);                                            // inside the strip
    press(*context, MPoint(9.5, 0, 9.5), kLeft, kShiftCtrl);  // on the source, far from the strip
    EXPECT_EQ(context->anchorVertices.length(), 0u);
    EXPECT_EQ(option("kyStrake_info2"), help);

    pickAnchors({0, 4});
    pickAnchor(7);
    EXPECT_EQ(asVector(context->anchorVertices), Ids({0, 4}));
    EXPECT_EQ(playerRow(), Ids({0, 1, 2, 3, 4}));
    pickOpposite(7);
    pickMergeRow(7);
    EXPECT_EQ(context->oppositeVertices.length() + context->oppositeEdges.length(), 0u);

    context->clearAnchors();
    pickOpposite(7);  // no magnet either
    EXPECT_EQ(context->magnetVertices.length(), 0u);
}

TEST_F(AnchorSelection, OppositeRowRunsAlongTheAnchorRow) {
    useStrip();
    pickAnchors({0, 4});
    pickOpposite(10);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({10, 11, 12, 13, 14}));
    EXPECT_EQ(context->oppositeEdges.length(), 5u);  // one spare edge beyond the row's four
    EXPECT_EQ(context->oppositeVerticesAlt.length(), 0u);
    EXPECT_EQ(mode(), 1);
    EXPECT_TRUE(context->isBridgeReady());

    // Anchors picked the other way round: from 14 the row now runs towards 10.
    context->clearAnchors();
    pickAnchors({4, 0});
    pickOpposite(14);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({14, 13, 12, 11, 10}));
    EXPECT_EQ(mode(), 1);
}

TEST_F(AnchorSelection, OppositeRowMeetingTheAnchorRowMarksModeMinusOne) {
    useStrip();
    pickAnchors({0, 4});
    // From 14 the edge down the side runs more along the row than the top edge, which runs back.
    pickOpposite(14);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({14, 9, 4, 3, 2}));
    EXPECT_EQ(mode(), -1);

    // Reversed, the row from 10 goes down its side as well.
    pickOpposite(10);
    ASSERT_EQ(mode(), 1);
    context->reverseBridge = true;
    // An anchor pick that misses still walks the opposite row again.
    press(*context, MPoint(9.5, 0, 9.5), kLeft, kShiftCtrl);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({10, 5, 0, 1, 2}));
    EXPECT_EQ(mode(), -1);
}

TEST_F(AnchorSelection, OppositeRowIsCutToTheAnchorRowAndFollowsIt) {
    useStrip();
    pickAnchors({1, 3});
    pickOpposite(11);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({11, 12, 13}));
    EXPECT_EQ(context->oppositeEdges.length(), 3u);
    // A new second anchor walks the opposite row again to the new length.
    pickAnchor(4);
    EXPECT_EQ(playerRow(), Ids({1, 2, 3, 4}));
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({11, 12, 13, 14}));
    EXPECT_EQ(pointArray("fusept", locator).length(), 4u);
}

TEST_F(AnchorSelection, ClosedAnchorRowClosesTheOppositeRow) {
    useRing();
    pickAnchors({0, 0});
    ASSERT_EQ(playerRow(), Ids({0, 1, 2, 3, 4, 5, 6, 7, 0}));
    pickOpposite(8);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({8, 9, 10, 11, 12, 13, 14, 15, 8}));
    EXPECT_EQ(context->oppositeEdges.length(), 8u);
    EXPECT_EQ(mode(), 1);
}

TEST_F(AnchorSelection, MergeRowKeepsACopyAndNeverMarksAFold) {
    useStrip();
    pickAnchors({0, 4});
    pickMergeRow(10);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({10, 11, 12, 13, 14}));
    EXPECT_EQ(asVector(context->oppositeVerticesAlt), Ids({10, 11, 12, 13, 14}));
    EXPECT_EQ(mode(), 0);
    pickMergeRow(14);
    EXPECT_EQ(asVector(context->oppositeVerticesAlt), Ids({14, 9, 4, 3, 2}));
    EXPECT_EQ(mode(), 0);
    // A new anchor row walks both lists again.
    pickAnchor(2);
    EXPECT_EQ(asVector(context->oppositeVertices), Ids({14, 9, 4}));
    EXPECT_EQ(asVector(context->oppositeVerticesAlt), Ids({14, 9, 4}));
}

TEST_F(AnchorSelection, PreviewHoldsBothRowsTheirTrianglesAndTheDivisionLines) {
    useStrip(true);
    pickAnchors({0, 4});
    pickOpposite(10);
    const MPointArray fuse = worlds({10, 11, 12, 13, 14});
    EXPECT_TRUE(samePoints(pointArray("fusept", locator), fuse));
    EXPECT_TRUE(samePoints(pointArray("fusemesh", locator), worlds({0, 1, 2, 3, 4, 10, 11, 12, 13, 14})));
    const Ids indices = intArray("fuseindices", locator);
    ASSERT_EQ(indices.size(), 24u);
    EXPECT_EQ(Ids(indices.begin(), indices.begin() + 6), Ids({5, 0, 1, 5, 1, 6}));
    EXPECT_EQ(Ids(indices.end() - 3, indices.end()), Ids({8, 4, 9}));
    // With no divisions the only line is the opposite row itself.
    EXPECT_TRUE(samePoints(pointArray("sublines", locator), fuse));

    setOption("ky_bdiv", 2);
    ASSERT_TRUE(context->updateSublines());
    const MPointArray lines = pointArray("sublines", locator);
    ASSERT_EQ(lines.length(), 15u);
    for (unsigned i = 0; i < 5; ++i) {
        const MPoint row = world(static_cast<int>(i));
        EXPECT_TRUE(lines[i].isEquivalent(fuse[i], 1e-9));
        EXPECT_TRUE(lines[5 + i].isEquivalent(fuse[i] + (row - fuse[i]) / 3.0, 1e-9));
        EXPECT_TRUE(lines[10 + i].isEquivalent(fuse[i] + (row - fuse[i]) * 2.0 / 3.0, 1e-9));
    }
}

std::vector<unsigned> entries(const MUintArray& array) {
    std::vector<unsigned> values;
    for (unsigned i = 0; i < array.length(); ++i) values.push_back(array[i]);
    return values;
}

TEST(QuadIndices, PairTheTwoRowsColumnByColumn) {
    EXPECT_TRUE(entries(quadIndices(0)).empty());
    EXPECT_TRUE(entries(quadIndices(1)).empty());
    EXPECT_EQ(entries(quadIndices(2)), std::vector<unsigned>({2, 0, 1, 2, 1, 3}));
    EXPECT_EQ(entries(quadIndices(3)), std::vector<unsigned>({3, 0, 1, 3, 1, 4, 4, 1, 2, 4, 2, 5}));
}

TEST_F(AnchorSelection, WalksWithoutARetopoMesh) {
    useStrip();
    MGlobal::clearSelectionList();
    EXPECT_EQ(asVector(kyStrakeContext::shortestBoundaryPath(0, 4, 99999)), Ids({0, 0, 0, 0, 0}));
    EXPECT_EQ(kyStrakeContext::boundaryLoopFrom(0).length(), 0u);
    EXPECT_EQ(vertexPosition(MDagPath(), 3), MPoint::origin);
    EXPECT_EQ(vertexPosition(retopo, 99), MPoint::origin);
}

TEST_F(AnchorSelection, BorderWalksStopWhereTheyFindTheTarget) {
    useHoleGrid();
    // The two border edges at 6: 6-7, the first, and 6-11.
    const int top = kyStrakeContext::shortestBoundaryPath(6, 7, 99999)[0];
    const int side = kyStrakeContext::shortestBoundaryPath(6, 11, 99999)[0];
    bool found = false;
    const MIntArray down = kyStrakeContext::walkBoundary(18, side, top, found);
    EXPECT_TRUE(found);
    EXPECT_EQ(asVector(context->edgesToVertices(down, 6)), Ids({6, 11, 16, 17, 18}));
    // A target off the border is never touched: the walk goes round to the excluded edge and keeps
    // what it has.
    const MIntArray round = kyStrakeContext::walkBoundary(12, top, side, found);
    EXPECT_FALSE(found);
    EXPECT_EQ(asVector(context->edgesToVertices(round, 6)), Ids({6, 7, 8, 13, 18, 17, 16, 11}));
    // Four edges either way to 18: a limit of four lets neither through, five the first side.
    EXPECT_EQ(kyStrakeContext::shortestBoundaryPath(6, 18, 4).length(), 0u);
    EXPECT_EQ(asVector(context->edgesToVertices(kyStrakeContext::shortestBoundaryPath(6, 18, 5), 6)),
              Ids({6, 7, 8, 13, 18}));
}

TEST_F(AnchorSelection, MagnetPairIsMergedOnTheHostAsOneUndoStep) {
    useStrip();
    pickOpposite(4);
    ASSERT_EQ(asVector(context->magnetVertices), Ids({4}));
    drag(*context, world(4), kMiddle, kCtrl);  // the same vertex again is no pair
    EXPECT_EQ(context->magnetVertices.length(), 1u);
    drag(*context, world(9), kMiddle, kCtrl);
    ASSERT_EQ(asVector(context->magnetVertices), Ids({4, 9}));
    const MPointArray screen = pointArray("magnetPt", locator);
    ASSERT_EQ(screen.length(), 2u);
    EXPECT_TRUE(screen[1].isEquivalent(worldToScreen(world(9)), 1e-9));

    const size_t stepsBefore = mhost::driver::undoJournal().size();
    ASSERT_TRUE(context->mergeMagnetVertices());
    EXPECT_EQ(mhost::driver::undoJournal().size(), stepsBefore + 1);
    EXPECT_EQ(MFnMesh(retopo).numVertices(), 14);
    EXPECT_EQ(context->magnetVertices.length(), 0u);
    EXPECT_EQ(pointArray("magnetPt", locator).length(), 0u);
    EXPECT_TRUE(getActiveMeshPath().isValid());
    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_EQ(MFnMesh(retopo).numVertices(), 15);

    // At the gesture's release the pair is merged the same way.
    pickOpposite(0);
    drag(*context, world(5), kMiddle, kCtrl);
    release(*context, world(5), kMiddle, kCtrl);
    EXPECT_EQ(MFnMesh(retopo).numVertices(), 14);
    EXPECT_EQ(context->magnetVertices.length(), 0u);
}

}  // namespace
}  // namespace kytest
