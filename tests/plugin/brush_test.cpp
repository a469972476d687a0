// The relax and move brushes driven through press, drag and release on a scratch patch lying on
// the source grid, plain and moved and tilted: which vertices move and by how much, that they end
// on the source, what they leave alone, the rows drawn on the locator, and one undo entry per drag.

#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>

#include <cmath>
#include <string>

#include "tests/plugin/patchFlowScene.h"

namespace kytest {
namespace {

class BrushScene : public PatchFlowScene, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        PatchFlowScene::SetUp();
        makePatchScene(GetParam());
        retopo = buildScratch();
        ASSERT_TRUE(retopo.isValid());
    }

    MPointArray worldPoints() const {
        MPointArray points;
        MFnMesh(retopo).getPoints(points, MSpace::kWorld);
        return points;
    }
    MPoint worldPoint(int id) const { return worldPoints()[id]; }
    void setWorldPoint(int id, const MPoint& point) { MFnMesh(retopo).setPoint(id, point, MSpace::kWorld); }

    // The vertex nearest to `point`.
    int vertexNearest(const MPoint& point) const {
        const MPointArray points = worldPoints();
        int best = 0;
        for (unsigned i = 1; i < points.length(); ++i)
            if (points[i].distanceTo(point) < points[best].distanceTo(point)) best = static_cast<int>(i);
        return best;
    }
    // The interior vertex nearest the middle of the patch.
    int middleVertex() const { return vertexNearest(onSource(5.0, 4.5)); }

    // One relax drag (MMB with SHIFT and CTRL) through `points`, pressed and released at the first.
    void relaxStroke(std::initializer_list<MPoint> points) {
        press(*context, *points.begin(), kMiddle, kShiftCtrl);
        for (const MPoint& point : points) EXPECT_TRUE(drag(*context, point, kMiddle, kShiftCtrl));
        release(*context, *points.begin(), kMiddle, kShiftCtrl);
    }

    static void setDoubleOption(const std::string& name, double value) {
        ASSERT_TRUE(mhost::driver::runCommand("optionVar -fv " + name + " " + std::to_string(value)));
    }

    // Ids of the vertices that differ between two position arrays.
    static Ids movedIds(const MPointArray& before, const MPointArray& after) {
        Ids moved;
        for (unsigned i = 0; i < before.length(); ++i)
            if (!(before[i] == after[i])) moved.push_back(static_cast<int>(i));
        return moved;
    }

    // Rewrites the shadow from the rows' ids, as every brush event and every undo of one leaves it,
    // so that the state before a stroke is one that undo can give back.
    static void settleShadow() {
        MIntArray ids1, ids2, ids3;
        ASSERT_TRUE(getShadowIndices(ids1, ids2, ids3));
        ASSERT_TRUE(writeShadowStrokesFromIds(ids1, ids2, ids3));
    }

    MDagPath retopo;
};

// --- Relax brush -----------------------------------------------------------------------------

TEST_P(BrushScene, RelaxPullsAVertexTowardsItsNeighboursAndKeepsItOnTheSource) {
    const int id = middleVertex();
    const MPoint start = worldPoint(id);
    // Pushed along the surface, off the middle of its neighbours.
    const MPoint pushed = onSource(5.9, 4.5);
    setWorldPoint(id, pushed);
    const double offBefore = pushed.distanceTo(start);

    relaxStroke({start});
    EXPECT_DOUBLE_EQ(context->relaxIntensity, 0.15);
    EXPECT_FALSE(context->relaxBrushArmed);  // the gesture's own release disarms it
    const double offAfter = worldPoint(id).distanceTo(start);
    EXPECT_LT(offAfter, offBefore);
    EXPECT_GT(offAfter, 0.5 * offBefore);  // one pass of strength 0.15, not the whole way
    EXPECT_LT(largestDistanceFromSource(retopo), 1e-5);
}

