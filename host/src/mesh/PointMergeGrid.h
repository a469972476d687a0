#pragma once
// A spatial hash of vertex positions for merging points within a tolerance: cells as large as the
// tolerance, so a lookup visits at most 27 cells whatever the mesh density.

#include <cstdint>
#include <unordered_map>

#include "mesh/Vec3.h"

namespace mhost {

class PointMergeGrid {
public:
    // Lookups find points within `tolerance` (>= 0, finite) of the query, the bound included.
    explicit PointMergeGrid(double tolerance);

    double tolerance() const { return tolerance_; }
    // Makes room for `count` points in all, so that filing them does not rehash.
    void reserve(int count) { cells_.reserve(count); }
    // Files point `id` at position p (finite). Amortised O(1).
    void insert(int id, const Vec3& p);
    // The id of the filed point nearest to p within the tolerance, the lowest id among equally near
    // ones; -1 when none is that close.
    int findNearest(const Vec3& p) const;

private:
    struct Cell {
        std::int64_t x, y, z;
        bool operator==(const Cell& o) const { return x == o.x && y == o.y && z == o.z; }
    };
    struct CellHash {
        std::size_t operator()(const Cell& c) const;
    };
    struct Entry {
        Vec3 position;
        int id;
    };

    std::int64_t cellCoordinate(double value) const;
    Cell cellOf(const Vec3& p) const;

    double tolerance_;
    double cellSize_;
    // One node per point: most cells hold a single vertex, so per-cell lists would double the allocations.
    std::unordered_multimap<Cell, Entry, CellHash> cells_;
};

}  // namespace mhost
