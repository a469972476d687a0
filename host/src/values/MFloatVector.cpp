#include <maya/MFloatVector.h>

#include "values/VectorMembers.h"

MHOST_DEFINE_VECTOR_MEMBERS(MFloatVector, MVector, float);
