#include <maya/MUintArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MUintArray, unsigned int, unsigned int);

MStatus MUintArray::get(unsigned int dest[]) const { return mhost::copyElementsTo(fItems, dest); }
