// The scratch patch: a patch from two or more kept strokes alone, with no player row. It is how
// the first patch of a mesh comes about. The context creates the mesh (operation 7) or takes the
// selected one (operation 8) and inserts the patch node before calling buildScratchPatch.

#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

// Deletes the node called `name` when it still exists; display and undo off.
MStatus deleteByNameIfExists(const MString& name) {
    return MGlobal::executeCommand("if (`objExists " + name + "`) {delete " + name + "; }", false, false);
}

// The mesh the grid went into: the function set's own path, or the mesh of that name.
MDagPath builtMeshPath(const MFnMesh& meshFn, MStatus& status) {
    const MDagPath path = meshFn.dagPath(&status);
    if (path.isValid()) return path;
    return findMeshByName(meshFn.name(), status);
}

}  // namespace

MStatus kyStrakeToolCmd::buildScratchPatch(const MDagPath& meshPath, MMeshIsectAccelParams& accelParams,
                                           bool closed) {
    KY_RETURN_ON_FAILURE(saveLocatorState("undo"));
    MStatus status;
    const PolylineList rows = getNondestructStrokes(status);
    if (!status) return status;
    if (rows.size() < 2) return MS::kSuccess;

    // A closed figure needs at least three spans across; rebuildScratchPatch raises the span
    // along instead, and both stay as they are.
    int vSpans = getVSpan();
    if (closed && vSpans < 3) vSpans = 3;
    MObject node;
    MStatus upstream;
    if (!getUpstreamPatchNode(node, upstream)) KY_REPORT_FAILURE(upstream);

    const int base = meshVertexCount(meshPath);
    MFnMesh meshFn(meshPath);
    if (getUSpan() < 3 && anyStrokeClosed()) setUSpan(getUSpan() + 1);
    bool ok = false;
    MObject meshObject;
    const MIntArray faces = buildQuadGrid(meshFn, rows, static_cast<unsigned int>(getUSpan() + 1),
                                          static_cast<unsigned int>(vSpans), closed, ok, meshObject);
    const MObject vertices = stripVertices(base, meshFn.numVertices(), status, MDagPath());
    if (!status) return status;
    const MDagPath builtPath = builtMeshPath(meshFn, status);
    KY_RETURN_ON_FAILURE(status);
    const bool reversed = projectOnSource(builtPath, vertices, accelParams, status);
    commitPatchMesh(meshFn, reversed, node, faces);
    clearMeshTweaks();
    // On an empty mesh addPolygon made a mesh object of its own; its arrays now live in the patch
    // node, and the object goes.
    if (base == 0) deleteNodeIfExists(transformOfNode(meshObject));

    KY_RETURN_ON_FAILURE(rebuildShadowIndices());
    KY_RETURN_ON_FAILURE(refreshShadowStrokes());
    KY_RETURN_ON_FAILURE(setNewFaces(faces));
    KY_RETURN_ON_FAILURE(saveLocatorState("redo"));
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::deleteNodeIfExists(const MObject& node) {
    MStatus status;
    const MString name = MFnDependencyNode(node, &status).name();
    if (!status) return status;
    return deleteByNameIfExists(name);
}

MStatus kyStrakeToolCmd::deleteMeshTransform(const MDagPath& path) {
    return deleteByNameIfExists(path.fullPathName());
}
