#include "mesh/ops/MergeVertices.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "mesh/ops/MeshDraft.h"
#include "mesh/ops/OperationInput.h"

namespace mhost {
namespace {

constexpr const char* kOperation = "mergeVertices";

// Groups of vertices under construction; each group is named by its lowest id.
class VertexGroups {
public:
    explicit VertexGroups(int numVertices) : parent_(numVertices) {
        std::iota(parent_.begin(), parent_.end(), 0);
    }
    int root(int v) {
        while (parent_[v] != v) v = parent_[v] = parent_[parent_[v]];
        return v;
    }
    void join(int a, int b) {
        const int ra = root(a);
        const int rb = root(b);
        parent_[std::max(ra, rb)] = std::min(ra, rb);
    }

private:
    std::vector<int> parent_;
};

double distanceSquared(const MeshTopology& mesh, int a, int b) {
    return lengthSquared(Vec3(mesh.point(a)) - Vec3(mesh.point(b)));
}

// Joins every pair of the listed vertices within `distance`: a sweep along x compares only vertices
// whose x coordinates are that close.
void joinNearPairs(const MeshTopology& mesh, std::vector<int> vertices, double distance,
                   VertexGroups& groups) {
    std::sort(vertices.begin(), vertices.end(),
              [&](int a, int b) { return mesh.point(a).x < mesh.point(b).x; });
    const double reach = distance * distance;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const double x = mesh.point(vertices[i]).x;
        for (std::size_t j = i + 1; j < vertices.size(); ++j) {
            if (double(mesh.point(vertices[j]).x) - x > distance) break;
            if (distanceSquared(mesh, vertices[i], vertices[j]) <= reach)
                groups.join(vertices[i], vertices[j]);
        }
    }
}

// Numbers the surviving vertices in order and places each group's vertex at the group's centroid.
std::vector<Vec3f> renumber(const MeshTopology& mesh, VertexGroups& groups, std::vector<int>& newIds) {
    const int count = mesh.numVertices();
    std::vector<Vec3> sums(count);
    std::vector<int> sizes(count, 0);
    for (int v = 0; v < count; ++v) {
        sums[groups.root(v)] += Vec3(mesh.point(v));
        ++sizes[groups.root(v)];
    }
    newIds.assign(count, -1);
    std::vector<Vec3f> points;
    for (int v = 0; v < count; ++v) {
        const int root = groups.root(v);
        if (root != v) {
            newIds[v] = newIds[root];
            continue;
        }
        newIds[v] = static_cast<int>(points.size());
        points.push_back(Vec3f(sums[v] * (1.0 / sizes[v])));
    }
    return points;
}

// Cuts a polygon's closed walk of corners into simple loops at each vertex it meets twice. Loops of
// fewer than 3 corners (a collapsed edge, a polygon folded flat) are dropped.
std::vector<std::vector<int>> simpleLoops(const MeshDraft& draft, const std::vector<int>& polygon) {
    std::vector<std::vector<int>> loops;
    std::vector<int> open;
    for (int corner : polygon) {
        const int vertex = draft.cornerVertex(corner);
        const auto earlier =
            std::find_if(open.begin(), open.end(), [&](int c) { return draft.cornerVertex(c) == vertex; });
        if (earlier != open.end()) {
            std::vector<int> loop(earlier, open.end());
            open.erase(earlier, open.end());
            if (loop.size() >= 3) loops.push_back(std::move(loop));
        }
        open.push_back(corner);
    }
    if (open.size() >= 3) loops.push_back(std::move(open));
    return loops;
}

void rebuildPolygons(MeshDraft& draft) {
    std::vector<std::vector<int>> polygons;
    for (const auto& polygon : draft.polygons()) {
        for (auto& loop : simpleLoops(draft, polygon)) polygons.push_back(std::move(loop));
    }
    draft.polygons() = std::move(polygons);
}

}  // namespace

MergeResult mergeVertices(const MeshTopology& mesh, const std::vector<int>& vertices, double distance,
                          bool alwaysMergeTwoVertices) {
    requireIds(kOperation, "vertex", vertices, mesh.numVertices());
    if (!(distance >= 0) || !std::isfinite(distance)) {
        throw HostError(std::string(kOperation) + ": the distance must be finite and not negative");
    }
    std::vector<int> listed = vertices;
    std::sort(listed.begin(), listed.end());
    listed.erase(std::unique(listed.begin(), listed.end()), listed.end());

    VertexGroups groups(mesh.numVertices());
    if (alwaysMergeTwoVertices && listed.size() == 2) {
        groups.join(listed[0], listed[1]);
    } else {
        joinNearPairs(mesh, listed, distance, groups);
    }
    MergeResult result;
    std::vector<Vec3f> points = renumber(mesh, groups, result.vertexMap);
    MeshDraft draft(mesh);
    draft.renumberVertices(result.vertexMap, std::move(points));
    rebuildPolygons(draft);
    result.mesh = draft.build();
    return result;
}

}  // namespace mhost
