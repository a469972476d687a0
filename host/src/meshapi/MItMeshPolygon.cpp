#include <maya/MIntArray.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MPointArray.h>

#include <algorithm>
#include <unordered_set>

#include "meshapi/ArrayConversions.h"
#include "meshapi/IteratorCalls.h"
#include "meshnode/MeshComponent.h"

using mhost::IndexRange;
using mhost::MeshTopology;
using mhost::MeshWalk;
using mhost::Vec3;
using mhost::walkStatus;
using mhost::walkValue;

namespace {

constexpr const char* kOwner = "MItMeshPolygon";
constexpr MFn::Type kKind = MFn::kMeshPolygonComponent;

// Collects ids in order of first appearance, leaving out those it is told to skip.
class IdList {
public:
    explicit IdList(IndexRange skipped) : skipped_(skipped.begin(), skipped.end()) {}
    void add(int id) {
        if (skipped_.insert(id).second) ids_.push_back(id);
    }
    const std::vector<int>& ids() const { return ids_; }

private:
    std::unordered_set<int> skipped_;
    std::vector<int> ids_;
};

std::vector<int> connectedFaces(const MeshTopology& mesh, int face) {
    const mhost::MeshAdjacency& adjacency = mesh.adjacency();
    IdList faces({&face, &face + 1});
    for (int edge : adjacency.faceEdges(face))
        for (int other : adjacency.edgeFaces(edge)) faces.add(other);
    return faces.ids();
}

std::vector<int> connectedEdges(const MeshTopology& mesh, int face) {
    const mhost::MeshAdjacency& adjacency = mesh.adjacency();
    IdList edges(adjacency.faceEdges(face));
    for (int vertex : mesh.faceVertices(face))
        for (int edge : adjacency.vertexEdges(vertex)) edges.add(edge);
    return edges.ids();
}

std::vector<int> connectedVertices(const MeshTopology& mesh, int face) {
    const mhost::MeshAdjacency& adjacency = mesh.adjacency();
    IdList vertices(mesh.faceVertices(face));
    for (int vertex : mesh.faceVertices(face)) {
        for (int edge : adjacency.vertexEdges(vertex)) {
            const auto ends = adjacency.edgeVertices(edge);
            vertices.add(ends.first == vertex ? ends.second : ends.first);
        }
    }
    return vertices.ids();
}

int cornerVertex(const MeshWalk& walk, int corner) {
    const IndexRange corners = walk.topology().faceVertices(walk.current());
    mhost::checkIndex(kOwner, "corner", corner, corners.size());
    return corners[corner];
}

MPoint cornerPoint(const MeshWalk& walk, int corner, MSpace::Space space) {
    return walk.frame(space).pointOut(Vec3(walk.topology().point(cornerVertex(walk, corner))));
}

bool contains(const std::vector<int>& ids, int id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

double areaOf(const MeshWalk& walk, MSpace::Space space) {
    const int corners = walk.topology().faceVertices(walk.current()).size();
    const MPoint origin = cornerPoint(walk, 0, space);
    Vec3 twiceArea;
    for (int k = 1; k + 1 < corners; ++k)
        twiceArea += mhost::cross(mhost::toVec3(cornerPoint(walk, k, space) - origin),
                                  mhost::toVec3(cornerPoint(walk, k + 1, space) - origin));
    return mhost::length(twiceArea) / 2;
}

}  // namespace

MItMeshPolygon::MItMeshPolygon(const MObject& polyObject, MStatus* ReturnStatus) {
    const MStatus status = reset(polyObject);
    if (ReturnStatus) *ReturnStatus = status;
}

MItMeshPolygon::MItMeshPolygon(const MDagPath& polyObject, MObject& component, MStatus* ReturnStatus) {
    const MStatus status = reset(polyObject, component);
    if (ReturnStatus) *ReturnStatus = status;
}

MItMeshPolygon::~MItMeshPolygon() = default;
const char* MItMeshPolygon::className() { return "MItMeshPolygon"; }

bool MItMeshPolygon::isDone(MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return !fWalk || fWalk->isDone();
}

MStatus MItMeshPolygon::next() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.next(); });
}

