// Distances, angles and small array measures. The constants here are part of the tool's behaviour
// (brush circles, pick thresholds) and are kept as they are.

#include <maya/M3dView.h>

#include <cmath>

#include "geometry/functionsInternal.h"

double distance2(MPoint a, MPoint b) {
    return std::sqrt(std::pow(a.x - b.x, 2.0) + std::pow(a.y - b.y, 2.0));
}

double distance3(const MPoint& a, const MPoint& b) {
    const double dx = a.x - b.x, dy = a.y - b.y, dz = a.z - b.z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

short screenDistance(const MPoint& a, const MPoint& b) {
    M3dView view = M3dView::active3dView();
    short ax = 0, ay = 0, bx = 0, by = 0;
    view.worldToView(a, ax, ay);
    view.worldToView(b, bx, by);
    return static_cast<short>(static_cast<int>(distance2(MPoint(ax, ay), MPoint(bx, by))));
}

double projectedLength(const MVector& v, const MVector& axis) { return v.length() * std::cos(v.angle(axis)); }

double degreesToRadians(double degrees) {
    // 3.1415 / 180, not the exact ratio: the brush circle is drawn with it, so it stays.
    return degrees * 0.01745277777777778;
}

MPoint keepOrLastPoint(MPoint& point, const MPointArray& points) {
    const double minimum = 0.0001;
    if (std::fabs(point.x) >= minimum && std::fabs(point.y) >= minimum && std::fabs(point.z) >= minimum)
        return point;
    // Any coordinate near zero makes the point count as no point, even a real one on an axis
    // plane; the caller then continues from the last point it has.
    if (points.length() > 0) point = points[points.length() - 1];
    return point;
}

int nearestHitIndex(const MFloatArray& values) {
    double nearest = 99999.0;
    int index = 0;
    for (unsigned int k = 0; k < values.length(); ++k) {
        const double magnitude = std::fabs(values[k]);
        if (magnitude < nearest) {
            nearest = magnitude;
            index = static_cast<int>(k);
        }
    }
    return index;
}
