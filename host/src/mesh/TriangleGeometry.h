#pragma once
// Exact double-precision closest points on one triangle (a, b, c). Barycentric pairs follow Maya's
// convention: (bary1, bary2) names the point bary1 * a + bary2 * b + (1 - bary1 - bary2) * c.

#include "mesh/Vec3.h"

namespace mhost {

struct TrianglePoint {
    Vec3 point;
    double bary1 = 0;
    double bary2 = 0;
};

// The point of the triangle nearest to p; also correct for degenerate (zero-area) triangles.
TrianglePoint closestPointOnTriangle(const Vec3& p, const Vec3& a, const Vec3& b, const Vec3& c);

}  // namespace mhost
