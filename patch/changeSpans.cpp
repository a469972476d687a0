// Change of spans after the fact. changeSpans is the one entry for the script command, the
// context command and the interactive spans drag: it tells from the locator's rows what kind of
// patch the last one was and rebuilds it with the span options of the moment through the worker
// for that kind. The undo frame around it is the caller's.

#include <maya/MFn.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

}  // namespace

// The kinds, tested in this order:
//   ring     closed player row whose first row is not on the mesh's border
//   scratch  closed player row on the border, or no player row and no bridge rows
//   bridge   row 2 empty and rows 1 and 3 filled: the only patch that leaves them so
//   strake   a player row, which a strake patch always leaves as its far strake
// Bridge is tested before scratch because neither leaves a player row.
MStatus kyStrakeToolCmd::changeSpans(MMeshIsectAccelParams& accelParams, bool closed) {
    const MDagPath path = getActiveMeshPath();
    MStatus status;
    const PolylineList shadows = getShadowRows(status);
    KY_RETURN_ON_FAILURE(status);
    MIntArray row1, row2, row3;
    KY_RETURN_ON_FAILURE(getShadowIndices(row1, row2, row3));

    if (!activeMeshIsValid()) return failWith(status, "No mesh selected");
    if (shadows.empty()) return MS::kSuccess;
    if (!meshHasHistory(path)) {
        // Cleared so that the next attempt finds no shadow and stops quietly.
        clearShadowStrokes();
        return failWith(status,
                        "Please make sure that we have a kypatch node in the history so we can act on it ");
    }
    const int vSpans = getVSpan();
    const bool onInterior = isRowOnInterior(path, row1);
    const bool playerClosed = isPlayerClosed();
    MObject node;

    if (playerClosed && onInterior) return changeSpansOnRing(path, accelParams);
    if (playerClosed) return rebuildScratchPatch(path, accelParams, isFirstChainClosed() || closed);
    if (hasFirstAndThirdRows() && getUpstreamPatchNode(node, status))
        return redrawBridgePatch(path, accelParams);
    if (!hasPlayerVertices() && getUpstreamPatchNode(node, status))
        return rebuildScratchPatch(path, accelParams, isFirstChainClosed() || closed);
    if (hasPlayerVertices()) {
        readShadowSecondSize(status);
        if (row1.length() == 0 && row2.length() == 0) return MS::kInvalidParameter;
        lastVSpan = vSpans;
        return rebuildStrakePatch(path, accelParams, closed);
    }
    return MS::kUnknownParameter;
}

// A patch grown as a ring from a closed player row: the rows are closed on both sides of the
// rebuild. The rebuild's own status is not this routine's; the closing afterwards is.
MStatus kyStrakeToolCmd::changeSpansOnRing(const MDagPath& path, MMeshIsectAccelParams& accelParams) {
    MPointArray points;
    MIntArray ids;
    stackSlice(points, ids);
    MObject node;
    MStatus status;
    if (!getUpstreamPatchNode(node, status)) return status;
    KY_REPORT_FAILURE(rebuildStrakePatch(path, accelParams, false));
    MPointArray closedPoints;
    MIntArray closedIds;
    return stackSlice(closedPoints, closedIds);
}

bool kyStrakeToolCmd::meshHasHistory(MDagPath path) {
    path.extendToShape();
    MStatus status;
    const MPlug inMesh = MFnDependencyNode(path.node()).findPlug("inMesh", true, &status);
    if (!status) return false;
    return !inMesh.source().isNull();
}

bool kyStrakeToolCmd::activeMeshIsValid() {
    const MDagPath path = getActiveMeshPath();
    return path.hasFn(MFn::kMesh) && path.isValid();
}

// A shadow of one polyline has no entry 1 either: it reads as -1 with kFailure like an empty one.
int kyStrakeToolCmd::readShadowSecondSize(MStatus& status) {
    MIntArray sizes;
    getSizesShadow(findStrakeLocator(), sizes);
    if (sizes.length() < 2) {
        status = MS::kFailure;
        return -1;
    }
    status = MS::kSuccess;
    return sizes[1];
}
