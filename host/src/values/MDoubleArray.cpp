#include <maya/MDoubleArray.h>

#include "values/ArrayMembers.h"

MHOST_DEFINE_ARRAY_MEMBERS(MDoubleArray, double, double);

MDoubleArray::MDoubleArray(const float src[], unsigned int count)
    : fItems(mhost::elementsFrom<double>(src, count)) {}
MStatus MDoubleArray::set(float element, unsigned int index) {
    return set(static_cast<double>(element), index);
}
MStatus MDoubleArray::get(double dest[]) const { return mhost::copyElementsTo(fItems, dest); }
MStatus MDoubleArray::get(float dest[]) const { return mhost::copyElementsTo(fItems, dest); }
