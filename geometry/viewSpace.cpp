// Conversions between world space and the active view's pixels (origin at the bottom left).

#include <maya/M3dView.h>
#include <maya/MFnCamera.h>

#include "geometry/functionsInternal.h"

MPoint worldToScreen(const MPoint& point) {
    short x = 0, y = 0;
    M3dView::active3dView().worldToView(point, x, y);
    return MPoint(x, y, 0.0, 1.0);
}

MPoint screenToWorld(const MPoint& point) {
    MPoint nearPoint, farPoint;
    M3dView::active3dView().viewToWorld(static_cast<short>(static_cast<int>(point.x)),
                                        static_cast<short>(static_cast<int>(point.y)), nearPoint, farPoint);
    return nearPoint;
}

MFloatPoint cameraEyePoint() {
    MDagPath camera;
    M3dView::active3dView().getCamera(camera);
    const MPoint eye = MFnCamera(camera).eyePoint(MSpace::kWorld);
    return MFloatPoint(static_cast<float>(eye.x), static_cast<float>(eye.y), static_cast<float>(eye.z),
                       static_cast<float>(eye.w));
}
