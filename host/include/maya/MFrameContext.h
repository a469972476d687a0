#pragma once
// MHWRender::MFrameContext: what a draw call may know of the frame being drawn — the camera, the
// viewport rectangle, and whether the user is moving the view. The host makes one per frame.

#include <maya/MDagPath.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

namespace mhost {
class HostFrameContext;
}

namespace MHWRender {

class OPENMAYARENDER_EXPORT MFrameContext {
public:
    // The viewport in pixels: origin of its bottom-left corner (always 0, 0 in the host), width and
    // height. Always kSuccess.
    virtual MStatus getViewportDimensions(int& originX, int& originY, int& width, int& height) const;
    // The path of the camera the frame is drawn through (a camera shape).
    MDagPath getCurrentCameraPath(MStatus* ReturnStatus = NULL) const;
    // Whether the user is tumbling, tracking or dollying the view right now (set by the driver).
    static bool userChangingViewContext();
    static const char* className();

protected:
    MFrameContext();
    virtual ~MFrameContext();

private:
    friend class mhost::HostFrameContext;

    MDagPath fCameraPath;
    int fWidth = 0;
    int fHeight = 0;
};

}  // namespace MHWRender
