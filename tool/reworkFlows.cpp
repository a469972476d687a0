// Rework of the last patch from the context: a CTRL stroke redraws the last strake patch (over a
// shadow) or pulls a bare player row onto the stroke, and the MMB-SHIFT drag changes the spans of
// the last patch while the pointer moves. The redraws file one tool command each; the spans drag
// rebuilds the mesh at every event with commands that are never filed, and the release files the
// one undo entry of the whole drag from the snapshots taken at press and release.

#include <algorithm>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/helpTexts.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Pixels of horizontal travel per span, and of vertical travel per unit of pinch.
constexpr int kPixelsPerSpan = 25;
constexpr float kPixelsPerPinch = 150.0f;
constexpr float kPinchLimit = 0.95f;
constexpr int kMostSpans = 50;
// A ring needs at least four spans around it.
constexpr int kFewestRingSpans = 4;

}  // namespace

MStatus kyStrakeContext::redrawFromPlayerRow() {
    const MIntArray ids = getPlayerVertices();
    const MPointArray target = isClosedFigure() ? alignFigureToRow(strokePoints, ids) : strokePoints;
    kyStrakeToolCmd* cmd = newStrakeCommand();
    MPointArray newPositions;
    KY_RETURN_ON_FAILURE(cmd->fitRowToStroke(target, ids, getActiveMeshPath(), newPositions));
    cmd->setRedrawBoundary(meshPositions, newPositions);
    cmd->setRowIds(playersBefore, row1Before, row2Before, row3Before, playersAfter, MIntArray(), MIntArray(),
                   MIntArray());
    KY_RETURN_ON_FAILURE(cmd->redoIt());
    KY_RETURN_ON_FAILURE(cmd->finalize());
    KY_RETURN_ON_FAILURE(clearStrokes());
    KY_RETURN_ON_FAILURE(setPlayerLineFromIds(getPlayerVertices()));
    KY_RETURN_ON_FAILURE(clearNewFaces());
    return MS::kSuccess;
}

// The stroke takes the place of the second shadow row and the strake patch is built again on it.
// The command keeps point positions only: the rebuild leaves the vertex count as it was.
MStatus kyStrakeContext::redrawFromShadow() {
    kyStrakeToolCmd* cmd = newStrakeCommand();
    KY_RETURN_ON_FAILURE(cmd->saveLocatorState("undo"));
    const MDagPath path = getActiveMeshPath();
    MPointArray target = strokePoints;
    if (isClosedFigure()) {
        target = alignFigureToRow(strokePoints, getPlayerVertices());
        shiftStroke = false;
    }
    MStatus status;
    const PolylineList rows = getShadowRows(status);
    KY_RETURN_ON_FAILURE(status);
    if (rows.size() < 2) return MS::kUnknownParameter;
    const MPointArray third = rows.size() > 2 ? rows[2] : MPointArray();
    KY_RETURN_ON_FAILURE(writeShadowStrokes(rows[0], target, third));
    setUSpan(static_cast<int>(rows[0].length()) - 1);
    KY_RETURN_ON_FAILURE(savePositions());

    // Reported once and returned as it came: a rebuild is not run a second time for its status.
    status = cmd->rebuildStrakePatch(path, accelParams, isClosedFigure());
    if (KY_REPORT_FAILURE(status)) return status;
    const MPointArray positions = getMeshPositions(status);
    KY_RETURN_ON_FAILURE(status);
    cmd->setRedrawPatch(meshPositions, positions);
    KY_RETURN_ON_FAILURE(cmd->saveLocatorState("redo"));
    flushRowIds(cmd);
    KY_RETURN_ON_FAILURE(cmd->restorePoints(path, positions));
    KY_RETURN_ON_FAILURE(saveRows("undo"));
    return cmd->finalize();
}

void kyStrakeContext::spansDrag(bool keepPinch) {
    const int spansMoved = static_cast<short>(currentX - pressX) / kPixelsPerSpan;
    lastX = currentX;
    if (!keepPinch) {
        float pinch = static_cast<short>(currentY - pressY) / kPixelsPerPinch;
        if (pinch > kPinchLimit) pinch = kPinchLimit;
        if (pinch <= -kPinchLimit) pinch = -kPinchLimit;
        setPinch(pinch);
        lastY = currentY;
    }

    // The first event of a drag reads the spans it starts from; later events count from there.
    const auto fromPress = [this, spansMoved](int current, int fewest) {
        if (spansAtPress == 0) spansAtPress = static_cast<short>(current);
        return std::clamp(spansAtPress + spansMoved, fewest, kMostSpans);
    };
    if (isPlayerClosed() && hasPlayerVertices()) {
        setVSpan(fromPress(getVSpan(), 1));
    } else if (!isFirstChainClosed()) {
        // Both options take the count started from ky_vspan; a strake patch's rebuild sets
        // ky_uspan back from its row, so there only the spans across change.
        const int spans = fromPress(getVSpan(), 1);
        setUSpan(spans);
        setVSpan(spans);
    } else {
        setUSpan(fromPress(getUSpan(), kFewestRingSpans));
    }

    MString status = "Changing spans,";
    status += "Pinch value: ";
    status += getPinch();
    setInfoLines(helpSubdivisions + helpTraceStroke + helpRedrawLast + helpSeparator + helpMergeOpposite +
                     helpBridgeOpposite + helpSeparator + helpBrushes + helpSeparator + helpApply,
                 status);

    // Not filed: the release files the whole drag as one change of spans.
    newStrakeCommand()->changeSpans(accelParams, isClosedFigure());
}
