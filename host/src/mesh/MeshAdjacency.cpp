#include "mesh/MeshAdjacency.h"

#include <algorithm>

namespace mhost {
namespace {

constexpr const char* kOwner = "MeshAdjacency";

// Calls visit(face, corner, from, to) for every polygon edge, polygons and corners in order.
template <class Visit>
void forEachFaceEdge(const CompressedRows& faces, const Visit& visit) {
    for (int f = 0; f < faces.numRows(); ++f) {
        const IndexRange corners = faces.row(f);
        for (int k = 0; k < corners.size(); ++k) {
            visit(f, faces.offsets[f] + k, corners[k], corners[(k + 1) % corners.size()]);
        }
    }
}

}  // namespace

MeshAdjacency::MeshAdjacency(int numVertices, const CompressedRows& faces)
    : numVertices_(numVertices), faces_(faces) {
    buildEdges(faces);
    const int numFaces = faces.numRows();
    edgeFaces_ = groupByRow(numEdges(), [&](const auto& emit) {
        for (int f = 0; f < numFaces; ++f) {
            for (int e : faceEdges(f)) emit(e, f);
        }
    });
}

const MeshAdjacency::VertexTables& MeshAdjacency::vertexTables() const {
    if (vertexTables_) return *vertexTables_;
    auto tables = std::make_unique<VertexTables>();
    const int numFaces = faces_.numRows();
    tables->vertexFaces = groupByRow(numVertices_, [&](const auto& emit) {
        for (int f = 0; f < numFaces; ++f) {
            for (int v : faces_.row(f)) emit(v, f);
        }
    });
    tables->vertexEdges = groupByRow(numVertices_, [&](const auto& emit) {
        for (int e = 0; e < numEdges(); ++e) {
            emit(edgeEnds_[e].first, e);
            emit(edgeEnds_[e].second, e);
        }
    });
    tables->boundaryVertex.assign(numVertices_, 0);
    for (int e = 0; e < numEdges(); ++e) {
        if (edgeFaces_.row(e).size() != 1) continue;
        tables->boundaryVertex[edgeEnds_[e].first] = 1;
        tables->boundaryVertex[edgeEnds_[e].second] = 1;
    }
    vertexTables_ = std::move(tables);
    return *vertexTables_;
}

// Edges are found by their lower vertex id: each vertex gets as many slots as polygon edges have it as
// their lower end, and an edge is looked up among the few already filled. This keeps first-appearance
// order without a hash map.
void MeshAdjacency::buildEdges(const CompressedRows& faces) {
    std::vector<int> slotStart(numVertices_ + 1, 0);
    forEachFaceEdge(faces, [&](int, int, int a, int b) { ++slotStart[std::min(a, b) + 1]; });
    for (int v = 0; v < numVertices_; ++v) slotStart[v + 1] += slotStart[v];
    std::vector<int> slotsUsed(numVertices_, 0);
    std::vector<int> slotEdge(slotStart.back());
    std::vector<int> slotHigherEnd(slotStart.back());
    faceEdges_.offsets = faces.offsets;
    faceEdges_.items.resize(faces.items.size());
    // At most one edge per corner; pages reserved and never written cost nothing.
    edgeEnds_.reserve(faces.items.size());
    forEachFaceEdge(faces, [&](int, int corner, int a, int b) {
        const int low = std::min(a, b);
        const int high = std::max(a, b);
        const int first = slotStart[low];
        const int last = first + slotsUsed[low];
        const int found =
            static_cast<int>(std::find(slotHigherEnd.begin() + first, slotHigherEnd.begin() + last, high) -
                             slotHigherEnd.begin());
        if (found == last) {
            slotEdge[last] = numEdges();
            slotHigherEnd[last] = high;
            ++slotsUsed[low];
            edgeEnds_.emplace_back(a, b);
        }
        faceEdges_.items[corner] = slotEdge[found];
    });
}

std::pair<int, int> MeshAdjacency::edgeVertices(int edge) const {
    checkIndex(kOwner, "edge", edge, numEdges());
    return edgeEnds_[edge];
}

IndexRange MeshAdjacency::edgeFaces(int edge) const {
    checkIndex(kOwner, "edge", edge, numEdges());
    return edgeFaces_.row(edge);
}

IndexRange MeshAdjacency::faceEdges(int face) const {
    checkIndex(kOwner, "face", face, faceEdges_.numRows());
    return faceEdges_.row(face);
}

IndexRange MeshAdjacency::vertexFaces(int vertex) const {
    checkIndex(kOwner, "vertex", vertex, numVertices_);
    return vertexTables().vertexFaces.row(vertex);
}

IndexRange MeshAdjacency::vertexEdges(int vertex) const {
    checkIndex(kOwner, "vertex", vertex, numVertices_);
    return vertexTables().vertexEdges.row(vertex);
}

bool MeshAdjacency::isBoundaryEdge(int edge) const { return edgeFaces(edge).size() == 1; }

bool MeshAdjacency::isBoundaryVertex(int vertex) const {
    checkIndex(kOwner, "vertex", vertex, numVertices_);
    return vertexTables().boundaryVertex[vertex] != 0;
}

int MeshAdjacency::findEdge(int a, int b) const {
    checkIndex(kOwner, "vertex", b, numVertices_);
    for (int e : vertexEdges(a)) {
        const auto& ends = edgeEnds_[e];
        if ((ends.first == a && ends.second == b) || (ends.first == b && ends.second == a)) return e;
    }
    return -1;
}

}  // namespace mhost
