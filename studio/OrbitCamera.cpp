#include "studio/OrbitCamera.h"

#include <algorithm>
#include <cmath>

namespace kystrake {
namespace {

constexpr double kDegreesPerPixel = 0.4;
constexpr double kPoleMarginRadians = 0.02;
constexpr double kDollyPerPixel = 0.005;
constexpr double kNearestDistance = 1e-3;

Vec3 minus(const Vec3& a, const Vec3& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
Vec3 plus(const Vec3& a, const Vec3& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
Vec3 scaled(const Vec3& a, double s) { return {a[0] * s, a[1] * s, a[2] * s}; }
double length(const Vec3& a) { return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]); }
Vec3 cross(const Vec3& a, const Vec3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Vec3 normalised(const Vec3& a) { return scaled(a, 1.0 / length(a)); }

}  // namespace

void OrbitCamera::tumble(int dx, int dy) {
    const Vec3 offset = minus(placement_.eye, placement_.target);
    const double distance = length(offset);
    double azimuth = std::atan2(offset[0], offset[2]);
    double elevation = std::asin(std::clamp(offset[1] / distance, -1.0, 1.0));
    const double step = kDegreesPerPixel * M_PI / 180.0;
    azimuth -= dx * step;
    elevation =
        std::clamp(elevation - dy * step, -M_PI / 2 + kPoleMarginRadians, M_PI / 2 - kPoleMarginRadians);
    const Vec3 turned{std::cos(elevation) * std::sin(azimuth), std::sin(elevation),
                      std::cos(elevation) * std::cos(azimuth)};
    placement_.eye = plus(placement_.target, scaled(turned, distance));
}

void OrbitCamera::track(int dx, int dy, int viewHeight) {
    const Vec3 forward = minus(placement_.target, placement_.eye);
    const double distance = length(forward);
    const Vec3 right = normalised(cross(forward, {0.0, 1.0, 0.0}));
    const Vec3 up = normalised(cross(right, forward));
    const double worldPerPixel =
        2.0 * distance * std::tan(placement_.fieldOfViewDegrees * M_PI / 360.0) / std::max(viewHeight, 1);
    const Vec3 shift = plus(scaled(right, -dx * worldPerPixel), scaled(up, -dy * worldPerPixel));
    placement_.eye = plus(placement_.eye, shift);
    placement_.target = plus(placement_.target, shift);
}

void OrbitCamera::dolly(int dx, int dy) {
    const Vec3 offset = minus(placement_.eye, placement_.target);
    const double distance = length(offset);
    const double wanted = std::max(distance * std::exp(-(dx + dy) * kDollyPerPixel), kNearestDistance);
    placement_.eye = plus(placement_.target, scaled(offset, wanted / distance));
}

}  // namespace kystrake
