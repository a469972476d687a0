#pragma once
// Where things land in a frame's picture: image pixels with the origin at the top left and y down
// (the view's y flipped), and for world points their depth in front of the eye.

#include <maya/MPoint.h>

#include <QPointF>
#include <vector>

#include "interaction/ViewProjection.h"

namespace mhost {

struct ImagePoint {
    double x = 0.0;
    double y = 0.0;
    double depth = 0.0;

    QPointF pixel() const { return {x, y}; }
};

class PictureSpace {
public:
    explicit PictureSpace(const ViewProjection& projection);

    int width() const { return fProjection.width(); }
    int height() const { return fProjection.height(); }
    // The depth of the near clip plane: anything closer is not drawn.
    double nearDepth() const { return fNear; }

    // A world point in the image; meaningful only in front of the near plane.
    ImagePoint fromWorld(const MPoint& world) const;
    // A view position (pixels, origin bottom left) in the image.
    QPointF fromView(const MPoint& view) const;
    // The part of a world polygon in front of the near plane (empty when there is none). O(corners).
    std::vector<MPoint> clipPolygon(const std::vector<MPoint>& polygon) const;
    // Cuts a world segment to its part in front of the near plane; false when there is none.
    bool clipSegment(MPoint& a, MPoint& b) const;

private:
    const ViewProjection& fProjection;
    double fNear;
};

}  // namespace mhost
