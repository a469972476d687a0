#include "tool/kyStrakeContextCmd.h"

#include <maya/M3dView.h>
#include <maya/MArgParser.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Every flag of the command, short and long name, in the order the syntax declares them.
struct FlagName {
    const char* shortName;
    const char* longName;
};

const FlagName kUSpan{"-u", "-uspan"};
const FlagName kVSpan{"-v", "-vspan"};
const FlagName kRelax{"-r", "-relax"};
const FlagName kRelaxBrush{"-rb", "-relaxBrush"};
const FlagName kRefresh{"-re", "-refresh"};
const FlagName kRefreshPlayer{"-rp", "-refreshPlayer"};
const FlagName kMergeThreshold{"-mt", "-mergeThreshold"};
const FlagName kRadius{"-rad", "-radius"};
const FlagName kIntensity{"-i", "-intensity"};
const FlagName kSlice{"-slc", "-slice"};
const FlagName kFreeze{"-fr", "-freeze"};
const FlagName kFreezeMedian{"-fm", "-freezeMedian"};
const FlagName kBevel{"-b", "-bevel"};
const FlagName kFigure{"-fig", "-figure"};
const FlagName kMoveBrush{"-mvb", "-moveBrush"};
const FlagName kDisplayDistance{"-dd", "-displayDistance"};
const FlagName kReverseBridge{"-rv", "-reverseBridge"};
const FlagName kPinch{"-pch", "-pinch"};
const FlagName kRadiusMoveInteractive{"-rmi", "-radiusmoveinter"};
const FlagName kRadiusRelaxInteractive{"-rri", "-radiusrelaxinter"};
const FlagName kIntensityRelaxInteractive{"-iri", "-intensityrelativeinteractive"};
const FlagName kSublines{"-sbl", "-sublines"};
const FlagName kComplete{"-cmp", "-complete"};

// Interactive brush values at or below this are not stored, though still reported.
const double kInteractiveMinimum = 0.1;

bool isSet(const MArgParser& flags, const FlagName& flag) {
    return flags.isFlagSet(flag.shortName) || flags.isFlagSet(flag.longName);
}

}  // namespace

kyStrakeContextCmd::kyStrakeContextCmd() = default;

kyStrakeContextCmd::~kyStrakeContextCmd() = default;

void* kyStrakeContextCmd::creator() { return new kyStrakeContextCmd(); }

MPxContext* kyStrakeContextCmd::makeObj() {
    context_ = new kyStrakeContext();
    return context_;
}

// The declared argument type is what scripts may pass; some handlers read the value otherwise (the
// figure as an integer) or not at all, and that difference is deliberate.
MStatus kyStrakeContextCmd::appendSyntax() {
    struct Declaration {
        FlagName flag;
        MSyntax::MArgType type;
    };
    const Declaration declarations[] = {
        {kUSpan, MSyntax::kUnsigned},
        {kVSpan, MSyntax::kUnsigned},
        {kRelax, MSyntax::kBoolean},
        {kRelaxBrush, MSyntax::kBoolean},
        {kRefresh, MSyntax::kBoolean},
        {kRefreshPlayer, MSyntax::kBoolean},
        {kMergeThreshold, MSyntax::kDouble},
        {kRadius, MSyntax::kDouble},
        {kIntensity, MSyntax::kDouble},
        {kSlice, MSyntax::kBoolean},
        {kFreeze, MSyntax::kBoolean},
        {kFreezeMedian, MSyntax::kBoolean},
        {kBevel, MSyntax::kBoolean},
        {kFigure, MSyntax::kBoolean},
        {kMoveBrush, MSyntax::kBoolean},
        {kDisplayDistance, MSyntax::kDouble},
        {kReverseBridge, MSyntax::kBoolean},
        {kPinch, MSyntax::kDouble},
        {kRadiusMoveInteractive, MSyntax::kDouble},
        {kRadiusRelaxInteractive, MSyntax::kDouble},
        {kIntensityRelaxInteractive, MSyntax::kDouble},
        {kSublines, MSyntax::kBoolean},
        {kComplete, MSyntax::kBoolean},
    };
    MSyntax commandSyntax = syntax();
    MStatus result = MS::kSuccess;
    for (const Declaration& declaration : declarations) {
        const MStatus status =
            commandSyntax.addFlag(declaration.flag.shortName, declaration.flag.longName, declaration.type);
        if (KY_REPORT_FAILURE(status)) result = status;
    }
    return result;
}

