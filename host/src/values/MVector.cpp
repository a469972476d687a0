#include <maya/MMatrix.h>
#include <maya/MVector.h>

#include <cmath>

#include "values/VectorMembers.h"

MHOST_DEFINE_VECTOR_MEMBERS(MVector, MFloatVector, double);

MVector MVector::operator*(const MMatrix& m) const {
    const double(&a)[4][4] = m.matrix;
    return MVector(x * a[0][0] + y * a[1][0] + z * a[2][0], x * a[0][1] + y * a[1][1] + z * a[2][1],
                   x * a[0][2] + y * a[1][2] + z * a[2][2]);
}

MVector& MVector::operator*=(const MMatrix& m) { return *this = *this * m; }

// v' = v + 2s (u x v) + 2 u x (u x v) for the unit quaternion (u, s): the sandwich product q v q*
// expanded, which needs no quaternion class.
MVector MVector::rotateBy(double qx, double qy, double qz, double qw) const {
    const double norm = std::sqrt(qx * qx + qy * qy + qz * qz + qw * qw);
    if (norm == 0) return *this;
    const MVector u(qx / norm, qy / norm, qz / norm);
    const MVector uv = u ^ *this;
    return *this + uv * (2 * qw / norm) + (u ^ uv) * 2;
}

MVector MVector::rotateBy(MVector::Axis axis, const double angle) const {
    if (axis == kWaxis) return *this;
    const MVector along = axis == kXaxis ? xAxis : axis == kYaxis ? yAxis : zAxis;
    const MVector vectorPart = along * std::sin(angle / 2);
    return rotateBy(vectorPart.x, vectorPart.y, vectorPart.z, std::cos(angle / 2));
}
