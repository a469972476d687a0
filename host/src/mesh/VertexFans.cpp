#include "mesh/VertexFans.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace mhost {
namespace {

// The polygons of one fan, joined where two of them share an edge at the fan's vertex. Buffers are
// kept from one vertex to the next.
class FanJoins {
public:
    // A polygon uses a vertex once, so its edges at `vertex` lead to the corners on either side.
    void collect(const MeshTopology& mesh, int vertex, IndexRange faces) {
        neighbours_.clear();
        for (int i = 0; i < faces.size(); ++i) {
            const IndexRange corners = mesh.faceVertices(faces[i]);
            const int n = corners.size();
            const int k =
                static_cast<int>(std::find(corners.begin(), corners.end(), vertex) - corners.begin());
            neighbours_.emplace_back(corners[(k + n - 1) % n], i);
            neighbours_.emplace_back(corners[(k + 1) % n], i);
        }
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

}  // namespace

bool everyVertexFanIsWhole(const MeshTopology& mesh) {
    if (mesh.hasHardEdges()) return false;
    const CompressedRows& faces = mesh.faces();
    const CompressedRows fans = groupByRow(mesh.numVertices(), [&](const auto& emit) {
        for (int f = 0; f < faces.numRows(); ++f)
            for (int v : faces.row(f)) emit(v, f);
    });
    FanJoins joins;
    for (int v = 0; v < mesh.numVertices(); ++v) {
        const IndexRange fan = fans.row(v);
        joins.collect(mesh, v, fan);
        if (!joins.isConnected(fan.size())) return false;
    }
    return true;
}

}  // namespace mhost
