#pragma once
// The host's polygon mesh: float points as Maya stores them, polygons of any degree, UV sets and edge
// smoothing, with adjacency, normals and the bounding box derived on first use and cached until the
// next change. Copies are cheap to take and share the cached results.
//
// Every change takes a new value of a process-wide counter as the mesh's version, so two meshes with
// the same version have the same content and anything built from a mesh (a ray accelerator) can tell
// whether it is still current.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "mesh/Box3.h"
#include "mesh/IndexRange.h"
#include "mesh/MeshAdjacency.h"
#include "mesh/UvSets.h"
#include "mesh/Vec3.h"

namespace mhost {

struct SplitCornerNormals;

class PointMergeGrid;

class MeshTopology {
public:
    // An empty mesh: no vertices, no polygons, the UV set "map1".
    MeshTopology();
    // A mesh from Maya's arrays: polygon f uses the next polygonCounts[f] ids of polygonConnects.
    // Throws HostError naming the first fault: a non-finite point, a polygon with fewer than 3 corners
    // or a repeated vertex, an id out of range, counts that do not add up to the connects. Vertices no
    // polygon uses are kept.
    MeshTopology(std::vector<Vec3f> points, const std::vector<int>& polygonCounts,
                 std::vector<int> polygonConnects);

    int numVertices() const { return static_cast<int>(coords_.size() / 3); }
    int numFaces() const { return faces_.numRows(); }
    int numFaceVertices() const { return static_cast<int>(faces_.items.size()); }
    // Builds the adjacency on first use.
    int numEdges() const { return adjacency().numEdges(); }

    Vec3f point(int vertex) const;
    // x, y, z of each vertex in turn; valid until the next change.
    const float* rawPoints() const { return coords_.data(); }
    // Moves one vertex; throws std::out_of_range or HostError (non-finite point).
    void setPoint(int vertex, const Vec3f& p);
    // Moves every vertex; needs exactly numVertices() finite points, else throws HostError.
    void setPoints(const std::vector<Vec3f>& points);

    // Vertex ids of all polygons: row f is polygon f, offsets[f] its first face-vertex.
    const CompressedRows& faces() const { return faces_; }
    IndexRange faceVertices(int face) const;
    // Corners per polygon, as Maya's polygon counts. O(faces).
    std::vector<int> polygonCounts() const;
    // Appends a polygon through the given corners and returns its id. With mergeVertices, corners are
    // taken in order and each reuses the nearest vertex within pointTolerance (vertices made by earlier
    // corners included); otherwise a new vertex takes the next free id. A vertex met twice is kept
    // once. Throws HostError, leaving the mesh as it was, on non-finite corners, a negative tolerance,
    // or fewer than 3 distinct vertices. Amortised O(corners) once the merge grid exists; building it
    // costs O(vertices) after each setPoint(s) or tolerance change.
    int addPolygon(const std::vector<Vec3>& corners, bool mergeVertices, double pointTolerance);

    const MeshAdjacency& adjacency() const;

    // Unit normal of each polygon by Newell's method (zero for a polygon without area). O(face-vertices).
    const std::vector<Vec3>& faceNormals() const;
    // Unit normal of each vertex: its polygons' normals weighted by the corner angle, or plainly averaged
    // when angleWeighted is false. Zero for a vertex no polygon uses.
    const std::vector<Vec3>& vertexNormals(bool angleWeighted) const;
    // The same arrays, for a holder that keeps them past the mesh's next change: the mesh copies an
    // array before changing it while another holds it.
    std::shared_ptr<const std::vector<Vec3>> sharedFaceNormals() const;
    std::shared_ptr<const std::vector<Vec3>> sharedVertexNormals(bool angleWeighted) const;
    // The normal of face-vertex `corner` (indexed like faces().items), a corner of `face`: the
    // angle-weighted average over the polygons around the vertex reached across smooth edges, so a
    // hard edge or a pinched fan splits the normal; the face's normal where that average is zero.
    // Only the corners of split vertices are stored; the others take the vertex normal.
    Vec3 faceVertexNormal(int face, int corner) const;

    // Every edge is smooth until set otherwise.
    bool isEdgeSmooth(int edge) const;
    bool hasHardEdges() const;
    void setEdgeSmooth(int edge, bool smooth);
    // The same for many edges at once (smooth[i], non-zero for smooth, for edges[i]): one change of
    // the mesh rather than one per edge. Every id is checked before anything changes.
    void setEdgesSmooth(const std::vector<int>& edges, const std::vector<int>& smooth);

    const UvSets& uvSets() const { return uvSets_; }
    void createUvSet(const std::string& name);
    void setCurrentUvSet(const std::string& name);
    // See UvSets::setUvs and UvSets::assignUvs; both throw HostError on bad input.
    void setUvs(const std::string& name, std::vector<float> u, std::vector<float> v);
    void assignUvs(const std::string& name, const std::vector<int>& uvCounts, const std::vector<int>& uvIds);

    // Box around all vertices (used or not); empty for a mesh without vertices.
    Box3 boundingBox() const;
    std::uint64_t version() const { return version_; }
    // Changes only when polygons change: meshes with equal faces versions have the same polygons over
    // the same number of vertices, wherever those vertices are.
    std::uint64_t facesVersion() const { return facesVersion_; }

private:
    using Normals = std::shared_ptr<std::vector<Vec3>>;
    std::shared_ptr<const SplitCornerNormals> splitCornersKeptByMoves();
    struct Derived {
        std::shared_ptr<const MeshAdjacency> adjacency;
        // Face and vertex normals are shared by copies until one of them moves a vertex (copy on
        // write), and are updated where vertices moved rather than recomputed whole.
        Normals faceNormals;
        Normals vertexNormals[2];
        std::shared_ptr<const SplitCornerNormals> splitCornerNormals;
        std::optional<Box3> bounds;
        // Shared by copies until one of them adds a polygon (copy on write).
        std::shared_ptr<PointMergeGrid> mergeGrid;
        // Vertices moved one by one since the face and vertex normals were last brought up to date.
        std::vector<int> movedVertices;
    };

    void polygonsChanged();
    void pointsChanged();
    void pointMoved(int vertex);
    void updateMovedNormals() const;
    PointMergeGrid& mergeGrid(double tolerance);
    std::vector<int> resolveCorners(const std::vector<Vec3>& corners, bool mergeVertices,
                                    double pointTolerance, std::vector<Vec3>& newPoints);
    void appendPoint(const Vec3& p);

    std::vector<float> coords_;
    CompressedRows faces_;
    std::vector<char> hardEdges_;
    UvSets uvSets_;
    std::uint64_t version_;
    std::uint64_t facesVersion_;
    mutable Derived derived_;
};

}  // namespace mhost
