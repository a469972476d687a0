#pragma once
// The frame context the host hands draw calls: the camera and viewport size of the frame being drawn,
// and the process-wide flag that says whether the user is moving the view.

#include <maya/MFrameContext.h>

namespace mhost {

class HostFrameContext : public MHWRender::MFrameContext {
public:
    HostFrameContext(const MDagPath& camera, int width, int height);
};

// Set by the driver while it plays a tumble, track or dolly; MFrameContext::userChangingViewContext
// reports it.
void setUserChangingView(bool changing);
bool userChangingView();

}  // namespace mhost
