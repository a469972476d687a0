#include "mesh/MeshNormals.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "core/LargeArrays.h"
#include "core/ParallelParts.h"
#include "mesh/MeshTopology.h"
#include "mesh/VertexFans.h"

namespace mhost {
namespace {

Vec3 pointAt(const float* coords, int vertex) {
    const float* p = coords + 3 * static_cast<std::size_t>(vertex);
    return {p[0], p[1], p[2]};
}

// The unsigned angle between the polygon's two edges at its corner k, 0 where an edge has no length.
double cornerAngle(const float* coords, IndexRange corners, int k) {
    const int n = corners.size();
    const Vec3 here = pointAt(coords, corners[k]);
    const Vec3 toPrevious = pointAt(coords, corners[(k + n - 1) % n]) - here;
    const Vec3 toNext = pointAt(coords, corners[(k + 1) % n]) - here;
    return std::atan2(length(cross(toPrevious, toNext)), dot(toPrevious, toNext));
}

int indexInPolygon(IndexRange corners, int vertex) {
    for (int k = 0; k < corners.size(); ++k)
        if (corners[k] == vertex) return k;
    return -1;
}

// Union-find over face-vertices, grouping the corners at one vertex that share a smooth normal.
class CornerGroups {
public:
    explicit CornerGroups(int count) : parent_(count) { std::iota(parent_.begin(), parent_.end(), 0); }

