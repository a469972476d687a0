#pragma once
// The dense procedural source the speed benchmarks run on: its size, 1,000,000 triangles unless the
// command line says `--triangles=N`, and its polygons as raw Embree takes them.

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "runner/ObjFile.h"
#include "runner/SourceMeshes.h"

namespace kybench {

inline int& sourceTriangleCount() {
    static int count = 1000000;
    return count;
}

// Takes `--triangles=N` out of the arguments, before Google Benchmark reads them.
inline void takeTriangleCount(int& argc, char** argv) {
    const char* const flag = "--triangles=";
    int kept = 0;
    for (int i = 0; i < argc; ++i) {
        if (std::strncmp(argv[i], flag, std::strlen(flag)) == 0)
            sourceTriangleCount() = std::atoi(argv[i] + std::strlen(flag));
        else
            argv[kept++] = argv[i];
    }
    argc = kept;
}

// The closed limb of the runner's procedural sources, made once.
inline const kystrake::PolygonMesh& denseSource() {
    static const kystrake::PolygonMesh mesh = kystrake::proceduralMesh("limb", sourceTriangleCount());
    return mesh;
}

// "1,000,000": the triangle count as the figures print it.
inline std::string triangleCountText() {
    std::string digits = std::to_string(sourceTriangleCount());
    for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3) digits.insert(i, ",");
    return digits;
}

// Each polygon as a fan of triangles from its first corner.
inline std::vector<unsigned> fanTriangles(const kystrake::PolygonMesh& mesh) {
    std::vector<unsigned> triangles;
    std::size_t corner = 0;
    for (int count : mesh.polygonCounts) {
        for (int k = 1; k + 1 < count; ++k)
            for (int c : {0, k, k + 1}) triangles.push_back(mesh.polygonConnects[corner + c]);
        corner += count;
    }
    return triangles;
}

inline std::vector<float> floatPoints(const kystrake::PolygonMesh& mesh) {
    std::vector<float> points;
    points.reserve(3 * mesh.points.size());
    for (const auto& p : mesh.points)
        for (double coordinate : p) points.push_back(static_cast<float>(coordinate));
    return points;
}

}  // namespace kybench
