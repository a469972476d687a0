// Appending patches: the moment strokes become mesh. A strake patch lays getVSpan() quads across
// each pair of neighbouring strakes, the player row being the first; a bridge patch sweeps the
// player row along the one stroke drawn from it. Both are operation 1. The patch node is put into
// the mesh's history before the grid exists (the first redoIt, with an empty meshAfter) and is
// filled with the whole mesh afterwards, so redo never rebuilds geometry.

#include <maya/MFnMesh.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

// The end of an append that made no face: the strokes go, the shadow is redrawn, and the empty
// (transparent) patch node stays in the history.
MStatus abandonAppend() {
    clearStrokes();
    refreshShadowStrokes();
    return MS::kSuccess;
}

}  // namespace

MStatus kyStrakeToolCmd::appendStrakePatch(MPointArray row, MMeshIsectAccelParams& accelParams, bool closed) {
    KY_RETURN_ON_FAILURE(saveLocatorState("undo"));
    operation = kAppendPatch;
    patchName = nextPatchNodeName("kyPatch");
    const int uSpans = static_cast<int>(row.length()) - 1;

    KY_RETURN_ON_FAILURE(prependRowToStrokes(row));
    MStatus status;
    const PolylineList rows = getStrokeList(status);
    if (!status) return status;

    // Inserts the empty patch node. Its restore of the (empty) locatorAfter also empties the player
    // row, the rows and the kept strokes on the locator; from here on only the local copies count.
    clearMeshAfter();
    redoIt();

    const MDagPath meshPath = getActiveMeshPath();
    MFnMesh meshFn(meshPath);
    const int base = meshVertexCount(meshPath);
    bool ok = false;
    MObject meshObject;
    const MIntArray faces = buildQuadGrid(meshFn, rows, static_cast<unsigned int>(uSpans),
                                          static_cast<unsigned int>(getVSpan()), closed, ok, meshObject);
    if (faces.length() == 0) return abandonAppend();

    // The far strake keeps the stroke's own points, which lie on the surface already: only the
    // vertices off the last band's two rows are projected.
    const MObject vertices = stripVertices(base, meshFn.numVertices(), status, MDagPath());
    if (!status) return status;
    const bool reversed = projectOnSource(meshFn.dagPath(), vertices, accelParams, status);
    if (!status) return status;
    KY_RETURN_ON_FAILURE(commitPatchMesh(meshFn, reversed, getObjectByName(patchName), faces));

    MIntArray lastRow = lastStrakeIndices(uSpans, getVSpan(), base);
    MIntArray firstRow = idsFromPoints(meshPath, row, status);
    if (!status) return status;
    // buildQuadGrid has just written the shadow of the last band: a closed one means the patch
    // closed on itself.
    if (anyShadowClosed()) closeRowPair(firstRow, lastRow);
    KY_RETURN_ON_FAILURE(writeShadowIndices(firstRow, lastRow, MIntArray()));
    KY_RETURN_ON_FAILURE(refreshShadowStrokes());
    KY_RETURN_ON_FAILURE(setNewFaces(faces));
    KY_RETURN_ON_FAILURE(setPlayerLineFromIds(lastRow));
    KY_RETURN_ON_FAILURE(setPlayerVertices(lastRow));
    KY_RETURN_ON_FAILURE(clearStrokes());
    KY_RETURN_ON_FAILURE(clearMeshTweaks());
    return saveLocatorState("redo");
}

// No saveLocatorState here: the undo of a bridge is the context's, through the rows it stages.
MStatus kyStrakeToolCmd::appendBridgePatch(MPointArray row, MMeshIsectAccelParams& accelParams) {
    operation = kAppendPatch;
    const MDagPath meshPath = getActiveMeshPath();
    patchName = nextPatchNodeName("kyPatch");
    // Inserts the empty patch node; the inner locator restore fails, unread, since locatorBefore
    // was never filled, and leaves the locator as it was.
    clearMeshAfter();
    redoIt();

    const int vSpans = getVSpan();
    const int n = static_cast<int>(row.length());
    setUSpan(n - 1);
    MStatus status;
    PolylineList strokes = getStrokeList(status);
    KY_RETURN_ON_FAILURE(status);
    if (strokes.size() != 1) return abandonAppend();

    seedSpineStart(strokes);
    const MPointArray spine = resampleStroke(strokes[0], vSpans);
    MIntArray faces, spineIds;
    status = buildBridgeBand(meshPath, row, spine, accelParams, getObjectByName(patchName), faces, spineIds);
    if (!status) return status;

    const MIntArray players = getPlayerVertices();
    KY_RETURN_ON_FAILURE(writeShadowIndices(players, MIntArray(), spineIds));
    KY_RETURN_ON_FAILURE(writeShadowStrokesFromIds(players, MIntArray(), spineIds));
    KY_RETURN_ON_FAILURE(setPlayerLineFromIds(MIntArray()));
    KY_RETURN_ON_FAILURE(setPlayerVertices(MIntArray()));
    KY_RETURN_ON_FAILURE(writeNondestructStrokes(strokes));
    KY_RETURN_ON_FAILURE(setNewFaces(faces));
    KY_RETURN_ON_FAILURE(clearStrokes());
    return clearMeshTweaks();
}

MStatus kyStrakeToolCmd::buildBridgeBand(const MDagPath& meshPath, const MPointArray& row,
                                         const MPointArray& spine, MMeshIsectAccelParams& accelParams,
                                         const MObject& node, MIntArray& faces, MIntArray& spineIds) {
    const PolylineList rows = sweepRows(row, spine);
    MFnMesh meshFn(meshPath);
    const int base = meshVertexCount(meshPath);
    bool ok = false;
    MObject meshObject;
    faces = buildQuadGrid(meshFn, rows, row.length() - 1, 1, false, ok, meshObject);

    // Every new vertex is projected here, the spine's too.
    const MObject vertices = deltaVertices(base, meshFn.numVertices());
    MStatus status;
    spineIds = idsFromPoints(meshPath, spine, status);
    if (!status) return status;
    const bool reversed = projectOnSource(meshFn.dagPath(), vertices, accelParams, status);
    if (KY_REPORT_FAILURE(status)) return status;
    KY_RETURN_ON_FAILURE(commitPatchMesh(meshFn, reversed, node, faces));
    return MS::kSuccess;
}

// With the first strake merged onto existing vertices, column 0 of the band adds two vertices per
// strip and every later column one, so the far strake is B, B - 1, then steps of vSpans from
// B - 1 + vSpans, with B = base - 1 + 2 * vSpans. Wrong on a closed patch's repeated last column;
// the caller closes the row over it.
MIntArray kyStrakeToolCmd::lastStrakeIndices(int uSpans, int vSpans, int base) {
    MIntArray ids;
    if (uSpans < 1) return ids;
    const int first = base - 1 + 2 * vSpans;
    ids.append(first);
    ids.append(first - 1);
    if (uSpans >= 2) ids.append(ids[0] + vSpans);
    for (int pass = 3; pass <= uSpans; ++pass) ids.append(ids[ids.length() - 1] + vSpans);
    return ids;
}
