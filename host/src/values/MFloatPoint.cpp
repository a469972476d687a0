#include <maya/MFloatPoint.h>

#include "values/PointMembers.h"

MHOST_DEFINE_POINT_MEMBERS(MFloatPoint, MPoint, MFloatVector, MVector, float);