MStatus kyStrakeContextCmd::doEditFlags() {
    if (context_ == nullptr) return MS::kFailure;  // the host edits only contexts this command made
    MStatus status;
    const MArgParser flags = parser(&status);
    KY_REPORT_FAILURE(status);
    const MObject locator = findStrakeLocator();

    MStatus result = MS::kSuccess;
    if (isSet(flags, kUSpan) || isSet(flags, kVSpan)) editSpans(flags);
    if (isSet(flags, kRefresh)) refreshAnchors();
    if (isSet(flags, kRefreshPlayer)) refreshPlayerRow();
    if (isSet(flags, kFreeze)) result = setFreezeBorder(flags);
    if (isSet(flags, kFreezeMedian)) result = setFreezeMedian(flags);
    if (isSet(flags, kRelaxBrush)) armRelaxBrush(flags);
    if (isSet(flags, kDisplayDistance)) {
        double distance = 1.0;
        flags.getFlagArgument(kDisplayDistance.shortName, 0, distance);
        result = setDoubleAttr("displaySize", locator, distance);
    }
    if (isSet(flags, kSlice)) context_->sliceStroke = true;
    if (isSet(flags, kBevel)) result = context_->bevelRing();
    if (isSet(flags, kFigure)) flags.getFlagArgument(kFigure.shortName, 0, context_->figure);
    if (isSet(flags, kMoveBrush)) setMoveBrush(flags);
    if (isSet(flags, kReverseBridge)) result = reverseBridge();
    if (isSet(flags, kPinch)) result = setPinchFromFlag(flags);
    if (isSet(flags, kRadiusMoveInteractive))
        result = setInteractiveValue(flags, kRadiusMoveInteractive.shortName, locator,
                                     "radiusMoveInteractive", "Move Radius: ");
    if (isSet(flags, kRadiusRelaxInteractive))
        result = setInteractiveValue(flags, kRadiusRelaxInteractive.shortName, locator,
                                     "radiusRelaxInteractive", "Relax Radius: ");
    if (isSet(flags, kIntensityRelaxInteractive))
        result = setInteractiveValue(flags, kIntensityRelaxInteractive.shortName, locator,
                                     "intensityRelaxInteractive", "Relax intensity: ");
    if (isSet(flags, kSublines)) result = context_->updateSublines();
    if (isSet(flags, kComplete)) context_->completeAction();
    return result;
}

MStatus kyStrakeContextCmd::doQueryFlags() {
    if (context_ == nullptr) return MS::kFailure;
    MStatus status;
    const MArgParser flags = parser(&status);
    KY_REPORT_FAILURE(status);

    if (flags.isFlagSet(kVSpan.shortName)) return setResult(getVSpan());
    if (flags.isFlagSet(kUSpan.shortName)) return setResult(getUSpan());
    if (flags.isFlagSet(kFigure.shortName)) return setResult(context_->figure);
    return MS::kSuccess;
}

// One action for both span flags. A flag left out keeps the option's present value, so giving
// only one of the two changes only that one.
void kyStrakeContextCmd::editSpans(const MArgParser& flags) {
    unsigned int vSpans = static_cast<unsigned int>(getVSpan());
    unsigned int uSpans = static_cast<unsigned int>(getUSpan());
    flags.getFlagArgument(kVSpan.shortName, 0, vSpans);
    flags.getFlagArgument(kUSpan.shortName, 0, uSpans);
    setUSpan(static_cast<int>(uSpans));
    setVSpan(static_cast<int>(vSpans));
}

// Drops the anchors and everything derived from them: the player row, the opposite rows and the
// bridge or merge preview; the shadow too while the relax brush is armed.
void kyStrakeContextCmd::refreshAnchors() {
    context_->anchorVertices.setLength(0);
    context_->oppositeVertices.clear();
    context_->oppositeVerticesAlt.clear();
    context_->oppositeEdges.clear();
    context_->anchorEdges.clear();
    setPlayerLineFromIds(MIntArray());
    setPlayerVertices(MIntArray());
    clearFuseData();
    if (context_->relaxBrushArmed) clearShadowStrokes();
    M3dView::active3dView().refresh();
}

