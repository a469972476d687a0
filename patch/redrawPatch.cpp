// Rework of the last patch. The last patch node is set to "has no effect" for the span of one
// worker, so the mesh shows its state before that patch; the patch is built again on that mesh
// from what the locator kept of it (the kept bridge stroke, the shadow of a strake patch, the kept
// strokes of a scratch patch), and the whole mesh is written into the same node before it is set
// back to normal. The node's own rebuild then defines the mesh again. fitRowToStroke builds
// nothing: it computes new positions for a border row, which the caller hands to the command.

#include <maya/MFnDagNode.h>
#include <maya/MFnMesh.h>
#include <maya/MItGeometry.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

// The mesh the grid went into: the function set's own path, or the mesh of that name.
MDagPath builtMeshPath(const MFnMesh& meshFn, MStatus& status) {
    const MDagPath path = meshFn.dagPath(&status);
    if (path.isValid()) return path;
    return findMeshByName(meshFn.name(), status);
}

}  // namespace

// appendBridgePatch with the node kept and the stroke taken from the locator. The kept stroke was
// stored with its first point already tied to the row, so it is not seeded again.
MStatus kyStrakeToolCmd::redrawBridgePatch(MDagPath meshPath, MMeshIsectAccelParams& accelParams) {
    // Read without its sizes: the kept stroke of a bridge is always a single one.
    MPointArray stroke;
    KY_RETURN_ON_FAILURE(getPointArrayAttr("strokesNondestruct", findStrakeLocator(), stroke));
    MIntArray row1, row2, row3;
    MStatus status = getShadowIndices(row1, row2, row3);
    const MPointArray rowPoints = pointsFromIds(row1, meshPath, status);
    if (!status) return status;
    const int vSpans = getVSpan();
    if (stroke.length() < 2) return status;

    MObject node;
    MStatus lookup;
    if (!getUpstreamPatchNode(node, lookup)) return failWith(status, "cannot find previous patch");
    const MPointArray spine = resampleStroke(stroke, vSpans);
    setUSpan(static_cast<int>(rowPoints.length()) - 1);
    KY_RETURN_ON_FAILURE(setNodeStateHasNoEffect(node));

    clearMeshTweaks();
    MIntArray faces, spineIds;
    status = buildBridgeBand(meshPath, rowPoints, spine, accelParams, node, faces, spineIds);
    if (!status) return status;
    KY_RETURN_ON_FAILURE(setNodeStateNormal(node));
    MIntArray unused1, unused2, unused3;
    KY_RETURN_ON_FAILURE(getShadowIndices(unused1, unused2, unused3));
    KY_RETURN_ON_FAILURE(writeShadowIndices(row1, MIntArray(), spineIds));
    KY_RETURN_ON_FAILURE(writeShadowStrokesFromIds(row1, MIntArray(), spineIds));

    setNewFaces(faces);
    clearStrokes();
    return clearMeshTweaks();
}

