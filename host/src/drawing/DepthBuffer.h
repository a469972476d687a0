#pragma once
// The depth of the nearest mesh surface at each pixel of a picture, filled as the shaded mesh is
// drawn, so that lines and text drawn later can tell whether a surface hides them.

#include <QImage>
#include <vector>

#include "drawing/PictureSpace.h"

namespace mhost {

class DepthBuffer {
public:
    DepthBuffer(int width, int height);

    // Fills the pixels a triangle covers (pixel centres inside it) with `color` wherever the triangle
    // is nearer than what was drawn before, interpolating depth with perspective. The corners must lie
    // in front of the eye. O(pixels of its bounding box).
    void fillTriangle(const ImagePoint& a, const ImagePoint& b, const ImagePoint& c, QRgb color,
                      QImage& image);
    // Whether a point is in front of the surface at its pixel, give or take a small share of its depth,
    // so that lines lying on a surface stay visible. Points outside the picture are visible.
    bool isVisible(const ImagePoint& point) const;

private:
    int fWidth, fHeight;
    std::vector<float> fDepth;
};

}  // namespace mhost
