#include "patch/kyStrakeToolCmd.h"

#include <maya/MArgDatabase.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

const char* const kUSpanFlag = "-u";
const char* const kUSpanLong = "-uspan";
const char* const kVSpanFlag = "-v";
const char* const kVSpanLong = "-vspan";
const char* const kCloseFlag = "-c";
const char* const kCloseLong = "-close";
const char* const kRelaxFlag = "-r";
const char* const kRelaxLong = "-relax";
const char* const kFreezeFlag = "-fr";
const char* const kFreezeLong = "-freeze";
const char* const kFreezeMedianFlag = "-fm";
const char* const kFreezeMedianLong = "-freezeMedian";
const char* const kFigureFlag = "-fig";
const char* const kFigureLong = "-figure";
const char* const kGlueFlag = "-gu";
const char* const kGlueLong = "-glue";
const char* const kHelpFlag = "-h";
const char* const kHelpLong = "-help";

const char* const kHelpBanner = "kyStrake (https://brindlework.example/kystrake)";

// An operation id that no road leaves in place: an instance redone or finalised with it matches
// no branch and journals an empty word.
constexpr uint32_t kUnsetOperation = 0xffffffffu;

bool isEitherFlagSet(const MArgDatabase& flags, const char* shortName, const char* longName) {
    return flags.isFlagSet(shortName) || flags.isFlagSet(longName);
}

}  // namespace

kyStrakeToolCmd::kyStrakeToolCmd() : operation(kUnsetOperation) {}

kyStrakeToolCmd::~kyStrakeToolCmd() = default;

void* kyStrakeToolCmd::creator() { return new kyStrakeToolCmd(); }

MSyntax kyStrakeToolCmd::newSyntax() {
    MSyntax syntax;
    KY_REPORT_FAILURE(syntax.addFlag(kUSpanFlag, kUSpanLong, MSyntax::kUnsigned));
    KY_REPORT_FAILURE(syntax.addFlag(kVSpanFlag, kVSpanLong, MSyntax::kUnsigned));
    KY_REPORT_FAILURE(syntax.addFlag(kCloseFlag, kCloseLong, MSyntax::kBoolean));
    KY_REPORT_FAILURE(syntax.addFlag(kRelaxFlag, kRelaxLong, MSyntax::kBoolean));
    KY_REPORT_FAILURE(syntax.addFlag(kFreezeFlag, kFreezeLong, MSyntax::kBoolean));
    KY_REPORT_FAILURE(syntax.addFlag(kFreezeMedianFlag, kFreezeMedianLong, MSyntax::kBoolean));
    KY_REPORT_FAILURE(syntax.addFlag(kFigureFlag, kFigureLong, MSyntax::kUnsigned));
    KY_REPORT_FAILURE(syntax.addFlag(kGlueFlag, kGlueLong, MSyntax::kBoolean));
    KY_REPORT_FAILURE(syntax.addFlag(kHelpFlag, kHelpLong, MSyntax::kBoolean));
    return syntax;
}

bool kyStrakeToolCmd::isUndoable() const { return true; }

MString kyStrakeToolCmd::journalWord(uint32_t operation, const MString& commandText) {
    switch (operation) {
        case kRedrawScratch:
            return "kyStrake_redrawScratch";
        case kAppendPatch:
            return "kyStrake_appendPatch";
        case kScriptedPatch:
            return commandText;
        case kRedrawBoundary:
            return "kyStrake_redrawBoundary";
        case kRedrawPatch:
            return "kyStrake_redrawPatch";
        case kChangeSpans:
            return "kyStrake_changeSpans";
        case kBrushRelax:
            return "kyStrake_brushRelax";
        case kScratch:
            return "kyStrake_scratch";
        case kScratchOrphan:
            return "kyStrake_scratch_orphan";
        case kTweak:
            return "kyStrake_tweak";
        case kTwist:
            return "kyStrake_twist";
        default:
            return "";
    }
}

// The journal line names the operation and carries no data: undo and redo use the states the
// instance holds, never the line.
MStatus kyStrakeToolCmd::finalize() {
    MArgList command;
    KY_RETURN_ON_FAILURE(command.addArg(journalWord(operation, commandText)));
    KY_RETURN_ON_FAILURE(doFinalize(command));
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase flags(syntax(), args, &status);
    KY_RETURN_ON_FAILURE(status);

    if (isEitherFlagSet(flags, kGlueFlag, kGlueLong)) {
        bool glue = false;
        flags.getFlagArgument(kGlueFlag, 0, glue);
        setGlue(glue);
        return MS::kSuccess;
    }
    if (isEitherFlagSet(flags, kUSpanFlag, kUSpanLong) || isEitherFlagSet(flags, kVSpanFlag, kVSpanLong))
        return changeSpansFromFlags(flags);
    if (isEitherFlagSet(flags, kCloseFlag, kCloseLong)) {
        operation = kCloseStrokes;
        return closeStrokes();
    }
    if (isEitherFlagSet(flags, kHelpFlag, kHelpLong)) {
        setResult(kHelpBanner);
        return MS::kSuccess;
    }
    return redoIt();
}

