#pragma once
// The bounds-checked operations shared by the host's array classes, over a std::vector.

#include <maya/MStatus.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace mhost {

template <class T>
T& checkedAt(std::vector<T>& items, unsigned int index, const char* owner) {
    if (index >= items.size())
        throw std::out_of_range(std::string(owner) + ": index " + std::to_string(index) + " out of range");
    return items[index];
}

template <class T>
const T& checkedAt(const std::vector<T>& items, unsigned int index, const char* owner) {
    return checkedAt(const_cast<std::vector<T>&>(items), index, owner);
}

// Sets an element, growing the array when the index is past its end (as Maya's set does).
template <class T>
MStatus setGrowing(std::vector<T>& items, const T& element, unsigned int index) {
    if (index >= items.size()) items.resize(index + 1);
    items[index] = element;
    return MS::kSuccess;
}

template <class T>
MStatus insertAt(std::vector<T>& items, const T& element, unsigned int index) {
    if (index > items.size()) return MS::kFailure;
    items.insert(items.begin() + index, element);
    return MS::kSuccess;
}

template <class T>
MStatus removeAt(std::vector<T>& items, unsigned int index) {
    if (index >= items.size()) return MS::kFailure;
    items.erase(items.begin() + index);
    return MS::kSuccess;
}

}  // namespace mhost
