#include "runner/SourceMeshes.h"

#include <cmath>

#include "mesh/ProceduralMeshes.h"
#include "runner/ReliefSurface.h"

namespace kystrake {
namespace {

PolygonMesh fromTopology(const mhost::MeshTopology& topology) {
    PolygonMesh mesh;
    for (int v = 0; v < topology.numVertices(); ++v) {
        const auto p = topology.point(v);
        mesh.points.push_back({p.x, p.y, p.z});
    }
    mesh.polygonCounts = topology.polygonCounts();
    for (int f = 0; f < topology.numFaces(); ++f)
        for (int vertex : topology.faceVertices(f)) mesh.polygonConnects.push_back(vertex);
    return mesh;
}

// Divisions so that a quad grid of `around` x `along` (two triangles per quad) gives about `triangles`.
int divisionsFor(int triangles, double aspect) {
    return std::max(3, static_cast<int>(std::sqrt(triangles / 2.0 / aspect)));
}

}  // namespace

PolygonMesh proceduralMesh(const std::string& kind, int triangles) {
    if (kind == "sphere") {
        const int around = divisionsFor(triangles, 0.5);
        return fromTopology(mhost::makeUvSphere(5.0, around, std::max(2, around / 2)));
    }
    if (kind == "torus") {
        const int sides = divisionsFor(triangles, 3.0);
        return fromTopology(mhost::makeTorus(5.0, 1.8, 3 * sides, sides));
    }
    if (kind == "relief") return reliefSurface(triangles);
    if (kind == "plane") {
        const int columns = divisionsFor(triangles, 1.0);
        return fromTopology(mhost::makePlaneGrid(10.0, 10.0, columns, columns));
    }
    // A limb is four times as long as it is round: sides around, 4 x sides along.
    mhost::LimbShape limb;
    limb.length = 8.0;
    limb.radius = 1.2;
    limb.taper = 0.35;
    limb.bendAngle = 0.5;
    limb.sides = divisionsFor(triangles, 4.0 * 0.8);
    limb.segments = static_cast<int>(limb.sides * 3.2);
    limb.capRings = std::max(2, limb.sides / 4);
    return fromTopology(mhost::makeLimb(limb));
}

PolygonMesh loadSourceMesh(const SourceMesh& source) {
    if (!source.objPath.empty()) return readObj(source.objPath);
    return proceduralMesh(source.procedural, source.triangles);
}

}  // namespace kystrake
