#include <maya/MStringArray.h>

#include <ostream>
#include <stdexcept>

namespace {

void checkIndex(unsigned int index, size_t size) {
    if (index >= size) throw std::out_of_range("MStringArray: index out of range");
}

}  // namespace

MStringArray::MStringArray() = default;
MStringArray::MStringArray(const MStringArray& other) = default;
MStringArray::MStringArray(const MString strings[], unsigned int count) : fItems(strings, strings + count) {}
MStringArray::MStringArray(const char* strings[], unsigned int count) {
    for (unsigned int i = 0; i < count; ++i) fItems.emplace_back(strings[i]);
}
MStringArray::MStringArray(unsigned int initialSize, const MString& initialValue)
    : fItems(initialSize, initialValue) {}
MStringArray::~MStringArray() = default;

MString MStringArray::operator[](unsigned int index) const {
    checkIndex(index, fItems.size());
    return fItems[index];
}
MString& MStringArray::operator[](unsigned int index) {
    checkIndex(index, fItems.size());
    return fItems[index];
}
MStringArray& MStringArray::operator=(const MStringArray& other) = default;

MStatus MStringArray::set(const MString& element, unsigned int index) {
    if (index >= fItems.size()) fItems.resize(index + 1);
    fItems[index] = element;
    return MS::kSuccess;
}

MStatus MStringArray::setLength(unsigned int length) {
    fItems.resize(length);
    return MS::kSuccess;
}
unsigned int MStringArray::length() const { return static_cast<unsigned int>(fItems.size()); }

MStatus MStringArray::remove(unsigned int index) {
    if (index >= fItems.size()) return MS::kInvalidParameter;
    fItems.erase(fItems.begin() + index);
    return MS::kSuccess;
}

MStatus MStringArray::insert(const MString& element, unsigned int index) {
    if (index > fItems.size()) return MS::kInvalidParameter;
    fItems.insert(fItems.begin() + index, element);
    return MS::kSuccess;
}

MStatus MStringArray::append(const MString& element) {
    fItems.push_back(element);
    return MS::kSuccess;
}
MStatus MStringArray::clear() {
    fItems.clear();
    return MS::kSuccess;
}

int MStringArray::indexOf(const MString& element) const {
    for (size_t i = 0; i < fItems.size(); ++i)
        if (fItems[i] == element) return static_cast<int>(i);
    return -1;
}

std::ostream& operator<<(std::ostream& os, const MStringArray& array) {
    os << "[";
    for (size_t i = 0; i < array.fItems.size(); ++i) os << (i ? ", " : "") << array.fItems[i];
    return os << "]";
}
