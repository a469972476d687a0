#include "interaction/ViewProjection.h"

#include <algorithm>
#include <string>

namespace mhost {
namespace {

// Depth used for points at or behind the eye plane, so that projecting them never divides by zero.
constexpr double kSmallestDepth = 1e-9;

}  // namespace

ViewProjection::ViewProjection(const MMatrix& cameraWorld, const CameraLens& lens, int width, int height)
    : fCameraWorld(cameraWorld),
      fWorldToCamera(cameraWorld.inverse()),
      fNear(lens.nearClip),
      fFar(lens.farClip),
      fWidth(width),
      fHeight(height) {
    if (width < 1 || height < 1)
        throw HostError("view: the port must be at least one pixel wide and high, not " +
                        std::to_string(width) + " x " + std::to_string(height));
    if (lens.focalLength <= 0 || lens.horizontalAperture <= 0 || lens.verticalAperture <= 0)
        throw HostError("view: the camera's focal length and film aperture must be positive");
    const double portAspect = static_cast<double>(width) / height;
    const double filmAspect = lens.horizontalAperture / lens.verticalAperture;
    if (portAspect >= filmAspect) {
        fTanHalfX = lens.tanHalfHorizontal();
        fTanHalfY = fTanHalfX / portAspect;
    } else {
        fTanHalfY = lens.tanHalfVertical();
        fTanHalfX = fTanHalfY * portAspect;
    }
}

PortPoint ViewProjection::toPort(const MPoint& world) const {
    const MPoint local = world * fWorldToCamera;
    PortPoint point;
    point.depth = -local.z;
    const double depth = std::max(point.depth, kSmallestDepth);
    point.x = (local.x / (depth * fTanHalfX) + 1.0) * 0.5 * fWidth;
    point.y = (local.y / (depth * fTanHalfY) + 1.0) * 0.5 * fHeight;
    return point;
}

void ViewProjection::ray(double x, double y, MPoint& nearPoint, MPoint& farPoint) const {
    const double slopeX = (2.0 * x / fWidth - 1.0) * fTanHalfX;
    const double slopeY = (2.0 * y / fHeight - 1.0) * fTanHalfY;
    nearPoint = MPoint(slopeX * fNear, slopeY * fNear, -fNear) * fCameraWorld;
    farPoint = MPoint(slopeX * fFar, slopeY * fFar, -fFar) * fCameraWorld;
}

}  // namespace mhost
