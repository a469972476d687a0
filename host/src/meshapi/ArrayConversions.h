#pragma once
// Copies between the API's array classes and the standard containers the mesh kernel uses.

#include <maya/MFloatArray.h>
#include <maya/MIntArray.h>

#include <vector>

namespace mhost {

// Replaces the contents of an API array with `items`, each converted to the array's element type.
template <class Array, class Items>
void assignArray(Array& out, const Items& items) {
    out.setLength(static_cast<unsigned int>(items.size()));
    unsigned int i = 0;
    for (const auto& item : items) out[i++] = item;
}

template <class Element, class Array>
std::vector<Element> vectorOf(const Array& array) {
    std::vector<Element> items(array.length());
    for (unsigned int i = 0; i < array.length(); ++i) items[i] = array[i];
    return items;
}

inline std::vector<int> intsOf(const MIntArray& array) { return vectorOf<int>(array); }
inline std::vector<float> floatsOf(const MFloatArray& array) { return vectorOf<float>(array); }

}  // namespace mhost
