#include "mesh/TriangleGeometry.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace mhost {
namespace {

double ratio(double numerator, double denominator) { return denominator > 0 ? numerator / denominator : 0.0; }

// Closest point of segment [from, to]: returns the fraction along it.
double closestFractionOnSegment(const Vec3& p, const Vec3& from, const Vec3& to) {
    const Vec3 along = to - from;
    return std::clamp(ratio(dot(p - from, along), lengthSquared(along)), 0.0, 1.0);
}

// Fallback for triangles without area: the nearest point of the three sides.
TrianglePoint closestPointOnSides(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c) {
    const double ab = closestFractionOnSegment(p, a, b);
    const double bc = closestFractionOnSegment(p, b, c);
    const double ca = closestFractionOnSegment(p, c, a);
    const TrianglePoint candidates[] = {
        {a + (b - a) * ab, 1 - ab, ab},
        {b + (c - b) * bc, 0, 1 - bc},
        {c + (a - c) * ca, ca, 0},
    };
    return *std::min_element(std::begin(candidates), std::end(candidates),
                             [&](const TrianglePoint& x, const TrianglePoint& y) {
                                 return lengthSquared(x.point - p) < lengthSquared(y.point - p);
                             });
}

}  // namespace

// Voronoi-region walk (vertex regions, then edge regions, then the interior) as in Ericson's
// "Real-Time Collision Detection", 5.1.5.
TrianglePoint closestPointOnTriangle(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c) {
    const Vec3 ab = b - a, ac = c - a, ap = p - a;
    const double d1 = dot(ab, ap), d2 = dot(ac, ap);
    if (d1 <= 0 && d2 <= 0) return {a, 1, 0};
    const Vec3 bp = p - b;
    const double d3 = dot(ab, bp), d4 = dot(ac, bp);
    if (d3 >= 0 && d4 <= d3) return {b, 0, 1};
    const double vc = d1 * d4 - d3 * d2;
    if (vc <= 0 && d1 >= 0 && d3 <= 0) {
        const double t = ratio(d1, d1 - d3);
        return {a + ab * t, 1 - t, t};
    }
    const Vec3 cp = p - c;
    const double d5 = dot(ab, cp), d6 = dot(ac, cp);
    if (d6 >= 0 && d5 <= d6) return {c, 0, 0};
    const double vb = d5 * d2 - d1 * d6;
    if (vb <= 0 && d2 >= 0 && d6 <= 0) {
        const double t = ratio(d2, d2 - d6);
        return {a + ac * t, 1 - t, 0};
    }
    const double va = d3 * d6 - d5 * d4;
    if (va <= 0 && d4 - d3 >= 0 && d5 - d6 >= 0) {
        const double t = ratio(d4 - d3, (d4 - d3) + (d5 - d6));
        return {b + (c - b) * t, 0, 1 - t};
    }
    const double area = va + vb + vc;
    if (!(area > 0)) return closestPointOnSides(p, a, b, c);
    const double v = vb / area, w = vc / area;
    return {a + ab * v + ac * w, 1 - v - w, v};
}

}  // namespace mhost
