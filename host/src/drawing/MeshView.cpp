#include "drawing/MeshView.h"

namespace mhost {

MeshView makeMeshView(const MeshTopology& mesh, const MMatrix& toWorld) {
    MeshView view;
    view.points.reserve(static_cast<size_t>(mesh.numVertices()));
    for (int v = 0; v < mesh.numVertices(); ++v) {
        const Vec3f p = mesh.point(v);
        view.points.push_back(MPoint(p.x, p.y, p.z) * toWorld);
    }
    view.polygons.reserve(static_cast<size_t>(mesh.numFaces()));
    for (int f = 0; f < mesh.numFaces(); ++f) view.polygons.push_back(mesh.faces().row(f).toVector());
    return view;
}

}  // namespace mhost
