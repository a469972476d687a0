#include "drawing/PrimitiveShapes.h"

#include <algorithm>
#include <cmath>

namespace mhost {
namespace {

constexpr int kDefaultCircleSegments = 48;
constexpr double kTwoPi = 2.0 * M_PI;

// The part of `v` across `normal`, as a unit vector; any perpendicular one when `v` has none.
MVector across(const MVector& v, const MVector& normal) {
    const MVector n = normal.normal();
    MVector flat = v - n * (v * n);
    if (flat.length() < 1e-12) flat = n ^ (std::abs(n.x) < 0.9 ? MVector(1, 0, 0) : MVector(0, 1, 0));
    return flat.normal();
}

std::vector<MPoint> sweep(const MPoint& center, const MVector& u, const MVector& v, double radius,
                          double angle, int segments) {
    std::vector<MPoint> points;
    for (int i = 0; i <= segments; ++i) {
        const double a = angle * i / segments;
        points.push_back(center + (u * std::cos(a) + v * std::sin(a)) * radius);
    }
    return points;
}

}  // namespace

std::vector<MPoint> circleOutline(const MPoint& center, const MVector& normal, double radius,
                                  int subdivisions) {
    const int segments = subdivisions >= 3 ? subdivisions : kDefaultCircleSegments;
    const MVector u = across(MVector(1, 0, 0), normal), v = normal.normal() ^ u;
    std::vector<MPoint> points = sweep(center, u, v, radius, kTwoPi, segments);
    points.pop_back();
    return points;
}

std::vector<MPoint> arcOutline(const MPoint& center, const MVector& start, const MVector& end,
                               const MVector& normal, double radius, int subdivisions) {
    const MVector u = across(start, normal), v = normal.normal() ^ u;
    const MVector e = across(end, normal);
    double angle = std::atan2(e * v, e * u);
    if (angle <= 0.0) angle += kTwoPi;
    const int segments =
        subdivisions >= 1 ? subdivisions
                          : std::max(2, static_cast<int>(std::ceil(kDefaultCircleSegments * angle / kTwoPi)));
    return sweep(center, u, v, radius, angle, segments);
}

std::vector<MPoint> rectOutline(const MPoint& center, const MVector& up, const MVector& normal, double scaleX,
                                double scaleY) {
    const MVector height = across(up, normal);
    const MVector width = height ^ normal.normal();
    return {center - width * scaleX - height * scaleY, center + width * scaleX - height * scaleY,
            center + width * scaleX + height * scaleY, center - width * scaleX + height * scaleY};
}

}  // namespace mhost
