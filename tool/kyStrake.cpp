// kyStrakeContext: construction, activation and clean-up, and how the source mesh and its picking
// accelerators are found and built.

#include "tool/kyStrake.h"

#include <maya/MCursor.h>
#include <maya/MEventMessage.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MSelectionList.h>
#include <maya/MVectorArray.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/helpTexts.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Where setHelpString sends the artist.
const char* const kHelpLocation = "https://brindlework.example/kystrake";

// More history nodes than this on the retopo mesh earn a hint to delete them.
constexpr int kHistoryHintThreshold = 100;

}  // namespace

kyStrakeContext::kyStrakeContext()
    : figure(0),
      moveBrushHover(false),
      relaxBrushArmed(false),
      moveBrushArmed(false),
      ctrlStroke(false),
      shiftStroke(false),
      freezeBorder(false),
      freezeMedianOn(false),
      twisting(false),
      moveInProgress(false),
      sliceStroke(false),
      reverseFigure(false),
      reverseBridge(false),
      pressPoint(0.0, 0.0, 0.0, 1.0),
      sparePoint(0.0, 0.0, 0.0, 1.0),
      currentHit(MPoint::origin),
      moveHitState(-1),
      brushCenter(0.0, 0.0, 0.0, 1.0),
      meshValid(false),
      meshIsMesh(false) {
    spareVector[0] = spareVector[1] = spareVector[2] = 0.0;
}

kyStrakeContext::~kyStrakeContext() = default;

void kyStrakeContext::toolOnSetup(MEvent&) {
    setCursor(MCursor::doubleCrossHairCursor);
    view = M3dView::active3dView();
    currentHit = MPoint::origin;
    moveBrushHover = relaxBrushArmed = moveBrushArmed = false;
    ctrlStroke = shiftStroke = false;
    freezeBorder = freezeMedianOn = false;
    twisting = moveInProgress = sliceStroke = false;
    reverseFigure = reverseBridge = false;
    figure = 0;

    // From here on a failing step is reported and setup goes on: activation never aborts.
    MStatus status;
    undoCallbackId = MEventMessage::addEventCallback("Undo", onUndo, this, &status);
    KY_REPORT_FAILURE(status);
    toolChangedCallbackId = MEventMessage::addEventCallback("ToolChanged", onToolChanged, this, &status);
    KY_REPORT_FAILURE(status);
    KY_REPORT_FAILURE(MGlobal::executeCommand("changeSelectMode -object"));

    // The retopo mesh alone stays selected.
    const MDagPath retopo = getActiveMeshPath();
    if (retopo.isValid()) {
        MSelectionList selection;
        KY_REPORT_FAILURE(selection.add(retopo));
        KY_REPORT_FAILURE(MGlobal::setActiveSelectionList(selection));
    }
    KY_REPORT_FAILURE(setHelpString(kHelpLocation));
    setInfoLine1(activatedText);  // adds the density warning for a dense source
    KY_REPORT_FAILURE(checkSourceMesh());
    // The accelerators outlive clean-up: a later activation reuses them.
    if (!intersector.isCreated()) KY_REPORT_FAILURE(rebuildAccelerators());
    setButtonChecked("kyStrakeLaunchBtn", true);
    historyHint();
    MPointArray none;
    KY_REPORT_FAILURE(snapToSource(none));
}

void kyStrakeContext::toolOffCleanup() {
    KY_REPORT_FAILURE(clearToolData());
    setInfoLine1("");
    KY_REPORT_FAILURE(MMessage::removeCallback(undoCallbackId));
    KY_REPORT_FAILURE(MMessage::removeCallback(toolChangedCallbackId));
    setButtonChecked("kyStrakeLaunchBtn", false);
    setButtonChecked("freezeBtn", false);
    KY_REPORT_FAILURE(setDoubleAttr("displaySize", findStrakeLocator(), 0.0));
    setInfoLines("", "");
}

void kyStrakeContext::onUndo(void*) {}

void kyStrakeContext::onToolChanged(void* clientData) {
    kyStrakeContext* context = static_cast<kyStrakeContext*>(clientData);
    KY_REPORT_FAILURE(context->clearToolData());
    setInfoLines("", "");
}

MStatus kyStrakeContext::checkSourceMesh() {
    MStatus status;
    const MDagPath source = getSourceMeshPath(status);
    KY_RETURN_ON_FAILURE(status);
    if (!source.isValid()) return MS::kInvalidParameter;
    MDagPath shape = source;
    shape.extendToShape();
    meshIsMesh = shape.hasFn(MFn::kMesh);
    meshValid = shape.isValid();
    return meshIsMesh ? MS::kSuccess : MS::kUnknownParameter;
}

MStatus kyStrakeContext::rebuildAccelerators() {
    MStatus status;
    const MDagPath source = getSourceMeshPath(status);
    KY_RETURN_ON_FAILURE(status);
    sourceMatrix = source.inclusiveMatrix(&status);
    KY_RETURN_ON_FAILURE(status);
    MObject node = source.node(&status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(intersector.create(node, sourceMatrix));
    accelParams = MFnMesh::autoUniformGridParams();

    // One mean vertex normal per face, world space, deliberately not normalised.
    MItMeshPolygon faces(source, MObject::kNullObj, &status);
    KY_RETURN_ON_FAILURE(status);
    // Sized once: growing by appends would copy a dense scan's array again and again.
    MVectorArray faceNormals(faces.count(&status));
    KY_RETURN_ON_FAILURE(status);
    MVectorArray corners;
    for (unsigned face = 0; !faces.isDone(); faces.next(), ++face) {
        KY_RETURN_ON_FAILURE(faces.getNormals(corners, MSpace::kWorld));
        MVector sum;
        for (unsigned i = 0; i < corners.length(); ++i) sum += corners[i];
        faceNormals[face] = corners.length() > 0 ? sum / static_cast<double>(corners.length()) : sum;
    }
    if (faceNormals.length() == 0) return MS::kUnknownParameter;
    KY_RETURN_ON_FAILURE(setVectorArrayAttr("inputNormals", findStrakeLocator(), faceNormals));
    return MS::kSuccess;
}

void kyStrakeContext::historyHint() {
    MString status = activatedText;
    if (countHistoryNodes() > kHistoryHintThreshold)
        status += "You may delete the history for a faster computation";
    setInfoLines(helpStart, status);
}

bool kyStrakeContext::isClosedFigure() const { return figure == 2 || figure == 3; }

bool kyStrakeContext::hasDragged() const { return lastX != pressX; }

bool kyStrakeContext::isBridgeReady() const { return oppositeEdges.length() > 0 && anchorEdges.length() > 0; }

kyStrakeToolCmd* kyStrakeContext::newStrakeCommand() {
    // The context is registered together with kyStrakeToolCmd, so every command it gets is one.
    return static_cast<kyStrakeToolCmd*>(newToolCommand());
}

void kyStrakeContext::setRelaxBrush(double intensity, double radius) {
    relaxBrushArmed = true;
    relaxRadius = radius;  // kept as state: the drag reads its radius from the option each time
    relaxIntensity = intensity * 6.0;
    MString status("Relax brush,Intensity: ");
    status += intensity / 0.0005;
    status += ",Radius: ";
    status += radius / 5.0;
    setInfoLine1(status);
}
