#include "mesh/ops/MeshDraft.h"

#include "core/ApiObject.h"

namespace mhost {

MeshDraft::MeshDraft(const MeshTopology& source) : currentUvSet_(source.uvSets().currentName()) {
    points_.reserve(source.numVertices());
    for (int v = 0; v < source.numVertices(); ++v) points_.push_back(source.point(v));
    copyPolygons(source);
    copyUvSets(source);
    copyHardEdges(source);
}

void MeshDraft::copyPolygons(const MeshTopology& source) {
    cornerVertex_ = source.faces().items;
    polygons_.resize(source.numFaces());
    for (int f = 0; f < source.numFaces(); ++f) {
        for (int c = source.faces().offsets[f]; c < source.faces().offsets[f + 1]; ++c)
            polygons_[f].push_back(c);
    }
}

void MeshDraft::copyUvSets(const MeshTopology& source) {
    for (const std::string& name : source.uvSets().names()) {
        const UvSet& set = source.uvSets().get(name);
        uvSets_.push_back(DraftUvSet{name, set.u, set.v, set.faceVertexUvIds});
    }
}

void MeshDraft::copyHardEdges(const MeshTopology& source) {
    for (int e = 0; e < source.numEdges(); ++e) {
        if (source.isEdgeSmooth(e)) continue;
        const auto [a, b] = source.adjacency().edgeVertices(e);
        setHard(a, b);
    }
}

int MeshDraft::addVertex(const Vec3f& p) {
    points_.push_back(p);
    return numVertices() - 1;
}

std::vector<int> MeshDraft::polygonVertices(int polygon) const {
    std::vector<int> vertices;
    for (int corner : polygons_.at(polygon)) vertices.push_back(cornerVertex_[corner]);
    return vertices;
}

int MeshDraft::addCorner(int vertex, const std::vector<int>& uvIds) {
    if (uvIds.size() != uvSets_.size()) {
        throw HostError("MeshDraft: a corner needs one UV id per UV set, " + std::to_string(uvSets_.size()) +
                        " sets but " + std::to_string(uvIds.size()) + " ids");
    }
    cornerVertex_.push_back(vertex);
    for (std::size_t s = 0; s < uvSets_.size(); ++s) uvSets_[s].cornerUv.push_back(uvIds[s]);
    return static_cast<int>(cornerVertex_.size()) - 1;
}

int MeshDraft::addUv(int set, float u, float v) {
    DraftUvSet& uvSet = uvSets_.at(set);
    uvSet.u.push_back(u);
    uvSet.v.push_back(v);
    return static_cast<int>(uvSet.u.size()) - 1;
}

std::pair<float, float> MeshDraft::uv(int set, int id) const {
    const DraftUvSet& uvSet = uvSets_.at(set);
    return {uvSet.u.at(id), uvSet.v.at(id)};
}

void MeshDraft::renumberVertices(const std::vector<int>& newIds, std::vector<Vec3f> newPoints) {
    for (int& vertex : cornerVertex_) {
        vertex = newIds.at(vertex);
        if (vertex < 0) throw HostError("MeshDraft: a vertex still used by a polygon was dropped");
    }
    std::set<std::pair<int, int>> hardEdges;
    for (const auto& [a, b] : hardEdges_) {
        const int newA = newIds.at(a);
        const int newB = newIds.at(b);
        if (newA >= 0 && newB >= 0 && newA != newB) hardEdges.insert(edgeKey(newA, newB));
    }
    hardEdges_ = std::move(hardEdges);
    points_ = std::move(newPoints);
}

MeshTopology MeshDraft::build() const {
    std::vector<int> counts;
    std::vector<int> connects;
    counts.reserve(polygons_.size());
    for (const auto& polygon : polygons_) {
        counts.push_back(static_cast<int>(polygon.size()));
        for (int corner : polygon) connects.push_back(cornerVertex_[corner]);
    }
    MeshTopology mesh(points_, counts, std::move(connects));
    buildUvSets(mesh);
    buildHardEdges(mesh);
    return mesh;
}

// A polygon keeps its UVs in a set only when every corner has one: the mesh assigns UVs per polygon.
void MeshDraft::buildUvSets(MeshTopology& mesh) const {
    for (const DraftUvSet& set : uvSets_) {
        if (!mesh.uvSets().has(set.name)) mesh.createUvSet(set.name);
        mesh.setUvs(set.name, set.u, set.v);
        std::vector<int> uvCounts;
        std::vector<int> uvIds;
        for (const auto& polygon : polygons_) {
            bool assigned = true;
            for (int corner : polygon) assigned = assigned && set.cornerUv[corner] >= 0;
            uvCounts.push_back(assigned ? static_cast<int>(polygon.size()) : 0);
            if (!assigned) continue;
            for (int corner : polygon) uvIds.push_back(set.cornerUv[corner]);
        }
        mesh.assignUvs(set.name, uvCounts, uvIds);
    }
    mesh.setCurrentUvSet(currentUvSet_);
}

void MeshDraft::buildHardEdges(MeshTopology& mesh) const {
    for (const auto& [a, b] : hardEdges_) {
        const int edge = mesh.adjacency().findEdge(a, b);
        if (edge >= 0) mesh.setEdgeSmooth(edge, false);
    }
}

}  // namespace mhost
