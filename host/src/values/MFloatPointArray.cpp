#include <maya/MFloatPointArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MFloatPointArray, MFloatPoint, const MFloatPoint&);
MHOST_DEFINE_ROW_ARRAY_MEMBERS(MFloatPointArray, MFloatPoint, 4);

MStatus MFloatPointArray::set(unsigned int index, float x, float y, float z, float w) {
    return set(MFloatPoint(x, y, z, w), index);
}
MStatus MFloatPointArray::append(float x, float y, float z, float w) {
    return append(MFloatPoint(x, y, z, w));
}