TEST_P(BrushScene, RelaxMovesExactlyTheVerticesWithinTheOptionRadius) {
    setDoubleOption("ky_strakeRadius", 40.0);  // 2.0 scene units
    const MPointArray before = worldPoints();
    const MPoint centre = before[middleVertex()];
    relaxStroke({centre});

    Ids within;
    for (unsigned i = 0; i < before.length(); ++i)
        if (before[i].distanceTo(context->brushCenter) <= 2.0) within.push_back(static_cast<int>(i));
    ASSERT_GT(within.size(), 1u);
    EXPECT_LT(within.size(), before.length());
    EXPECT_EQ(movedIds(before, worldPoints()), within);
}

TEST_P(BrushScene, RelaxWithNoStrengthOnlySnapsOntoTheSource) {
    const int id = middleVertex();
    const MPoint start = worldPoint(id);
    // Lifted off the surface along the source's normal.
    const MVector lift = MVector(0.0, -0.4, 0.0) * source.inclusiveMatrix();
    setWorldPoint(id, start + lift);
    // As the panel arms it with no intensity given.
    context->setRelaxBrush(0.0, 0.0);
    ASSERT_EQ(context->relaxIntensity, 0.0);
    press(*context, start, kLeft);
    EXPECT_TRUE(drag(*context, start, kLeft));
    release(*context, start, kLeft);
    EXPECT_TRUE(context->relaxBrushArmed);  // a brush armed from the panel outlives the stroke
    EXPECT_LT(worldPoint(id).distanceTo(start), 1e-5);
}

TEST_P(BrushScene, RelaxLeavesTheFrozenBorderAndHoldsMediansOnTheSourcesPlane) {
    const MPointArray before = worldPoints();
    // A stroke on the patch's near border: the press freezes the whole border of the retopo mesh.
    const int centre = vertexNearest(onSource(5.0, 2.2));
    const int median = vertexNearest(onSource(5.0, 3.4));
    context->freezeBorder = true;
    context->freezeMedianOn = true;
    context->medianVertices = idArray({median});

    relaxStroke({before[centre]});
    const MPointArray after = worldPoints();
    ASSERT_TRUE(containsId(centre, context->frozenVertices));
    for (int id : asVector(context->frozenVertices)) EXPECT_TRUE(after[id] == before[id]) << id;
    // The median ends on x = 0 of the source's own space, which the tilted scene moves off world
    // x = 0.
    const MPoint local = after[median] * source.inclusiveMatrixInverse();
    EXPECT_NEAR(local.x, 0.0, 1e-6);
    EXPECT_NEAR(local.y, 0.0, 1e-6);
}

TEST_P(BrushScene, RelaxKeepsTheRowsOnTheLocatorInStep) {
    const MPoint centre = worldPoint(middleVertex());
    relaxStroke({centre});
    MIntArray ids1, ids2, ids3;
    getShadowIndices(ids1, ids2, ids3);
    ASSERT_GT(ids1.length(), 0u);
    const PolylineList shadow = getShadowRows();
    ASSERT_EQ(shadow.size(), 2u);
    const MPointArray row1 = pointsFromIds(ids1, retopo), row2 = pointsFromIds(ids2, retopo);
    for (unsigned i = 0; i < row1.length(); ++i) EXPECT_LT(shadow[0][i].distanceTo(row1[i]), 1e-6);
    for (unsigned i = 0; i < row2.length(); ++i) EXPECT_LT(shadow[1][i].distanceTo(row2[i]), 1e-6);
    EXPECT_EQ(pointArray("strokesNondestruct", locator).length(), row1.length() + row2.length());
}

