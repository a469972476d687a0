// The flows that turn collected strokes into patches: the scratch patch on ENTER, and the strake
// patch and bridge stroke behind a release over a player row, and the record of a relax stroke.
// Each takes a fresh tool command, has it do the work and files it on the host's undo queue with
// finalize.

#include <maya/MGlobal.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/helpTexts.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

}  // namespace

MStatus kyStrakeContext::applyScratch() {
    // One stroke is no patch.
    if (strokeCount() < 2) return MS::kFailure;
    kyStrakeToolCmd* cmd = newStrakeCommand();
    cmd->saveNondestructStrokes(sliceStroke ? 1 : 0);

    MDagPath path = getActiveMeshPath();
    cmd->patchName = nextPatchNodeName("kyPatch");
    MStatus status;
    if (!path.isValid()) {
        path = createRetopoMesh(status);
        KY_RETURN_ON_FAILURE(status);
        cmd->operation = kyStrakeToolCmd::kScratch;
    } else {
        cmd->operation = kyStrakeToolCmd::kScratchOrphan;
    }
    if (!path.isValid()) return MS::kFailure;
    cmd->scratchMeshPath = path;

    KY_RETURN_ON_FAILURE(MGlobal::executeCommand(patchCommandText(cmd->patchName, path), false, false));
    cmd->buildScratchPatch(path, accelParams, isClosedFigure());
    if (anyShadowClosed()) {
        MPointArray points;
        MIntArray ids;
        stackSlice(points, ids);
    }
    saveRows("undo");
    flushRowIds(cmd);
    clearStrokes();
    setInfoLines(helpStart, "strake created");
    KY_RETURN_ON_FAILURE(cmd->finalize());
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::applyStrakePatch() {
    if (sliceStroke) return view.refresh(false, false, false);
    kyStrakeToolCmd* cmd = newStrakeCommand();
    // Around a closed row only the last stroke counts, closed on itself.
    if (isPlayerClosed()) {
        clearStrokes();
        commitStroke();
        cmd->closeStrokes();
    }
    if (isClosedFigure()) {
        strokePoints = alignFigureToRow(strokePoints, getPlayerVertices());
        clearStrokes();
        commitStroke();
    }
    const bool closed = isPlayerClosed();
    const bool figureClosed = isClosedFigure();
    MStatus status;
    // A row that cannot be read (its mesh deleted, say) ends the flow before anything is built.
    const MPointArray row = rowPositions(status);
    if (KY_REPORT_FAILURE(status)) return status;
    KY_RETURN_ON_FAILURE(cmd->appendStrakePatch(row, accelParams, figureClosed));
    KY_RETURN_ON_FAILURE(cmd->finalize());
    if (closed) finishClosedRows();
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::applyBridgeStroke() {
    kyStrakeToolCmd* cmd = newStrakeCommand();
    MStatus status;
    if (anchorVertices.length() > 0 && isPlayerClosed()) {
        // A contour drawn around a closed row: each point is picked through the limb, front and
        // back, and the closed contour becomes the one stroke of a strake patch.
        const MPointArray drawn = strokePoints;
        strokePoints.clear();
        for (unsigned int i = 0; i < drawn.length(); ++i) pickFrontBack(worldToScreen(drawn[i]));
        closeSliceContour();
        clearStrokes();
        commitStroke();
        const MPointArray row = rowPositions(status);
        if (KY_REPORT_FAILURE(status)) return status;
        KY_RETURN_ON_FAILURE(cmd->appendStrakePatch(row, accelParams, false));
        KY_RETURN_ON_FAILURE(cmd->finalize());
        finishClosedRows();
        return view.refresh(false, false, false);
    }
    const MPointArray row = rowPositions(status);
    if (KY_REPORT_FAILURE(status)) return status;
    KY_RETURN_ON_FAILURE(cmd->appendBridgePatch(row, accelParams));
    KY_RETURN_ON_FAILURE(cmd->finalize());
    anchorEdges.clear();
    anchorVertices.clear();
    setInfoLines(helpSubdivisions + helpSeparator + helpBrushes + helpSeparator + helpApply,
                 "Strake_patch created");
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::flushRelax() {
    // The brush has already moved the vertices; the command only records the positions from before
    // the stroke and those of now, so that undo and redo can swap them.
    MStatus status;
    const MPointArray positions = getMeshPositions(status);
    kyStrakeToolCmd* cmd = newStrakeCommand();
    cmd->setBrushRelax(meshPositions, positions, relaxIdsA, relaxIdsB);
    status = cmd->redoIt();
    if (KY_REPORT_FAILURE(status)) return status;
    return cmd->finalize();
}
