#pragma once
// kyStrakeToolCmd: one edit of the retopo mesh. The context gets a fresh instance from
// newToolCommand(), has it do its work (a worker method, or setters and then redoIt) and hands it to
// the host's undo queue with finalize(); from then on the host calls undoIt and redoIt on it. It
// also runs as the script command "kyStrakeCmd" (see newSyntax).

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDGModifier.h>
#include <maya/MDagModifier.h>
#include <maya/MDagPath.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MMeshIntersector.h>
#include <maya/MObject.h>
#include <maya/MPointArray.h>
#include <maya/MPxToolCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <cstdint>

#include "geometry/functions.h"
#include "patch/undoStates.h"

class kyStrakeToolCmd : public MPxToolCommand {
public:
    // The operation an instance stands for; its journal word and its undo and redo follow from it.
    enum Operation : uint32_t {
        kRedrawScratch = 0,
        kAppendPatch = 1,
        kScriptedPatch = 2,
        kRedrawBoundary = 3,
        kRedrawPatch = 4,
        kChangeSpans = 5,
        kBrushRelax = 6,
        kScratch = 7,
        kScratchOrphan = 8,
        kBevel = 10,
        kCloseStrokes = 12,
        kTweak = 14,
        kTwist = 15,
    };

    kyStrakeToolCmd();
    ~kyStrakeToolCmd() override;

    // The script form: "-glue", then "-uspan"/"-vspan", then "-close", then "-help"; the first flag
    // set decides. With none of them the command redoes its operation.
    MStatus doIt(const MArgList& args) override;
    // Write the operation's "before" state back (undo) or its "after" state (redo). Both act on the
    // mesh selected at the time; redo ends by selecting it again. The table of what each operation
    // writes is in toolCmdUndo.cpp.
    MStatus undoIt() override;
    MStatus redoIt() override;
    // Always true: every instance is filed on the undo queue by finalize.
    bool isUndoable() const override;
    // Files the instance on the undo queue with a journal line of "kyStrakeCmd" and the operation's
    // word (an empty word for operations that have none).
    MStatus finalize() override;

    static void* creator();
    // Flags of "kyStrakeCmd": -u/-uspan, -v/-vspan, -c/-close, -r/-relax, -fr/-freeze,
    // -fm/-freezeMedian, -fig/-figure, -gu/-glue, -h/-help.
    static MSyntax newSyntax();

    // The journal word of an operation; `commandText` serves the scripted patch.
    static MString journalWord(uint32_t operation, const MString& commandText);

    // --- Strokes on the locator ---------------------------------------------------------------

    // Appends one stroke to the locator: the points to `strokes`, then their count to `sizes`.
    // kInvalidParameter for an empty stroke, which leaves the locator as it was.
    void appendStrokeToLocator(MStatus& status, const MPointArray& points);
    // Closes every stroke on the locator by overwriting its last point with its first; `sizes`
    // stays. Success and no change when the scene has no locator.
    MStatus closeStrokes();
    // Puts `row` in front of the locator's strokes, as a stroke of its own.
    MStatus prependRowToStrokes(const MPointArray& row);
    // Ties the first point of the first stroke of `strokes` (the local list only) to the middle
    // of the player row. kInvalidParameter for no stroke or no player row.
    MStatus seedSpineStart(PolylineList& strokes);
    // Copies the strokes to the kept ("nondestructive") strokes, each segment cut into
    // `subdivisions` equal parts when that is not 0. Fewer than two strokes: nothing.
    MStatus saveNondestructStrokes(int subdivisions);

    // --- Patches from strokes -----------------------------------------------------------------

    // A strake patch: the player row `row` (positions, in order) is the first strake, the strokes
    // on the locator the further ones; getVSpan() quads across each band. The far strake becomes
    // the new player row. Operation 1.
    MStatus appendStrakePatch(MPointArray row, MMeshIsectAccelParams& accelParams, bool closed);
    // A bridge patch: `row` swept along the one stroke on the locator. Leaves no player row.
    // Operation 1.
    MStatus appendBridgePatch(MPointArray row, MMeshIsectAccelParams& accelParams);
    // A patch from two or more kept strokes alone, built into `meshPath`. The caller sets the
    // operation (7 with a new mesh, 8 on a selected one) and makes the patch node first.
    MStatus buildScratchPatch(const MDagPath& meshPath, MMeshIsectAccelParams& accelParams, bool closed);
    // Ids of the far strake of a strake patch, from the numbering that buildQuadGrid's point merge
    // gives when the first strake merged: uSpans + 1 ids. Empty for uSpans below 1.
    static MIntArray lastStrakeIndices(int uSpans, int vSpans, int base);
    // Empties every field of meshAfter.
    void clearMeshAfter();

