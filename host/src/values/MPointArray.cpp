#include <maya/MPointArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MPointArray, MPoint, const MPoint&);
MHOST_DEFINE_ROW_ARRAY_MEMBERS(MPointArray, MPoint, 4);

MStatus MPointArray::set(unsigned int index, double x, double y, double z, double w) {
    return set(MPoint(x, y, z, w), index);
}
MStatus MPointArray::append(double x, double y, double z, double w) { return append(MPoint(x, y, z, w)); }