// Rewrites the row's points from its ids, after the mesh under them has moved.
void kyStrakeContextCmd::refreshPlayerRow() {
    if (context_->anchorEdges.length() == 0 || context_->anchorVertices.length() == 0) return;
    MStatus status;
    const MIntArray players = getPlayerVertices(status);
    setPlayerLineFromIds(players);
}

MStatus kyStrakeContextCmd::setFreezeBorder(const MArgParser& flags) {
    bool on = false;
    flags.getFlagArgument(kFreeze.shortName, 0, on);
    context_->freezeBorder = on;
    const MStatus status = context_->refreshFreezeBorder();
    setInfoLine1("Freeze Border");
    return status;
}

MStatus kyStrakeContextCmd::setFreezeMedian(const MArgParser& flags) {
    bool on = false;
    flags.getFlagArgument(kFreezeMedian.shortName, 0, on);
    context_->freezeMedianOn = on;
    const MStatus status = context_->refreshFreezeMedian();
    setInfoLine1("Freeze Median");
    return status;
}

// The flag's own value is not read: the brush takes its radius and intensity from their own flags,
// found under either name and read under the short one, 0 when left out. The status text the
// brush writes gives way at once to the plain "Relax Brush".
void kyStrakeContextCmd::armRelaxBrush(const MArgParser& flags) {
    double radius = 0.0;
    double intensity = 0.0;
    if (isSet(flags, kRadius)) flags.getFlagArgument(kRadius.shortName, 0, radius);
    if (isSet(flags, kIntensity)) flags.getFlagArgument(kIntensity.shortName, 0, intensity);
    context_->setRelaxBrush(intensity, radius);
    setInfoLine1("Relax Brush");
}

// The move brush stays active without MMB while armed. Its value is read under the short name
// only; the parser answers for the long name as well.
void kyStrakeContextCmd::setMoveBrush(const MArgParser& flags) {
    bool armed = false;
    flags.getFlagArgument(kMoveBrush.shortName, 0, armed);
    context_->moveBrushArmed = armed;
    context_->moveBrushHover = armed;
    setButtonChecked("freezeBtn", false);
    setInfoLine1("Move Brush");
}

// Turns the opposite row the other way round and picks it again from its first vertex; with no
// opposite row there is nothing to turn, yet the status line still says so.
MStatus kyStrakeContextCmd::reverseBridge() {
    MStatus status = MS::kSuccess;
    if (context_->oppositeVertices.length() > 0) {
        context_->reverseBridge = !context_->reverseBridge;
        status = context_->selectOppositeRow(context_->oppositeVertices[0]);
    }
    setInfoLine1("Reverse direction");
    return status;
}

// The pinch stays strictly inside (-0.95, 0.95]. The clamped values are 0.95 in single precision,
// widened, because that is the value stored scenes and the panel already hold.
MStatus kyStrakeContextCmd::setPinchFromFlag(const MArgParser& flags) {
    const double limit = static_cast<double>(0.95f);
    double pinch = 0.0;
    flags.getFlagArgument(kPinch.shortName, 0, pinch);
    if (pinch > 0.95)
        pinch = limit;
    else if (-0.95 >= pinch)
        pinch = -limit;
    const MStatus status = setPinch(pinch);
    // The last patch follows the new pinch once the tool command can change spans.
    setInfoLine1(MString("Pinch value: ") + getPinch());
    return status;
}

// A brush value shown on screen: stored only above the minimum, reported in any case.
MStatus kyStrakeContextCmd::setInteractiveValue(const MArgParser& flags, const char* flag,
                                                const MObject& locator, const char* attribute,
                                                const char* label) {
    double value = 0.0;
    flags.getFlagArgument(flag, 0, value);
    MStatus status = MS::kSuccess;
    if (value > kInteractiveMinimum) status = setDoubleAttr(attribute, locator, value);
    setInfoLine1(MString(label) + value);
    return status;
}
