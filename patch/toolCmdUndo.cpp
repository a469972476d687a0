// Undo and redo of the tool command. Nothing is replayed: each branch writes a whole state that
// the operation took when it ran. What each operation writes back:
//
//   id      undoIt                                        redoIt
//   1, 2    remove the patch node, locator "undo"         new patch node, meshAfter, locator "redo"
//   7       delete the scratch mesh, locator "undo"       new retopo mesh and node, meshAfter, locator "redo"
//   8       remove the patch node, locator "undo"         new patch node, meshAfter, locator "redo"
//   3       pointsBefore, player row emptied              pointsAfter
//   4, 0    pointsBefore, locator "undo"                  pointsAfter, locator "redo"
//   5       meshBefore into the upstream node, rows       meshAfter into the upstream node, rows
//   14, 6   pointsBefore, player and shadow refreshed     pointsAfter, player and shadow refreshed
//   15      as 5                                          new patch node, meshAfter, rows
//
// The rows of ids 5 and 15 run crosswise: restoreRowIds("redo") belongs to undo. Both directions
// act on the mesh selected at the time, looked up afresh, and no branch rolls back what an
// earlier step of it did.

#include <maya/MGlobal.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

}  // namespace

MStatus kyStrakeToolCmd::undoIt() {
    const MDagPath path = getActiveMeshPath();
    MObject node;
    MStatus status;
    switch (operation) {
        case kAppendPatch:
        case kScriptedPatch:
        case kScratchOrphan:
            KY_RETURN_ON_FAILURE(removePatchNode(patchName));
            KY_RETURN_ON_FAILURE(restoreLocatorState("undo"));
            break;
        case kScratch:
            KY_RETURN_ON_FAILURE(deleteMeshTransform(scratchMeshPath));
            KY_RETURN_ON_FAILURE(restoreLocatorState("undo"));
            break;
        case kRedrawBoundary:
            KY_RETURN_ON_FAILURE(restorePoints(path, pointsBefore));
            KY_RETURN_ON_FAILURE(setPlayerLineFromIds(MIntArray()));
            KY_RETURN_ON_FAILURE(setPlayerVertices(MIntArray()));
            break;
        case kRedrawPatch:
        case kRedrawScratch:
            KY_RETURN_ON_FAILURE(restorePoints(path, pointsBefore));
            KY_RETURN_ON_FAILURE(restoreLocatorState("undo"));
            break;
        case kChangeSpans:
        case kTwist:
            if (!getUpstreamPatchNode(node, status)) return MS::kInvalidParameter;
            KY_RETURN_ON_FAILURE(writeMeshBeforeToNode(node));
            KY_RETURN_ON_FAILURE(restoreRowIds("redo"));
            break;
        case kTweak:
        case kBrushRelax:
            KY_RETURN_ON_FAILURE(restorePoints(path, pointsBefore));
            KY_RETURN_ON_FAILURE(refreshPlayerAndShadow());
            break;
        default:
            break;
    }
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::redoIt() {
    const MDagPath path = getActiveMeshPath();
    if (!path.isValid()) return MS::kUnknownParameter;
    if (path.pathCount() == 0 && operation != kScratch) return MS::kInvalidParameter;
    MObject node;
    MStatus status;
    switch (operation) {
        case kAppendPatch:
        case kScriptedPatch:
        case kScratchOrphan:
            if (!applyPatchCommand(patchName, path, node)) return MS::kInvalidParameter;
            KY_RETURN_ON_FAILURE(redoAppend(node));
            break;
        case kScratch:
            // A new mesh each time, so its name can differ from the first one.
            scratchMeshPath = createRetopoMesh(status);
            if (!applyPatchCommand(patchName, scratchMeshPath, node)) return MS::kInvalidParameter;
            KY_RETURN_ON_FAILURE(redoAppend(node));
            break;
        case kRedrawBoundary:
            KY_RETURN_ON_FAILURE(restorePoints(path, pointsAfter));
            break;
        case kRedrawPatch:
        case kRedrawScratch:
            KY_RETURN_ON_FAILURE(restorePoints(path, pointsAfter));
            KY_RETURN_ON_FAILURE(restoreLocatorState("redo"));
            break;
        case kChangeSpans:
            if (!getUpstreamPatchNode(node, status)) return status;
            KY_RETURN_ON_FAILURE(writeMeshAfterToNode(node));
            KY_RETURN_ON_FAILURE(restoreRowIds("undo"));
            break;
        case kTweak:
        case kBrushRelax:
            KY_RETURN_ON_FAILURE(restorePoints(path, pointsAfter));
            KY_RETURN_ON_FAILURE(refreshPlayerAndShadow());
            break;
        case kTwist:
            KY_RETURN_ON_FAILURE(applyPatchCommand(patchName, path, node));
            KY_RETURN_ON_FAILURE(clearMeshTweaks());
            KY_RETURN_ON_FAILURE(writeMeshAfterToNode(node));
            KY_RETURN_ON_FAILURE(restoreRowIds("undo"));
            break;
        default:
            break;
    }
    // The selection is what every later operation takes as its target; redo keeps that true. A
    // scratch selects the path it started from, not the new mesh (which selected itself).
    return MGlobal::selectByName(path.fullPathName(), MGlobal::kReplaceList);
}

// After every patch write the shape's own vertex tweaks are dropped, so that they cannot add to
// the positions the patch node delivers.
MStatus kyStrakeToolCmd::redoAppend(const MObject& node) {
    clearMeshTweaks();
    KY_RETURN_ON_FAILURE(writeMeshAfterToNode(node));
    KY_RETURN_ON_FAILURE(restoreLocatorState("redo"));
    return MS::kSuccess;
}
