#include <maya/MPlugArray.h>

#include "core/VectorOps.h"

MPlugArray::MPlugArray() = default;
MPlugArray::MPlugArray(const MPlugArray& other) = default;
MPlugArray::MPlugArray(unsigned int initialSize, const MPlug& initialValue)
    : fItems(initialSize, initialValue) {}
MPlugArray::~MPlugArray() = default;
const MPlug& MPlugArray::operator[](unsigned int index) const {
    return mhost::checkedAt(fItems, index, "MPlugArray");
}
MPlug& MPlugArray::operator[](unsigned int index) { return mhost::checkedAt(fItems, index, "MPlugArray"); }
MPlugArray& MPlugArray::operator=(const MPlugArray& other) = default;
MStatus MPlugArray::set(const MPlug& element, unsigned int index) {
    return mhost::setGrowing(fItems, element, index);
}
MStatus MPlugArray::setLength(unsigned int length) {
    fItems.resize(length);
    return MS::kSuccess;
}
unsigned int MPlugArray::length() const { return static_cast<unsigned int>(fItems.size()); }
MStatus MPlugArray::remove(unsigned int index) { return mhost::removeAt(fItems, index); }
MStatus MPlugArray::insert(const MPlug& element, unsigned int index) {
    return mhost::insertAt(fItems, element, index);
}
MStatus MPlugArray::append(const MPlug& element) {
    fItems.push_back(element);
    return MS::kSuccess;
}
MStatus MPlugArray::clear() {
    fItems.clear();
    return MS::kSuccess;
}
