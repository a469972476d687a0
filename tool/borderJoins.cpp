// Joining two borders of the retopo mesh, as ENTER applies them once an opposite row is chosen: a
// bridge of quads between the anchor row's edges and the opposite row's, or a merge that welds the
// two rows vertex by vertex at their midpoints. Both run as host modelling commands with undo on,
// so each is one entry of the host's undo queue by itself, without a tool command. The divisions
// drag that shapes a bridge before it is applied lives here too.

#include <maya/MGlobal.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// The bridge's divisions as the panel left them; a bridge never set up uses one division.
constexpr int kDefaultBridgeDivisions = 1;
// The divisions drag: one division per 50 pixels, between 0 and 50 divisions.
constexpr int kPixelsPerDivision = 50;
constexpr int kMaxBridgeDivisions = 50;

}  // namespace

MStatus kyStrakeContext::applyBridge(const MDagPath& retopo) {
    const MIntArray ids = getPlayerVertices();
    // The anchor edges are walked again so that they match the mesh as it is now.
    if (hasPlayerVertices() && ids.length() > 0)
        anchorEdges = shortestBoundaryPath(ids[0], ids[ids.length() - 1], 99999);
    // Each anchor edge is bridged to the opposite edge of the same index; without a partner for
    // every one, the host command would be given a broken pairing, so nothing is run.
    if (oppositeEdges.length() < anchorEdges.length()) return MS::kInvalidParameter;
    const int divisions = optionInt("ky_bdiv", kDefaultBridgeDivisions);
    const MStatus status =
        MGlobal::executeCommand(bridgeCommand(retopo, anchorEdges, oppositeEdges, divisions), true, true);
    KY_REPORT_FAILURE(status);
    return status;
}

MStatus kyStrakeContext::applyMerge(const MDagPath& retopo) {
    const MIntArray ids = getPlayerVertices();
    const int vertexCount = meshVertexCount(retopo);
    MStatus status;
    // The pairs run along the player row. A pair the opposite row has no vertex for, or whose
    // two ids both lie past the mesh's vertices, is left out of all three lists together, so that
    // the moves and the merge stay paired.
    MIntArray rowIds, oppositeIds;
    MPointArray midpoints;
    for (unsigned int i = 0; i < ids.length() && i < oppositeVerticesAlt.length(); ++i) {
        if (ids[i] > vertexCount && oppositeVerticesAlt[i] > vertexCount) continue;
        MIntArray pair;
        pair.append(ids[i]);
        pair.append(oppositeVerticesAlt[i]);
        const MPointArray ends = pointsFromIds(pair, retopo, status);
        if (KY_REPORT_FAILURE(status)) return status;
        rowIds.append(ids[i]);
        oppositeIds.append(oppositeVerticesAlt[i]);
        midpoints.append(ends[0] + (ends[1] - ends[0]) * 0.5);
    }
    status = MGlobal::executeCommand(fuseBordersCommand(retopo, rowIds, oppositeIds, midpoints), true, true);
    if (KY_REPORT_FAILURE(status)) return status;
    KY_RETURN_ON_FAILURE(clearNewFaces());
    KY_RETURN_ON_FAILURE(clearShadowIndices());
    return MS::kSuccess;
}

void kyStrakeContext::divisionsDrag() {
    // A merge has no divisions.
    if (oppositeVerticesAlt.length() > 0) return;
    MPointArray preview;
    getPointArrayAttr("fusemesh", findStrakeLocator(), preview);
    if (preview.length() == 0) return;
    if (bridgeDivisionsAtPress == 0) bridgeDivisionsAtPress = static_cast<short>(optionInt("ky_bdiv", 0));
    const int steps = static_cast<short>(currentX - pressX) / kPixelsPerDivision;
    int divisions = steps + bridgeDivisionsAtPress;
    if (divisions < 0) divisions = 0;
    if (divisions > kMaxBridgeDivisions) divisions = kMaxBridgeDivisions;
    // The panel's spin box carries the value into the option; without the panel only the preview
    // is redrawn.
    setSpinBoxValue("bridgeSpin", divisions);
    updateSublines();
}