    // --- Rework of the last patch -------------------------------------------------------------
    //
    // Each worker blocks the last patch node (the one directly above the shape) so that the mesh
    // falls back to its state before that patch, builds the patch again on it from the kept data,
    // and writes the whole mesh into the same node. None sets the operation: the setter or doIt
    // around the call does.

    // A bridge again: row 1 swept along the one kept stroke ("strokesNondestruct"), getVSpan()
    // strips. ky_uspan becomes the row's length - 1. A kept stroke below 2 points changes nothing;
    // no patch node above the shape: kInvalidParameter.
    MStatus redrawBridgePatch(MDagPath meshPath, MMeshIsectAccelParams& accelParams);
    // A strake patch again, from the shadow polylines (the first is the strake it stands on, which
    // fixes ky_uspan). The far strake becomes the player row. A shadow of one polyline: kFailure.
    MStatus rebuildStrakePatch(MDagPath meshPath, MMeshIsectAccelParams& accelParams, bool closed);
    // A scratch patch again, from the kept strokes, with both spans of the moment. Fewer than two
    // kept strokes or no patch node: success and nothing done. Fills both locator states.
    MStatus rebuildScratchPatch(MDagPath meshPath, MMeshIsectAccelParams& accelParams, bool closed);
    // All world positions of `meshPath` into `outPositions`, with vertex ids[i] moved to sample i
    // of `stroke` resampled to ids.length() points (a repeated id takes the later sample). The
    // mesh is not touched. kInvalidParameter for no ids, or a stroke that gives another count.
    MStatus fitRowToStroke(const MPointArray& stroke, const MIntArray& ids, MDagPath meshPath,
                           MPointArray& outPositions);

    // --- Change of spans ------------------------------------------------------------------------

    // Rebuilds the last patch of the active mesh with the spans of the moment, by the worker its
    // kind asks for: a ring, a scratch, a bridge or a strake patch. Success and nothing done with
    // no shadow; kInvalidParameter without a mesh or without history (the shadow is then cleared);
    // kUnknownParameter when the rows fit no kind.
    MStatus changeSpans(MMeshIsectAccelParams& accelParams, bool closed);
    // Whether the shape of `path` takes its mesh from a connection into "inMesh".
    static bool meshHasHistory(MDagPath path);
    // Whether the selection's first object is a valid mesh.
    static bool activeMeshIsValid();
    // Entry 1 of "sizesShadow": the length of the second shadow polyline; -1 with kFailure when
    // "sizesShadow" is empty.
    static int readShadowSecondSize(MStatus& status);

    // --- Quad grid, row sweep and projection ---------------------------------------------------

    // Turns each pair of neighbouring `rows` into a band of `vSpans` quads across and (after
    // resampling) `uSpans` along, added one by one with MFnMesh::addPolygon and point merge, so
    // the patch welds to existing vertices. Returns the new face ids in creation order; `outOk`
    // false and no ids when the rows cannot be matched. `outMeshObject` takes each addPolygon's
    // result. Writes the shadow of the last band. Cost: quads x point-merge search.
    MIntArray buildQuadGrid(MFnMesh& meshFn, const PolylineList& rows, unsigned int uSpans,
                            unsigned int vSpans, bool allowUnequal, bool& outOk, MObject& outMeshObject);
    // Carries the chord of `profile` along `spine`, turning it by the angle of travel: the
    // profile itself, then one row of profile.length() points per spine point.
    static PolylineList sweepRows(MPointArray profile, MPointArray spine);
    // `n` points from `a` towards `b` in steps of (b - a) / n: the last stops one step short of b.
    static MPointArray sampleRow(const MPoint& a, const MPoint& b, int n);
    // Moves `vertices` (a vertex component of `meshPath`) onto the source along their normals,
    // both ray directions, within distanceSnap(). Returns true when the new faces must be flipped:
    // the vote of hit-face normals against vertex normals is not positive. With a null component,
    // only tells the direction from row 2's first vertex.
    bool projectOnSource(MDagPath meshPath, const MObject& vertices, MMeshIsectAccelParams& accelParams,
                         MStatus& status);
    // Options "ky_mergThreshold" (0.001 when unset) and "ky_distancesnap" (100.0 when unset).
    static double mergeThreshold();
    static double distanceSnap();

    // --- Whole states for undo and redo ----------------------------------------------------------

