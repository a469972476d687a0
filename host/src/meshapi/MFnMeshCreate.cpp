// MFnMesh::create and MFnMesh::addPolygon: building a mesh and placing it where parentOrOwner says.

#include <maya/MFloatArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>

#include "attributes/ApiCall.h"
#include "graph/ApiBridge.h"
#include "meshapi/ArrayConversions.h"
#include "meshapi/MFnMeshAccess.h"
#include "meshnode/ShapeGeometry.h"

using mhost::MeshTopology;
using mhost::NodePtr;

namespace {

template <class PointArray>
MeshTopology meshFromArrays(int numVertices, int numPolygons, const PointArray& vertexArray,
                            const MIntArray& polygonCounts, const MIntArray& polygonConnects) {
    if (numVertices < 0 || static_cast<unsigned int>(numVertices) > vertexArray.length())
        throw mhost::HostError("MFnMesh: " + std::to_string(numVertices) + " vertices asked for, " +
                               std::to_string(vertexArray.length()) + " points given");
    if (numPolygons < 0 || static_cast<unsigned int>(numPolygons) != polygonCounts.length())
        throw mhost::HostError("MFnMesh: " + std::to_string(numPolygons) + " polygons asked for, " +
                               std::to_string(polygonCounts.length()) + " counts given");
    std::vector<mhost::Vec3f> points(numVertices);
    for (int v = 0; v < numVertices; ++v) {
        MPoint p(vertexArray[v]);
        p.cartesianize();
        points[v] = mhost::Vec3f(mhost::Vec3(p.x, p.y, p.z));
    }
    return MeshTopology(std::move(points), mhost::intsOf(polygonCounts), mhost::intsOf(polygonConnects));
}

void addUvs(MeshTopology& mesh, const MFloatArray& uArray, const MFloatArray& vArray) {
    mesh.setUvs(mesh.uvSets().currentName(), mhost::floatsOf(uArray), mhost::floatsOf(vArray));
}

std::vector<mhost::Vec3> cornersOf(const MPointArray& vertexArray) {
    std::vector<mhost::Vec3> corners;
    corners.reserve(vertexArray.length());
    for (unsigned int i = 0; i < vertexArray.length(); ++i) {
        MPoint p = vertexArray[i];
        p.cartesianize();
        corners.emplace_back(p.x, p.y, p.z);
    }
    return corners;
}

// A new transform named as Maya names it, with a new mesh shape below it.
NodePtr makeShapeWithTransform() {
    mhost::Scene& scene = mhost::scene();
    NodePtr transform = scene.createNode(mhost::nodeTypes().find("transform"), "polySurface1");
    return scene.createNode(mhost::nodeTypes().find("mesh"), "polySurfaceShape1", transform.get());
}

// The shape that receives a new mesh: the owner itself when it is a mesh shape, a new shape below an
// owning transform, or a new shape under a new transform when there is no owner.
NodePtr receivingShape(const NodePtr& owner) {
    if (!owner) return makeShapeWithTransform();
    if (owner->type->apiType == MFn::kMesh) return owner;
    return mhost::scene().createNode(mhost::nodeTypes().find("mesh"), "polySurfaceShape1", owner.get());
}

// Puts the mesh where parentOrOwner says, attaches the set to it and returns what MFnMesh::create returns.
MObject placeMesh(MFnMesh& fn, MeshTopology mesh, const MObject& parentOrOwner) {
    if (mhost::MeshDataPtr data = mhost::meshDataOf(parentOrOwner)) {
        data->setMesh(std::move(mesh));
        fn.setObject(parentOrOwner);
        return parentOrOwner;
    }
    NodePtr owner = mhost::liveNodeOf(parentOrOwner);
    const bool usable =
        parentOrOwner.isNull() ||
        (owner && owner->type->isDag && (!owner->type->isShape || owner->type->apiType == MFn::kMesh));
    if (!usable)
        throw mhost::HostError("MFnMesh: the parent or owner is no transform, mesh shape or mesh data");
    NodePtr shape = receivingShape(owner);
    mhost::setShapeMesh(shape, std::move(mesh));
    fn.setObject(mhost::wrapNode(shape));
    return mhost::wrapNode(owner ? shape : shape->parent->self());
}

template <class PointArray>
MObject createMesh(MFnMesh& fn, MStatus* ReturnStatus, int numVertices, int numPolygons,
                   const PointArray& vertexArray, const MIntArray& polygonCounts,
                   const MIntArray& polygonConnects, const MObject& parentOrOwner,
                   const MFloatArray* uArray = nullptr, const MFloatArray* vArray = nullptr) {
    return mhost::guardValue(ReturnStatus, [&] {
        MeshTopology mesh =
            meshFromArrays(numVertices, numPolygons, vertexArray, polygonCounts, polygonConnects);
        if (uArray) addUvs(mesh, *uArray, *vArray);
        return placeMesh(fn, std::move(mesh), parentOrOwner);
    });
}

// Whether addPolygon goes into the attached mesh: a shape without vertices counts as having no mesh,
// as an empty Maya shape has no geometry to add to.
bool hasMeshToAddTo(const MFnMesh& fn) {
    if (fn.object().isNull()) return false;
    const mhost::MeshRef& mesh = mhost::attachedMesh(fn);
    return !mesh.isShape() || mesh.mesh().numVertices() > 0 || mesh.mesh().numFaces() > 0;
}

}  // namespace

