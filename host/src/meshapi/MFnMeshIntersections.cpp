// MFnMesh's ray and closest-point queries, answered by the accelerator the mesh data keeps.

#include <maya/MFloatArray.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFloatVector.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>

#include <limits>

#include "attributes/ApiCall.h"
#include "meshapi/ArrayConversions.h"
#include "meshapi/MFnMeshAccess.h"
#include "meshapi/MeshSpace.h"

using mhost::MeshRef;
using mhost::MeshSpace;
using mhost::RayHit;
using mhost::RayQuery;

namespace {

enum AccelType { kNoAccelerator, kUniformGrid, kAutoUniformGrid };

std::optional<std::vector<int>> idsOf(const MIntArray* ids) {
    if (!ids) return std::nullopt;
    return mhost::intsOf(*ids);
}

// A ray query in the mesh's object space; directions scale with the matrix, so ray parameters are
// the same in both spaces.
RayQuery queryOf(const MeshSpace& space, const MFloatPoint& raySource, const MFloatVector& rayDirection,
                 const MIntArray* faceIds, const MIntArray* triIds, float maxParam, bool testBothDirections,
                 float tolerance) {
    RayQuery query;
    query.origin = space.pointIn(MPoint(raySource));
    query.direction = space.directionIn(MVector(rayDirection));
    query.maxParam = maxParam;
    query.bothDirections = testBothDirections;
    query.faceIds = idsOf(faceIds);
    query.triangleIds = idsOf(triIds);
    query.tolerance = tolerance;
    return query;
}

template <class T, class Member>
void writeEach(T* out, const std::vector<RayHit>& hits, Member member) {
    if (!out) return;
    out->setLength(static_cast<unsigned int>(hits.size()));
    for (std::size_t i = 0; i < hits.size(); ++i) (*out)[i] = hits[i].*member;
}

template <class T>
void writeIfWanted(T* out, const T& value) {
    if (out) *out = value;
}

// The surface point nearest to toThisPoint, with the space it was asked in.
std::pair<mhost::SurfacePoint, MeshSpace> closestOn(const MFnMesh& fn, const MPoint& toThisPoint,
                                                    MSpace::Space space) {
    const MeshRef& mesh = mhost::attachedMesh(fn);
    const MeshSpace& frame = mhost::attachedSpace(fn, space);
    const auto found = mesh.data()->accelerator().closestPoint(frame.pointIn(toThisPoint),
                                                               std::numeric_limits<double>::infinity());
    if (!found) throw mhost::StatusError(MS::kFailure, "MFnMesh: the mesh has no polygons to be near");
    return {*found, frame};
}

}  // namespace

MMeshIsectAccelParams::MMeshIsectAccelParams()
    : type(kNoAccelerator), xDiv(0), yDiv(0), zDiv(0), verbose(false) {}

MMeshIsectAccelParams MFnMesh::uniformGridParams(int xDiv, int yDiv, int zDiv) {
    MMeshIsectAccelParams params;
    params.type = kUniformGrid;
    params.xDiv = xDiv;
    params.yDiv = yDiv;
    params.zDiv = zDiv;
    return params;
}

MMeshIsectAccelParams MFnMesh::autoUniformGridParams() {
    MMeshIsectAccelParams params;
    params.type = kAutoUniformGrid;
    return params;
}

bool MFnMesh::closestIntersection(const MFloatPoint& raySource, const MFloatVector& rayDirection,
                                  const MIntArray* faceIds, const MIntArray* triIds, bool,
                                  MSpace::Space space, float maxParam, bool testBothDirections,
                                  MMeshIsectAccelParams*, MFloatPoint& hitPoint, float* hitRayParam,
                                  int* hitFace, int* hitTriangle, float* hitBary1, float* hitBary2,
                                  float tolerance, MStatus* ReturnStatus) {
    return mhost::guardValue(ReturnStatus, [&] {
        const MeshRef& mesh = mhost::attachedMesh(*this);
        const MeshSpace& frame = mhost::attachedSpace(*this, space);
        const auto hit = mesh.data()->accelerator().closestIntersection(queryOf(
            frame, raySource, rayDirection, faceIds, triIds, maxParam, testBothDirections, tolerance));
        if (!hit) return false;
        hitPoint = MFloatPoint(frame.pointOut(hit->point));
        writeIfWanted(hitRayParam, float(hit->param));
        writeIfWanted(hitFace, hit->faceId);
        writeIfWanted(hitTriangle, hit->triangleId);
        writeIfWanted(hitBary1, float(hit->bary1));
        writeIfWanted(hitBary2, float(hit->bary2));
        return true;
    });
}

bool MFnMesh::allIntersections(const MFloatPoint& raySource, const MFloatVector& rayDirection,
                               const MIntArray* faceIds, const MIntArray* triIds, bool, MSpace::Space space,
                               float maxParam, bool testBothDirections, MMeshIsectAccelParams*, bool sortHits,
                               MFloatPointArray& hitPoints, MFloatArray* hitRayParams, MIntArray* hitFaces,
                               MIntArray* hitTriangles, MFloatArray* hitBary1, MFloatArray* hitBary2,
                               float tolerance, MStatus* ReturnStatus) {
    return mhost::guardValue(ReturnStatus, [&] {
        const MeshRef& mesh = mhost::attachedMesh(*this);
        const MeshSpace& frame = mhost::attachedSpace(*this, space);
        RayQuery query =
            queryOf(frame, raySource, rayDirection, faceIds, triIds, maxParam, testBothDirections, tolerance);
        query.sortHits = sortHits;
        // One list per thread: a drag event casts hundreds of rays, each answered at once.
        thread_local std::vector<RayHit> hits;
        mesh.data()->accelerator().allIntersections(query, hits);
        hitPoints.setLength(static_cast<unsigned int>(hits.size()));
        for (std::size_t i = 0; i < hits.size(); ++i)
            hitPoints[i] = MFloatPoint(frame.pointOut(hits[i].point));
        writeEach(hitRayParams, hits, &RayHit::param);
        writeEach(hitFaces, hits, &RayHit::faceId);
        writeEach(hitTriangles, hits, &RayHit::triangleId);
        writeEach(hitBary1, hits, &RayHit::bary1);
        writeEach(hitBary2, hits, &RayHit::bary2);
        return !hits.empty();
    });
}

MStatus MFnMesh::getClosestPoint(const MPoint& toThisPoint, MPoint& theClosestPoint, MSpace::Space space,
                                 int* closestPolygon, MMeshIsectAccelParams*) const {
    return mhost::guardStatus([&] {
        const auto [found, frame] = closestOn(*this, toThisPoint, space);
        theClosestPoint = frame.pointOut(found.point);
        writeIfWanted(closestPolygon, found.faceId);
    });
}

MStatus MFnMesh::getClosestNormal(const MPoint& toThisPoint, MVector& theNormal, MSpace::Space space,
                                  int* closestPolygon, MMeshIsectAccelParams*) const {
    return mhost::guardStatus([&] {
        const auto [found, frame] = closestOn(*this, toThisPoint, space);
        theNormal = frame.normalOut(found.normal);
        writeIfWanted(closestPolygon, found.faceId);
    });
}
