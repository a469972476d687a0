// The gesture dispatch: what a press, a drag event and a release mean, decided from the button,
// the two modifiers and the context's flags, in a fixed order of tests. Several tests overlap, and
// the order is part of the behaviour: the first test that takes an event decides.

#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/contextSupport.h"
#include "tool/helpTexts.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Scales from the relax options to the brush, at an MMB press with SHIFT and CTRL.
constexpr double kRelaxIntensityScale = 0.0005;
constexpr double kRelaxRadiusScale = 5.0;
// Pixel radius of the boundary-vertex pick while dragging.
constexpr double kDragPickRadius = 11.0;

bool movesBrush(const GestureKeys& keys, bool moveBrushArmed) {
    return (keys.mmb && keys.noModifier()) || moveBrushArmed;
}

}  // namespace

MStatus kyStrakeContext::doPress(MEvent& event, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    const GestureKeys keys(event);
    view = M3dView::active3dView();
    event.getPosition(pressX, pressY);
    checkSourceMesh();  // only to refresh meshValid and meshIsMesh, which the drag guards read

    // Every press wipes the per-gesture state, so a gesture cut short leaves nothing behind.
    bridgeDivisionsAtPress = 0;
    spansAtPress = 0;
    lastX = pressX;
    lastY = pressY;
    ctrlStroke = shiftStroke = moveInProgress = sliceStroke = false;
    pressPoint = MPoint::origin;
    moveHitState = -1;
    magnetVertices.clear();
    spinPhase = 0.0;
    strokePreview.clear();
    strokePoints.clear();
    frontHits.clear();
    backHits.clear();
    setPinch(0.0);

    if (keys.mmb && keys.shiftAlone()) takeSnapshot("redo");
    if (keys.mmb && keys.shiftAndCtrl()) {
        setRelaxBrush(optionDouble("ky_strakeIntens", 50.0) * kRelaxIntensityScale,
                      optionDouble("ky_strakeRadius", 50.0) * kRelaxRadiusScale);
        saveRows("redo");
    }
    // An armed relax brush takes the press of any button, whether this press armed it or the panel.
    if (relaxBrushArmed) {
        savePositions();
        refreshFreezeBorder();
        saveRows("redo");
        return MS::kSuccess;
    }

    // Five tests, one after the other; none ends the others.
    if (movesBrush(keys, moveBrushArmed)) {
        savePositions();
        saveRows("redo");
        moveBrushStart(getActiveMeshPath());
    }
    if (keys.lmb && keys.shiftAndCtrl()) {
        selectPoints();
        saveRows("redo");
    }
    if (keys.mmb && keys.ctrlAlone()) {
        selectOppositeRow(-1);
        selectMagnetVertex();
    }
    if (keys.mmb && keys.shiftAlone() && !hasShadow()) selectMergeRow();
    if (keys.lmb && keys.ctrlAlone()) {
        savePositions();
        saveRows("redo");
    }
    return view.refresh(true, true);
}

MStatus kyStrakeContext::doDrag(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                                const MHWRender::MFrameContext& frameContext) {
    const GestureKeys keys(event);
    event.getPosition(currentX, currentY);
    reverseFigure = false;
    MStatus status;
    if (!meshIsMesh) return failWith(status, "is not Mesh, node connection invalid?");
    if (!meshValid) return failWith(status, "is not valid");
    // The move brush comes before every other test, LMB with CTRL included.
    if (movesBrush(keys, moveBrushArmed)) return moveBrushDrag();
    if (relaxBrushArmed) return relaxDrag(drawManager);

    if (keys.lmb) {
        if (keys.shiftAlone() && !hasPlayerVertices()) {
            sliceStroke = true;
            return captureSliceStroke(drawManager);
        }
        dragStroke(event, drawManager, frameContext, keys);
    }
    if (keys.mmb && keys.ctrlAlone()) dragMagnet();
    if (keys.mmb && keys.shiftAlone()) {
        spansDrag(false);
        divisionsDrag();
    }
    // Shares its test with the magnet above, so both run for one event.
    if (keys.mmb && keys.ctrlAlone() && isPlayerClosed() && hasShadow()) {
        status = twistStep();
        if (!status) return status;
    }
    return view.refresh(false, false, false);
}

void kyStrakeContext::dragStroke(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                                 const MHWRender::MFrameContext& frameContext, const GestureKeys& keys) {
    hoverPick(event, frameContext, false);
    MPoint hit;
    MPointArray preview;
    if (sourceHitAt(currentX, currentY, hit)) {
        if (isMiss(pressPoint)) pressPoint = hit;
        preview = captureStrokePoint(hit, event);
    }
    // Set on hit and on miss, and kept until the next press: one event with the key marks the
    // whole stroke.
    if (keys.ctrlAlone()) ctrlStroke = true;
    if (keys.shiftAlone()) shiftStroke = true;
    // Feedback failures only print; they never end the stroke.
    KY_REPORT_FAILURE(drawStrokeGuide(drawManager, preview));
    KY_REPORT_FAILURE(drawStrokeCursor(drawManager, hit, ""));
}

void kyStrakeContext::dragMagnet() {
    const int vertex = pickBoundaryVertex(kDragPickRadius, true);
    if (magnetVertices.length() != 1 || vertex == -1 || vertex == magnetVertices[0]) return;
    magnetVertices.setLength(2);
    magnetVertices[1] = vertex;
    updateMagnetPoints();
}

MStatus kyStrakeContext::twistStep() {
    const short direction = static_cast<short>(currentX - lastX);
    // A step every 4 pixels; an event with no horizontal movement counts as one.
    if (direction % 4 != 0) return MS::kSuccess;
    // The whole twist is one undo entry: its "before" state is taken at the first step only.
    if (!twisting) takeSnapshot("redo");
    twisting = true;
    MStatus status = twistShadow(direction);
    KY_RETURN_ON_FAILURE(status);
    // The patch is rebuilt on the twisted rows by a command that is never filed: the release files
    // the whole twist.
    KY_REPORT_FAILURE(newStrakeCommand()->rebuildStrakePatch(getActiveMeshPath(), accelParams, false));
    finishClosedRows();
    lastX = currentX;
    return MS::kSuccess;
}

MStatus kyStrakeContext::doPtrMoved(MEvent& event, MHWRender::MUIDrawManager& drawManager,
                                    const MHWRender::MFrameContext& frameContext) {
    if (moveBrushArmed) event.getPosition(currentX, currentY);
    if (moveBrushHover) drawMoveHover(drawManager);
    hoverPick(event, frameContext, true);
    drawGlueMarker(drawManager);
    return MS::kSuccess;
}

MStatus kyStrakeContext::drawFeedback(MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) {
    if (!meshIsMesh || !meshValid) return MS::kInvalidParameter;
    if (freezeBorder)
        refreshFreezeBorder();
    else
        setButtonChecked("freezeBtn", false);
    if (freezeMedianOn) refreshFreezeMedian();
    // While the camera moves the locator is dirtied on every frame, so that its drawing follows.
    if (MHWRender::MFrameContext::userChangingViewContext()) {
        const MObject locator = findStrakeLocator();
        if (!locator.isNull())
            KY_REPORT_FAILURE(MGlobal::executeCommand("dgdirty " + MFnDependencyNode(locator).name()));
    }
    return MS::kSuccess;
}
