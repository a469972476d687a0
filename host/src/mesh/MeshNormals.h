#pragma once
// Normal computations behind MeshTopology's cached normals: whole-mesh passes over the face-vertices,
// and in-place updates of the parts a few moved vertices change.

#include <unordered_map>
#include <vector>

#include "mesh/IndexRange.h"
#include "mesh/Vec3.h"

namespace mhost {

class MeshTopology;

// Newell's normal of the polygon through `corners` (ids into xyz triples of `coords`), unit length,
// or zero when the polygon has no area. Exact for planar polygons, convex or not, and a best-fit
// plane normal for non-planar ones.
Vec3 newellNormal(const float* coords, IndexRange corners);

std::vector<Vec3> computeFaceNormals(const MeshTopology& mesh);
// See MeshTopology::vertexNormals.
std::vector<Vec3> computeVertexNormals(const MeshTopology& mesh, bool angleWeighted);
// Recomputes the normals of the given polygons in place (after some of their vertices moved).
void updateFaceNormals(const MeshTopology& mesh, const std::vector<int>& faces, std::vector<Vec3>& normals);
// Recomputes the given vertices' normals in place from up-to-date face normals; each comes out exactly
// as computeVertexNormals gives it.
void updateVertexNormals(const MeshTopology& mesh, const std::vector<Vec3>& faceNormals,
                         const std::vector<int>& vertices, bool angleWeighted, std::vector<Vec3>& normals);
// The face-vertices of vertices whose corners fall into several smooth groups (by a hard edge, or a
// pinched fan), each with the normalized angle-weighted sum of its group (zero when that sum is);
// every other face-vertex takes its vertex's normal (see MeshTopology::faceVertexNormal).
struct SplitCornerNormals {
    std::vector<char> splitVertex;  // one flag a vertex
    std::unordered_map<int, Vec3> cornerNormal;
};
SplitCornerNormals computeSplitCornerNormals(const MeshTopology& mesh);

}  // namespace mhost
