// The gesture dispatch: what press, drag and release do, in their order of tests, and the keys.

#include <maya/MBoundingBox.h>

#include "tests/plugin/contextScene.h"
#include "tool/helpTexts.h"

namespace kytest {
namespace {

class ContextDispatch : public ContextScene {
protected:
    void SetUp() override {
        ContextScene::SetUp();
        makeSourceScene();
        context = makeContext();
        activate(*context);
    }
    MStatus dragPixel(short x, short y, int button, int modifiers) {
        MEvent event = mhost::makeEvent(x, y, button, modifiers);
        return context->doDrag(event, drawManager, frameContext);
    }
    size_t storedStrokes() { return intArray("sizes", locator).size(); }

    kyStrakeContext* context = nullptr;
};

TEST_F(ContextDispatch, EveryPressWipesThePerGestureState) {
    context->strokePoints.append(MPoint(1, 0, 1));
    context->strokePreview.append(MPoint(1, 1, 0));
    context->ctrlStroke = context->shiftStroke = context->sliceStroke = true;
    context->magnetVertices.append(3);
    context->pressPoint = MPoint(1, 0, 1);
    context->spinPhase = 2.0;
    ASSERT_TRUE(setDoubleAttr("pinch", locator, 0.3));

    MEvent event = eventAt(MPoint(4, 0, 6), kMiddle, kCtrl);
    context->doPress(event, drawManager, frameContext);
    short x = 0, y = 0;
    event.getPosition(x, y);
    EXPECT_EQ(context->pressX, x);
    EXPECT_EQ(context->lastX, x);
    EXPECT_EQ(
        context->strokePoints.length() + context->strokePreview.length() + context->magnetVertices.length(),
        0u);
    EXPECT_FALSE(context->ctrlStroke || context->shiftStroke || context->sliceStroke);
    EXPECT_EQ(context->pressPoint, MPoint::origin);
    EXPECT_EQ(context->spinPhase, 0.0);
    double pinch = -1.0;
    getDoubleAttr("pinch", locator, pinch);
    EXPECT_EQ(pinch, 0.0);
}

TEST_F(ContextDispatch, FreehandStrokeIsCommittedOnceAtRelease) {
    const MPoint a(3, 0, 3), b(4, 0, 3), c(5, 0, 4);
    press(*context, a, kLeft);
    drag(*context, a, kLeft);
    drag(*context, b, kLeft);
    drag(*context, b, kLeft);  // repeated events add repeated points
    drag(*context, c, kLeft);
    EXPECT_EQ(storedStrokes(), 0u);  // a drag never touches the locator
    ASSERT_EQ(context->strokePoints.length(), 4u);
    EXPECT_TRUE(context->pressPoint.isEquivalent(a, 0.05));  // the hit under the pixel of a
    release(*context, c, kLeft);
    EXPECT_EQ(intArray("sizes", locator), Ids({4}));
    EXPECT_EQ(option("kyStrake_info1"), "1 stroke(s)");

    stroke(*context, {a, c});
    EXPECT_EQ(intArray("sizes", locator).size(), 2u);
    EXPECT_EQ(option("kyStrake_info1"), "2 stroke(s)");

    // A stroke of one point, or one that never hit the source, is not stored.
    stroke(*context, {a});
    stroke(*context, {MPoint(-30, 0, 3), MPoint(-31, 0, 3)});
    EXPECT_EQ(intArray("sizes", locator).size(), 2u);
}

TEST_F(ContextDispatch, OneCtrlEventMarksTheWholeStrokeAsARedraw) {
    press(*context, MPoint(3, 0, 3), kLeft);
    drag(*context, MPoint(3, 0, 3), kLeft, kCtrl);
    drag(*context, MPoint(4, 0, 3), kLeft);
    EXPECT_TRUE(context->ctrlStroke);
    // Released with CTRL, no row and no shadow to redraw: refused, and nothing is stored.
    EXPECT_EQ(release(*context, MPoint(4, 0, 3), kLeft, kCtrl), MS::kInvalidParameter);
    EXPECT_EQ(storedStrokes(), 0u);
}

TEST_F(ContextDispatch, ShiftWithoutARowIsASliceAndBothModifiersCaptureAStroke) {
    press(*context, MPoint(3, 0, 3), kLeft, kShift);
    drag(*context, MPoint(3, 0, 3), kLeft, kShift);
    EXPECT_TRUE(context->sliceStroke);
    EXPECT_FALSE(context->shiftStroke);
    EXPECT_EQ(context->frontHits.length(), 1u) << "the slice's own capture took the event";

    press(*context, MPoint(3, 0, 3), kLeft, kShiftCtrl);
    drag(*context, MPoint(3, 0, 3), kLeft, kShiftCtrl);
    EXPECT_EQ(context->strokePoints.length(), 1u);
    EXPECT_FALSE(context->sliceStroke || context->ctrlStroke || context->shiftStroke);
}

TEST_F(ContextDispatch, RelaxBrushArmsAtItsPressAndDisarmsAtItsReleaseOnly) {
    press(*context, MPoint(5, 0, 5), kMiddle, kShiftCtrl);
    EXPECT_TRUE(context->relaxBrushArmed);
    EXPECT_EQ(option("kyStrake_info1"), "Relax brush,Intensity: 50,Radius: 50");
    // While armed, every drag is the brush's: an LMB drag captures no stroke.
    drag(*context, MPoint(5, 0, 5), kLeft);
    EXPECT_EQ(context->strokePoints.length(), 0u);
    release(*context, MPoint(5, 0, 5), kMiddle, kShiftCtrl);
    EXPECT_FALSE(context->relaxBrushArmed);

    // Armed from the panel, it outlives strokes of other buttons.
    context->setRelaxBrush(0.01, 10.0);
    stroke(*context, {MPoint(3, 0, 3), MPoint(4, 0, 4)});
    EXPECT_TRUE(context->relaxBrushArmed);
    EXPECT_EQ(storedStrokes(), 0u);
}

TEST_F(ContextDispatch, AnArmedMoveBrushTakesEveryDragFirst) {
    context->moveBrushArmed = true;
    press(*context, MPoint(3, 0, 3), kLeft, kCtrl);
    drag(*context, MPoint(4, 0, 3), kLeft, kCtrl);
    EXPECT_FALSE(context->ctrlStroke);
    EXPECT_EQ(context->strokePoints.length(), 0u);
    release(*context, MPoint(4, 0, 3), kLeft, kCtrl);
    EXPECT_EQ(storedStrokes(), 0u);
}

TEST_F(ContextDispatch, TwistStepsEveryFourPixelsOnAClosedRow) {
    // A 3 x 1 retopo grid: row 1 is its bottom border, row 2 its top border, both closed.
    select(makeGrid(3, 1, 0.0, 2.0));
    const MIntArray row1 = idArray({0, 1, 2, 0});
    const MIntArray row2 = idArray({4, 5, 6, 4});
    ASSERT_TRUE(writeShadowIndices(row1, row2, MIntArray()));
    ASSERT_TRUE(setPlayerVertices(row2));

    MEvent pressEvent = mhost::makeEvent(300, 200, kMiddle, kCtrl);
    context->doPress(pressEvent, drawManager, frameContext);
    dragPixel(303, 200, kMiddle, kCtrl);
    EXPECT_FALSE(context->twisting);
    EXPECT_EQ(intArray("shadowIndices2", locator), asVector(row2));
    dragPixel(304, 210, kMiddle, kCtrl);
    EXPECT_TRUE(context->twisting);
    const MIntArray turned = idArray({5, 6, 4, 5});
    EXPECT_EQ(intArray("shadowIndices2", locator), asVector(turned));
    EXPECT_EQ(context->lastX, 304);
    dragPixel(304, 230, kMiddle, kCtrl);  // no horizontal movement counts as a step of 0
    EXPECT_EQ(intArray("shadowIndices2", locator), asVector(turned));
    MEvent releaseEvent = mhost::makeEvent(304, 230, kMiddle, kCtrl);
    context->doRelease(releaseEvent, drawManager, frameContext);
    EXPECT_FALSE(context->twisting);
}

TEST_F(ContextDispatch, ClosedFiguresEndOnTheirFirstPoint) {
    for (const int figure : {2, 3}) {
        context->abortAction();
        context->figure = figure;
        stroke(*context, {MPoint(3, 0, 3), MPoint(4, 0, 4), MPoint(6, 0, 5)});
        const MPointArray stored = pointArray("strokes", locator);
        ASSERT_GT(stored.length(), 8u) << figure;
        EXPECT_EQ(stored[stored.length() - 1], stored[0]) << figure;
        // The rectangle starts at the press point, the circle lies around it (on x and z).
        MBoundingBox box;
        for (unsigned i = 0; i < stored.length(); ++i) box.expand(stored[i]);
        const MPoint& centre = context->pressPoint;
        EXPECT_TRUE(centre.x > box.min().x - 1e-3 && centre.x < box.max().x + 1e-3) << figure;
        EXPECT_TRUE(centre.z > box.min().z - 1e-3 && centre.z < box.max().z + 1e-3) << figure;
        if (figure == 2) {
            EXPECT_TRUE(stored[0].isEquivalent(centre, 1e-4));
        }
    }
}

TEST_F(ContextDispatch, GlueStartsAndEndsTheStrokeOnTheHoveredVertex) {
    setOption("ky_glue", 1);
    MEvent hover = eventAt(MPoint(3.1, 0, 3.2), 0);
    context->doPtrMoved(hover, drawManager, frameContext);
    EXPECT_EQ(context->currentHit, MPoint(3, 0, 3));
    press(*context, MPoint(3.1, 0, 3.2), kLeft);
    drag(*context, MPoint(3.1, 0, 3.2), kLeft);
    drag(*context, MPoint(5.2, 0, 3.9), kLeft);
    release(*context, MPoint(5.2, 0, 3.9), kLeft);
    const MPointArray stored = pointArray("strokes", locator);
    ASSERT_EQ(stored.length(), 2u);
    EXPECT_TRUE(stored[0].isEquivalent(MPoint(3, 0, 3), 1e-4));  // pulled back onto the surface
    EXPECT_EQ(stored[1], MPoint(5, 0, 4));
}

TEST_F(ContextDispatch, BackspaceDropsStrokesThenStepsAnchorsBack) {
    select(makeGrid(3, 1, 0.0, 2.0));
    stroke(*context, {MPoint(3, 0, 3), MPoint(4, 0, 4)});
    context->anchorVertices.append(1);
    context->anchorVertices.append(2);
    context->deleteAction();
    EXPECT_EQ(storedStrokes(), 0u);
    ASSERT_EQ(context->anchorVertices.length(), 2u);  // a stroke went, the anchors stay
    context->deleteAction();
    EXPECT_EQ(asVector(context->anchorVertices), Ids({1}));
    context->deleteAction();
    EXPECT_EQ(context->anchorVertices.length(), 0u);
    context->deleteAction();
    EXPECT_TRUE(option("kyStrake_info1").empty());
    EXPECT_TRUE(option("kyStrake_info2").empty());
}

TEST_F(ContextDispatch, EnterWithOneStrokeOnlyShowsTheActivationText) {
    stroke(*context, {MPoint(3, 0, 3), MPoint(4, 0, 4)});
    context->completeAction();
    EXPECT_EQ(storedStrokes(), 1u);
    EXPECT_EQ(option("kyStrake_info1"), "kyStrake activated,");
    EXPECT_EQ(option("kyStrake_info2"), helpStart.asChar());
}

TEST_F(ContextDispatch, EnterAfterACtrlStrokeClearsWithoutBuilding) {
    stroke(*context, {MPoint(3, 0, 3), MPoint(4, 0, 4)});
    press(*context, MPoint(3, 0, 3), kLeft, kCtrl);
    drag(*context, MPoint(3, 0, 3), kLeft, kCtrl);
    context->completeAction();
    EXPECT_EQ(storedStrokes(), 0u);
}

TEST_F(ContextDispatch, EscapeClearsTheDataButNoFlag) {
    stroke(*context, {MPoint(3, 0, 3), MPoint(4, 0, 4)});
    context->moveBrushArmed = true;
    context->abortAction();
    EXPECT_EQ(storedStrokes(), 0u);
    EXPECT_TRUE(context->moveBrushArmed);
    EXPECT_EQ(option("kyStrake_info1"), "Operation cancelled");
}

}  // namespace
}  // namespace kytest
