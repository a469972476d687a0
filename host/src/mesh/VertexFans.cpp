#include "mesh/VertexFans.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>
#include <vector>

namespace mhost {
namespace {

// The polygons of one fan, joined where two of them share an edge at the fan's vertex. Buffers are
// kept from one vertex to the next.
class FanJoins {
public:
    // `sides` holds, for each polygon at the vertex, the corners before and after the vertex in it: the
    // ends of its two edges there. A polygon uses a vertex once, so those are all its edges at it.
    void collect(IndexRange sides) {
        neighbours_.clear();
        for (int i = 0; i < sides.size(); ++i) neighbours_.emplace_back(sides[i], i / 2);
    }

    // Whether the fan's polygons form one group, joining those that reach the same neighbour.
    bool isConnected(int polygons) {
        parent_.resize(polygons);
        std::iota(parent_.begin(), parent_.end(), 0);
        std::sort(neighbours_.begin(), neighbours_.end());
        int groups = polygons;
        for (std::size_t i = 1; i < neighbours_.size(); ++i) {
            if (neighbours_[i].first != neighbours_[i - 1].first) continue;
            const int a = root(neighbours_[i].second), b = root(neighbours_[i - 1].second);
            if (a != b) {
                parent_[a] = b;
                --groups;
            }
        }
        return groups <= 1;
    }

private:
    int root(int i) {
        while (parent_[i] != i) i = parent_[i] = parent_[parent_[i]];
        return i;
    }

    std::vector<std::pair<int, int>> neighbours_;  // (vertex across an edge, polygon in the fan)
    std::vector<int> parent_;
};

// The first polygon of the fan not yet visited whose side `end` (0 before the vertex, 1 after it) is
// `vertex`; -1 when there is none.
int unvisitedWithSide(IndexRange sides, int end, int vertex, std::uint64_t visited) {
    for (int j = 0; j < sides.size() / 2; ++j)
        if (sides[2 * j + end] == vertex && !(visited >> j & 1)) return j;
    return -1;
}

// Whether the polygons around a vertex chain through every one of them, as consistently wound
// polygons do: from the first, forward to the polygon whose edge before the vertex is the current
// one's edge after it, then backward the same way. Enough to show a fan whole, and it decides nearly
// every vertex of a scan without sorting; a fan it cannot walk goes to the full grouping.
bool chainsThroughAll(IndexRange sides) {
    const int polygons = sides.size() / 2;
    if (polygons == 0 || polygons > 64) return polygons == 0;
    std::uint64_t visited = 1;
    int reached = 1;
    for (int end : {1, 0}) {
        for (int at = 0; reached < polygons;) {
            at = unvisitedWithSide(sides, 1 - end, sides[2 * at + end], visited);
            if (at < 0) break;
            visited |= std::uint64_t(1) << at;
            ++reached;
        }
    }
    return reached == polygons;
}

}  // namespace

bool everyVertexFanIsWhole(const MeshTopology& mesh) {
    if (mesh.hasHardEdges()) return false;
    const CompressedRows& faces = mesh.faces();
    // Gathered in one pass over the polygons, so that the walk over the vertices below reads each
    // vertex's fan from one place rather than from every polygon around it.
    const CompressedRows sides = groupByRow(mesh.numVertices(), [&](const auto& emit) {
        for (int f = 0; f < faces.numRows(); ++f) {
            const IndexRange corners = faces.row(f);
            const int n = corners.size();
            for (int k = 0; k < n; ++k) {
                emit(corners[k], corners[k == 0 ? n - 1 : k - 1]);
                emit(corners[k], corners[k + 1 == n ? 0 : k + 1]);
            }
        }
    });
    FanJoins joins;
    for (int v = 0; v < mesh.numVertices(); ++v) {
        const IndexRange fan = sides.row(v);
        if (chainsThroughAll(fan)) continue;
        joins.collect(fan);
        if (!joins.isConnected(fan.size() / 2)) return false;
    }
    return true;
}

}  // namespace mhost
