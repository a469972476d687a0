#include "mesh/ops/SplitEdgeRing.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "mesh/ops/MeshDraft.h"
#include "mesh/ops/OperationInput.h"
#include "mesh/ops/SmoothingAngle.h"

namespace mhost {
namespace {

constexpr const char* kOperation = "splitEdgeRing";

// A ring edge to split, and the vertex its weight is measured from.
struct Rung {
    int edge;
    int start;
};

// Where the rings run: the edges to split in walking order, and each crossed quad with the two ring
// edges it is cut between.
class RingPlan {
public:
    explicit RingPlan(const MeshTopology& mesh) : mesh_(mesh), adjacency_(mesh.adjacency()) {}

    void addRing(int edge);
    const std::vector<Rung>& rungs() const { return rungs_; }
    const std::map<int, std::pair<int, int>>& crossings() const { return crossings_; }
    bool isSplit(int edge) const { return startOf_.count(edge) != 0; }
    int startOf(int edge) const { return startOf_.at(edge); }

private:
    std::vector<Rung> walk(Rung from, int face);
    Rung opposite(int face, const Rung& rung) const;

    const MeshTopology& mesh_;
    const MeshAdjacency& adjacency_;
    std::map<int, int> startOf_;
    std::vector<Rung> rungs_;
    std::map<int, std::pair<int, int>> crossings_;
};

void RingPlan::addRing(int edge) {
    if (isSplit(edge)) return;
    const Rung first{edge, adjacency_.edgeVertices(edge).first};
    startOf_[edge] = first.start;
    const auto faces = adjacency_.edgeFaces(edge);
    std::vector<Rung> ahead;
    std::vector<Rung> behind;
    if (faces.size() <= 2) {
        if (faces.size() >= 1) ahead = walk(first, faces[0]);
        if (faces.size() == 2) behind = walk(first, faces[1]);
    }
    rungs_.insert(rungs_.end(), behind.rbegin(), behind.rend());
    rungs_.push_back(first);
    rungs_.insert(rungs_.end(), ahead.begin(), ahead.end());
}

// Crosses quads from `from` into `face` and onwards, returning the rungs met on the way.
std::vector<Rung> RingPlan::walk(Rung from, int face) {
    std::vector<Rung> met;
    while (mesh_.faceVertices(face).size() == 4 && !crossings_.count(face)) {
        const Rung next = opposite(face, from);
        crossings_[face] = {from.edge, next.edge};
        // An edge split already closes this ring, or meets another one: the quad is cut, the walk ends.
        if (isSplit(next.edge)) break;
        startOf_[next.edge] = next.start;
        met.push_back(next);
        const auto faces = adjacency_.edgeFaces(next.edge);
        if (faces.size() != 2) break;
        face = faces[0] == face ? faces[1] : faces[0];
        from = next;
    }
    return met;
}

// The quad's edge across from the rung, starting where the quad's side from the rung's start ends.
Rung RingPlan::opposite(int face, const Rung& rung) const {
    const auto corners = mesh_.faceVertices(face);
    const auto edges = adjacency_.faceEdges(face);
    const int k = static_cast<int>(std::find(edges.begin(), edges.end(), rung.edge) - edges.begin());
    const int start = corners[k] == rung.start ? corners[(k + 3) % 4] : corners[(k + 2) % 4];
    return {edges[(k + 2) % 4], start};
}

// Builds the split polygons into a draft: new vertices, corners with interpolated UVs, cut quads.
class RingSplitter {
public:
    RingSplitter(const MeshTopology& mesh, const RingPlan& plan, double weight)
        : mesh_(mesh), plan_(plan), weight_(weight), draft_(mesh) {}

    MeshDraft& run(std::vector<std::pair<int, int>>& newEdges);

private:
    void addVertices();
    std::vector<int> withNewCorners(int face, std::map<int, int>& positions);
    int newCorner(int edge, int corner, int nextCorner);
    int interpolatedUv(int set, int fromUv, int toUv);

