// What a release means. A tool command is taken first, for every release; the branches that make
// an operation use it, the others abandon it. The branches are tested in a fixed order.

#include <maya/MFnDependencyNode.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/contextSupport.h"
#include "tool/helpTexts.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// The kept strokes (the stroke set of the last patch as drawn) split into polylines.
PolylineList keptStrokes() {
    PolylineList list;
    const MObject locator = findStrakeLocator();
    MPointArray points;
    MIntArray sizes;
    getPointArrayAttr("strokesNondestruct", locator, points);
    getIntArrayAttr("sizesNondestruct", locator, sizes);
    unsigned offset = 0;
    for (unsigned k = 0; k < sizes.length(); ++k) {
        MPointArray polyline;
        for (int i = 0; i < sizes[k] && offset < points.length(); ++i) polyline.append(points[offset++]);
        list.push_back(polyline);
    }
    return list;
}

}  // namespace

MStatus kyStrakeContext::doRelease(MEvent& event, MHWRender::MUIDrawManager&,
                                   const MHWRender::MFrameContext& frameContext) {
    const GestureKeys keys(event);
    kyStrakeToolCmd* cmd = newStrakeCommand();

    if (keys.mmb && keys.shiftAlone()) return releaseSpansChange(cmd);
    if ((keys.mmb && keys.noModifier()) || moveBrushArmed) {
        moveBrushRelease();
        return releaseTail(cmd);
    }
    if (keys.lmb && keys.shiftAlone() && !hasPlayerVertices()) {
        closeSliceContour();
        commitStroke();
        relaxBrushArmed = false;
        return releaseTail(cmd);
    }
    if (relaxBrushArmed) {
        // Only the relax gesture's own release disarms the brush, so a brush armed from the panel
        // outlives any stroke of another button.
        if (keys.mmb && keys.shiftAndCtrl()) relaxBrushArmed = false;
        saveRows("undo");
        flushRowIds(cmd);
        flushRelax();
        return view.refresh(false, false, false);
    }

    if (magnetVertices.length() > 1) mergeMagnetVertices();
    if (keys.lmb && !keys.ctrl) releaseStroke(event, frameContext);
    if (ctrlStroke) return releaseRedraw(cmd);
    if (shiftStroke && hasPlayerVertices() && !isClosedFigure() && !hasDragged()) {
        setInfoLines("whatsup", "Bridge created");  // the help line stays as the artist knows it
        saveRows("undo");
        flushRowIds(cmd);
        applyBridgeStroke();
    } else if (!ctrlStroke && hasPlayerVertices() && hasStrokes()) {
        // Reached by a selection release too: a stroke first and a row second give the same patch
        // as a row first and a stroke second.
        setInfoLines(helpLmbStrokes + helpSubdivisions + helpRedrawLast + helpSeparator + helpBrushes +
                         helpSeparator + helpApply,
                     "Strake Patch created");
        applyStrakePatch();  // refreshes the view itself
        saveRows("undo");
        flushRowIds(cmd);
        return MS::kSuccess;
    } else if (keys.mmb && keys.ctrlAlone()) {
        releaseTwist(cmd);
    }
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::releaseTail(kyStrakeToolCmd* cmd) {
    saveRows("undo");
    flushRowIds(cmd);
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::releaseSpansChange(kyStrakeToolCmd* cmd) {
    takeSnapshot("undo");
    traceIds(playersAfter, "player undo");
    traceIds(playersBefore, "player redo");
    cmd->setMeshBefore(meshBeforeSnapshot);
    cmd->setMeshAfter(meshAfterSnapshot);
    flushRowIds(cmd);
    KY_RETURN_ON_FAILURE(cmd->finalize());
    return view.refresh(false, false, false);
}

void kyStrakeContext::releaseStroke(MEvent& event, const MHWRender::MFrameContext& frameContext) {
    const unsigned count = strokePoints.length();
    if (getGlue() && !isMiss(currentHit) && count > 0) {
        hoverPick(event, frameContext, true);
        strokePoints[count - 1] = currentHit;
    }
    if (isClosedFigure() && count > 0) strokePoints[count - 1] = strokePoints[0];
    saveRows("undo");
    flushRowIds(newStrakeCommand());
    commitStroke();
    MString status;
    status += strokeCount();
    status += " stroke(s)";
    setInfoLine1(status);
}

MStatus kyStrakeContext::releaseRedraw(kyStrakeToolCmd* cmd) {
    if (hasFirstAndThirdRows()) {
        PolylineList kept;
        kept.push_back(strokePoints);
        writeNondestructStrokes(kept);
        KY_REPORT_FAILURE(cmd->redrawBridgePatch(getActiveMeshPath(), accelParams));
        saveRows("undo");
        flushRowIds(cmd);
        // Kept as it stands: a bridge leaves one shadow polyline and no player row, so the test
        // below ends the release and the redrawn bridge is never filed for undo.
    }
    const bool hasRow = hasPlayerVertices();
    if (shadowCount() < 2 && !hasRow) {
        MStatus status;
        return failWith(status, "need at least 2 strokes to edit the second");
    }
    if (!hasRow) return redrawScratchStroke(cmd);
    if (hasShadow())
        redrawFromShadow();
    else
        redrawFromPlayerRow();
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::redrawScratchStroke(kyStrakeToolCmd* cmd) {
    PolylineList kept = keptStrokes();
    if (kept.empty()) return MS::kSuccess;
    // The second kept stroke is the one redrawn. A patch made from kept strokes always has at
    // least two; a list of one is a fault that the list's bounds check reports.
    kept[1] = strokePoints;
    writeNondestructStrokes(kept);
    KY_REPORT_FAILURE(cmd->rebuildScratchPatch(getActiveMeshPath(), accelParams, isClosedFigure()));
    cmd->setRedrawScratch(meshPositions, getMeshPositions());
    saveRows("undo");
    flushRowIds(cmd);
    KY_RETURN_ON_FAILURE(cmd->finalize());
    clearStrokes();
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::releaseTwist(kyStrakeToolCmd* cmd) {
    takeSnapshot("undo");
    // setMeshBefore makes the instance a change of spans again: a twist journals and undoes as one.
    cmd->operation = kyStrakeToolCmd::kTwist;
    cmd->setMeshBefore(meshBeforeSnapshot);
    cmd->setMeshAfter(meshAfterSnapshot);
    flushRowIds(cmd);
    KY_RETURN_ON_FAILURE(cmd->finalize());
    twisting = false;
    return MS::kSuccess;
}
