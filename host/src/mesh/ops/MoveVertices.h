#pragma once
// Moving listed vertices, as Maya's move command does it on mesh vertices.

#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

// A copy of the mesh with every listed vertex moved: to `target` itself when absolute (so several
// listed vertices end on one point), or by `target` as an offset when relative. Object space.
// Throws HostError on an empty list, an id out of range, or a result that is not finite.
MeshTopology moveVertices(const MeshTopology& mesh, const std::vector<int>& vertices, const Vec3& target,
                          bool relative);

}  // namespace mhost
