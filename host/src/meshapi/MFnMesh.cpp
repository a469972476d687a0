// MFnMesh: attaching, counts, points, polygons, normals, edge smoothing and UVs. Creation is in
// MFnMeshCreate.cpp, ray and closest-point queries in MFnMeshIntersections.cpp.

#include <maya/MFloatArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>

#include "attributes/ApiCall.h"
#include "core/FunctionSet.h"
#include "meshapi/ArrayConversions.h"
#include "meshapi/MFnMeshAccess.h"
#include "meshapi/MeshSpace.h"

MHOST_DEFINE_MFN(MFnMesh, MFn::kMesh)

using mhost::attachedMesh;
using mhost::attachedSpace;
using mhost::guardStatus;
using mhost::guardValue;
using mhost::MeshRef;
using mhost::MeshSpace;
using mhost::MeshTopology;
using mhost::Vec3;
using mhost::Vec3f;

namespace {

template <class PointArray>
MStatus readPoints(const MFnMesh& fn, PointArray& out, MSpace::Space space) {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(fn);
        const MeshSpace& to = attachedSpace(fn, space);
        const MeshTopology& topology = mesh.mesh();
        out.setLength(topology.numVertices());
        for (int v = 0; v < topology.numVertices(); ++v) out[v] = to.pointOut(Vec3(topology.point(v)));
    });
}

template <class PointArray>
MStatus writePoints(MFnMesh& fn, const PointArray& points, MSpace::Space space) {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(fn);
        const MeshSpace& from = attachedSpace(fn, space);
        std::vector<Vec3f> objectPoints(points.length());
        for (unsigned int i = 0; i < points.length(); ++i)
            objectPoints[i] = Vec3f(from.pointIn(MPoint(points[i])));
        mesh.edit([&](MeshTopology& topology) { topology.setPoints(objectPoints); });
    });
}

}  // namespace

MFnMesh::MFnMesh(const MDagPath& object, MStatus* ReturnStatus) {
    MDagPath shape(object);
    if (shape.isValid() && shape.apiType() != MFn::kMesh) shape.extendToShape();
    MStatus status = setObject(shape);
    if (ReturnStatus) *ReturnStatus = status;
}

int MFnMesh::numVertices(MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] { return attachedMesh(*this).mesh().numVertices(); });
}

int MFnMesh::numEdges(MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] { return attachedMesh(*this).mesh().numEdges(); });
}

int MFnMesh::numPolygons(MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] { return attachedMesh(*this).mesh().numFaces(); });
}

int MFnMesh::numFaceVertices(MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] { return attachedMesh(*this).mesh().numFaceVertices(); });
}

int MFnMesh::polygonVertexCount(int polygonId, MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus,
                      [&] { return attachedMesh(*this).mesh().faceVertices(polygonId).size(); });
}

int MFnMesh::numUVs(MStatus* ReturnStatus) const { return numUVs(currentUVSetName(), ReturnStatus); }

int MFnMesh::numUVs(const MString& uvSet, MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] {
        return static_cast<int>(attachedMesh(*this).mesh().uvSets().get(uvSet.asChar()).u.size());
    });
}

MStatus MFnMesh::updateSurface() {
    return guardStatus([&] { attachedMesh(*this).data(); });
}

const float* MFnMesh::getRawPoints(MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] { return attachedMesh(*this).mesh().rawPoints(); });
}

MStatus MFnMesh::getPoints(MFloatPointArray& vertexArray, MSpace::Space space) const {
    return readPoints(*this, vertexArray, space);
}

MStatus MFnMesh::getPoints(MPointArray& vertexArray, MSpace::Space space) const {
    return readPoints(*this, vertexArray, space);
}

MStatus MFnMesh::setPoints(MFloatPointArray& vertexArray, MSpace::Space space) {
    return writePoints(*this, vertexArray, space);
}

MStatus MFnMesh::setPoints(MPointArray& vertexArray, MSpace::Space space) {
    return writePoints(*this, vertexArray, space);
}

