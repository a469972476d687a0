// MDataHandle's mesh reader that applies the data's matrix; the other readers are in graph/MDataHandle.cpp.

#include <maya/MDataHandle.h>
#include <maya/MPoint.h>

#include "meshnode/MeshData.h"

namespace {

mhost::MeshDataPtr transformed(const mhost::MeshData& data) {
    auto moved = std::static_pointer_cast<mhost::MeshData>(data.clone());
    mhost::MeshTopology& topology = moved->editMesh();
    std::vector<mhost::Vec3f> points(topology.numVertices());
    for (int v = 0; v < topology.numVertices(); ++v) {
        const mhost::Vec3f p = topology.point(v);
        const MPoint world = MPoint(p.x, p.y, p.z) * data.matrix;
        points[v] = mhost::Vec3f(float(world.x), float(world.y), float(world.z));
    }
    topology.setPoints(points);
    moved->matrix = MMatrix();
    return moved;
}

}  // namespace

// A matrix that would throw points out of range gives a null object: the reader has no status to report.
MObject MDataHandle::asMeshTransformed() const {
    const MObject mesh = asMesh();
    const mhost::MeshDataPtr data = mhost::meshDataOf(mesh);
    if (!data || data->matrix == MMatrix::identity) return mesh;
    try {
        return mhost::wrapData(transformed(*data));
    } catch (const std::exception&) {
        return MObject();
    }
}