    const MeshTopology& mesh_;
    const RingPlan& plan_;
    double weight_;
    MeshDraft draft_;
    std::map<int, int> vertexOnEdge_;
    std::map<std::tuple<int, int, int>, int> uvBetween_;
};

MeshDraft& RingSplitter::run(std::vector<std::pair<int, int>>& newEdges) {
    addVertices();
    std::vector<std::vector<int>> secondHalves;
    for (int f = 0; f < mesh_.numFaces(); ++f) {
        std::map<int, int> positions;
        std::vector<int> corners = withNewCorners(f, positions);
        const auto crossing = plan_.crossings().find(f);
        if (crossing != plan_.crossings().end()) {
            const int in = positions.at(crossing->second.first);
            const int out = positions.at(crossing->second.second);
            const int first = std::min(in, out);
            const int second = std::max(in, out);
            secondHalves.emplace_back(corners.begin() + first, corners.begin() + second + 1);
            corners.erase(corners.begin() + first + 1, corners.begin() + second);
            newEdges.emplace_back(vertexOnEdge_.at(crossing->second.first),
                                  vertexOnEdge_.at(crossing->second.second));
        }
        draft_.polygons()[f] = std::move(corners);
    }
    for (auto& half : secondHalves) draft_.polygons().push_back(std::move(half));
    return draft_;
}

void RingSplitter::addVertices() {
    for (const Rung& rung : plan_.rungs()) {
        const auto [a, b] = mesh_.adjacency().edgeVertices(rung.edge);
        const int end = a == rung.start ? b : a;
        const Vec3 from(mesh_.point(rung.start));
        const Vec3 to(mesh_.point(end));
        const int vertex = draft_.addVertex(Vec3f(from + (to - from) * weight_));
        vertexOnEdge_[rung.edge] = vertex;
        if (draft_.isHard(rung.start, end)) {
            draft_.setHard(rung.start, vertex);
            draft_.setHard(vertex, end);
        }
    }
}

// The face's corners with a new corner after each corner whose edge is split; `positions` receives
// where each split edge's corner went.
std::vector<int> RingSplitter::withNewCorners(int face, std::map<int, int>& positions) {
    const std::vector<int> original = draft_.polygons()[face];
    const auto edges = mesh_.adjacency().faceEdges(face);
    std::vector<int> corners;
    for (std::size_t k = 0; k < original.size(); ++k) {
        corners.push_back(original[k]);
        if (!plan_.isSplit(edges[k])) continue;
        positions[edges[k]] = static_cast<int>(corners.size());
        corners.push_back(newCorner(edges[k], original[k], original[(k + 1) % original.size()]));
    }
    return corners;
}

int RingSplitter::newCorner(int edge, int corner, int nextCorner) {
    const bool forward = draft_.cornerVertex(corner) == plan_.startOf(edge);
    std::vector<int> uvIds;
    for (int s = 0; s < draft_.numUvSets(); ++s) {
        const int here = draft_.cornerUv(s, corner);
        const int there = draft_.cornerUv(s, nextCorner);
        if (here < 0 || there < 0) {
            uvIds.push_back(-1);
            continue;
        }
        uvIds.push_back(forward ? interpolatedUv(s, here, there) : interpolatedUv(s, there, here));
    }
    return draft_.addCorner(vertexOnEdge_.at(edge), uvIds);
}

// One new UV per pair of end UVs, so the polygons on either side of an edge share it unless a seam
// parts them.
int RingSplitter::interpolatedUv(int set, int fromUv, int toUv) {
    const auto key = std::make_tuple(set, fromUv, toUv);
    const auto found = uvBetween_.find(key);
    if (found != uvBetween_.end()) return found->second;
    const auto [u0, v0] = draft_.uv(set, fromUv);
    const auto [u1, v1] = draft_.uv(set, toUv);
    const float w = static_cast<float>(weight_);
    const int id = draft_.addUv(set, u0 + (u1 - u0) * w, v0 + (v1 - v0) * w);
    uvBetween_.emplace(key, id);
    return id;
}

}  // namespace

MeshTopology splitEdgeRing(const MeshTopology& mesh, const std::vector<int>& edges, double weight,
                           double smoothingAngleRadians) {
    requireIds(kOperation, "edge", edges, mesh.numEdges());
    if (!(weight >= 0 && weight <= 1)) {
        throw HostError(std::string(kOperation) + ": the weight must lie in [0, 1], got " +
                        std::to_string(weight));
    }
    RingPlan plan(mesh);
    for (int edge : edges) plan.addRing(edge);
    std::vector<std::pair<int, int>> newEdges;
    RingSplitter splitter(mesh, plan, weight);
    MeshTopology result = splitter.run(newEdges).build();
    applySmoothingAngle(result, newEdges, smoothingAngleRadians);
    return result;
}

}  // namespace mhost
