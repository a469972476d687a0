// Walks along the open borders of the retopo mesh: the closed loop through a vertex, the path
// between two anchors, the opposite row of a bridge or merge, and the conversion of edge chains to
// vertex rows. Everything goes through the host's vertex and edge iterators, one edge at a time.

#include <maya/MItMeshEdge.h>
#include <maya/MItMeshVertex.h>
#include <maya/MVector.h>

#include <utility>

#include "geometry/functions.h"
#include "tool/anchorRows.h"
#include "tool/kyStrake.h"

namespace {

// Every walk gives up after this many steps; a pick on a large open mesh stays cheap.
constexpr int kWalkLimit = 999;
constexpr int kNoPathLimit = 99999;

// The edges of one mesh looked at by id, through one edge iterator. Unknown ids read as no
// neighbours, not on the border and ends (-1, -1).
class MeshEdges {
public:
    explicit MeshEdges(const MDagPath& mesh) : edges_(mesh, MObject::kNullObj, &status_) {}

    // The edges at end 0 of `edge`, then those at end 1, in the host's order.
    MIntArray neighbours(int edge) {
        MIntArray connected;
        if (moveTo(edge)) edges_.getConnectedEdges(connected);
        return connected;
    }
    bool onBorder(int edge) { return moveTo(edge) && edges_.onBoundary(); }
    std::pair<int, int> ends(int edge) {
        if (!moveTo(edge)) return {-1, -1};
        return {edges_.index(0), edges_.index(1)};
    }
    bool touches(int edge, int vertex) {
        const std::pair<int, int> ends = this->ends(edge);
        return ends.first == vertex || ends.second == vertex;
    }
    bool joins(int edge, int a, int b) {
        const std::pair<int, int> ends = this->ends(edge);
        return (ends.first == a && ends.second == b) || (ends.first == b && ends.second == a);
    }

private:
    bool moveTo(int edge) {
        if (!status_ || edge < 0) return false;
        int previous = 0;
        return static_cast<bool>(edges_.setIndex(edge, previous));
    }

    MStatus status_;  // declared first: the iterator's constructor writes it
    MItMeshEdge edges_;
};

// The border edges at `vertex` in the host's order; empty for an unknown vertex.
MIntArray borderEdgesAt(const MDagPath& mesh, int vertex, MeshEdges& edges) {
    MIntArray border;
    MStatus status;
    MItMeshVertex vertices(mesh, MObject::kNullObj, &status);
    int previous = 0;
    if (!status || vertex < 0 || !vertices.setIndex(vertex, previous)) return border;
    MIntArray connected;
    vertices.getConnectedEdges(connected);
    for (unsigned i = 0; i < connected.length(); ++i) {
        if (edges.onBorder(connected[i])) border.append(connected[i]);
    }
    return border;
}

// Entry `k` of `ids`, or -1 when there is none.
int entryOr(const MIntArray& ids, unsigned k) { return k < ids.length() ? ids[k] : -1; }

}  // namespace

MPoint vertexPosition(const MDagPath& path, int id) {
    MStatus status;
    MItMeshVertex vertices(path, MObject::kNullObj, &status);
    if (!status) return MPoint::origin;
    for (; !vertices.isDone(); vertices.next()) {
        if (vertices.index() == id) return vertices.position(MSpace::kWorld);
    }
    return MPoint::origin;
}

MIntArray kyStrakeContext::boundaryLoopFrom(int vertex) {
    const MDagPath retopo = getActiveMeshPath();
    if (!retopo.isValid()) return MIntArray();
    MeshEdges edges(retopo);
    const MIntArray border = borderEdgesAt(retopo, vertex, edges);
    if (border.length() == 0) return MIntArray();

    MIntArray loop;
    loop.append(border[0]);
    // Starting with the second border edge as the one "come from" sends the walk away from it.
    int previous = entryOr(border, 1);
    int current = border[0];
    for (int step = 0; step < kWalkLimit; ++step) {
        const MIntArray next = edges.neighbours(current);
        for (unsigned i = 0; i < next.length(); ++i) {
            const int edge = next[i];
            if (!edges.onBorder(edge)) continue;
            // The loop closes on the first border edge back at `vertex` once it has more than
            // three edges; on a hole of four edges that returns the start edge a second time.
            if (loop.length() > 3 && edges.touches(edge, vertex)) {
                loop.append(edge);
                return loop;
            }
            if (edge != previous && edge != current) {
                previous = loop[loop.length() - 1];
                current = edge;
                loop.append(edge);
                break;
            }
        }
    }
    return MIntArray();
}

MIntArray kyStrakeContext::walkBoundary(int target, int startEdge, int excludedEdge, bool& found) {
    found = false;
    MIntArray walk;
    walk.append(startEdge);
    MeshEdges edges(getActiveMeshPath());
    int current = startEdge;
    for (int step = 0; step < kWalkLimit; ++step) {
        // The neighbours of the edge current at the start of the step are all looked at, even
        // after one of them is taken: past a vertex with more than two border edges the walk can
        // take several in one step.
        const MIntArray next = edges.neighbours(current);
        for (unsigned i = 0; i < next.length(); ++i) {
            const int edge = next[i];
            if (edge == excludedEdge || !edges.onBorder(edge) || containsId(edge, walk)) continue;
            walk.append(edge);
            current = edge;
            if (edges.touches(edge, target)) {
                found = true;
                return walk;
            }
        }
    }
    return walk;
}

