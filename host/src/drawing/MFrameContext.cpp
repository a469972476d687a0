#include <maya/MFrameContext.h>

#include "drawing/HostFrameContext.h"

namespace mhost {
namespace {

bool& changingViewFlag() {
    static bool changing = false;
    return changing;
}

}  // namespace

HostFrameContext::HostFrameContext(const MDagPath& camera, int width, int height) {
    fCameraPath = camera;
    fWidth = width;
    fHeight = height;
}

void setUserChangingView(bool changing) { changingViewFlag() = changing; }
bool userChangingView() { return changingViewFlag(); }

}  // namespace mhost

namespace MHWRender {

MFrameContext::MFrameContext() = default;
MFrameContext::~MFrameContext() = default;
const char* MFrameContext::className() { return "MFrameContext"; }

MStatus MFrameContext::getViewportDimensions(int& originX, int& originY, int& width, int& height) const {
    originX = 0;
    originY = 0;
    width = fWidth;
    height = fHeight;
    return MS::kSuccess;
}

MDagPath MFrameContext::getCurrentCameraPath(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return fCameraPath;
}

bool MFrameContext::userChangingViewContext() { return mhost::userChangingView(); }

}  // namespace MHWRender
