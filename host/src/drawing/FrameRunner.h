#pragma once
// One viewport frame of the active view, as Viewport 2.0 draws it: the current context's feedback,
// then every drawn node that has a draw override. What the frame drew is kept as display lists until
// the next frame.

#include <maya/MDagPath.h>
#include <mhost/Frames.h>

#include <vector>

#include "drawing/DisplayList.h"
#include "interaction/ViewProjection.h"

namespace mhost {

struct Frame {
    MDagPath camera;
    ViewProjection projection;
    // In the order of driver::frameDrawings.
    std::vector<driver::FrameDrawing> layers;
};

// Runs a frame: forgets the draw-dirty requests of the last frame, calls the feedback hook, takes the
// context's drawing of the last mouse event, then for
// each visible DAG node whose type's classification has a draw override creator (scene order): the
// node's preEvaluation when a plug of it is dirty, then its cached override's prepareForDraw and
// addUIDrawables, skipping overrides without core-profile support and bounded nodes wholly out of
// view. Throws HostError when the view has no camera or a creator returns null.
const Frame& runFrame();

// The last frame run; null before the first.
const Frame* lastFrame();

}  // namespace mhost