MObject MFnMesh::create(int numVertices, int numPolygons, const MFloatPointArray& vertexArray,
                        const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                        MObject parentOrOwner, MStatus* ReturnStatus) {
    return createMesh(*this, ReturnStatus, numVertices, numPolygons, vertexArray, polygonCounts,
                      polygonConnects, parentOrOwner);
}

MObject MFnMesh::create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                        const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                        MObject parentOrOwner, MStatus* ReturnStatus) {
    return createMesh(*this, ReturnStatus, numVertices, numPolygons, vertexArray, polygonCounts,
                      polygonConnects, parentOrOwner);
}

MObject MFnMesh::create(int numVertices, int numPolygons, const MFloatPointArray& vertexArray,
                        const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                        const MFloatArray& uArray, const MFloatArray& vArray, MObject parentOrOwner,
                        MStatus* ReturnStatus) {
    return createMesh(*this, ReturnStatus, numVertices, numPolygons, vertexArray, polygonCounts,
                      polygonConnects, parentOrOwner, &uArray, &vArray);
}

MObject MFnMesh::create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                        const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                        const MFloatArray& uArray, const MFloatArray& vArray, MObject parentOrOwner,
                        MStatus* ReturnStatus) {
    return createMesh(*this, ReturnStatus, numVertices, numPolygons, vertexArray, polygonCounts,
                      polygonConnects, parentOrOwner, &uArray, &vArray);
}

MObject MFnMesh::addPolygon(const MPointArray& vertexArray, bool mergeVertices, double pointTolerance,
                            MObject parentOrOwner, MStatus* ReturnStatus) {
    int faceIndex = -1;
    return addPolygon(vertexArray, faceIndex, mergeVertices, pointTolerance, parentOrOwner, ReturnStatus);
}

MObject MFnMesh::addPolygon(const MPointArray& vertexArray, int& faceIndex, bool mergeVertices,
                            double pointTolerance, MObject parentOrOwner, MStatus* ReturnStatus) {
    return mhost::guardValue(ReturnStatus, [&] {
        const std::vector<mhost::Vec3> corners = cornersOf(vertexArray);
        int face = -1;
        MObject result;
        if (hasMeshToAddTo(*this)) {
            const mhost::MeshRef& mesh = mhost::attachedMesh(*this);
            mesh.edit([&](MeshTopology& topology) {
                face = topology.addPolygon(corners, mergeVertices, pointTolerance);
            });
            result = mesh.object();
        } else {
            MeshTopology mesh;
            face = mesh.addPolygon(corners, mergeVertices, pointTolerance);
            result = placeMesh(*this, std::move(mesh), parentOrOwner);
        }
        faceIndex = face;
        return result;
    });
}
