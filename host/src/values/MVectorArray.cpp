#include <maya/MVectorArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MVectorArray, MVector, const MVector&);
MHOST_DEFINE_ROW_ARRAY_MEMBERS(MVectorArray, MVector, 3);
