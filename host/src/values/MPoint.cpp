#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include "values/PointMembers.h"

MHOST_DEFINE_POINT_MEMBERS(MPoint, MFloatPoint, MVector, MFloatVector, double);

// Reads the matrix's elements directly: this runs once per vertex in whole-mesh reads.
MPoint MPoint::operator*(const MMatrix& m) const {
    const double(&a)[4][4] = m.matrix;
    return MPoint(x * a[0][0] + y * a[1][0] + z * a[2][0] + w * a[3][0],
                  x * a[0][1] + y * a[1][1] + z * a[2][1] + w * a[3][1],
                  x * a[0][2] + y * a[1][2] + z * a[2][2] + w * a[3][2],
                  x * a[0][3] + y * a[1][3] + z * a[2][3] + w * a[3][3]);
}

MPoint& MPoint::operator*=(const MMatrix& m) { return *this = *this * m; }
