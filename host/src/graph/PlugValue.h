#pragma once
// What a plug stores: up to four numbers (numeric attributes and numeric compounds) or a data object
// (typed and generic attributes). An empty value reads as the attribute's default.

#include <maya/MObject.h>

#include <array>

namespace mhost {

struct PlugValue {
    std::array<double, 4> numbers{};
    MObject data;
};

// Identifies a plug within its node: the attribute, and the logical index of the element of its
// nearest array ancestor (-1 when there is none, or for the array plug itself).
struct PlugKey {
    const class Attribute* attribute = nullptr;
    int index = -1;

    bool operator<(const PlugKey& o) const {
        return attribute != o.attribute ? attribute < o.attribute : index < o.index;
    }
    bool operator==(const PlugKey& o) const { return attribute == o.attribute && index == o.index; }
};

}  // namespace mhost