    int root(int corner) {
        while (parent_[corner] != corner) corner = parent_[corner] = parent_[parent_[corner]];
        return corner;
    }
    void join(int a, int b) { parent_[root(a)] = root(b); }

private:
    std::vector<int> parent_;
};

int cornerOfVertex(const MeshTopology& mesh, int face, int vertex) {
    const int k = indexInPolygon(mesh.faceVertices(face), vertex);
    return k < 0 ? -1 : mesh.faces().offsets[face] + k;
}

// Joins, at both ends of every smooth edge, the corners of all the faces on that edge.
CornerGroups smoothCornerGroups(const MeshTopology& mesh) {
    const MeshAdjacency& adjacency = mesh.adjacency();
    CornerGroups groups(mesh.numFaceVertices());
    for (int e = 0; e < adjacency.numEdges(); ++e) {
        if (!mesh.isEdgeSmooth(e)) continue;
        const IndexRange faces = adjacency.edgeFaces(e);
        const auto ends = adjacency.edgeVertices(e);
        for (int vertex : {ends.first, ends.second}) {
            const int first = cornerOfVertex(mesh, faces[0], vertex);
            for (int i = 1; i < faces.size(); ++i) groups.join(first, cornerOfVertex(mesh, faces[i], vertex));
        }
    }
    return groups;
}

}  // namespace

// Coordinates are taken relative to the first corner so that a small polygon far from the origin keeps
// its precision.
Vec3 newellNormal(const float* coords, IndexRange corners) {
    const Vec3 origin = pointAt(coords, corners[0]);
    Vec3 sum;
    for (int k = 0; k < corners.size(); ++k) {
        const Vec3 a = pointAt(coords, corners[k]) - origin;
        const Vec3 b = pointAt(coords, corners[(k + 1) % corners.size()]) - origin;
        sum += Vec3((a.y - b.y) * (a.z + b.z), (a.z - b.z) * (a.x + b.x), (a.x - b.x) * (a.y + b.y));
    }
    return normalized(sum);
}

std::vector<Vec3> computeFaceNormals(const MeshTopology& mesh) {
    std::vector<Vec3> normals = largeArray<Vec3>(mesh.numFaces());
    const float* coords = mesh.rawPoints();
    forEachPart(mesh.numFaces(), [&](int first, int last) {
        for (int f = first; f < last; ++f) normals[f] = newellNormal(coords, mesh.faceVertices(f));
    });
    return normals;
}

// Each part of the vertices walks every polygon and sums only its own vertices, polygon by polygon as
// a single thread would; the costly corner angles are worked out once, by the part that owns them.
std::vector<Vec3> computeVertexNormals(const MeshTopology& mesh, bool angleWeighted) {
    const std::vector<Vec3>& faceNormals = mesh.faceNormals();
    std::vector<Vec3> sums = largeArray<Vec3>(mesh.numVertices());
    const float* coords = mesh.rawPoints();
    forEachPart(mesh.numVertices(), [&](int first, int last) {
        for (int f = 0; f < mesh.numFaces(); ++f) {
            const IndexRange corners = mesh.faceVertices(f);
            for (int k = 0; k < corners.size(); ++k) {
                const int vertex = corners[k];
                if (vertex < first || vertex >= last) continue;
                sums[vertex] += faceNormals[f] * (angleWeighted ? cornerAngle(coords, corners, k) : 1.0);
            }
        }
        for (int v = first; v < last; ++v) sums[v] = normalized(sums[v]);
    });
    return sums;
}

void updateFaceNormals(const MeshTopology& mesh, const std::vector<int>& faces, std::vector<Vec3>& normals) {
    for (int f : faces) normals[f] = newellNormal(mesh.rawPoints(), mesh.faceVertices(f));
}

// Each vertex sums its polygons in face order from zero, exactly as the whole-mesh pass does, so the
// result is the same to the last bit.
void updateVertexNormals(const MeshTopology& mesh, const std::vector<Vec3>& faceNormals,
                         const std::vector<int>& vertices, bool angleWeighted, std::vector<Vec3>& normals) {
    const MeshAdjacency& adjacency = mesh.adjacency();
    const float* coords = mesh.rawPoints();
    for (int vertex : vertices) {
        Vec3 sum;
        for (int face : adjacency.vertexFaces(vertex)) {
            const IndexRange corners = mesh.faceVertices(face);
            const double angle = cornerAngle(coords, corners, indexInPolygon(corners, vertex));
            sum += faceNormals[face] * (angleWeighted ? angle : 1.0);
        }
        normals[vertex] = normalized(sum);
    }
}

// Whether each vertex's corners fall into more than one smooth group (a hard edge or a pinched fan).
std::vector<char> splitVertices(const MeshTopology& mesh, CornerGroups& groups) {
    std::vector<int> firstRoot(mesh.numVertices(), -1);
    std::vector<char> split(mesh.numVertices(), 0);
    const std::vector<int>& vertexOf = mesh.faces().items;
    for (int corner = 0; corner < mesh.numFaceVertices(); ++corner) {
        int& first = firstRoot[vertexOf[corner]];
        const int root = groups.root(corner);
        if (first == -1) first = root;
        split[vertexOf[corner]] |= first != root;
    }
    return split;
}

// Where all of a vertex's corners share one group, the group's sum is the vertex's own angle-weighted
// sum, taken in the same face order: the cached vertex normal is used, to the same bits. Only split
// vertices need their corners' angles summed group by group.
SplitCornerNormals computeSplitCornerNormals(const MeshTopology& mesh) {
    SplitCornerNormals result;
    if (everyVertexFanIsWhole(mesh)) {
        result.splitVertex.assign(mesh.numVertices(), 0);
        return result;
    }
    const std::vector<Vec3>& faceNormals = mesh.faceNormals();
    CornerGroups groups = smoothCornerGroups(mesh);
    result.splitVertex = splitVertices(mesh, groups);
    const std::vector<char>& split = result.splitVertex;
    if (std::find(split.begin(), split.end(), 1) == split.end()) return result;

    // A dense scan has millions of corners and seldom a split vertex: group sums are kept by root,
    // for the corners of split vertices alone.
    const std::vector<int>& offsets = mesh.faces().offsets;
    std::unordered_map<int, Vec3> sums;
    for (int f = 0; f < mesh.numFaces(); ++f) {
        const IndexRange corners = mesh.faceVertices(f);
        for (int k = 0; k < corners.size(); ++k)
            if (split[corners[k]])
                sums[groups.root(offsets[f] + k)] +=
                    faceNormals[f] * cornerAngle(mesh.rawPoints(), corners, k);
    }
    const std::vector<int>& vertexOf = mesh.faces().items;
    for (int corner = 0; corner < mesh.numFaceVertices(); ++corner)
        if (split[vertexOf[corner]]) result.cornerNormal[corner] = normalized(sums[groups.root(corner)]);
    return result;
}

}  // namespace mhost
