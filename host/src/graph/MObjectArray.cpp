#include <maya/MObjectArray.h>

#include "core/VectorOps.h"

MObjectArray::MObjectArray() = default;
MObjectArray::MObjectArray(const MObjectArray& other) = default;
MObjectArray::MObjectArray(unsigned int initialSize, const MObject& initialValue)
    : fItems(initialSize, initialValue) {}
MObjectArray::~MObjectArray() = default;
const MObject& MObjectArray::operator[](unsigned int index) const {
    return mhost::checkedAt(fItems, index, "MObjectArray");
}
MObject& MObjectArray::operator[](unsigned int index) {
    return mhost::checkedAt(fItems, index, "MObjectArray");
}
MObjectArray& MObjectArray::operator=(const MObjectArray& other) = default;
MStatus MObjectArray::set(const MObject& element, unsigned int index) {
    return mhost::setGrowing(fItems, element, index);
}
MStatus MObjectArray::setLength(unsigned int length) {
    fItems.resize(length);
    return MS::kSuccess;
}
unsigned int MObjectArray::length() const { return static_cast<unsigned int>(fItems.size()); }
MStatus MObjectArray::remove(unsigned int index) { return mhost::removeAt(fItems, index); }
MStatus MObjectArray::insert(const MObject& element, unsigned int index) {
    return mhost::insertAt(fItems, element, index);
}
MStatus MObjectArray::append(const MObject& element) {
    fItems.push_back(element);
    return MS::kSuccess;
}
MStatus MObjectArray::clear() {
    fItems.clear();
    return MS::kSuccess;
}
