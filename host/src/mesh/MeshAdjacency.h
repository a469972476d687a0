#pragma once
// The connectivity derived from a mesh's polygons: edges with stable ids and every incidence relation
// between vertices, edges and faces. The edges and their faces are built in one O(face-vertices) pass;
// the vertex-side tables (faces and edges of a vertex, boundary vertices) on their first use, since
// most readers of a freshly built mesh only count or walk its edges. The mesh rebuilds it after a
// change of its polygons.

#include <memory>
#include <utility>
#include <vector>

#include "mesh/IndexRange.h"

namespace mhost {

class MeshAdjacency {
public:
    // `faces` holds each polygon's vertex ids in order; ids must lie in [0, numVertices). Edge ids
    // follow first appearance while walking the polygons in order, edge k of a polygon running from its
    // corner k to corner k + 1 (the last back to corner 0).
    MeshAdjacency(int numVertices, const CompressedRows& faces);

    int numEdges() const { return static_cast<int>(edgeEnds_.size()); }
    // The edge's two vertex ids, in the direction of the polygon that first used it.
    std::pair<int, int> edgeVertices(int edge) const;
    // Faces using the edge, in face order: one on a boundary, two inside, three or more where the
    // surface is non-manifold.
    IndexRange edgeFaces(int edge) const;
    // The polygon's edges; edge k joins its corners k and k + 1.
    IndexRange faceEdges(int face) const;
    // Faces using the vertex, in face order.
    IndexRange vertexFaces(int vertex) const;
    // Edges ending at the vertex, in edge id order.
    IndexRange vertexEdges(int vertex) const;
    // An edge used by exactly one face.
    bool isBoundaryEdge(int edge) const;
    // A vertex at the end of a boundary edge.
    bool isBoundaryVertex(int vertex) const;
    // The id of the edge joining vertices a and b (either direction), or -1. Cost: O(valence of a).
    int findEdge(int a, int b) const;

private:
    // The vertex-side tables, built together when first asked for.
    struct VertexTables {
        CompressedRows vertexFaces;
        CompressedRows vertexEdges;
        std::vector<char> boundaryVertex;
    };

    void buildEdges(const CompressedRows& faces);
    const VertexTables& vertexTables() const;

    int numVertices_;
    CompressedRows faces_;
    std::vector<std::pair<int, int>> edgeEnds_;
    CompressedRows faceEdges_;
    CompressedRows edgeFaces_;
    mutable std::unique_ptr<const VertexTables> vertexTables_;
};

}  // namespace mhost
