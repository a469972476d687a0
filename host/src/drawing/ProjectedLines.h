#pragma once
// World polylines seen in a frame's picture.

#include <maya/MPoint.h>

#include <QPolygonF>
#include <vector>

#include "drawing/DepthBuffer.h"
#include "drawing/PictureSpace.h"

namespace mhost {

// The image polylines along which a world polyline shows: its parts in front of the near plane,
// sampled every couple of pixels so perspective stays exact, and broken wherever the surfaces in
// `depth` hide it (no hiding when `depth` is null). `closed` adds the segment back to the start.
// O(pixels along the line).
std::vector<QPolygonF> projectPolyline(const std::vector<MPoint>& points, bool closed,
                                       const PictureSpace& space, const DepthBuffer* depth);

}  // namespace mhost
