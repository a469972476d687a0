#include <maya/MIntArray.h>
#include <maya/MItMeshVertex.h>

#include <algorithm>

#include "meshapi/ArrayConversions.h"
#include "meshapi/IteratorCalls.h"
#include "meshnode/MeshComponent.h"

using mhost::MeshTopology;
using mhost::MeshWalk;
using mhost::Vec3;
using mhost::walkStatus;
using mhost::walkValue;

namespace {

constexpr const char* kOwner = "MItMeshVertex";
constexpr MFn::Type kKind = MFn::kMeshVertComponent;

// The face-vertex normal of `vertex` in `face`; throws when the face does not use the vertex.
Vec3 cornerNormal(const MeshTopology& mesh, int vertex, int face) {
    const mhost::IndexRange corners = mesh.faceVertices(face);
    const auto corner = std::find(corners.begin(), corners.end(), vertex);
    if (corner == corners.end())
        throw mhost::HostError("MItMeshVertex: polygon " + std::to_string(face) + " does not use vertex " +
                               std::to_string(vertex));
    return mesh.faceVertexNormal(face,
                                 mesh.faces().offsets[face] + static_cast<int>(corner - corners.begin()));
}

// Written straight into the caller's array: a brush asks for the neighbours of every vertex it moves.
void neighbourVertices(const MeshTopology& mesh, int vertex, MIntArray& neighbours) {
    const mhost::IndexRange edges = mesh.adjacency().vertexEdges(vertex);
    neighbours.setLength(static_cast<unsigned int>(edges.size()));
    unsigned int i = 0;
    for (int edge : edges) {
        const auto ends = mesh.adjacency().edgeVertices(edge);
        neighbours[i++] = ends.first == vertex ? ends.second : ends.first;
    }
}

bool contains(const mhost::IndexRange& ids, int id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

}  // namespace

MItMeshVertex::MItMeshVertex(MObject& polyObject, MStatus* ReturnStatus) {
    const MStatus status = reset(polyObject);
    if (ReturnStatus) *ReturnStatus = status;
}

MItMeshVertex::MItMeshVertex(const MDagPath& polyObject, MObject& component, MStatus* ReturnStatus) {
    const MStatus status = reset(polyObject, component);
    if (ReturnStatus) *ReturnStatus = status;
}

MItMeshVertex::~MItMeshVertex() = default;
const char* MItMeshVertex::className() { return "MItMeshVertex"; }

bool MItMeshVertex::isDone(MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return !fWalk || fWalk->isDone();
}

MStatus MItMeshVertex::next() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.next(); });
}

MStatus MItMeshVertex::reset() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.reset(); });
}

MStatus MItMeshVertex::reset(MObject& polyObject) {
    return mhost::startWalk(fWalk,
                            [&] { return MeshWalk(mhost::MeshRef::of(polyObject), kKind, std::nullopt); });
}

MStatus MItMeshVertex::reset(const MDagPath& polyObject, MObject& component) {
    return mhost::startWalk(fWalk, [&] {
        return MeshWalk(mhost::MeshRef::of(polyObject), kKind, mhost::componentElements(component, kKind));
    });
}

int MItMeshVertex::count(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return walk.count(); });
}

int MItMeshVertex::index(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return walk.current(); });
}

MObject MItMeshVertex::currentItem(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        auto component = std::make_shared<mhost::MeshComponent>(kKind);
        component->add(walk.current());
        return MObject(component);
    });
}

MStatus MItMeshVertex::setIndex(int index, int& prevIndex) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) { prevIndex = walk.moveTo(index); });
}

MPoint MItMeshVertex::position(MSpace::Space space, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return walk.frame(space).pointOut(Vec3(walk.topology().point(walk.current())));
    });
}

MStatus MItMeshVertex::setPosition(const MPoint& point, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int vertex = walk.current();
        const mhost::Vec3f objectPoint(walk.frame(space).pointIn(point));
        walk.mesh().edit([&](MeshTopology& mesh) { mesh.setPoint(vertex, objectPoint); });
    });
}

MStatus MItMeshVertex::translateBy(const MVector& vector, MSpace::Space space) {
    MStatus status;
    const MPoint moved = position(space, &status) + vector;
    return status ? setPosition(moved, space) : status;
}

MStatus MItMeshVertex::getNormal(MVector& vector, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        vector = walk.frame(space).normalOut(walk.topology().vertexNormals(true)[walk.current()]);
    });
}

MStatus MItMeshVertex::getNormal(MVector& vector, int faceIndex, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        vector = walk.frame(space).normalOut(cornerNormal(walk.topology(), walk.current(), faceIndex));
    });
}

MStatus MItMeshVertex::getNormals(MVectorArray& vectorArray, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int vertex = walk.current();
        const mhost::IndexRange faces = walk.topology().adjacency().vertexFaces(vertex);
        vectorArray.setLength(faces.size());
        for (int i = 0; i < faces.size(); ++i)
            vectorArray[i] = walk.frame(space).normalOut(cornerNormal(walk.topology(), vertex, faces[i]));
    });
}

MStatus MItMeshVertex::getConnectedFaces(MIntArray& faceList) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        mhost::assignArray(faceList, walk.topology().adjacency().vertexFaces(walk.current()));
    });
}

MStatus MItMeshVertex::getConnectedEdges(MIntArray& edgeList) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        mhost::assignArray(edgeList, walk.topology().adjacency().vertexEdges(walk.current()));
    });
}

MStatus MItMeshVertex::getConnectedVertices(MIntArray& vertexList) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        neighbourVertices(walk.topology(), walk.current(), vertexList);
    });
}

MStatus MItMeshVertex::numConnectedFaces(int& faceCount) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        faceCount = walk.topology().adjacency().vertexFaces(walk.current()).size();
    });
}

MStatus MItMeshVertex::numConnectedEdges(int& edgeCount) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        edgeCount = walk.topology().adjacency().vertexEdges(walk.current()).size();
    });
}

bool MItMeshVertex::connectedToFace(int faceIndex, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return contains(walk.topology().adjacency().vertexFaces(walk.current()), faceIndex);
    });
}

bool MItMeshVertex::connectedToEdge(int edgeIndex, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return contains(walk.topology().adjacency().vertexEdges(walk.current()), edgeIndex);
    });
}

MStatus MItMeshVertex::getOppositeVertex(int& vertexId, int edgeId) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int vertex = walk.current();
        const auto ends = walk.topology().adjacency().edgeVertices(edgeId);
        if (ends.first != vertex && ends.second != vertex)
            throw mhost::HostError("MItMeshVertex: edge " + std::to_string(edgeId) +
                                   " does not end at vertex " + std::to_string(vertex));
        vertexId = ends.first == vertex ? ends.second : ends.first;
    });
}

bool MItMeshVertex::onBoundary(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        return walk.topology().adjacency().isBoundaryVertex(walk.current());
    });
}

MStatus MItMeshVertex::updateSurface() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.mesh().data(); });
}

MStatus MItMeshVertex::geomChanged() { return updateSurface(); }
