#include <maya/MFloatArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MFloatArray, float, float);

MFloatArray::MFloatArray(const double src[], unsigned int count)
    : fItems(mhost::elementsFrom<float>(src, count)) {}
MStatus MFloatArray::set(double element, unsigned int index) {
    return set(static_cast<float>(element), index);
}
MStatus MFloatArray::get(float dest[]) const { return mhost::copyElementsTo(fItems, dest); }
MStatus MFloatArray::get(double dest[]) const { return mhost::copyElementsTo(fItems, dest); }
