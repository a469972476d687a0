#include <maya/MIntArray.h>
#include <maya/MItMeshEdge.h>

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

constexpr const char* kOwner = "MItMeshEdge";
constexpr MFn::Type kKind = MFn::kMeshEdgeComponent;

// The vertex at end 0 or 1 of an edge.
int endOf(const MeshTopology& mesh, int edge, int end) {
    if (end != 0 && end != 1)
        throw mhost::HostError("MItMeshEdge: an edge has ends 0 and 1, not " + std::to_string(end));
    const auto ends = mesh.adjacency().edgeVertices(edge);
    return end == 0 ? ends.first : ends.second;
}

std::vector<int> neighbourEdges(const MeshTopology& mesh, int edge) {
    std::vector<int> neighbours;
    for (int end : {0, 1})
        for (int other : mesh.adjacency().vertexEdges(endOf(mesh, edge, end)))
            if (other != edge) neighbours.push_back(other);
    return neighbours;
}

MPoint endPoint(const MeshWalk& walk, int end, MSpace::Space space) {
    return walk.frame(space).pointOut(
        Vec3(walk.topology().point(endOf(walk.topology(), walk.current(), end))));
}

}  // namespace

MItMeshEdge::MItMeshEdge(MObject& polyObject, MStatus* ReturnStatus) {
    const MStatus status = reset(polyObject);
    if (ReturnStatus) *ReturnStatus = status;
}

MItMeshEdge::MItMeshEdge(MObject& polyObject, MObject& component, MStatus* ReturnStatus) {
    const MStatus status = reset(polyObject, component);
    if (ReturnStatus) *ReturnStatus = status;
}

MItMeshEdge::MItMeshEdge(const MDagPath& polyObject, MObject& component, MStatus* ReturnStatus) {
    const MStatus status = reset(polyObject, component);
    if (ReturnStatus) *ReturnStatus = status;
}

MItMeshEdge::~MItMeshEdge() = default;
const char* MItMeshEdge::className() { return "MItMeshEdge"; }

bool MItMeshEdge::isDone(MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return !fWalk || fWalk->isDone();
}

MStatus MItMeshEdge::next() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.next(); });
}

MStatus MItMeshEdge::reset() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.reset(); });
}

MStatus MItMeshEdge::reset(MObject& polyObject, MObject& component) {
    return mhost::startWalk(fWalk, [&] {
        return MeshWalk(mhost::MeshRef::of(polyObject), kKind, mhost::componentElements(component, kKind));
    });
}

MStatus MItMeshEdge::reset(const MDagPath& polyObject, MObject& component) {
    return mhost::startWalk(fWalk, [&] {
        return MeshWalk(mhost::MeshRef::of(polyObject), kKind, mhost::componentElements(component, kKind));
    });
}

int MItMeshEdge::count(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return walk.count(); });
}

MPoint MItMeshEdge::center(MSpace::Space space, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        const MPoint a = endPoint(walk, 0, space), b = endPoint(walk, 1, space);
        return MPoint((a.x + b.x) / 2, (a.y + b.y) / 2, (a.z + b.z) / 2);
    });
}

MPoint MItMeshEdge::point(int index, MSpace::Space space, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus,
                     [&](MeshWalk& walk) { return endPoint(walk, index, space); });
}

MStatus MItMeshEdge::setPoint(const MPoint& point, unsigned int index, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int vertex = endOf(walk.topology(), walk.current(), static_cast<int>(std::min(index, 2u)));
        const mhost::Vec3f objectPoint(walk.frame(space).pointIn(point));
        walk.mesh().edit([&](MeshTopology& mesh) { mesh.setPoint(vertex, objectPoint); });
    });
}

bool MItMeshEdge::isSmooth(MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus,
                     [](MeshWalk& walk) { return walk.topology().isEdgeSmooth(walk.current()); });
}

MStatus MItMeshEdge::setSmoothing(bool smooth) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int edge = walk.current();
        walk.mesh().edit([&](MeshTopology& mesh) { mesh.setEdgeSmooth(edge, smooth); });
    });
}

int MItMeshEdge::index(int index, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus,
                     [&](MeshWalk& walk) { return endOf(walk.topology(), walk.current(), index); });
}

int MItMeshEdge::index(MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return walk.current(); });
}

MObject MItMeshEdge::currentItem(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        auto component = std::make_shared<mhost::MeshComponent>(kKind);
        component->add(walk.current());
        return MObject(component);
    });
}

MStatus MItMeshEdge::updateSurface() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.mesh().data(); });
}

MStatus MItMeshEdge::geomChanged() { return updateSurface(); }

MStatus MItMeshEdge::setIndex(int index, int& prevIndex) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) { prevIndex = walk.moveTo(index); });
}

int MItMeshEdge::getConnectedFaces(MIntArray& faceList, MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        mhost::assignArray(faceList, walk.topology().adjacency().edgeFaces(walk.current()));
        return static_cast<int>(faceList.length());
    });
}

int MItMeshEdge::getConnectedEdges(MIntArray& edgeList, MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        mhost::assignArray(edgeList, neighbourEdges(walk.topology(), walk.current()));
        return static_cast<int>(edgeList.length());
    });
}

MStatus MItMeshEdge::numConnectedFaces(int& faceCount) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        faceCount = walk.topology().adjacency().edgeFaces(walk.current()).size();
    });
}

MStatus MItMeshEdge::numConnectedEdges(int& edgeCount) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        edgeCount = static_cast<int>(neighbourEdges(walk.topology(), walk.current()).size());
    });
}

bool MItMeshEdge::connectedToFace(int index, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        const mhost::IndexRange faces = walk.topology().adjacency().edgeFaces(walk.current());
        return std::find(faces.begin(), faces.end(), index) != faces.end();
    });
}

bool MItMeshEdge::connectedToEdge(int index, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        const std::vector<int> edges = neighbourEdges(walk.topology(), walk.current());
        return std::find(edges.begin(), edges.end(), index) != edges.end();
    });
}

bool MItMeshEdge::onBoundary(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        return walk.topology().adjacency().isBoundaryEdge(walk.current());
    });
}

MStatus MItMeshEdge::getLength(double& length, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        length = endPoint(walk, 0, space).distanceTo(endPoint(walk, 1, space));
    });
}
