// Memory reuse for large blocks. Maya runs on an allocator that keeps freed memory for reuse;
// glibc's default hands every block of 128 KiB and more back to the system when it is freed and maps
// fresh pages for the next one, so a host that copies whole meshes around (snapshots, array
// attributes, mesh data) would page-fault through every copy. The host keeps such blocks in the
// heap instead. Set once, when the host library loads.

// <cstdlib> first: it is what defines __GLIBC__ on a glibc system.
#include <cstdlib>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace mhost {
namespace {

// Blocks below this come from the heap. 32 MiB is the largest value glibc accepts on a 64-bit
// system (its mallopt refuses more and leaves its own sliding threshold in place).
constexpr int kLargeBlockBytes = 32 << 20;
constexpr int kKeptFreeBytes = 256 << 20;  // free heap kept before it is returned

const bool allocatorTuned = [] {
#if defined(__GLIBC__)
    mallopt(M_MMAP_THRESHOLD, kLargeBlockBytes);
    mallopt(M_TRIM_THRESHOLD, kKeptFreeBytes);
#endif
    return true;
}();

}  // namespace
}  // namespace mhost
