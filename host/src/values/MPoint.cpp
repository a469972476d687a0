#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include "values/PointMembers.h"

MHOST_DEFINE_POINT_MEMBERS(MPoint, MFloatPoint, MVector, MFloatVector, double);

MPoint MPoint::operator*(const MMatrix& m) const {
    MPoint result;
    for (unsigned int col = 0; col < 4; ++col)
        result[col] = x * m(0, col) + y * m(1, col) + z * m(2, col) + w * m(3, col);
    return result;
}

MPoint& MPoint::operator*=(const MMatrix& m) { return *this = *this * m; }
