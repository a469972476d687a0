#include "mesh/ops/MoveVertices.h"

#include "mesh/ops/OperationInput.h"

namespace mhost {

MeshTopology moveVertices(const MeshTopology& mesh, const std::vector<int>& vertices, const Vec3& target,
                          bool relative) {
    requireIds("moveVertices", "vertex", vertices, mesh.numVertices());
    MeshTopology moved = mesh;
    for (int v : vertices) {
        // setPoint rejects a position that does not survive the narrowing to float.
        moved.setPoint(v, Vec3f(relative ? Vec3(mesh.point(v)) + target : target));
    }
    return moved;
}

}  // namespace mhost
