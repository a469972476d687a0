#include <maya/MColorArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MColorArray, MColor, const MColor&);