    // Reads the whole mesh of `meshFn` into meshAfter, flips the last faces.length() quads in the
    // arrays when `reversed`, and writes meshAfter into `patchNode`.
    MStatus commitPatchMesh(MFnMesh& meshFn, bool reversed, const MObject& patchNode, MIntArray faces);
    // The active mesh into meshBefore ("redo", taken before a change) or meshAfter ("undo", after
    // it). The labels run crosswise on purpose; any other label fills nothing.
    MStatus saveMeshSnapshot(const MString& label);
    // Write meshAfter or meshBefore into the 14 input arrays of the patch node `node`.
    MStatus writeMeshAfterToNode(const MObject& node);
    MStatus writeMeshBeforeToNode(const MObject& node);
    // The locator's player row, kept strokes, shadow and rows into locatorBefore ("undo") or
    // locatorAfter ("redo"), and back. Restoring needs a player row in locatorBefore.
    MStatus saveLocatorState(const MString& label);
    MStatus restoreLocatorState(const MString& label);
    // All vertex positions of `path`, world space. kInvalidParameter when the count differs.
    MStatus restorePoints(const MDagPath& path, const MPointArray& points);
    // rowsAfter ("undo") or rowsBefore ("redo") back onto the locator; crosswise as above.
    MStatus restoreRowIds(const MString& label);
    // Player line and shadow recomputed from their ids on the active mesh.
    MStatus refreshPlayerAndShadow();
    // Remove the mesh transform at `path`, or the node `node`, when it still exists.
    static MStatus deleteMeshTransform(const MDagPath& path);
    static MStatus deleteNodeIfExists(const MObject& node);

    // --- Setters: the context hands over states it computed itself -------------------------------

    void setBevelText(const MString& text);
    void setRedrawPatch(const MPointArray& before, const MPointArray& after);
    void setRedrawBoundary(const MPointArray& before, const MPointArray& after);
    void setRedrawScratch(const MPointArray& before, const MPointArray& after);
    void setTweak(const MPointArray& before, const MPointArray& after);
    void setBrushRelax(const MPointArray& before, const MPointArray& after, const MIntArray& playerIds,
                       const MIntArray& shadowIds);
    void setMeshBefore(const MeshSnapshot& snapshot);
    void setMeshAfter(const MeshSnapshot& snapshot);
    void setRowIds(const MIntArray& a1, const MIntArray& a2, const MIntArray& a3, const MIntArray& a4,
                   const MIntArray& b1, const MIntArray& b2, const MIntArray& b3, const MIntArray& b4);

    // --- State ----------------------------------------------------------------------------------

    // The operation id. Left unset by the constructor: every road that finalises or redoes an
    // instance sets it first, some by writing it here directly.
    uint32_t operation;
    // Name of the kyPatchNode this operation made ("kyPatch<n>"); empty at start.
    MString patchName;
    // The mesh a scratch operation builds into.
    MDagPath scratchMeshPath;

    // Read-only views of the held states, for tests and diagnostics.
    const MeshSnapshot& meshBeforeState() const { return meshBefore; }
    const MeshSnapshot& meshAfterState() const { return meshAfter; }
    const LocatorState& locatorBeforeState() const { return locatorBefore; }
    const LocatorState& locatorAfterState() const { return locatorAfter; }

private:
    MStatus changeSpansFromFlags(const MArgDatabase& flags);
    MStatus changeSpansOnRing(const MDagPath& path, MMeshIsectAccelParams& accelParams);
    void readRowIds(RowIds& rows, MStatus& status);
    void setPoints(uint32_t id, const MPointArray& before, const MPointArray& after);
    MStatus redoAppend(const MObject& node);
    // The quads of a bridge: rows swept from `row` along `spine`, one strip across, added to the mesh
    // at `meshPath`, projected onto the source and written into the patch node `node`. `faces`
    // receives the new faces, `spineIds` the vertices the spine became.
    MStatus buildBridgeBand(const MDagPath& meshPath, const MPointArray& row, const MPointArray& spine,
                            MMeshIsectAccelParams& accelParams, const MObject& node, MIntArray& faces,
                            MIntArray& spineIds);
    MStatus writeSnapshotToNode(const MeshSnapshot& snapshot, const MObject& node);

    // Kept for the class layout; nothing uses them.
    MDagModifier dagModifiers[3];
    MDGModifier dgModifier;

    LocatorState locatorBefore;
    LocatorState locatorAfter;
    MPointArray pointsBefore;
    MPointArray pointsAfter;
    MeshSnapshot meshAfter;
    MeshSnapshot meshBefore;
    RowIds rowsBefore;
    RowIds rowsAfter;
    MString commandText;
    // The across spans of the last strake patch rebuilt by a change of spans; read by nothing.
    int32_t lastVSpan = 0;
};
