#include "runner/ObjFile.h"

#include <tiny_obj_loader.h>

#include <cstdio>
#include <fstream>

#include "runner/ObjLines.h"

namespace kystrake {

PolygonMesh readObj(const std::string& path) {
    checkObjLines(path);
    tinyobj::ObjReaderConfig config;
    config.triangulate = false;  // keep quads: the tool works on whatever polygons the file has
    tinyobj::ObjReader reader;
    if (!reader.ParseFromFile(path, config))
        throw ObjError("cannot read \"" + path +
                       "\": " + (reader.Error().empty() ? "no such file" : reader.Error()));
    PolygonMesh mesh;
    const auto& positions = reader.GetAttrib().vertices;
    for (size_t i = 0; i + 2 < positions.size(); i += 3)
        mesh.points.push_back({positions[i], positions[i + 1], positions[i + 2]});
    for (const auto& shape : reader.GetShapes()) {
        for (unsigned char corners : shape.mesh.num_face_vertices) mesh.polygonCounts.push_back(corners);
        for (const auto& index : shape.mesh.indices) mesh.polygonConnects.push_back(index.vertex_index);
    }
    if (mesh.polygonCounts.empty()) throw ObjError("\"" + path + "\" holds no polygons (no \"f\" lines)");
    return mesh;
}

void writeObj(const PolygonMesh& mesh, const std::string& path) {
    std::ofstream file(path);
    if (!file) throw ObjError("cannot write \"" + path + "\"");
    file << "# kyStrake retopo mesh: " << mesh.points.size() << " vertices, " << mesh.polygonCounts.size()
         << " polygons\n";
    char line[128];
    for (const auto& p : mesh.points) {
        std::snprintf(line, sizeof line, "v %.6f %.6f %.6f\n", p[0], p[1], p[2]);
        file << line;
    }
    size_t next = 0;
    for (int count : mesh.polygonCounts) {
        file << "f";
        for (int k = 0; k < count; ++k) file << ' ' << mesh.polygonConnects[next++] + 1;
        file << '\n';
    }
    if (!file) throw ObjError("cannot write \"" + path + "\"");
}

}  // namespace kystrake
