// How scene files store mesh data: points, polygons, hard edges, UV sets and the geometry matrix.
//
// {"points": [x, y, z, ...], "counts": [...], "connects": [...], "hardEdges": [edge ids],
//  "uvSets": [{"name": "map1", "u": [...], "v": [...], "uvIds": [one per face-vertex, -1 unassigned]}],
//  "currentUvSet": "map1", "matrix": [16 numbers, row by row]}
// A polygon gets its UVs back only when every corner has one, as assignUVs takes them.

#include <maya/MMatrix.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "meshnode/MeshData.h"
#include "scenefile/DataSerializers.h"

namespace mhost {
namespace {

using json = nlohmann::json;

json uvSetJson(const UvSet& set) {
    return {{"name", set.name}, {"u", set.u}, {"v", set.v}, {"uvIds", set.faceVertexUvIds}};
}

json matrixJson(const MMatrix& matrix) {
    json rows = json::array();
    for (unsigned int r = 0; r < 4; ++r)
        for (unsigned int c = 0; c < 4; ++c) rows.push_back(matrix(r, c));
    return rows;
}

json write(const DataObject& object) {
    const auto& data = static_cast<const MeshData&>(object);
    const MeshTopology& mesh = data.mesh();
    json hardEdges = json::array();
    for (int e = 0; e < mesh.numEdges(); ++e)
        if (!mesh.isEdgeSmooth(e)) hardEdges.push_back(e);
    json uvSets = json::array();
    for (const std::string& name : mesh.uvSets().names())
        uvSets.push_back(uvSetJson(mesh.uvSets().get(name)));
    return {{"points", std::vector<float>(mesh.rawPoints(), mesh.rawPoints() + 3 * mesh.numVertices())},
            {"counts", mesh.polygonCounts()},
            {"connects", mesh.faces().items},
            {"hardEdges", hardEdges},
            {"uvSets", uvSets},
            {"currentUvSet", mesh.uvSets().currentName()},
            {"matrix", matrixJson(data.matrix)}};
}

MeshTopology meshFromJson(const json& value) {
    const auto coords = value.at("points").get<std::vector<float>>();
    if (coords.size() % 3 != 0) throw HostError("mesh data: the point coordinates do not come in threes");
    std::vector<Vec3f> points;
    for (std::size_t i = 0; i < coords.size(); i += 3)
        points.emplace_back(coords[i], coords[i + 1], coords[i + 2]);
    return MeshTopology(std::move(points), value.at("counts").get<std::vector<int>>(),
                        value.at("connects").get<std::vector<int>>());
}

// The per-face-vertex UV ids of a set as assignUvs takes them: polygon by polygon, all corners or none.
void assignSet(MeshTopology& mesh, const std::string& name, const std::vector<int>& uvIds) {
    if (uvIds.size() != mesh.faces().items.size())
        throw HostError("mesh data: one UV id per face-vertex is needed");
    std::vector<int> counts, ids;
    for (int f = 0; f < mesh.numFaces(); ++f) {
        const auto first = uvIds.begin() + mesh.faces().offsets[f];
        const auto last = uvIds.begin() + mesh.faces().offsets[f + 1];
        const bool assigned = std::find(first, last, -1) == last;
        counts.push_back(assigned ? static_cast<int>(last - first) : 0);
        if (assigned) ids.insert(ids.end(), first, last);
    }
    mesh.assignUvs(name, counts, ids);
}

void readUvSets(MeshTopology& mesh, const json& value) {
    for (const json& set : value.at("uvSets")) {
        const std::string name = set.at("name").get<std::string>();
        if (!mesh.uvSets().has(name)) mesh.createUvSet(name);
        mesh.setUvs(name, set.at("u").get<std::vector<float>>(), set.at("v").get<std::vector<float>>());
        assignSet(mesh, name, set.at("uvIds").get<std::vector<int>>());
    }
    mesh.setCurrentUvSet(value.at("currentUvSet").get<std::string>());
}

MMatrix matrixFromJson(const json& value) {
    MMatrix matrix;
    for (unsigned int r = 0; r < 4; ++r)
        for (unsigned int c = 0; c < 4; ++c) matrix(r, c) = value.at(4 * r + c).get<double>();
    return matrix;
}

DataPtr read(const json& value) {
    MeshTopology mesh = meshFromJson(value);
    for (const json& edge : value.at("hardEdges")) mesh.setEdgeSmooth(edge.get<int>(), false);
    readUvSets(mesh, value);
    auto data = std::make_shared<MeshData>(std::move(mesh));
    data->matrix = matrixFromJson(value.at("matrix"));
    return data;
}

const DataSerializerRegistrar registrar(DataSerializer{MFnData::kMesh, "mesh", write, read});

}  // namespace
}  // namespace mhost
