#pragma once
// Hands a status to an API caller's optional `MStatus* ReturnStatus` argument.

#include <maya/MStatus.h>

namespace mhost {

// Writes `status` through `out` unless the caller passed no status pointer.
inline void report(MStatus* out, MStatus status) {
    if (out) *out = status;
}

}  // namespace mhost
