#pragma once
// Read-only views of index lists and the compressed row table the mesh uses for every adjacency
// relation (vertex -> faces, edge -> faces, ...): one flat item array plus row offsets, so a 1M-face
// mesh costs two allocations per relation instead of a million small vectors.

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/LargeArrays.h"

namespace mhost {

// A contiguous run of ids inside a table owned elsewhere; valid until that table changes.
class IndexRange {
public:
    IndexRange(const int* first, const int* last) : first_(first), last_(last) {}
    const int* begin() const { return first_; }
    const int* end() const { return last_; }
    int size() const { return static_cast<int>(last_ - first_); }
    bool empty() const { return first_ == last_; }
    int operator[](int i) const { return first_[i]; }
    std::vector<int> toVector() const { return std::vector<int>(first_, last_); }

private:
    const int* first_;
    const int* last_;
};

// Throws std::out_of_range naming `owner` and `what` unless 0 <= index < count.
inline void checkIndex(const char* owner, const char* what, int index, int count) {
    if (index < 0 || index >= count) {
        throw std::out_of_range(std::string(owner) + ": " + what + " " + std::to_string(index) +
                                " out of range [0, " + std::to_string(count) + ")");
    }
}

// Rows of ids stored back to back: row r is items[offsets[r] .. offsets[r + 1]).
struct CompressedRows {
    std::vector<int> offsets{0};
    std::vector<int> items;

    int numRows() const { return static_cast<int>(offsets.size()) - 1; }
    IndexRange row(int r) const { return {items.data() + offsets[r], items.data() + offsets[r + 1]}; }
};

// Builds rows from (row, item) pairs produced by `enumerate(emit)`, which is called twice (count,
// then fill) and must produce the same pairs both times. Items keep their enumeration order.
template <class Enumerate>
CompressedRows groupByRow(int numRows, const Enumerate& enumerate) {
    CompressedRows rows;
    rows.offsets = largeArray<int>(static_cast<std::size_t>(numRows) + 1);
    enumerate([&](int row, int) { ++rows.offsets[row + 1]; });
    for (int r = 0; r < numRows; ++r) rows.offsets[r + 1] += rows.offsets[r];
    rows.items = largeArray<int>(rows.offsets.back());
    std::vector<int> next = largeCopy(rows.offsets);
    enumerate([&](int row, int item) { rows.items[next[row]++] = item; });
    return rows;
}

}  // namespace mhost
