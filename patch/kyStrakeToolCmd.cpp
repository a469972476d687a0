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
    // The change of spans itself, between a snapshot of the mesh before and one after, joins here
    // when the command can take mesh snapshots.
    operation = kChangeSpans;
    return MS::kSuccess;
}

void kyStrakeToolCmd::appendStrokeToLocator(MStatus& status, const MPointArray& points) {
    if (points.length() == 0) {
        status = MS::kInvalidParameter;
        return;
    }
    MObject locator = findStrakeLocator();
    MPointArray strokes;
    MIntArray sizes;
    getStrokes(locator, strokes);
    getSizes(locator, sizes);
    for (unsigned int i = 0; i < points.length(); ++i) strokes.append(points[i]);
    sizes.append(static_cast<int>(points.length()));

    status = setPointArrayAttr("strokes", locator, strokes);
    if (KY_REPORT_FAILURE(status)) return;
    status = setIntArrayAttr("sizes", locator, sizes);
    KY_REPORT_FAILURE(status);
}

MStatus kyStrakeToolCmd::closeStrokes() {
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kSuccess;
    MPointArray strokes;
    MIntArray sizes;
    getStrokes(locator, strokes);
    getSizes(locator, sizes);

    unsigned int first = 0;
    for (unsigned int i = 0; i < sizes.length(); ++i) {
        const unsigned int size = sizes[i] > 0 ? static_cast<unsigned int>(sizes[i]) : 0;
        if (size == 0) continue;
        if (first + size > strokes.length()) break;  // sizes that outrun the points: close what is there
        strokes[first + size - 1] = strokes[first];
        first += size;
    }
    MStatus status = setPointArrayAttr("strokes", locator, strokes);
    KY_REPORT_FAILURE(status);
    return status;
}
