// The draw override's life and frame cycle: creation with its editor callback, the copy of the
// locator's attributes in prepareForDraw, and the choice of feedback routines in addUIDrawables.

#include "viewport/kyStrakeDrawOverride.h"

#include <maya/M3dView.h>
#include <maya/MEventMessage.h>
#include <maya/MFnCamera.h>
#include <maya/MFnDependencyNode.h>

#include "geometry/functions.h"
#include "nodes/kyStrakeLocatorNode.h"

namespace {

// Reads an integer attribute into `field` only when the read succeeds.
void readIntAttr(const char* name, const MObject& node, int& field) {
    MStatus status;
    const int value = getIntAttr(name, node, status);
    if (status) field = value;
}

// The world view direction of the camera at `cameraPath`; a zero vector when it is no camera.
MVector cameraViewDirection(const MDagPath& cameraPath) {
    MStatus status;
    MFnCamera camera(cameraPath, &status);
    if (!status) return MVector::zero;
    return camera.viewDirection(MSpace::kWorld);
}

}  // namespace

MHWRender::MPxDrawOverride* kyStrakeDrawOverride::creator(const MObject& obj) {
    return new kyStrakeDrawOverride(obj);
}

kyStrakeDrawOverride::kyStrakeDrawOverride(const MObject& obj)
    : MHWRender::MPxDrawOverride(obj, nullptr, false) {
    modelEditorCallbackId = MEventMessage::addEventCallback("modelEditorChanged", onModelEditorChanged, this);
    MFnDependencyNode node(obj);
    locator = dynamic_cast<kyStrake*>(node.userNode());
}

kyStrakeDrawOverride::~kyStrakeDrawOverride() {
    locator = nullptr;
    if (modelEditorCallbackId != 0) {
        MMessage::removeCallback(modelEditorCallbackId);
        modelEditorCallbackId = 0;
    }
}

void kyStrakeDrawOverride::onModelEditorChanged(void* clientData) {
    auto* drawOverride = static_cast<kyStrakeDrawOverride*>(clientData);
    if (drawOverride && drawOverride->locator)
        MHWRender::MRenderer::setGeometryDrawDirty(drawOverride->locator->thisMObject(), true);
}

MHWRender::DrawAPI kyStrakeDrawOverride::supportedDrawAPIs() const { return MHWRender::kAllDevices; }

bool kyStrakeDrawOverride::hasUIDrawables() const { return true; }

bool kyStrakeDrawOverride::isBounded(const MDagPath&, const MDagPath&) const { return false; }

MUserData* kyStrakeDrawOverride::prepareForDraw(const MDagPath& objPath, const MDagPath&,
                                                const MHWRender::MFrameContext&, MUserData* oldData) {
    const MObject node = objPath.node();
    if (node.isNull()) return oldData;
    // Each read leaves its field alone on failure, so a missing attribute draws its last value.
    getPointArrayAttr("pointsDebug", node, pointsDebug);
    getPointArrayAttr("strokesShadow", node, strokesShadow);
    getPointArrayAttr("freezeMedian", node, freezeMedian);
    getPointArrayAttr("playersLine", node, playersLine);
    getPointArrayAttr("verticestweak", node, verticestweak);
    getIntArrayAttr("sizesShadow", node, sizesShadow);
    getPointArrayAttr("freepoints", node, freepoints);
    getIntArrayAttr("tweakRadius", node, tweakRadius);
    getDoubleAttr("displaySize", node, displaySize);
    getPointArrayAttr("playerpts", node, playerpts);
    getIntArrayAttr("fuseindices", node, fuseindices);
    getPointArrayAttr("fusemesh", node, fusemesh);
    getPointArrayAttr("sublines", node, sublines);
    getPointArrayAttr("magnetPt", node, magnetPt);
    getIntArrayAttr("sizes", node, sizes);
    getPointArrayAttr("strokes", node, strokes);
    getPointArrayAttr("fusept", node, fusept);
    getDoubleAttr("intensityRelaxInteractive", node, intensityRelaxInteractive);
    getDoubleAttr("radiusRelaxInteractive", node, radiusRelaxInteractive);
    getDoubleAttr("radiusMoveInteractive", node, radiusMoveInteractive);
    getPoint3Attr("interPoint", node, interPoint);
    getVector3Attr("interNormal", node, interNormal);
    readIntAttr("displayInfo", node, displayInfo);
    readIntAttr("symmetry", node, symmetry);
    readIntAttr("mode", node, mode);
    return oldData;
}

void kyStrakeDrawOverride::addUIDrawables(const MDagPath&, MHWRender::MUIDrawManager& drawManager,
                                          const MHWRender::MFrameContext& frameContext, const MUserData*) {
    MDagPath activeCamera;
    M3dView::active3dView().getCamera(activeCamera);
    const MDagPath frameCamera = frameContext.getCurrentCameraPath();
    if (!(activeCamera == frameCamera)) return;

    int originX = 0, originY = 0, width = 0, height = 0;
    frameContext.getViewportDimensions(originX, originY, width, height);

    if (displayInfo > 1) drawBrushPreview(drawManager, cameraViewDirection(frameCamera));
    if (playerpts.length() > 0) drawPlayers(drawManager);
    if (strokes.length() > 0 && sizes.length() > 0) drawStrokes(drawManager);
    if (magnetPt.length() > 0) drawMagnet(drawManager);
    if (fusept.length() > 0 && fuseindices.length() > 0 && playersLine.length() > 0)
        drawFusePreview(drawManager);
    if (strokesShadow.length() > 0 && sizesShadow.length() > 0) drawShadow(drawManager);
    if (freepoints.length() > 0) drawFreeBorder(drawManager);
    if (tweakRadius.length() > 0) drawTweakCircle(drawManager);
    if (displaySize > 0.01) drawNormals(drawManager);
    if (freezeMedian.length() > 0) drawFreezeMedian(drawManager);
    if (symmetry != 0) drawSymmetryPlane(drawManager);
    if (playersLine.length() > 0) drawPlayersLine(drawManager);
    drawHudText(drawManager, height);
}
