#include <maya/MCallbackIdArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MCallbackIdArray, MCallbackId, MCallbackId);

MStatus MCallbackIdArray::get(MCallbackId dest[]) const { return mhost::copyElementsTo(fItems, dest); }
