// Staging of undo states. Most states must be taken before the artist's hand has done anything,
// long before the tool command that will hold them exists, so the context keeps one "redo" slot
// (filled before a gesture acts) and one "undo" slot (filled after it) and hands them over when
// the command is made. The labels name a slot, not a direction of time.

#include <maya/MFnMesh.h>
#include <maya/MItGeometry.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

}  // namespace

// The mesh is read through the active selection: with nothing selected this is a snapshot of
// nothing, which the gesture goes on with.
MStatus kyStrakeContext::takeSnapshot(const MString& label) {
    MeshSnapshot snapshot;
    const MFnMesh mesh(getActiveMeshPath());
    MStatus status = readMeshSnapshot(mesh, snapshot, true);
    if (!status) status.perror("cannot find points to feed");
    if (label == "redo") meshBeforeSnapshot = snapshot;
    if (label == "undo") meshAfterSnapshot = snapshot;
    return saveRows(label);
}

MStatus kyStrakeContext::saveRows(const MString& label) {
    const bool after = label == "undo";
    MIntArray& players = after ? playersAfter : playersBefore;
    MIntArray& row1 = after ? row1After : row1Before;
    MIntArray& row2 = after ? row2After : row2Before;
    MIntArray& row3 = after ? row3After : row3Before;
    MStatus status;
    players = getPlayerVertices(status);
    KY_RETURN_ON_FAILURE(status);
    row1.clear();
    row2.clear();
    row3.clear();
    KY_RETURN_ON_FAILURE(getShadowIndices(row1, row2, row3));
    traceIds(players, after ? "save this one, undo" : "save this one, redo");
    traceIds(row1, "row1 shadow");
    traceIds(row2, "row2 shadow");
    return MS::kSuccess;
}

MStatus kyStrakeContext::savePositions() {
    MStatus status;
    MItGeometry geometry(getActiveMeshPath(), &status);
    KY_RETURN_ON_FAILURE(status);
    meshPositions.clear();
    KY_RETURN_ON_FAILURE(geometry.allPositions(meshPositions, MSpace::kWorld));
    return MS::kSuccess;
}

void kyStrakeContext::flushRowIds(kyStrakeToolCmd* cmd) {
    cmd->setRowIds(playersBefore, row1Before, row2Before, row3Before, playersAfter, row1After, row2After,
                   row3After);
}