TEST_P(BrushScene, RelaxLeavesThePlayerRowAloneAndRedrawsItsLine) {
    const MIntArray row = takeFarRowAsPlayerRow();
    MIntArray ids1, ids2, ids3;
    getShadowIndices(ids1, ids2, ids3);
    const MPointArray before = worldPoints();
    setDoubleOption("ky_strakeRadius", 200.0);  // the whole patch
    relaxStroke({worldPoint(middleVertex())});
    const MPointArray after = worldPoints();
    for (unsigned i = 0; i < ids1.length(); ++i) EXPECT_TRUE(after[ids1[i]] == before[ids1[i]]) << ids1[i];
    EXPECT_FALSE(movedIds(before, after).empty());
    const MPointArray line = pointArray("playersLine", locator);
    ASSERT_EQ(line.length(), row.length());
    for (unsigned i = 0; i < row.length(); ++i) EXPECT_LT(line[i].distanceTo(after[row[i]]), 1e-6);
}

TEST_P(BrushScene, OneRelaxDragIsOneUndoEntryThatRestoresBitForBit) {
    const int steps = toolSteps();
    const MPoint centre = worldPoint(middleVertex());
    setWorldPoint(middleVertex(), onSource(5.9, 4.5));
    setDoubleOption("ky_strakeRadius", 200.0);  // the whole patch, rows included
    settleShadow();
    const MeshState pushed = meshState(retopo);
    const LocatorArrays rowsPushed = rowArrays(locator);
    relaxStroke({centre, centre + MVector(0.3, 0.0, 0.0), centre + MVector(0.6, 0.0, 0.2)});
    EXPECT_EQ(toolSteps(), steps + 1);
    const MeshState relaxed = meshState(retopo);
    const LocatorArrays rowsRelaxed = rowArrays(locator);
    ASSERT_FALSE(relaxed == pushed);

    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == pushed);
    EXPECT_EQ(rowArrays(locator), rowsPushed);
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_TRUE(meshState(retopo) == relaxed);
    EXPECT_EQ(rowArrays(locator), rowsRelaxed);
}

// --- Move brush ------------------------------------------------------------------------------

TEST_P(BrushScene, MovePickWeighsByAParabolaAndTheDragCarriesTheCentreVertex) {
    const int id = middleVertex();
    const MPointArray before = worldPoints();
    const MPoint start = before[id];
    ASSERT_TRUE(press(*context, start, kMiddle));
    ASSERT_EQ(context->moveHitState, 1);
    const double radius = 1.5;
    ASSERT_EQ(context->moveAnchors.length(), context->moveWeights.size());
    ASSERT_GT(context->moveWeights.size(), 0u);
    for (unsigned i = 0; i < context->moveAnchors.length(); ++i) {
        const double d = context->moveAnchors[i].distanceTo(context->brushCenter);
        EXPECT_NEAR(context->moveWeights[i], 1.0 - d * d / (radius * radius), 1e-12);
    }

    const MPoint goal = start + (onSource(1.0, 0.0) - onSource(0.0, 0.0)) * 0.5;
    ASSERT_TRUE(drag(*context, goal, kMiddle));
    EXPECT_EQ(intArray("tweakRadius", locator).size(), 3u);
    EXPECT_EQ(intArray("tweakRadius", locator)[0], 50);
    const MPointArray after = worldPoints();
    // The vertex under the press point has weight near 1, so it follows the pointer.
    EXPECT_LT(after[id].distanceTo(goal), 0.1);
    for (unsigned i = 0; i < before.length(); ++i)
        if (before[i].distanceTo(context->brushCenter) > radius) {
            EXPECT_TRUE(after[i] == before[i]) << i;
        }
    EXPECT_LT(largestDistanceFromSource(retopo), 1e-5);

    const int steps = toolSteps();
    release(*context, goal, kMiddle);
    EXPECT_EQ(toolSteps(), steps + 1);
    EXPECT_TRUE(intArray("tweakRadius", locator).empty());
    EXPECT_FALSE(context->moveInProgress);
}

TEST_P(BrushScene, MoveWithoutMovingThePointerLeavesAFlatPatchWhereItLies) {
    const MPointArray before = worldPoints();
    const MPoint start = before[middleVertex()];
    press(*context, start, kMiddle);
    ASSERT_TRUE(drag(*context, start, kMiddle));
    const MPointArray after = worldPoints();
    for (unsigned i = 0; i < before.length(); ++i) EXPECT_LT(after[i].distanceTo(before[i]), 0.02) << i;
    release(*context, start, kMiddle);
}

