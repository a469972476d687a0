#include "tool/contextSupport.h"

#include <maya/MDagPath.h>
#include <maya/MFnCamera.h>

#include "geometry/functions.h"

GestureKeys::GestureKeys(const MEvent& event) {
    const MEvent::MouseButtonType button = event.mouseButton();
    lmb = button == MEvent::kLeftMouse;
    mmb = button == MEvent::kMiddleMouse;
    shift = event.isModifierShift();
    ctrl = event.isModifierControl();
}

MVector cameraViewDirection(M3dView& view) {
    MDagPath camera;
    if (!view.getCamera(camera)) return MVector::zero;
    return MFnCamera(camera).viewDirection(MSpace::kWorld);
}

BackFaceTest::BackFaceTest(M3dView& view)
    : enabled_(optionFlag("ky_strakeBackFace", 1)),
      viewDirection_(enabled_ ? cameraViewDirection(view) : MVector::zero) {}

MVector cameraRightDirection(M3dView& view) {
    MDagPath camera;
    if (!view.getCamera(camera)) return MVector::zero;
    return MFnCamera(camera).rightDirection(MSpace::kWorld);
}

MMatrix cameraMatrix(M3dView& view) {
    MDagPath camera;
    if (!view.getCamera(camera)) return MMatrix::identity;
    return camera.inclusiveMatrix();
}
