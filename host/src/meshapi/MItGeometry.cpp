#include <maya/MDataHandle.h>
#include <maya/MItGeometry.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MVector.h>

#include "meshapi/IteratorCalls.h"
#include "meshnode/MeshComponent.h"

using mhost::MeshRef;
using mhost::MeshTopology;
using mhost::MeshWalk;
using mhost::Vec3;
using mhost::walkStatus;
using mhost::walkValue;

namespace {

constexpr const char* kOwner = "MItGeometry";
constexpr MFn::Type kKind = MFn::kMeshVertComponent;

MeshWalk walkOver(MeshRef mesh, const MObject& component) {
    auto vertices = mhost::componentVertices(component, mesh.mesh());
    return MeshWalk(std::move(mesh), kKind, std::move(vertices));
}

MeshRef handleMesh(MDataHandle& dataHandle) {
    mhost::MeshDataPtr data = mhost::meshDataOf(dataHandle.asMesh());
    if (!data) throw mhost::HostError("MItGeometry: the data handle holds no mesh");
    return MeshRef(data);
}

void requireWritable(bool readOnly) {
    if (readOnly) throw mhost::StatusError(MS::kFailure, "MItGeometry: the iterator is read-only");
}

}  // namespace

MItGeometry::MItGeometry(const MDagPath& dagPath, MStatus* ReturnStatus)
    : MItGeometry(dagPath, MObject::kNullObj, ReturnStatus) {}

MItGeometry::MItGeometry(const MDagPath& dagPath, MObject& component, MStatus* ReturnStatus) {
    const MStatus status = mhost::startWalk(fWalk, [&] { return walkOver(MeshRef::of(dagPath), component); });
    if (ReturnStatus) *ReturnStatus = status;
}

MItGeometry::MItGeometry(MObject& dagObject, MStatus* ReturnStatus) {
    const MStatus status =
        mhost::startWalk(fWalk, [&] { return walkOver(MeshRef::of(dagObject), MObject()); });
    if (ReturnStatus) *ReturnStatus = status;
}

MItGeometry::MItGeometry(MDataHandle& dataHandle, unsigned int, bool readOnly, MStatus* ReturnStatus)
    : MItGeometry(dataHandle, MObject::kNullObj, readOnly, ReturnStatus) {}

MItGeometry::MItGeometry(MDataHandle& dataHandle, bool readOnly, MStatus* ReturnStatus)
    : MItGeometry(dataHandle, MObject::kNullObj, readOnly, ReturnStatus) {}

MItGeometry::MItGeometry(MDataHandle& dataHandle, MObject& component, bool readOnly, MStatus* ReturnStatus)
    : fReadOnly(readOnly) {
    const MStatus status =
        mhost::startWalk(fWalk, [&] { return walkOver(handleMesh(dataHandle), component); });
    if (ReturnStatus) *ReturnStatus = status;
}

MItGeometry::~MItGeometry() = default;
const char* MItGeometry::className() { return "MItGeometry"; }

bool MItGeometry::isDone(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return !fWalk || fWalk->isDone();
}

MStatus MItGeometry::next() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.next(); });
}

MPoint MItGeometry::position(MSpace::Space space, MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return walk.frame(space).pointOut(Vec3(walk.topology().point(walk.current())));
    });
}

MVector MItGeometry::normal(MSpace::Space space, MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [&](MeshWalk& walk) {
        return walk.frame(space).normalOut(walk.topology().vertexNormals(true)[walk.current()]);
    });
}

MStatus MItGeometry::setPosition(const MPoint& point, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        requireWritable(fReadOnly);
        const int vertex = walk.current();
        const mhost::Vec3f objectPoint(walk.frame(space).pointIn(point));
        walk.mesh().edit([&](MeshTopology& mesh) { mesh.setPoint(vertex, objectPoint); });
    });
}

int MItGeometry::index(MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return walk.current(); });
}

MObject MItGeometry::currentItem(MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) {
        auto component = std::make_shared<mhost::MeshComponent>(kKind);
        component->add(walk.current());
        return MObject(component);
    });
}

int MItGeometry::count(MStatus* ReturnStatus) const {
    return walkValue(fWalk, kOwner, ReturnStatus, [](MeshWalk& walk) { return walk.count(); });
}

int MItGeometry::exactCount(MStatus* ReturnStatus) { return count(ReturnStatus); }

MStatus MItGeometry::reset() {
    return walkStatus(fWalk, kOwner, [](MeshWalk& walk) { walk.reset(); });
}

MStatus MItGeometry::allPositions(MPointArray& points, MSpace::Space space) const {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        walk.checkElements();
        const int count = walk.count();
        const mhost::MeshSpace& frame = walk.frame(space);
        // The ids are checked: the coordinates are read straight, as a whole-mesh walk reads them all.
        const float* coords = walk.topology().rawPoints();
        points.setLength(static_cast<unsigned int>(count));
        for (int i = 0; i < count; ++i) {
            const float* p = coords + 3 * static_cast<std::size_t>(walk.elementAt(i));
            points[i] = frame.pointOut(Vec3(p[0], p[1], p[2]));
        }
    });
}

MStatus MItGeometry::setAllPositions(const MPointArray& points, MSpace::Space space) {
    return walkStatus(fWalk, kOwner, [&](MeshWalk& walk) {
        requireWritable(fReadOnly);
        walk.checkElements();
        const int count = walk.count();
        if (points.length() != static_cast<unsigned int>(count))
            throw mhost::HostError("MItGeometry: " + std::to_string(points.length()) + " positions for " +
                                   std::to_string(count) + " points");
        std::vector<mhost::Vec3f> objectPoints(count);
        const mhost::MeshSpace& frame = walk.frame(space);
        for (int i = 0; i < count; ++i) {
            objectPoints[i] = mhost::Vec3f(frame.pointIn(points[i]));
            if (!mhost::isFinite(objectPoints[i]))
                throw mhost::HostError("MItGeometry: a position is not finite");
        }
        walk.mesh().edit([&](MeshTopology& mesh) {
            for (int i = 0; i < count; ++i) mesh.setPoint(walk.elementAt(i), objectPoints[i]);
        });
    });
}
