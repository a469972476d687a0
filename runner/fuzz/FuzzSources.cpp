#include "runner/fuzz/FuzzSources.h"

#include <stdexcept>

#include "runner/SourceMeshes.h"

namespace kystrake {
namespace {

// About this many triangles in every procedural fuzz source: enough surface to draw on, few enough
// that the per-step checks stay fast.
constexpr int kFuzzTriangles = 2000;

void appendQuad(PolygonMesh& mesh, int a, int b, int c, int d) {
    mesh.polygonCounts.push_back(4);
    mesh.polygonConnects.insert(mesh.polygonConnects.end(), {a, b, c, d});
}

void appendTriangle(PolygonMesh& mesh, int a, int b, int c) {
    mesh.polygonCounts.push_back(3);
    mesh.polygonConnects.insert(mesh.polygonConnects.end(), {a, b, c});
}

// The number of quads along one side of a square plane grid, from its vertex count.
int gridSide(const PolygonMesh& grid) {
    int side = 1;
    while ((side + 1) * (side + 1) < static_cast<int>(grid.points.size())) ++side;
    return side;
}

// A plane grid with a fin: two extra quads standing on the grid's middle row of edges, so that those
// edges each carry three faces, and a cone of triangles touching the grid at one corner only.
PolygonMesh nonManifoldMesh() {
    PolygonMesh mesh = proceduralMesh("plane", kFuzzTriangles);
    const int side = gridSide(mesh);
    const int middleRow = side / 2 * (side + 1);
    for (int column = side / 4; column < side / 4 + 2; ++column) {
        const int a = middleRow + column, b = a + 1;
        const auto pa = mesh.points[a];  // copies: the pushes below may move the points
        const auto pb = mesh.points[b];
        const int top = static_cast<int>(mesh.points.size());
        mesh.points.push_back({pb[0], pb[1] + 1.5, pb[2]});
        mesh.points.push_back({pa[0], pa[1] + 1.5, pa[2]});
        appendQuad(mesh, a, b, top, top + 1);
    }
    // The cone: a fan around an apex that shares only vertex 0 with the grid.
    const auto corner = mesh.points[0];
    const int apex = static_cast<int>(mesh.points.size());
    mesh.points.push_back({corner[0] - 1.0, corner[1] + 1.0, corner[2] - 1.0});
    mesh.points.push_back({corner[0] - 2.0, corner[1], corner[2]});
    mesh.points.push_back({corner[0], corner[1], corner[2] - 2.0});
    appendTriangle(mesh, 0, apex, apex + 1);
    appendTriangle(mesh, 0, apex + 2, apex);
    return mesh;
}

// A plane grid with a column of zero-area quads (the middle column of vertices moved on to its left
// neighbours, so that every vertex of it duplicates another), a triangle on three collinear points,
// and three vertices no face uses.
PolygonMesh degenerateMesh() {
    PolygonMesh mesh = proceduralMesh("plane", kFuzzTriangles);
    const int side = gridSide(mesh);
    for (int row = 0; row <= side; ++row) {
        const int v = row * (side + 1) + side / 2;
        mesh.points[v] = mesh.points[v - 1];
    }
    const int base = static_cast<int>(mesh.points.size());
    const auto p = mesh.points[base / 2];
    mesh.points.push_back({p[0], p[1], p[2]});
    mesh.points.push_back({p[0] + 0.5, p[1], p[2]});
    mesh.points.push_back({p[0] + 1.0, p[1], p[2]});
    appendTriangle(mesh, base, base + 1, base + 2);
    for (int i = 0; i < 3; ++i) mesh.points.push_back({p[0] + i, p[1] + 3.0, p[2]});
    return mesh;
}

PolygonMesh scaled(PolygonMesh mesh, double factor) {
    for (auto& point : mesh.points)
        for (double& coordinate : point) coordinate *= factor;
    return mesh;
}

}  // namespace

const std::vector<std::string>& fuzzSourceNames() {
    static const std::vector<std::string> names = {"plane",       "relief",     "sphere", "limb", "torus",
                                                   "nonmanifold", "degenerate", "tiny",   "huge"};
    return names;
}

PolygonMesh fuzzSourceMesh(const std::string& name) {
    if (name == "nonmanifold") return nonManifoldMesh();
    if (name == "degenerate") return degenerateMesh();
    if (name == "tiny") return scaled(proceduralMesh("sphere", kFuzzTriangles), 1e-4);
    if (name == "huge") return scaled(proceduralMesh("sphere", kFuzzTriangles), 1e4);
    for (const char* kind : {"plane", "relief", "sphere", "limb", "torus"})
        if (name == kind) return proceduralMesh(name, kFuzzTriangles);
    throw std::invalid_argument("unknown fuzz source \"" + name + "\"");
}

}  // namespace kystrake
