#include "interaction/CameraAim.h"

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MPlug.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "graph/ApiBridge.h"

namespace mhost {
namespace {

constexpr double kParallel = 1e-12;

// The camera's world axes as rows: right (local X), up (local Y), back (local Z, against the view).
std::array<MVector, 3> cameraAxes(const MVector& view, const MVector& up) {
    const MVector back = -view.normal();
    MVector right = view.normal() ^ up;
    for (const MVector& fallback : {MVector(0, 0, 1), MVector(1, 0, 0)})
        if (right.length() < kParallel) right = view.normal() ^ fallback;
    right.normalize();
    return {right, back ^ right, back};
}

// Euler angles (radians) of a rotation given by its rows, for the host's XYZ order with row vectors:
// R = Rx * Ry * Rz.
MVector eulerXyz(const MMatrix& rotation) {
    const double ry = std::asin(std::clamp(-rotation(0, 2), -1.0, 1.0));
    if (std::abs(std::cos(ry)) > 1e-9)
        return MVector(std::atan2(rotation(1, 2), rotation(2, 2)), ry,
                       std::atan2(rotation(0, 1), rotation(0, 0)));
    // Gimbal lock: only rx + rz (or rx - rz) is determined, so rz is taken as zero.
    return MVector(std::atan2(-rotation(2, 1), rotation(1, 1)), ry, 0.0);
}

MStatus setVector(const NodePtr& transform, const char* name, const MVector& value) {
    const Attribute* attribute = transform->type->findAttribute(name);
    if (!attribute) return MS::kInvalidParameter;
    for (int i = 0; i < 3; ++i) {
        const MStatus status = makePlug({transform, {attribute->children[i].get(), -1}}).setDouble(value[i]);
        if (!status) return status;
    }
    return MS::kSuccess;
}

}  // namespace

MStatus aimCamera(const NodePtr& camera, const MPoint& eye, const MVector& view, const MVector& up) {
    if (!camera || !camera->parent || view.length() < kParallel) return MS::kInvalidParameter;
    const NodePtr transform = camera->parent->self();
    const std::array<MVector, 3> axes = cameraAxes(view, up);
    double rows[4][4] = {{axes[0].x, axes[0].y, axes[0].z, 0},
                         {axes[1].x, axes[1].y, axes[1].z, 0},
                         {axes[2].x, axes[2].y, axes[2].z, 0},
                         {eye.x, eye.y, eye.z, 1}};
    const MMatrix local = MMatrix(rows) * MDagPath::fromHostNode(transform).exclusiveMatrixInverse();
    // The rows of the local rotation, stripped of any scale the parent brings in.
    double rotation[4][4] = {{0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 0}, {0, 0, 0, 1}};
    for (int r = 0; r < 3; ++r) {
        const MVector row = MVector(local(r, 0), local(r, 1), local(r, 2)).normal();
        for (int c = 0; c < 3; ++c) rotation[r][c] = row[c];
    }
    const MStatus status = setVector(transform, "translate", MVector(local(3, 0), local(3, 1), local(3, 2)));
    return status ? setVector(transform, "rotate", eulerXyz(MMatrix(rotation))) : status;
}

}  // namespace mhost
