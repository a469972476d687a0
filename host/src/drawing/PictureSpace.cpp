#include "drawing/PictureSpace.h"

namespace mhost {
namespace {

// The point where the segment a-b crosses depth `at`, given the depths of its ends. Depth is an affine
// function of world position, so the crossing interpolates linearly.
MPoint crossing(const MPoint& a, double depthA, const MPoint& b, double depthB, double at) {
    const double t = (at - depthA) / (depthB - depthA);
    return a + (b - a) * t;
}

}  // namespace

PictureSpace::PictureSpace(const ViewProjection& projection) : fProjection(projection) {
    MPoint nearPoint, farPoint;
    projection.ray(0.5 * projection.width(), 0.5 * projection.height(), nearPoint, farPoint);
    fNear = projection.toPort(nearPoint).depth;
}

ImagePoint PictureSpace::fromWorld(const MPoint& world) const {
    const PortPoint port = fProjection.toPort(world);
    return {port.x, height() - port.y, port.depth};
}

QPointF PictureSpace::fromView(const MPoint& view) const { return {view.x, height() - view.y}; }

std::vector<MPoint> PictureSpace::clipPolygon(const std::vector<MPoint>& polygon) const {
    std::vector<MPoint> clipped;
    for (size_t i = 0; i < polygon.size(); ++i) {
        const MPoint& a = polygon[i];
        const MPoint& b = polygon[(i + 1) % polygon.size()];
        const double depthA = fProjection.toPort(a).depth, depthB = fProjection.toPort(b).depth;
        if (depthA >= fNear) clipped.push_back(a);
        if ((depthA >= fNear) != (depthB >= fNear)) clipped.push_back(crossing(a, depthA, b, depthB, fNear));
    }
    return clipped;
}

bool PictureSpace::clipSegment(MPoint& a, MPoint& b) const {
    const double depthA = fProjection.toPort(a).depth, depthB = fProjection.toPort(b).depth;
    if (depthA < fNear && depthB < fNear) return false;
    if (depthA < fNear) a = crossing(a, depthA, b, depthB, fNear);
    if (depthB < fNear) b = crossing(a, depthA, b, depthB, fNear);
    return true;
}

}  // namespace mhost