MStatus MItMeshPolygon::reset() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.reset(); });
}

MStatus MItMeshPolygon::reset(const MObject& polyObject) {
    return mhost::startWalk(fWalk,
                            [&] { return MeshWalk(mhost::MeshRef::of(polyObject), kKind, std::nullopt); });
}

MStatus MItMeshPolygon::reset(const MDagPath& polyObject, MObject& component) {
    return mhost::startWalk(fWalk, [&] {
        return MeshWalk(mhost::MeshRef::of(polyObject), kKind, mhost::componentElements(component, kKind));
    });
}

unsigned int MItMeshPolygon::count(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return unsigned(walk.count()); });
}

unsigned int MItMeshPolygon::polygonVertexCount(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        return unsigned(walk.topology().faceVertices(walk.current()).size());
    });
}

MPoint MItMeshPolygon::center(MSpace::Space space, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        const IndexRange corners = walk.topology().faceVertices(walk.current());
        Vec3 sum;
        for (int vertex : corners) sum += Vec3(walk.topology().point(vertex));
        return walk.frame(space).pointOut(sum * (1.0 / corners.size()));
    });
}

MObject MItMeshPolygon::currentItem(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        auto component = std::make_shared<mhost::MeshComponent>(kKind);
        component->add(walk.current());
        return MObject(component);
    });
}

unsigned int MItMeshPolygon::index(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return unsigned(walk.current()); });
}

MStatus MItMeshPolygon::setIndex(int index, int& prevIndex) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) { prevIndex = walk.moveTo(index); });
}

unsigned int MItMeshPolygon::vertexIndex(int index, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus,
                     [&](MeshWalk& walk) { return unsigned(cornerVertex(walk, index)); });
}

MStatus MItMeshPolygon::getVertices(MIntArray& vertices) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        mhost::assignArray(vertices, walk.topology().faceVertices(walk.current()));
    });
}

MPoint MItMeshPolygon::point(int index, MSpace::Space space, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus,
                     [&](MeshWalk& walk) { return cornerPoint(walk, index, space); });
}

void MItMeshPolygon::getPoints(MPointArray& pointArray, MSpace::Space space, MStatus* ReturnStatus) {
    const MStatus status = walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int corners = walk.topology().faceVertices(walk.current()).size();
        pointArray.setLength(corners);
        for (int k = 0; k < corners; ++k) pointArray[k] = cornerPoint(walk, k, space);
    });
    if (ReturnStatus) *ReturnStatus = status;
}

MStatus MItMeshPolygon::setPoint(const MPoint& point, unsigned int index, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int vertex = cornerVertex(walk, static_cast<int>(std::min(index, 1u << 30)));
        const mhost::Vec3f objectPoint(walk.frame(space).pointIn(point));
        walk.mesh().edit([&](MeshTopology& mesh) { mesh.setPoint(vertex, objectPoint); });
    });
}

MStatus MItMeshPolygon::setPoints(MPointArray& pointArray, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const IndexRange corners = walk.topology().faceVertices(walk.current());
        if (pointArray.length() != static_cast<unsigned int>(corners.size()))
            throw mhost::HostError("MItMeshPolygon: setPoints needs one point per corner");
        std::vector<std::pair<int, mhost::Vec3f>> moves;
        for (int k = 0; k < corners.size(); ++k)
            moves.emplace_back(corners[k], mhost::Vec3f(walk.frame(space).pointIn(pointArray[k])));
        walk.mesh().edit([&](MeshTopology& mesh) {
            for (const auto& [vertex, p] : moves) mesh.setPoint(vertex, p);
        });
    });
}

MStatus MItMeshPolygon::getNormal(MVector& normal, MSpace::Space space) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        normal = walk.frame(space).normalOut(walk.topology().faceNormals()[walk.current()]);
    });
}

