#include "mesh/PointMergeGrid.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/ApiObject.h"

namespace mhost {
namespace {

// Cells never shrink below this size: with a zero tolerance (exact matches only) any cell size works,
// and tiny cells would only overflow the cell coordinates.
constexpr double kMinCellSize = 1e-6;
// Cell coordinates saturate here, far from int64 overflow even after +-1 neighbours.
constexpr double kMaxCellCoordinate = 4.0e18;

}  // namespace

PointMergeGrid::PointMergeGrid(double tolerance)
    : tolerance_(tolerance), cellSize_(std::max(tolerance, kMinCellSize)) {
    if (!(tolerance >= 0.0) || !std::isfinite(tolerance)) {
        throw HostError("PointMergeGrid: tolerance must be finite and not negative, got " +
                        std::to_string(tolerance));
    }
}

std::size_t PointMergeGrid::CellHash::operator()(const Cell& c) const {
    // Large odd multipliers spread neighbouring cells over the table.
    const auto mix = static_cast<std::uint64_t>(c.x) * 0x9E3779B97F4A7C15ull ^
                     static_cast<std::uint64_t>(c.y) * 0xC2B2AE3D27D4EB4Full ^
                     static_cast<std::uint64_t>(c.z) * 0x165667B19E3779F9ull;
    return static_cast<std::size_t>(mix ^ (mix >> 29));
}

std::int64_t PointMergeGrid::cellCoordinate(double value) const {
    const double scaled = std::floor(value / cellSize_);
    return static_cast<std::int64_t>(std::clamp(scaled, -kMaxCellCoordinate, kMaxCellCoordinate));
}

PointMergeGrid::Cell PointMergeGrid::cellOf(const Vec3& p) const {
    return {cellCoordinate(p.x), cellCoordinate(p.y), cellCoordinate(p.z)};
}

void PointMergeGrid::insert(int id, const Vec3& p) { cells_.emplace(cellOf(p), Entry{p, id}); }

int PointMergeGrid::findNearest(const Vec3& p) const {
    const Vec3 reach(tolerance_, tolerance_, tolerance_);
    const Cell low = cellOf(p - reach);
    const Cell high = cellOf(p + reach);
    const double limit = tolerance_ * tolerance_;
    int best = -1;
    double bestDistance = limit;
    for (std::int64_t x = low.x; x <= high.x; ++x) {
        for (std::int64_t y = low.y; y <= high.y; ++y) {
            for (std::int64_t z = low.z; z <= high.z; ++z) {
                const auto [first, last] = cells_.equal_range({x, y, z});
                for (auto it = first; it != last; ++it) {
                    const Entry& entry = it->second;
                    const double d = lengthSquared(entry.position - p);
                    if (d > bestDistance || (d == bestDistance && best != -1 && entry.id > best)) continue;
                    best = entry.id;
                    bestDistance = d;
                }
            }
        }
    }
    return best;
}

}  // namespace mhost