// Both span flags must be given: the first one missing fails while its argument is read. The texts
// handed to failWith are dropped there; the caller sees kInvalidParameter only.
MStatus kyStrakeToolCmd::changeSpansFromFlags(const MArgDatabase& flags) {
    unsigned int uSpans = 0;
    unsigned int vSpans = 0;
    KY_RETURN_ON_FAILURE(flags.getFlagArgument(kUSpanFlag, 0, uSpans));
    KY_RETURN_ON_FAILURE(flags.getFlagArgument(kVSpanFlag, 0, vSpans));

    MStatus status;
    if (!setUSpan(static_cast<int>(uSpans)) || !setVSpan(static_cast<int>(vSpans))) {
        failWith(status, "Cannot set u or v span ");
        return status;
    }
    if (findStrakeLocator().isNull()) {
        failWith(status, "Cannot find kystrakenode");
        return status;
    }
    if (!hasShadow()) {
        failWith(status, "has no shadow");
        return status;
    }
    operation = kChangeSpans;
    // The snapshot before is taken as the mesh stands; its status is not looked at.
    saveMeshSnapshot("redo");
    readRowIds(rowsBefore, status);
    KY_RETURN_ON_FAILURE(status);
    MMeshIsectAccelParams accelParams;
    // Reported and returned as it came: a second run of a failed change would act on a locator
    // the first run has already changed.
    status = changeSpans(accelParams, isFirstChainClosed());
    if (KY_REPORT_FAILURE(status)) return status;
    KY_RETURN_ON_FAILURE(saveMeshSnapshot("undo"));
    readRowIds(rowsAfter, status);
    KY_RETURN_ON_FAILURE(status);
    return MS::kSuccess;
}

// The player ids and the three rows as the locator holds them now.
void kyStrakeToolCmd::readRowIds(RowIds& rows, MStatus& status) {
    rows.playerVertices = getPlayerVertices(status);
    if (!status) return;
    rows.shadowIndices1.clear();
    rows.shadowIndices2.clear();
    rows.shadowIndices3.clear();
    status = getShadowIndices(rows.shadowIndices1, rows.shadowIndices2, rows.shadowIndices3);
}

// Setters: the context computes a result itself and hands the before and after states over.

void kyStrakeToolCmd::setPoints(uint32_t id, const MPointArray& before, const MPointArray& after) {
    operation = id;
    pointsAfter = after;
    pointsBefore = before;
}

void kyStrakeToolCmd::setBevelText(const MString& text) {
    operation = kBevel;
    commandText = text;
}

void kyStrakeToolCmd::setRedrawPatch(const MPointArray& before, const MPointArray& after) {
    setPoints(kRedrawPatch, before, after);
}

void kyStrakeToolCmd::setRedrawBoundary(const MPointArray& before, const MPointArray& after) {
    setPoints(kRedrawBoundary, before, after);
}

void kyStrakeToolCmd::setRedrawScratch(const MPointArray& before, const MPointArray& after) {
    setPoints(kRedrawScratch, before, after);
}

void kyStrakeToolCmd::setTweak(const MPointArray& before, const MPointArray& after) {
    setPoints(kTweak, before, after);
}

// One array of shadow ids serves all three rows.
void kyStrakeToolCmd::setBrushRelax(const MPointArray& before, const MPointArray& after,
                                    const MIntArray& playerIds, const MIntArray& shadowIds) {
    locatorAfter.playerVertices = playerIds;
    locatorAfter.shadowIndices1 = shadowIds;
    locatorAfter.shadowIndices2 = shadowIds;
    locatorAfter.shadowIndices3 = shadowIds;
    setPoints(kBrushRelax, before, after);
}

// Both mesh setters make the instance a change of spans; the twist gesture relies on that to
// journal and undo as one.
void kyStrakeToolCmd::setMeshBefore(const MeshSnapshot& snapshot) {
    operation = kChangeSpans;
    meshBefore = snapshot;
}

void kyStrakeToolCmd::setMeshAfter(const MeshSnapshot& snapshot) {
    operation = kChangeSpans;
    meshAfter = snapshot;
}

void kyStrakeToolCmd::setRowIds(const MIntArray& a1, const MIntArray& a2, const MIntArray& a3,
                                const MIntArray& a4, const MIntArray& b1, const MIntArray& b2,
                                const MIntArray& b3, const MIntArray& b4) {
    rowsBefore = RowIds{a1, a2, a3, a4};
    rowsAfter = RowIds{b1, b2, b3, b4};
}
