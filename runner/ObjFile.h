#pragma once
// Polygon meshes in Wavefront OBJ form: reading a source mesh (through tinyobjloader) and writing the
// retopo mesh. Only positions and polygons travel; normals and UVs are not needed by the tool.

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace kystrake {

struct PolygonMesh {
    std::vector<std::array<double, 3>> points;
    std::vector<int> polygonCounts;    // corners per polygon
    std::vector<int> polygonConnects;  // vertex ids, polygon after polygon
};

class ObjError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Reads every shape of the file into one mesh; throws ObjError, naming the file and the line at fault,
// for an unreadable file, a malformed vertex or face line (see checkObjLines), or a file without
// polygons.
PolygonMesh readObj(const std::string& path);
// Writes the mesh; throws ObjError when the file cannot be written.
void writeObj(const PolygonMesh& mesh, const std::string& path);

}  // namespace kystrake
