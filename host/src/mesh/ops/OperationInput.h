#pragma once
// Checks shared by the topological operations on what they are handed: each failure throws HostError
// naming the operation, before anything is built.

#include <string>
#include <vector>

#include "core/ApiObject.h"

namespace mhost {

// Throws unless `ids` is non-empty and every id lies in [0, count); `what` names the ids ("vertex").
inline void requireIds(const char* operation, const char* what, const std::vector<int>& ids, int count) {
    if (ids.empty()) throw HostError(std::string(operation) + ": no " + what + " given");
    for (int id : ids) {
        if (id < 0 || id >= count) {
            throw HostError(std::string(operation) + ": " + what + " " + std::to_string(id) +
                            " out of range [0, " + std::to_string(count) + ")");
        }
    }
}

}  // namespace mhost
