#include <maya/MFnCamera.h>
#include <maya/MMatrix.h>

#include <cmath>

#include "core/FunctionSet.h"
#include "core/ReturnStatus.h"
#include "interaction/CameraAim.h"
#include "interaction/CameraNode.h"

MHOST_DEFINE_MFN(MFnCamera, MFn::kCamera)

using namespace mhost::camera_attributes;

namespace {

constexpr double kMillimetresPerInch = 25.4;

using mhost::report;

bool isFieldOfView(double fov) { return fov > 0 && fov < M_PI; }

// A camera-space point or direction, taken to world space through the camera's path when asked.
MPoint inSpace(const MFnCamera& camera, const MPoint& local, MSpace::Space space) {
    return space == MSpace::kWorld ? local * camera.dagPath().inclusiveMatrix() : local;
}

MVector inSpace(const MFnCamera& camera, const MVector& local, MSpace::Space space) {
    return space == MSpace::kWorld ? (local * camera.dagPath().inclusiveMatrix()).normal() : local;
}

}  // namespace

#define MHOST_CAMERA_OR_RETURN(value)                                    \
    auto camera = mhost::liveNodeOf(fObject);                            \
    report(ReturnStatus, camera ? MS::kSuccess : MS::kInvalidParameter); \
    if (!camera) return value

#define MHOST_CAMERA_OR_FAIL()                \
    auto camera = mhost::liveNodeOf(fObject); \
    if (!camera) return MS::kInvalidParameter

MFnCamera::MFnCamera(const MDagPath& object, MStatus* ReturnStatus) {
    const MStatus status = setObject(object);
    report(ReturnStatus, status);
}

MObject MFnCamera::create(MStatus* ReturnStatus) { return create(MObject::kNullObj, ReturnStatus); }

MObject MFnCamera::create(MObject& parent, MStatus* ReturnStatus) {
    MStatus status;
    MObject created = MFnDagNode::create(MString("camera"), parent, &status);
    if (status) {
        MFnDagNode made(created);
        setObject(made.childCount() ? made.child(0) : created);
    }
    report(ReturnStatus, status);
    return created;
}

MPoint MFnCamera::eyePoint(MSpace::Space space, MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(MPoint());
    return inSpace(*this, MPoint(0, 0, 0), space);
}

MVector MFnCamera::viewDirection(MSpace::Space space, MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(MVector());
    return inSpace(*this, MVector(0, 0, -1), space);
}

MVector MFnCamera::upDirection(MSpace::Space space, MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(MVector());
    return inSpace(*this, MVector(0, 1, 0), space);
}

MVector MFnCamera::rightDirection(MSpace::Space space, MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(MVector());
    return inSpace(*this, MVector(1, 0, 0), space);
}

MPoint MFnCamera::centerOfInterestPoint(MSpace::Space space, MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(MPoint());
    return inSpace(*this, MPoint(0, 0, -mhost::cameraValue(camera, kCenterOfInterest)), space);
}

MStatus MFnCamera::set(const MPoint& wsEyeLocation, const MVector& wsViewDirection,
                       const MVector& wsUpDirection, double horizFieldOfView, double aspectRatio) {
    MHOST_CAMERA_OR_FAIL();
    if (!isFieldOfView(horizFieldOfView) || aspectRatio <= 0) return MS::kInvalidParameter;
    MStatus status = mhost::aimCamera(camera, wsEyeLocation, wsViewDirection, wsUpDirection);
    if (status) status = setHorizontalFieldOfView(horizFieldOfView);
    return status ? setAspectRatio(aspectRatio) : status;
}

MStatus MFnCamera::setHorizontalFieldOfView(double fov) {
    MHOST_CAMERA_OR_FAIL();
    if (!isFieldOfView(fov)) return MS::kInvalidParameter;
    const double aperture = mhost::cameraValue(camera, kHorizontalAperture) * kMillimetresPerInch;
    return mhost::setCameraValue(camera, kFocalLength, 0.5 * aperture / std::tan(0.5 * fov));
}

double MFnCamera::horizontalFieldOfView(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(0.0);
    return 2.0 * std::atan(mhost::readLens(camera).tanHalfHorizontal());
}

MStatus MFnCamera::setVerticalFieldOfView(double fov) {
    MHOST_CAMERA_OR_FAIL();
    if (!isFieldOfView(fov)) return MS::kInvalidParameter;
    const double aperture = mhost::cameraValue(camera, kVerticalAperture) * kMillimetresPerInch;
    return mhost::setCameraValue(camera, kFocalLength, 0.5 * aperture / std::tan(0.5 * fov));
}

double MFnCamera::verticalFieldOfView(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(0.0);
    return 2.0 * std::atan(mhost::readLens(camera).tanHalfVertical());
}

MStatus MFnCamera::setFocalLength(double focalLength) {
    MHOST_CAMERA_OR_FAIL();
    return mhost::setCameraValue(camera, kFocalLength, focalLength);
}

double MFnCamera::focalLength(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(0.0);
    return mhost::cameraValue(camera, kFocalLength);
}

MStatus MFnCamera::setAspectRatio(double aspectRatio) {
    MHOST_CAMERA_OR_FAIL();
    if (aspectRatio <= 0) return MS::kInvalidParameter;
    return mhost::setCameraValue(camera, kVerticalAperture,
                                 mhost::cameraValue(camera, kHorizontalAperture) / aspectRatio);
}

double MFnCamera::aspectRatio(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(0.0);
    return mhost::cameraValue(camera, kHorizontalAperture) / mhost::cameraValue(camera, kVerticalAperture);
}

MStatus MFnCamera::setNearClippingPlane(double dNear) {
    MHOST_CAMERA_OR_FAIL();
    return mhost::setCameraValue(camera, kNearClip, dNear);
}

double MFnCamera::nearClippingPlane(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(0.0);
    return mhost::cameraValue(camera, kNearClip);
}

MStatus MFnCamera::setFarClippingPlane(double dFar) {
    MHOST_CAMERA_OR_FAIL();
    return mhost::setCameraValue(camera, kFarClip, dFar);
}

double MFnCamera::farClippingPlane(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(0.0);
    return mhost::cameraValue(camera, kFarClip);
}

MStatus MFnCamera::setCenterOfInterest(double dist) {
    MHOST_CAMERA_OR_FAIL();
    return mhost::setCameraValue(camera, kCenterOfInterest, dist);
}

double MFnCamera::centerOfInterest(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(0.0);
    return mhost::cameraValue(camera, kCenterOfInterest);
}

bool MFnCamera::isOrtho(MStatus* ReturnStatus) const {
    MHOST_CAMERA_OR_RETURN(false);
    return false;
}
