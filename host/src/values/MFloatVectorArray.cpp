#include <maya/MFloatVectorArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MFloatVectorArray, MFloatVector, const MFloatVector&);
MHOST_DEFINE_ROW_ARRAY_MEMBERS(MFloatVectorArray, MFloatVector, 3);
