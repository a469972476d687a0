#include "drawing/DepthBuffer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace mhost {
namespace {

// Lines on a faceted surface may dip under it by a chord's sag; this share of the depth allows for it.
constexpr double kSurfaceTolerance = 0.02;

double edge(const ImagePoint& a, const ImagePoint& b, double x, double y) {
    return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
}

}  // namespace

DepthBuffer::DepthBuffer(int width, int height)
    : fWidth(width),
      fHeight(height),
      fDepth(static_cast<size_t>(width) * height, std::numeric_limits<float>::infinity()) {}

void DepthBuffer::fillTriangle(const ImagePoint& a, const ImagePoint& b, const ImagePoint& c, QRgb color,
                               QImage& image) {
    const double area = edge(a, b, c.x, c.y);
    if (area == 0.0) return;
    const int x0 = std::max(0, static_cast<int>(std::floor(std::min({a.x, b.x, c.x}))));
    const int x1 = std::min(fWidth - 1, static_cast<int>(std::ceil(std::max({a.x, b.x, c.x}))));
    const int y0 = std::max(0, static_cast<int>(std::floor(std::min({a.y, b.y, c.y}))));
    const int y1 = std::min(fHeight - 1, static_cast<int>(std::ceil(std::max({a.y, b.y, c.y}))));
    for (int y = y0; y <= y1; ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = x0; x <= x1; ++x) {
            const double px = x + 0.5, py = y + 0.5;
            // Barycentric weights; all of the same sign as the area inside the triangle.
            const double wa = edge(b, c, px, py) / area, wb = edge(c, a, px, py) / area, wc = 1.0 - wa - wb;
            if (wa < 0.0 || wb < 0.0 || wc < 0.0) continue;
            // 1/depth is linear across the image, depth itself is not.
            const double depth = 1.0 / (wa / a.depth + wb / b.depth + wc / c.depth);
            float& stored = fDepth[static_cast<size_t>(y) * fWidth + x];
            if (depth >= stored) continue;
            stored = static_cast<float>(depth);
            row[x] = color;
        }
    }
}

bool DepthBuffer::isVisible(const ImagePoint& point) const {
    const int x = static_cast<int>(std::floor(point.x)), y = static_cast<int>(std::floor(point.y));
    if (x < 0 || y < 0 || x >= fWidth || y >= fHeight) return true;
    return point.depth <= fDepth[static_cast<size_t>(y) * fWidth + x] * (1.0 + kSurfaceTolerance);
}

}  // namespace mhost
