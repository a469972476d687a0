#include "mesh/ops/SmoothingAngle.h"

#include <algorithm>
#include <cmath>

namespace mhost {

void applySmoothingAngle(MeshTopology& mesh, const std::vector<std::pair<int, int>>& edges,
                         double angleRadians) {
    for (const auto& [a, b] : edges) {
        const int edge = mesh.adjacency().findEdge(a, b);
        if (edge < 0 || mesh.adjacency().edgeFaces(edge).size() != 2) continue;
        const auto faces = mesh.adjacency().edgeFaces(edge);
        const double cosine = dot(mesh.faceNormals()[faces[0]], mesh.faceNormals()[faces[1]]);
        mesh.setEdgeSmooth(edge, std::acos(std::clamp(cosine, -1.0, 1.0)) < angleRadians);
    }
}

}  // namespace mhost