TEST_P(BrushScene, MoveCarriesFrozenVerticesAndHoldsMediansOnWorldZero) {
    const int id = middleVertex();
    const MPoint start = worldPoint(id);
    context->freezeBorder = true;
    context->frozenVertices = idArray({id});
    press(*context, start, kMiddle);
    ASSERT_GT(context->moveWeights.size(), 1u);
    MIntArray picked;
    MFnSingleIndexedComponent(context->moveComponent).getElements(picked);
    const int median = picked[0] == id ? picked[1] : picked[0];
    context->freezeMedianOn = true;
    context->medianVertices = idArray({median});

    ASSERT_TRUE(drag(*context, start + MVector(0.4, 0.0, 0.3), kMiddle));
    EXPECT_FALSE(worldPoint(id) == start);
    EXPECT_EQ(worldPoint(median).x, 0.0);
    release(*context, start, kMiddle);
}

TEST_P(BrushScene, OneMoveDragIsOneUndoEntryThatRestoresBitForBit) {
    setOption("ky_strakeTweakR", 150);  // 4.5 scene units: the rows move too
    settleShadow();
    const MeshState before = meshState(retopo);
    const LocatorArrays rowsBefore = rowArrays(locator);
    const int steps = toolSteps();
    const MPoint start = worldPoint(middleVertex());
    press(*context, start, kMiddle);
    for (int i = 1; i <= 4; ++i) drag(*context, start + MVector(0.2 * i, 0.0, 0.1 * i), kMiddle);
    release(*context, start + MVector(0.8, 0.0, 0.4), kMiddle);
    EXPECT_EQ(toolSteps(), steps + 1);
    const MeshState moved = meshState(retopo);
    const LocatorArrays rowsMoved = rowArrays(locator);
    ASSERT_FALSE(moved == before);

    ASSERT_TRUE(mhost::driver::undo());
    EXPECT_TRUE(meshState(retopo) == before);
    EXPECT_EQ(rowArrays(locator), rowsBefore);
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_TRUE(meshState(retopo) == moved);
    EXPECT_EQ(rowArrays(locator), rowsMoved);
}

TEST_P(BrushScene, AMovePressOffBothMeshesRefusesEveryDrag) {
    const MPointArray before = worldPoints();
    const MPoint farAway = onSource(5.0, 4.5) + MVector(0.0, 0.0, 400.0);
    press(*context, farAway, kMiddle);
    EXPECT_EQ(context->moveHitState, -1);
    EXPECT_EQ(drag(*context, farAway + MVector(1.0, 0.0, 0.0), kMiddle).statusCode(),
              MStatus::kUnknownParameter);
    EXPECT_EQ(movedIds(before, worldPoints()), Ids());
}

INSTANTIATE_TEST_SUITE_P(PlainAndTiltedSource, BrushScene, ::testing::Bool());

// --- No retopo mesh --------------------------------------------------------------------------

class BrushWithoutRetopo : public PatchFlowScene {};

TEST_F(BrushWithoutRetopo, BrushesOverTheBareSourceMoveNothingAndFileNothing) {
    makePatchScene(false);
    const int steps = toolSteps();
    const MPoint centre = onSource(5.0, 5.0);
    press(*context, centre, kMiddle, kShiftCtrl);
    drag(*context, centre, kMiddle, kShiftCtrl);
    release(*context, centre, kMiddle, kShiftCtrl);
    press(*context, centre, kMiddle);
    EXPECT_TRUE(context->moveAnchors.length() == 0);
    drag(*context, centre + MVector(1.0, 0.0, 0.0), kMiddle);
    release(*context, centre, kMiddle);
    EXPECT_FALSE(getActiveMeshPath().isValid());
    EXPECT_LE(toolSteps(), steps + 2);
}

}  // namespace
}  // namespace kytest