MStatus MFnMesh::getVertices(MIntArray& vertexCount, MIntArray& vertexList) const {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        mhost::assignArray(vertexCount, mesh.mesh().polygonCounts());
        mhost::assignArray(vertexList, mesh.mesh().faces().items);
    });
}

MStatus MFnMesh::getPolygonVertices(int polygonId, MIntArray& vertexList) const {
    return guardStatus(
        [&] { mhost::assignArray(vertexList, attachedMesh(*this).mesh().faceVertices(polygonId)); });
}

MStatus MFnMesh::setPoint(int vertexId, const MPoint& pos, MSpace::Space space) {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        const Vec3f objectPoint(attachedSpace(*this, space).pointIn(pos));
        mesh.edit([&](MeshTopology& topology) { topology.setPoint(vertexId, objectPoint); });
    });
}

MStatus MFnMesh::getPoint(int vertexId, MPoint& pos, MSpace::Space space) const {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        pos = attachedSpace(*this, space).pointOut(Vec3(mesh.mesh().point(vertexId)));
    });
}

MStatus MFnMesh::getVertexNormal(int vertexId, bool angleWeighted, MVector& normal,
                                 MSpace::Space space) const {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        mhost::checkIndex("MFnMesh", "vertex", vertexId, mesh.mesh().numVertices());
        normal = attachedSpace(*this, space).normalOut(mesh.mesh().vertexNormals(angleWeighted)[vertexId]);
    });
}

MStatus MFnMesh::getNormals(MFloatVectorArray& normals, MSpace::Space space) const {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        const MeshSpace& to = attachedSpace(*this, space);
        const MeshTopology& topology = mesh.mesh();
        const std::vector<int>& offsets = topology.faces().offsets;
        normals.setLength(static_cast<unsigned int>(topology.numFaceVertices()));
        for (int f = 0; f < topology.numFaces(); ++f)
            for (int n = offsets[f]; n < offsets[f + 1]; ++n)
                normals[n] = to.normalOut(topology.faceVertexNormal(f, n));
    });
}

MStatus MFnMesh::getNormalIds(MIntArray& normalIdCounts, MIntArray& normalIds) const {
    return guardStatus([&] {
        const MeshTopology& mesh = attachedMesh(*this).mesh();
        const int polygons = mesh.numFaces();
        normalIdCounts.setLength(static_cast<unsigned int>(polygons));
        for (int f = 0; f < polygons; ++f) normalIdCounts[f] = static_cast<int>(mesh.faceVertices(f).size());
        normalIds.setLength(static_cast<unsigned int>(mesh.faces().offsets[polygons]));
        for (unsigned int n = 0; n < normalIds.length(); ++n) normalIds[n] = static_cast<int>(n);
    });
}

MStatus MFnMesh::getVertexNormals(bool angleWeighted, MFloatVectorArray& normals, MSpace::Space space) const {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        const MeshSpace& to = attachedSpace(*this, space);
        const std::vector<Vec3>& objectNormals = mesh.mesh().vertexNormals(angleWeighted);
        normals.setLength(static_cast<unsigned int>(objectNormals.size()));
        for (std::size_t v = 0; v < objectNormals.size(); ++v) normals[v] = to.normalOut(objectNormals[v]);
    });
}

MStatus MFnMesh::getPolygonNormal(int polygonId, MVector& normal, MSpace::Space space) const {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        mhost::checkIndex("MFnMesh", "polygon", polygonId, mesh.mesh().numFaces());
        normal = attachedSpace(*this, space).normalOut(mesh.mesh().faceNormals()[polygonId]);
    });
}

MStatus MFnMesh::getEdgeVertices(int edgeId, int2& vertexList) const {
    return guardStatus([&] {
        const auto ends = attachedMesh(*this).mesh().adjacency().edgeVertices(edgeId);
        vertexList[0] = ends.first;
        vertexList[1] = ends.second;
    });
}

bool MFnMesh::onBoundary(int polygonId, MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] {
        const mhost::MeshAdjacency& adjacency = attachedMesh(*this).mesh().adjacency();
        for (int edge : adjacency.faceEdges(polygonId))
            if (adjacency.isBoundaryEdge(edge)) return true;
        return false;
    });
}

