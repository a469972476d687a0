#pragma once
// The projection of a view: a camera's world placement and lens fitted to a viewport of whole pixels.
// View coordinates are pixels with the origin at the bottom left, x to the right, y up; x = 0 is the
// left edge of the port and x = width its right edge. The film gate fills the port as Maya's default
// "fill" film fit does: when the port is wider than the film, the film's width spans the port's
// width, otherwise its height spans the port's height.

#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include "interaction/CameraNode.h"

namespace mhost {

// A world point seen in the view: pixel position and distance in front of the eye along the view
// axis (negative behind it).
struct PortPoint {
    double x = 0.0;
    double y = 0.0;
    double depth = 0.0;
};

class ViewProjection {
public:
    // `cameraWorld` places the camera (row vectors: world = local * cameraWorld). Throws HostError for
    // a port without area or a lens with a non-positive aperture or focal length.
    ViewProjection(const MMatrix& cameraWorld, const CameraLens& lens, int width, int height);

    // The view position of a world point. A point at or behind the eye plane is projected as if it
    // lay just in front of it, so its coordinates are far outside the port.
    PortPoint toPort(const MPoint& world) const;
    // Whether a depth lies between the near and far clip planes (inclusive).
    bool isWithinClipPlanes(double depth) const { return depth >= fNear && depth <= fFar; }
    // The ray of a view position: where it meets the near and the far clip planes, in world space.
    void ray(double x, double y, MPoint& nearPoint, MPoint& farPoint) const;

    int width() const { return fWidth; }
    int height() const { return fHeight; }

private:
    MMatrix fCameraWorld;
    MMatrix fWorldToCamera;
    double fNear, fFar;
    double fTanHalfX, fTanHalfY;
    int fWidth, fHeight;
};

}  // namespace mhost
