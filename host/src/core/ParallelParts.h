#pragma once
// Whole-mesh loops split over the cores, on the TBB thread pool that Embree also builds on. A loop is
// cut into one contiguous part per thread, so that a part may scan everything and keep only what
// falls in its own range: each output element is then written by one part, in the same order as a
// loop on one thread would write it, and the result is the same to the last bit.

#include <oneapi/tbb/parallel_for.h>
#include <oneapi/tbb/task_arena.h>

#include <cstdint>

namespace mhost {

// Whole-mesh passes over fewer elements stay on the calling thread: a retopo mesh's normals and
// hierarchy are worked out inside drag events, where waking other threads would cost more than it saves.
constexpr int kParallelMinimum = 100000;

// Calls part(first, last) for contiguous ranges covering [0, count), in parallel when `count` is at
// least kParallelMinimum, on the calling thread alone otherwise.
template <class Part>
void forEachPart(int count, const Part& part) {
    const int parts = count < kParallelMinimum ? 1 : tbb::this_task_arena::max_concurrency();
    if (parts <= 1) return part(0, count);
    const auto boundary = [&](int p) { return static_cast<int>(std::int64_t(count) * p / parts); };
    tbb::parallel_for(0, parts, [&](int p) { part(boundary(p), boundary(p + 1)); });
}

}  // namespace mhost