bool MFnMesh::isEdgeSmooth(int edgeId, MStatus* ReturnStatus) const {
    return guardValue(ReturnStatus, [&] { return attachedMesh(*this).mesh().isEdgeSmooth(edgeId); });
}

MStatus MFnMesh::setEdgeSmoothing(int edgeId, bool smooth) {
    return guardStatus(
        [&] { attachedMesh(*this).edit([&](MeshTopology& mesh) { mesh.setEdgeSmooth(edgeId, smooth); }); });
}

MStatus MFnMesh::setEdgeSmoothings(const MIntArray& edgeIds, const MIntArray& smooths) {
    return guardStatus([&] {
        if (edgeIds.length() != smooths.length())
            throw mhost::HostError("MFnMesh: setEdgeSmoothings needs one smoothing value per edge");
        const std::vector<int> edges = mhost::intsOf(edgeIds);
        const std::vector<int> smooth = mhost::intsOf(smooths);
        attachedMesh(*this).edit([&](MeshTopology& mesh) { mesh.setEdgesSmooth(edges, smooth); });
    });
}

MStatus MFnMesh::cleanupEdgeSmoothing() {
    return guardStatus([&] { attachedMesh(*this).data(); });
}

MString MFnMesh::currentUVSetName(MStatus* ReturnStatus, int) const {
    return guardValue(ReturnStatus,
                      [&] { return MString(attachedMesh(*this).mesh().uvSets().currentName().c_str()); });
}

MStatus MFnMesh::setUVs(const MFloatArray& uArray, const MFloatArray& vArray, const MString* uvSet) {
    return guardStatus([&] {
        attachedMesh(*this).edit([&](MeshTopology& mesh) {
            mesh.setUvs(mhost::uvSetName(mesh, uvSet), mhost::floatsOf(uArray), mhost::floatsOf(vArray));
        });
    });
}

MStatus MFnMesh::getUVs(MFloatArray& uArray, MFloatArray& vArray, const MString* uvSet) const {
    return guardStatus([&] {
        const MeshTopology& mesh = attachedMesh(*this).mesh();
        const mhost::UvSet& set = mesh.uvSets().get(mhost::uvSetName(mesh, uvSet));
        mhost::assignArray(uArray, set.u);
        mhost::assignArray(vArray, set.v);
    });
}

// Maya's meshes without UVs give and take empty assignment arrays, so that an assignment read from
// such a mesh can be written back to a rebuilt one.
MStatus MFnMesh::assignUVs(const MIntArray& uvCounts, const MIntArray& uvIds, const MString* uvSet) {
    return guardStatus([&] {
        const MeshRef& mesh = attachedMesh(*this);
        if (uvCounts.length() == 0 && uvIds.length() == 0) {
            mesh.mesh().uvSets().get(mhost::uvSetName(mesh.mesh(), uvSet));
            return;
        }
        mesh.edit([&](MeshTopology& topology) {
            topology.assignUvs(mhost::uvSetName(topology, uvSet), mhost::intsOf(uvCounts),
                               mhost::intsOf(uvIds));
        });
    });
}

MStatus MFnMesh::getAssignedUVs(MIntArray& uvCounts, MIntArray& uvIds, const MString* uvSet) const {
    return guardStatus([&] {
        const MeshTopology& mesh = attachedMesh(*this).mesh();
        const mhost::UvSet& set = mesh.uvSets().get(mhost::uvSetName(mesh, uvSet));
        std::vector<int> counts, ids;
        for (int f = 0; !set.u.empty() && f < mesh.numFaces(); ++f) {
            const auto first = set.faceVertexUvIds.begin() + mesh.faces().offsets[f];
            const auto last = set.faceVertexUvIds.begin() + mesh.faces().offsets[f + 1];
            const bool assigned = std::find(first, last, -1) == last;
            counts.push_back(assigned ? static_cast<int>(last - first) : 0);
            if (assigned) ids.insert(ids.end(), first, last);
        }
        mhost::assignArray(uvCounts, counts);
        mhost::assignArray(uvIds, ids);
    });
}
