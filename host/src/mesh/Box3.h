#pragma once
// An axis-aligned box that starts empty and grows to hold the points given to it.

#include <algorithm>
#include <limits>

#include "mesh/Vec3.h"

namespace mhost {

struct Box3 {
    Vec3 min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
             std::numeric_limits<double>::infinity()};
    Vec3 max = -min;

    // True until a first point has been added.
    bool isEmpty() const { return min.x > max.x; }

    void expand(const Vec3& p) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
    }
};

}  // namespace mhost
