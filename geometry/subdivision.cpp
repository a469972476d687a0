// Straight-line subdivision for figures and dashed outlines. Each run leaves its end point out so
// that runs placed end to end join without doubled points.

#include "geometry/functionsInternal.h"

namespace {

// `count` points from `from` in steps of (to - from) / count; none for a count below 1.
MPointArray stepsAlong(const MPoint& from, const MPoint& to, int count) {
    MPointArray points;
    if (count < 1) return points;
    const MVector step = (to - from) / count;
    for (int i = 0; i < count; ++i) points.append(from + step * i);
    return points;
}

bool differ(const MPoint& a, const MPoint& b) { return a.x != b.x || a.y != b.y || a.z != b.z || a.w != b.w; }

}  // namespace

MPointArray subdivideByDensity(const MPointArray& points, double density) {
    if (points.length() != 2 || !differ(points[0], points[1])) return points;
    const int steps = static_cast<int>(distance3(points[0], points[1]) * density);
    return stepsAlong(points[0], points[1], steps);
}

MPointArray subdivideByScreen(const MPoint& p0, const MPoint& p1, int pixels) {
    return stepsAlong(p0, p1, screenDistance(p0, p1) / pixels);
}

MPointArray subdivideOutline(const MPoint& p0, const MPoint& p1, const MPoint& p2, const MPoint& p3,
                             int pixels) {
    const MPoint corners[] = {p0, p1, p2, p3, p0};
    MPointArray outline;
    for (int side = 0; side < 4; ++side) {
        const MPointArray run = subdivideByScreen(corners[side], corners[side + 1], pixels);
        for (unsigned int i = 0; i < run.length(); ++i) outline.append(run[i]);
    }
    outline.append(p0);
    tracePoints(outline, "multispit");
    return outline;
}
