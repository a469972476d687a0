#pragma once
// Normal computations behind MeshTopology's cached normals. Each is one pass over the face-vertices.

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
// See MeshTopology::faceVertexNormals.
std::vector<Vec3> computeFaceVertexNormals(const MeshTopology& mesh);

}  // namespace mhost
