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

// Whole-array copies in one call: mesh arrays run to tens of thousands of entries.
inline std::vector<int> intsOf(const MIntArray& array) {
    std::vector<int> items(array.length());
    if (!items.empty()) array.get(items.data());
    return items;
}
inline std::vector<float> floatsOf(const MFloatArray& array) {
    std::vector<float> items(array.length());
    if (!items.empty()) array.get(items.data());
    return items;
}

}  // namespace mhost
