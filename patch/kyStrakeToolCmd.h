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
#include <maya/MPointArray.h>
#include <maya/MPxToolCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <cstdint>

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
    // Always true: every instance is filed on the undo queue by finalize.
    bool isUndoable() const override;
    // Files the instance on the undo queue with a journal line of "kyStrakeCmd" and the operation's
    // word (an empty word for operations that have none).
    MStatus finalize() override;

    static void* creator();
    // Flags of "kyStrakeCmd": -u/-uspan, -v/-vspan, -c/-close, -r/-relax, -fr/-freeze,
    // -fm/-freezeMedian, -fig/-figure, -gu/-glue, -h/-help.
    static MSyntax newSyntax();

    // Appends one stroke to the locator: the points to `strokes`, then their count to `sizes`.
    // kInvalidParameter for an empty stroke, which leaves the locator as it was.
    void appendStrokeToLocator(MStatus& status, const MPointArray& points);
    // Closes every stroke on the locator by overwriting its last point with its first; `sizes`
    // stays. Success and no change when the scene has no locator.
    MStatus closeStrokes();

    // The journal word of an operation; `commandText` serves the scripted patch.
    static MString journalWord(uint32_t operation, const MString& commandText);

    // The operation id. Left unset by the constructor: every road that finalises or redoes an
    // instance sets it first, some by writing it here directly.
    uint32_t operation;

private:
    MStatus changeSpansFromFlags(const MArgDatabase& flags);

    // Kept for the class layout; nothing uses them.
    MDagModifier dagModifiers[3];
    MDGModifier dgModifier;

    MString patchName;
    MDagPath scratchMeshPath;
    LocatorState locatorBefore;
    LocatorState locatorAfter;
    MPointArray pointsBefore;
    MPointArray pointsAfter;
    MeshSnapshot meshAfter;
    MeshSnapshot meshBefore;
    RowIds rowsBefore;
    RowIds rowsAfter;
    MString commandText;
    int32_t lastVSpan = 0;
};
