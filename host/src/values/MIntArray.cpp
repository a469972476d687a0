#include <maya/MIntArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MIntArray, int, int);

MStatus MIntArray::get(int dest[]) const { return mhost::copyElementsTo(fItems, dest); }
