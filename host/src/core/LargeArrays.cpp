#include "core/LargeArrays.h"

#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace mhost {
namespace {

// Two huge pages: below that, little of a block could sit on one.
constexpr std::size_t kAdvisedBytes = std::size_t(4) << 20;
constexpr std::uintptr_t kPageBytes = 4096;

}  // namespace

void adviseHugePages(const void* data, std::size_t bytes) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    if (bytes < kAdvisedBytes) return;
    // The block's first and last pages may hold the allocator's own records or other blocks, so only
    // the pages wholly inside it are advised.
    const auto start = reinterpret_cast<std::uintptr_t>(data);
    const std::uintptr_t first = (start + kPageBytes - 1) & ~(kPageBytes - 1);
    const std::uintptr_t end = (start + bytes) & ~(kPageBytes - 1);
    // Advice only: a kernel without transparent huge pages refuses it, and the memory works as before.
    if (end > first) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
#else
    (void)data;
    (void)bytes;
#endif
}

}  // namespace mhost