MStatus MItMeshPolygon::getNormal(unsigned int Vertexindex, MVector& normal, MSpace::Space space) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int face = walk.current();
        const int corners = walk.topology().faceVertices(face).size();
        const int corner = static_cast<int>(std::min(Vertexindex, 1u << 30));
        mhost::checkIndex(kOwner, "corner", corner, corners);
        const int faceVertex = walk.topology().faces().offsets[face] + corner;
        normal = walk.frame(space).normalOut(walk.topology().faceVertexNormal(face, faceVertex));
    });
}

MStatus MItMeshPolygon::getNormals(MVectorArray& vectorArray, MSpace::Space space) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        const int face = walk.current();
        const int first = walk.topology().faces().offsets[face];
        const int corners = walk.topology().faceVertices(face).size();
        const MeshTopology& topology = walk.topology();
        const mhost::MeshSpace& frame = walk.frame(space);
        vectorArray.setLength(corners);
        for (int k = 0; k < corners; ++k)
            vectorArray[k] = frame.normalOut(topology.faceVertexNormal(face, first + k));
    });
}

MStatus MItMeshPolygon::numTriangles(int& count) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        count = walk.topology().faceVertices(walk.current()).size() - 2;
    });
}

bool MItMeshPolygon::hasUVs(MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        const MeshTopology& mesh = walk.topology();
        const std::vector<int>& uvIds = mesh.uvSets().get(mesh.uvSets().currentName()).faceVertexUvIds;
        const int face = walk.current();
        const auto first = uvIds.begin() + mesh.faces().offsets[face];
        const auto last = uvIds.begin() + mesh.faces().offsets[face + 1];
        return std::find(first, last, -1) == last;
    });
}

MStatus MItMeshPolygon::updateSurface() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.mesh().data(); });
}

MStatus MItMeshPolygon::geomChanged() { return updateSurface(); }

MStatus MItMeshPolygon::getEdges(MIntArray& edges) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        mhost::assignArray(edges, walk.topology().adjacency().faceEdges(walk.current()));
    });
}

MStatus MItMeshPolygon::getConnectedFaces(MIntArray& faces) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        mhost::assignArray(faces, connectedFaces(walk.topology(), walk.current()));
    });
}

MStatus MItMeshPolygon::getConnectedEdges(MIntArray& edges) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        mhost::assignArray(edges, connectedEdges(walk.topology(), walk.current()));
    });
}

MStatus MItMeshPolygon::getConnectedVertices(MIntArray& vertices) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        mhost::assignArray(vertices, connectedVertices(walk.topology(), walk.current()));
    });
}

bool MItMeshPolygon::isConnectedToFace(int index, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return contains(connectedFaces(walk.topology(), walk.current()), index);
    });
}

bool MItMeshPolygon::isConnectedToEdge(int index, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return contains(walk.topology().adjacency().faceEdges(walk.current()).toVector(), index);
    });
}

bool MItMeshPolygon::isConnectedToVertex(int index, MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return contains(walk.topology().faceVertices(walk.current()).toVector(), index);
    });
}

MStatus MItMeshPolygon::numConnectedFaces(int& faceCount) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        faceCount = static_cast<int>(connectedFaces(walk.topology(), walk.current()).size());
    });
}

MStatus MItMeshPolygon::numConnectedEdges(int& edgeCount) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        edgeCount = static_cast<int>(connectedEdges(walk.topology(), walk.current()).size());
    });
}

bool MItMeshPolygon::onBoundary(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        const mhost::MeshAdjacency& adjacency = walk.topology().adjacency();
        const IndexRange edges = adjacency.faceEdges(walk.current());
        return std::any_of(edges.begin(), edges.end(),
                           [&](int edge) { return adjacency.isBoundaryEdge(edge); });
    });
}

MStatus MItMeshPolygon::getArea(double& area, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) { area = areaOf(walk, space); });
}

bool MItMeshPolygon::zeroArea(MStatus* ReturnStatus) {
    return walkValue(fWalk, kOwner, ReturnStatus,
                     [](MeshWalk& walk) { return areaOf(walk, MSpace::kObject) == 0; });
}
