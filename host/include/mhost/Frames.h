#pragma once
// Viewport frames for programs and tests driving the headless host: run one frame of the active view,
// read what it drew, and write it as a picture.

#include <maya/MStatus.h>

#include <memory>
#include <string>
#include <vector>

namespace mhost {

// The record of one MUIDrawManager's calls; its members are in the host's "drawing/DisplayList.h".
struct DisplayList;

namespace driver {

// What one drawer drew in a frame.
struct FrameDrawing {
    enum class Drawer {
        kContextFeedback,  // the current context's drawFeedback, this frame
        kContextEvent,     // the current context's handler of the last mouse event, kept until the next
        kDrawOverride      // a node's draw override, this frame
    };
    Drawer drawer;
    // The node whose override drew; empty for the context.
    std::string node;
    std::shared_ptr<const DisplayList> list;
};

// Runs one frame of the active view, as Viewport 2.0 does: the current context's drawFeedback, then,
// for every visible node whose type's classification has a registered draw override, the override's
// prepareForDraw and addUIDrawables (one override per node, made on its first frame and kept).
// kFailure, with `error` set, when the view has no camera or an override cannot be made.
MStatus runFrame(std::string* error = nullptr);

// What the last frame drew: the context's feedback (when a context is current), what the context drew
// at the last mouse event (when it drew anything), then one entry per override that has UI drawables,
// in scene order. Empty before the first frame.
std::vector<FrameDrawing> frameDrawings();

// A plug-in's request to redraw a node (MRenderer::setGeometryDrawDirty).
struct DrawDirtyRequest {
    std::string node;
    bool topologyChanged;
};

// The requests made since the last frame began, in order, repeats included. The host prepares every
// drawn node on every frame anyway; the requests are kept to be read.
std::vector<DrawDirtyRequest> drawDirtyRequests();

// Writes the last frame as a PNG picture at the port's size: the source mesh shaded, other meshes as
// wireframes (as they are now), then the frame's primitives. kFailure, with `error` set, before the
// first frame or when the file cannot be written.
MStatus writeFramePicture(const std::string& path, std::string* error = nullptr);

// Tells draw code whether the user is tumbling, tracking or dollying the view
// (MFrameContext::userChangingViewContext); false until set.
void setUserChangingView(bool changing);

}  // namespace driver
}  // namespace mhost
