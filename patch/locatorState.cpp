// The locator's bookkeeping of the last patch, and plain vertex positions, as whole states that
// undo and redo write back. The words "undo" and "redo" of saveLocatorState and
// restoreLocatorState have their plain meaning (before and after); restoreRowIds takes them
// crosswise, as the mesh snapshots do.

#include <maya/MItGeometry.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

}  // namespace

MStatus kyStrakeToolCmd::saveLocatorState(const MString& label) {
    MStatus status;
    LocatorState state;
    state.playerPoints = getPlayerPoints(status);
    if (!status) return status;
    state.playerVertices = getPlayerVertices(status);
    if (!status) return status;
    state.strokes = getNondestructStrokes(status);
    if (!status) return status;
    state.shadows = getShadowRows(status);
    if (!status) return status;
    status = getShadowIndices(state.shadowIndices1, state.shadowIndices2, state.shadowIndices3);
    if (!status) return status;
    if (label == "undo") locatorBefore = state;
    if (label == "redo") locatorAfter = state;
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::restoreLocatorState(const MString& label) {
    // Tested on locatorBefore for both labels: an operation that began with no player row restores
    // no locator state at all, in undo or in redo.
    if (locatorBefore.playerVertices.length() == 0) return MS::kInvalidParameter;
    const LocatorState state = label == "undo" ? locatorBefore : locatorAfter;

    KY_RETURN_ON_FAILURE(setPlayerVertices(state.playerVertices));
    KY_RETURN_ON_FAILURE(setPlayerLine(state.playerPoints));
    KY_RETURN_ON_FAILURE(writeNondestructStrokes(PolylineList(state.strokes.begin(), state.strokes.end())));

    // Row 2 of the shadow is the saved player row, not shadows[1]: after a strake patch the two
    // are the same chain, and the restore has always been made this way.
    MPointArray row1, row2, row3;
    MIntArray ids2 = state.shadowIndices2;
    const size_t shadowCount = state.shadows.size();
    if (shadowCount >= 1) row1 = state.shadows[0];
    if (shadowCount > 1) row2 = state.playerPoints;
    if (shadowCount > 2) row3 = state.shadows[2];
    if (shadowCount == 0) {
        row2 = state.playerPoints;
        ids2 = state.playerVertices;
    }
    KY_RETURN_ON_FAILURE(writeShadowIndices(state.shadowIndices1, ids2, state.shadowIndices3));
    return writeShadowStrokes(row1, row2, row3);
}

MStatus kyStrakeToolCmd::restorePoints(const MDagPath& path, const MPointArray& points) {
    MStatus status;
    MItGeometry geometry(path, &status);
    if (!status) return status;
    // After a change of topology the arrays no longer fit, and nothing moves.
    if (points.length() != static_cast<unsigned int>(geometry.count())) return MS::kInvalidParameter;
    return geometry.setAllPositions(points, MSpace::kWorld);
}

// "undo" takes rowsAfter and "redo" rowsBefore. The ids name vertices of the restored mesh only
// once the patch node has been written, which is why undo and redo write the mesh first.
MStatus kyStrakeToolCmd::restoreRowIds(const MString& label) {
    const RowIds& rows = label == "undo" ? rowsAfter : rowsBefore;
    KY_RETURN_ON_FAILURE(setPlayerVertices(rows.playerVertices));
    KY_RETURN_ON_FAILURE(setPlayerLineFromIds(rows.playerVertices));
    KY_RETURN_ON_FAILURE(writeShadowIndices(rows.shadowIndices1, rows.shadowIndices2, rows.shadowIndices3));
    return refreshPlayerAndShadow();
}

MStatus kyStrakeToolCmd::refreshPlayerAndShadow() {
    MStatus status;
    const MDagPath path = getActiveMeshPath();
    if (!path.isValid()) return failWith(status, "invalid mesh");
    KY_RETURN_ON_FAILURE(refreshPlayerLine(path));
    return refreshShadowStrokesFromMesh(path);
}
