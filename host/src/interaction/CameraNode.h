#pragma once
// The built-in "camera" shape: a perspective camera at its transform's origin, looking down the
// transform's -Z axis with +Y up, as Maya's cameras do. Its lens attributes keep Maya's names, units
// (focal length in millimetres, film aperture in inches) and defaults.

#include <maya/MStatus.h>

#include "graph/Node.h"

namespace mhost {

namespace camera_attributes {
constexpr const char* kFocalLength = "focalLength";
constexpr const char* kHorizontalAperture = "horizontalFilmAperture";
constexpr const char* kVerticalAperture = "verticalFilmAperture";
constexpr const char* kNearClip = "nearClipPlane";
constexpr const char* kFarClip = "farClipPlane";
constexpr const char* kCenterOfInterest = "centerOfInterest";
}  // namespace camera_attributes

// What the projection needs of a camera shape, read from its attributes.
struct CameraLens {
    double focalLength = 35.0;
    double horizontalAperture = 1.41732;
    double verticalAperture = 0.94488;
    double nearClip = 0.1;
    double farClip = 10000.0;

    // Tangent of half the field of view the film gate spans, across and up.
    double tanHalfHorizontal() const;
    double tanHalfVertical() const;
};

// The camera type, for the node type registry.
NodeTypePtr makeCameraType();
// Whether the node is a camera shape.
bool isCamera(const Node& node);
// The lens of a camera shape (attribute values, connections honoured).
CameraLens readLens(const NodePtr& camera);
// Reads or writes one numeric attribute of a camera shape by name, as a plug does (connections, locks
// and limits honoured); throws HostError when the node has no such attribute.
double cameraValue(const NodePtr& camera, const char* attribute);
MStatus setCameraValue(const NodePtr& camera, const char* attribute, double value);

}  // namespace mhost
