#pragma once
// Large arrays backed by 2 MiB pages where the kernel offers them (transparent huge pages on
// request). Filling fresh memory costs one page fault per page; with 4 KiB pages a mesh-sized array
// pays hundreds of faults per megabyte, which on a virtual machine costs more than the work that
// fills it. Embree asks the same for the hierarchies it builds. Arrays under a few megabytes are left
// alone: splitting their memory into separately advised ranges would cost more than it saves.

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace mhost {

// Asks for huge pages over the whole 4 KiB pages of [data, data + bytes) that nothing has touched
// yet; does nothing for small blocks or where the system has no such advice.
void adviseHugePages(const void* data, std::size_t bytes);

// Makes room for `count` elements, the new room advised before anything touches it. Grows at least
// twofold, as std::vector does, so that growing by small steps stays linear.
template <class T>
void reserveLarge(std::vector<T>& items, std::size_t count) {
    if (count <= items.capacity()) return;
    items.reserve(std::max(count, 2 * items.capacity()));
    adviseHugePages(items.data() + items.size(), (items.capacity() - items.size()) * sizeof(T));
}

// `count` copies of `value`, in advised memory.
template <class T>
std::vector<T> largeArray(std::size_t count, const T& value = T()) {
    std::vector<T> items;
    reserveLarge(items, count);
    items.resize(count, value);
    return items;
}

// Makes `items` a copy of [first, last), in advised memory when it needs new room.
template <class T, class Iterator>
void assignLarge(std::vector<T>& items, Iterator first, Iterator last) {
    const auto count = static_cast<std::size_t>(std::distance(first, last));
    if (count > items.capacity()) {
        items.clear();
        reserveLarge(items, count);
    }
    items.assign(first, last);
}

// A copy of `items`, in advised memory.
template <class T>
std::vector<T> largeCopy(const std::vector<T>& items) {
    std::vector<T> copy;
    assignLarge(copy, items.begin(), items.end());
    return copy;
}

}  // namespace mhost
