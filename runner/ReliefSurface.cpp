#include "runner/ReliefSurface.h"

#include <algorithm>
#include <cmath>

namespace kystrake {
namespace {

// A smooth round bump of height 1 at (cx, cy), `sx` wide along X and `sy` along Y.
double bump(double x, double y, double cx, double cy, double sx, double sy) {
    const double u = (x - cx) / sx, v = (y - cy) / sy;
    return std::exp(-u * u - v * v);
}

// 0 at `from`, 1 at `to`, with zero slope at both ends.
double smoothStep(double from, double to, double value) {
    const double s = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return s * s * (3 - 2 * s);
}

// The nose: a ridge from between the brows down to the tip, growing higher and wider as it
// descends, fading into the brow above and ending in a rounded tip.
double nose(double x, double y) {
    const double t = smoothStep(1.3, -1.1, y);
    const double width = 0.3 + 0.4 * t;
    const double above = y > 1.3 ? std::exp(-std::pow((y - 1.3) / 0.5, 2)) : 1.0;
    const double below = y < -1.0 ? std::exp(-std::pow((y + 1.0) / 0.6, 2)) : 1.0;
    return (0.2 + 0.85 * t * t) * std::exp(-std::pow(x / width, 2)) * above * below;
}

}  // namespace

// Every feature is a smooth bump, and the slopes stay below 2.2, under the 2.4 at which a ray 22.5
// degrees off the view axis (the edge of a 45-degree view) could leave the surface again after
// entering it: a ray from the front camera meets the relief once, with no overhangs.
double reliefHeight(double x, double y) {
    const double head = 2.6 * bump(x, y, 0, 0.3, 3.6, 5.0);
    const double brows = 0.45 * (bump(x, y, -1.5, 1.85, 1.2, 0.45) + bump(x, y, 1.5, 1.85, 1.2, 0.45));
    const double sockets = -0.55 * (bump(x, y, -1.5, 1.0, 0.75, 0.5) + bump(x, y, 1.5, 1.0, 0.75, 0.5));
    const double eyes = 0.22 * (bump(x, y, -1.5, 1.0, 0.4, 0.28) + bump(x, y, 1.5, 1.0, 0.4, 0.28));
    const double cheeks = 0.55 * (bump(x, y, -2.0, -0.5, 1.2, 1.0) + bump(x, y, 2.0, -0.5, 1.2, 1.0));
    const double nostrils = 0.22 * (bump(x, y, -0.45, -1.0, 0.3, 0.3) + bump(x, y, 0.45, -1.0, 0.3, 0.3));
    const double lips = 0.3 * bump(x, y, 0, -2.15, 1.0, 0.22) + 0.28 * bump(x, y, 0, -2.6, 0.85, 0.22) -
                        0.1 * bump(x, y, 0, -2.38, 0.9, 0.09);
    const double chin = 0.45 * bump(x, y, 0, -3.6, 1.0, 0.6);
    // Faint, regular lines across the forehead: fine detail with no noise in it.
    const double foreheadLines = 0.03 * std::sin(14.0 * y) * bump(x, y, 0, 3.3, 2.2, 0.9);
    return head + brows + sockets + eyes + cheeks + nostrils + nose(x, y) + lips + chin + foreheadLines;
}

PolygonMesh reliefSurface(int triangles) {
    // Two triangles per grid cell, the cells about square.
    const double aspect = kReliefHeight / kReliefWidth;
    const int rows = std::max(2, static_cast<int>(std::lround(std::sqrt(triangles / 2.0 * aspect))));
    const int columns = std::max(2, static_cast<int>(std::lround(rows / aspect)));
    PolygonMesh mesh;
    for (int r = 0; r <= rows; ++r) {
        const double y = kReliefHeight * (double(r) / rows - 0.5);
        for (int c = 0; c <= columns; ++c) {
            const double x = kReliefWidth * (double(c) / columns - 0.5);
            mesh.points.push_back({x, y, reliefHeight(x, y)});
        }
    }
    // Counter-clockwise seen from +Z: lower left, lower right, upper right; lower left, upper right,
    // upper left.
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            const int lowerLeft = r * (columns + 1) + c, upperLeft = lowerLeft + columns + 1;
            for (int v : {lowerLeft, lowerLeft + 1, upperLeft + 1, lowerLeft, upperLeft + 1, upperLeft})
                mesh.polygonConnects.push_back(v);
            mesh.polygonCounts.insert(mesh.polygonCounts.end(), 2, 3);
        }
    return mesh;
}

}  // namespace kystrake
