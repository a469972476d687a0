#pragma once
// A frame as a picture: the meshes, then every primitive of the frame's display lists.

#include <QImage>

#include "drawing/FrameRunner.h"
#include "drawing/SceneMeshes.h"

namespace mhost {

// Renders the frame at the size of its port over a dark gradient: the source mesh flat-shaded (lit
// from above the camera's left shoulder), the other meshes as wireframes, then the primitives of all
// display lists in order of depth priority (ties in the order they were drawn). Makes the Qt
// application when there is none.
QImage renderFrame(const Frame& frame, const PictureMeshes& meshes);

}  // namespace mhost