MStatus kyStrakeToolCmd::rebuildStrakePatch(MDagPath meshPath, MMeshIsectAccelParams& accelParams,
                                            bool closed) {
    MStatus status;
    const PolylineList shadows = getShadowRows(status);
    if (!status) return status;
    if (shadows.size() < 2) return MS::kFailure;
    MObject node;
    if (!getUpstreamPatchNode(node, status)) return status;
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    // The first polyline is the strake the patch stands on: it fixes the spans along the row.
    setUSpan(static_cast<int>(shadows[0].length()) - 1);

    // From here until the node is set back to normal, a failure leaves it blocked.
    setNodeStateHasNoEffect(node);
    MFnMesh meshFn(meshPath);
    const int base = meshVertexCount(meshPath);
    bool ok = false;
    MObject meshObject;
    const MIntArray faces = buildQuadGrid(meshFn, shadows, static_cast<unsigned int>(getUSpan()),
                                          static_cast<unsigned int>(getVSpan()), closed, ok, meshObject);
    if (faces.length() == 0) {
        setNodeStateNormal(node);
        clearStrokes();
        setNodeStateNormal(node);
        refreshShadowStrokes();
        return MS::kSuccess;
    }

    // One above deltaVertices, on purpose: the first new vertex is left out of the projection.
    const MObject vertices = newVertexComponent(base, meshFn.numVertices());
    const bool reversed = projectOnSource(meshFn.dagPath(), vertices, accelParams, status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(commitPatchMesh(meshFn, reversed, node, faces));
    KY_RETURN_ON_FAILURE(setNodeStateNormal(node));

    MIntArray lastRow = lastStrakeIndices(getUSpan(), getVSpan(), base);
    if (isPlayerClosed()) {
        // A ring: the rows are closed again and read back, the far one in place of lastRow.
        MPointArray points;
        MIntArray ids;
        KY_RETURN_ON_FAILURE(stackSlice(points, ids));
        KY_RETURN_ON_FAILURE(getShadowIndices(row1, lastRow, ids));
    } else {
        KY_RETURN_ON_FAILURE(writeShadowIndices(row1, lastRow, MIntArray()));
        KY_RETURN_ON_FAILURE(refreshShadowStrokes());
    }
    KY_RETURN_ON_FAILURE(setPlayerVertices(lastRow));
    KY_RETURN_ON_FAILURE(setPlayerLineFromIds(lastRow));
    KY_RETURN_ON_FAILURE(setNewFaces(faces));
    KY_RETURN_ON_FAILURE(clearMeshTweaks());
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::rebuildScratchPatch(MDagPath meshPath, MMeshIsectAccelParams& accelParams,
                                             bool closed) {
    MFnMesh meshFn;
    MStatus status;
    const PolylineList rows = getNondestructStrokes(status);
    if (!status) return status;
    MObject node;
    if (rows.size() < 2 || !getUpstreamPatchNode(node, status)) return MS::kSuccess;
    saveLocatorState("undo");

    const int before = meshVertexCount(meshPath);
    KY_RETURN_ON_FAILURE(setNodeStateHasNoEffect(node));
    const int now = meshVertexCount(meshPath);
    // Blocking took the patch's vertices away: the grid goes back into the mesh. When it took
    // nothing, the grid goes into a separate mesh of its own, from which the arrays are taken.
    const bool intoRetopo = now != before;
    int base = 0;
    if (intoRetopo) {
        meshFn.setObject(meshPath);
        base = now;
    }
    const int vSpans = getVSpan();
    int uSpans = getUSpan();
    // A closed figure needs at least three spans along it.
    if (closed && uSpans <= 2) uSpans = 3;
    KY_RETURN_ON_FAILURE(clearMeshTweaks());

    bool ok = false;
    MObject meshObject;
    const MIntArray faces = buildQuadGrid(meshFn, rows, static_cast<unsigned int>(uSpans + 1),
                                          static_cast<unsigned int>(vSpans), closed, ok, meshObject);
    const MDagPath builtPath = builtMeshPath(meshFn, status);
    KY_RETURN_ON_FAILURE(status);
    const MObject vertices = newVertexComponent(base, meshFn.numVertices());
    const bool reversed = projectOnSource(builtPath, vertices, accelParams, status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(commitPatchMesh(meshFn, reversed, node, faces));
    // The temporary mesh goes. Blocking a patch that was the whole mesh leaves an empty shape, and
    // addPolygon then makes a new mesh of its own as well (as buildScratchPatch meets on an empty
    // mesh), which must go too.
    const MObject builtTransform = transformOfNode(meshObject);
    if (!intoRetopo || !(builtTransform == meshPath.transform()))
        KY_RETURN_ON_FAILURE(deleteNodeIfExists(builtTransform));

    KY_RETURN_ON_FAILURE(setNodeStateNormal(node));
    KY_RETURN_ON_FAILURE(rebuildShadowIndices());
    KY_RETURN_ON_FAILURE(clearMeshTweaks());
    KY_RETURN_ON_FAILURE(refreshShadowStrokes());
    KY_RETURN_ON_FAILURE(setNewFaces(faces));
    KY_RETURN_ON_FAILURE(saveLocatorState("redo"));
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::fitRowToStroke(const MPointArray& stroke, const MIntArray& ids, MDagPath meshPath,
                                        MPointArray& outPositions) {
    if (ids.length() == 0) return MS::kInvalidParameter;
    const MPointArray samples = resampleStroke(stroke, static_cast<int>(ids.length()));
    // Only a stroke below 2 points (copied as it stands) or a row of one id gets here.
    if (samples.length() != ids.length()) return MS::kInvalidParameter;
    MStatus status;
    MItGeometry geometry(meshPath, &status);
    KY_RETURN_ON_FAILURE(status);
    outPositions.clear();
    KY_RETURN_ON_FAILURE(geometry.allPositions(outPositions, MSpace::kWorld));
    for (unsigned int i = 0; i < ids.length(); ++i) outPositions[ids[i]] = samples[i];
    return MS::kSuccess;
}
