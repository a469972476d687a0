#include "mesh/ops/BridgeEdges.h"

#include <algorithm>
#include <map>
#include <set>

#include "mesh/ops/MeshDraft.h"
#include "mesh/ops/OperationInput.h"
#include "mesh/ops/SmoothingAngle.h"

namespace mhost {
namespace {

constexpr const char* kOperation = "bridgeEdges";

[[noreturn]] void fail(const std::string& message) {
    throw HostError(std::string(kOperation) + ": " + message);
}

// One side of the bridge: its vertices in walking order; a closed side does not repeat its first vertex.
struct Side {
    std::vector<int> vertices;
    bool closed = false;
    int numEdges() const { return static_cast<int>(vertices.size()) - (closed ? 0 : 1); }
};

// The listed edges at each vertex they touch.
class EdgeIncidence {
public:
    EdgeIncidence(const MeshAdjacency& adjacency, const std::vector<int>& edges) : adjacency_(adjacency) {
        for (int e : edges) {
            if (!adjacency.isBoundaryEdge(e)) fail("edge " + std::to_string(e) + " is not on a border");
            const auto [a, b] = adjacency.edgeVertices(e);
            for (int v : {a, b}) {
                edgesAt_[v].push_back(e);
                if (edgesAt_[v].size() > 2) fail("the edges branch at vertex " + std::to_string(v));
            }
        }
    }
    const std::vector<int>& at(int vertex) const { return edgesAt_.at(vertex); }
    int otherEnd(int edge, int vertex) const {
        const auto [a, b] = adjacency_.edgeVertices(edge);
        return a == vertex ? b : a;
    }

private:
    const MeshAdjacency& adjacency_;
    std::map<int, std::vector<int>> edgesAt_;
};

// Where to start walking the side through `edge`: an end of its chain, or one of the edge's own
// vertices when the side closes on itself.
int sideStart(const EdgeIncidence& incidence, const MeshAdjacency& adjacency, int edge) {
    int vertex = adjacency.edgeVertices(edge).first;
    int through = edge;
    while (incidence.at(vertex).size() == 2) {
        const auto& here = incidence.at(vertex);
        through = here[0] == through ? here[1] : here[0];
        if (through == edge) return vertex;
        vertex = incidence.otherEnd(through, vertex);
    }
    return vertex;
}

Side walkSide(const EdgeIncidence& incidence, int start, std::set<int>& walked) {
    Side side;
    side.vertices.push_back(start);
    int vertex = start;
    for (;;) {
        const auto& here = incidence.at(vertex);
        const auto next = std::find_if(here.begin(), here.end(), [&](int e) { return !walked.count(e); });
        if (next == here.end()) return side;
        walked.insert(*next);
        vertex = incidence.otherEnd(*next, vertex);
        if (vertex == start) {
            side.closed = true;
            return side;
        }
        side.vertices.push_back(vertex);
    }
}

// Reverses the walking direction, a closed side keeping its first vertex.
void reverse(Side& side) { std::reverse(side.vertices.begin() + (side.closed ? 1 : 0), side.vertices.end()); }

std::vector<Side> findSides(const MeshAdjacency& adjacency, const std::vector<int>& edges) {
    const EdgeIncidence incidence(adjacency, edges);
    std::set<int> walked;
    std::vector<Side> sides;
    for (int e : edges) {
        if (walked.count(e)) continue;
        sides.push_back(walkSide(incidence, sideStart(incidence, adjacency, e), walked));
    }
    if (sides.size() != 2) fail("the edges form " + std::to_string(sides.size()) + " chains, 2 are needed");
    if (sides[0].closed != sides[1].closed) fail("cannot bridge an open chain to a closed loop");
    if (sides[0].numEdges() != sides[1].numEdges()) {
        fail("the two sides have " + std::to_string(sides[0].numEdges()) + " and " +
             std::to_string(sides[1].numEdges()) + " edges");
    }
    return sides;
}

// Side A runs the way its polygons run along it, so the bridge's quads can take its edges backwards.
void orientAlongPolygons(const MeshAdjacency& adjacency, Side& side) {
    const int first = adjacency.findEdge(side.vertices[0], side.vertices[1]);
    if (adjacency.edgeVertices(first).first != side.vertices[0]) reverse(side);
}

double gap(const MeshTopology& mesh, int a, int b) {
    return length(Vec3(mesh.point(a)) - Vec3(mesh.point(b)));
}

// Summed distance of the pairs (a[i], b[i + offset]).
double pairingCost(const MeshTopology& mesh, const Side& a, const Side& b, std::size_t offset) {
    double cost = 0;
    const std::size_t n = a.vertices.size();
    for (std::size_t i = 0; i < n; ++i) cost += gap(mesh, a.vertices[i], b.vertices[(i + offset) % n]);
    return cost;
}

void pairChain(const MeshTopology& mesh, const Side& a, Side& b) {
    const int first = a.vertices.front();
    const int last = a.vertices.back();
    const double kept = gap(mesh, first, b.vertices.front()) + gap(mesh, last, b.vertices.back());
    const double flipped = gap(mesh, first, b.vertices.back()) + gap(mesh, last, b.vertices.front());
    if (flipped < kept) reverse(b);
}

void pairLoop(const MeshTopology& mesh, const Side& a, Side& b) {
    Side best = b;
    double bestCost = pairingCost(mesh, a, b, 0);
    for (int direction = 0; direction < 2; ++direction) {
        for (std::size_t offset = 0; offset < b.vertices.size(); ++offset) {
            const double cost = pairingCost(mesh, a, b, offset);
            if (cost >= bestCost) continue;
            bestCost = cost;
            best = b;
            std::rotate(best.vertices.begin(), best.vertices.begin() + offset, best.vertices.end());
        }
        reverse(b);
    }
    b = best;
}

// Rows of vertex ids from side A (row 0) to side B (last row), with `divisions` new rows between.
std::vector<std::vector<int>> bridgeRows(MeshDraft& draft, const Side& a, const Side& b, int divisions) {
    std::vector<std::vector<int>> rows{a.vertices};
    for (int j = 1; j <= divisions; ++j) {
        const double t = double(j) / (divisions + 1);
        std::vector<int> row;
        for (std::size_t i = 0; i < a.vertices.size(); ++i) {
            const Vec3 from(draft.point(a.vertices[i]));
            const Vec3 to(draft.point(b.vertices[i]));
            row.push_back(draft.addVertex(Vec3f(from + (to - from) * t)));
        }
        rows.push_back(std::move(row));
    }
    rows.push_back(b.vertices);
    return rows;
}

// Adds the quads between consecutive rows and returns the edges they create.
std::vector<std::pair<int, int>> addQuads(MeshDraft& draft, const std::vector<std::vector<int>>& rows,
                                          bool closed) {
    std::vector<std::pair<int, int>> newEdges;
    const std::size_t n = rows[0].size();
    const std::size_t columns = closed ? n : n - 1;
    for (std::size_t j = 0; j + 1 < rows.size(); ++j) {
        const auto& near = rows[j];
        const auto& far = rows[j + 1];
        for (std::size_t i = 0; i < columns; ++i) {
            const std::size_t next = (i + 1) % n;
            draft.polygons().push_back({draft.addCorner(near[next]), draft.addCorner(near[i]),
                                        draft.addCorner(far[i]), draft.addCorner(far[next])});
            newEdges.emplace_back(near[i], far[i]);
            if (j + 2 < rows.size()) newEdges.emplace_back(far[i], far[next]);
        }
        if (!closed) newEdges.emplace_back(near[n - 1], far[n - 1]);
    }
    return newEdges;
}

}  // namespace

MeshTopology bridgeEdges(const MeshTopology& mesh, const std::vector<int>& edges, int divisions,
                         double smoothingAngleRadians) {
    requireIds(kOperation, "edge", edges, mesh.numEdges());
    if (divisions < 0) fail("the divisions must not be negative, got " + std::to_string(divisions));
    std::vector<int> listed;
    std::set<int> seen;
    for (int e : edges) {
        if (seen.insert(e).second) listed.push_back(e);
    }
    std::vector<Side> sides = findSides(mesh.adjacency(), listed);
    orientAlongPolygons(mesh.adjacency(), sides[0]);
    if (sides[0].closed) {
        pairLoop(mesh, sides[0], sides[1]);
    } else {
        pairChain(mesh, sides[0], sides[1]);
    }
    MeshDraft draft(mesh);
    const auto rows = bridgeRows(draft, sides[0], sides[1], divisions);
    const auto newEdges = addQuads(draft, rows, sides[0].closed);
    MeshTopology result = draft.build();
    applySmoothingAngle(result, newEdges, smoothingAngleRadians);
    return result;
}

}  // namespace mhost