MIntArray kyStrakeContext::shortestBoundaryPath(int from, int to, int limit) {
    const MDagPath retopo = getActiveMeshPath();
    // Five zeros, not an empty list, is what callers get without a retopo mesh.
    if (!retopo.isValid()) return MIntArray(5, 0);
    MeshEdges edges(retopo);
    const MIntArray border = borderEdgesAt(retopo, from, edges);
    if (border.length() == 0) return MIntArray();
    const int first = border[0];
    int last = -1;  // the last border edge other than the first: the other side on a manifold border
    for (unsigned i = 1; i < border.length(); ++i) {
        if (border[i] != first) last = border[i];
    }
    if (edges.joins(first, from, to)) return MIntArray(1, first);
    if (edges.joins(last, from, to)) return MIntArray(1, last);

    MIntArray best;
    unsigned bestLength = static_cast<unsigned>(limit);
    // Strictly shorter replaces: on a tie the walk along the first border edge stays.
    for (const std::pair<int, int>& sides : {std::make_pair(first, last), std::make_pair(last, first)}) {
        if (sides.first == -1) continue;
        bool found = false;
        const MIntArray walk = walkBoundary(to, sides.first, sides.second, found);
        if (found && walk.length() > 0 && walk.length() < bestLength) {
            best = walk;
            bestLength = walk.length();
        }
    }
    return best;
}

MIntArray kyStrakeContext::extendBoundaryPath(const MIntArray& edges, int from, int to) {
    if (edges.length() < 2) return shortestBoundaryPath(from, to, kNoPathLimit);
    MeshEdges mesh(getActiveMeshPath());
    MIntArray path;
    path.append(edges[0]);
    // The border edge beside the first one that the earlier walk did not take: the side to avoid.
    int avoided = -1;
    const MIntArray around = mesh.neighbours(edges[0]);
    for (unsigned i = 0; i < around.length(); ++i) {
        if (around[i] != edges[1] && mesh.onBorder(around[i])) avoided = around[i];
    }
    if (mesh.touches(edges[0], to)) return path;

    int current = edges[0];
    for (int step = 0; step < kWalkLimit; ++step) {
        // The avoided side is closed on the first step only, so a loop can still close over it.
        const MIntArray next = mesh.neighbours(current);
        for (unsigned i = 0; i < next.length(); ++i) {
            const int edge = next[i];
            if ((step == 0 && edge == avoided) || !mesh.onBorder(edge) || containsId(edge, path)) continue;
            path.append(edge);
            if (mesh.touches(edge, to)) return path;
            current = edge;
            break;
        }
    }
    return path;
}

MIntArray kyStrakeContext::edgesToVertices(const MIntArray& edges, int startVertex) {
    MIntArray row;
    row.append(startVertex);
    MeshEdges mesh(getActiveMeshPath());
    int current = startVertex;
    for (unsigned i = 0; i < edges.length(); ++i) {
        const std::pair<int, int> ends = mesh.ends(edges[i]);
        if (ends.first == -1) continue;
        const int next = ends.first != current ? ends.first : ends.second;
        if (next == current) continue;
        row.append(next);
        current = next;
    }
    return row;
}

MIntArray kyStrakeContext::walkOppositeRow(int vertex) {
    const MDagPath retopo = getActiveMeshPath();
    MeshEdges edges(retopo);
    const MIntArray border = borderEdgesAt(retopo, vertex, edges);
    const int first = entryOr(border, 0);
    const int second = entryOr(border, 1);
    if (anchorVertices.length() == 0) return MIntArray();
    const MIntArray row = edgesToVertices(anchorEdges, anchorVertices[0]);

    int start = pickRowDirection(first, second);
    int excluded = start == first ? second : first;
    if (reverseBridge) std::swap(start, excluded);

    // n - 1 steps from the start edge give up to n edges for a row of n vertices; the spare one
    // only shows in the vertex row, which is cut to the anchor row's length below.
    MIntArray walk;
    walk.append(start);
    int current = start;
    for (unsigned step = 1; step < row.length(); ++step) {
        const MIntArray next = edges.neighbours(current);
        for (unsigned i = 0; i < next.length(); ++i) {
            const int edge = next[i];
            if (edge == excluded || !edges.onBorder(edge) || containsId(edge, walk)) continue;
            walk.append(edge);
            current = edge;
        }
    }
    if (anchorVertices[0] == anchorVertices[anchorVertices.length() - 1]) walk.append(excluded);
    oppositeEdges = walk;

    MIntArray opposite = edgesToVertices(walk, vertex);
    if (row.length() <= opposite.length()) opposite.setLength(row.length());
    return opposite;
}

int kyStrakeContext::pickRowDirection(int edgeA, int edgeB) {
    if (anchorVertices.length() == 0) return 0;
    const MIntArray row = edgesToVertices(anchorEdges, anchorVertices[0]);
    if (row.length() < 2) return 0;
    const MDagPath retopo = getActiveMeshPath();
    const MVector rowDirection = vertexPosition(retopo, row[1]) - vertexPosition(retopo, row[0]);

    MeshEdges edges(retopo);
    const auto [p, q] = edges.ends(edgeA);
    const auto [s, t] = edges.ends(edgeB);
    const int shared = (p == s || p == t) ? p : (q == t || q == s) ? q : -1;
    const MPoint sharedPosition = vertexPosition(retopo, shared);
    // The far end of the second edge is read as t when p is the far end of the first, and as s
    // otherwise. With the shared vertex on the same end of both edges that reads the shared vertex
    // itself, a zero vector that scores 0; the choice then rests on the first edge alone. Kept so.
    const bool farEndIsP = p != shared;
    const MVector alongA = vertexPosition(retopo, farEndIsP ? p : q) - sharedPosition;
    const MVector alongB = vertexPosition(retopo, farEndIsP ? t : s) - sharedPosition;
    return projectedLength(alongA, rowDirection) > projectedLength(alongB, rowDirection) ? edgeA : edgeB;
}
