#pragma once
// MFnCamera: a perspective camera shape. The camera sits at its transform's origin and looks down
// the transform's -Z axis with +Y up; object space is the shape's own, world space goes through the
// path's inclusive matrix (any space other than kWorld reads as object space). Angles are radians.

#include <maya/MFnDagNode.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>

class OPENMAYA_EXPORT MFnCamera : public MFnDagNode {
    MHOST_DECLARE_MFN(MFnCamera)

    MFnCamera(const MDagPath& object, MStatus* ReturnStatus = NULL);
    // Creates a camera shape under a new transform (returned), or under `parent` (the shape returned).
    MObject create(MStatus* ReturnStatus = NULL);
    MObject create(MObject& parent, MStatus* ReturnStatus = NULL);
    // The eye, and the unit view, up and right directions.
    MPoint eyePoint(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MVector viewDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MVector upDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MVector rightDirection(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    // The point centerOfInterest() in front of the eye.
    MPoint centerOfInterestPoint(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    // Places the camera's transform at a world eye point looking along a world direction, with `up`
    // giving the roll, and sets the horizontal field of view and the film's aspect ratio.
    // kInvalidParameter for a zero view direction or a field of view outside (0, pi).
    MStatus set(const MPoint& wsEyeLocation, const MVector& wsViewDirection, const MVector& wsUpDirection,
                double horizFieldOfView, double aspectRatio);
    // Fields of view of the film gate (through the focal length; the film aperture stays).
    MStatus setHorizontalFieldOfView(double fov);
    double horizontalFieldOfView(MStatus* ReturnStatus = NULL) const;
    MStatus setVerticalFieldOfView(double fov);
    double verticalFieldOfView(MStatus* ReturnStatus = NULL) const;
    // Focal length in millimetres, clamped to Maya's range [2.5, 100000].
    MStatus setFocalLength(double focalLength);
    double focalLength(MStatus* ReturnStatus = NULL) const;
    // Film aspect ratio: horizontal over vertical aperture (setting it changes the vertical one).
    MStatus setAspectRatio(double aspectRatio);
    double aspectRatio(MStatus* ReturnStatus = NULL) const;
    MStatus setNearClippingPlane(double dNear);
    double nearClippingPlane(MStatus* ReturnStatus = NULL) const;
    MStatus setFarClippingPlane(double dFar);
    double farClippingPlane(MStatus* ReturnStatus = NULL) const;
    MStatus setCenterOfInterest(double dist);
    double centerOfInterest(MStatus* ReturnStatus = NULL) const;
    // Always false: the host's cameras are perspective cameras.
    bool isOrtho(MStatus* ReturnStatus = NULL) const;
};
