// The radius picks of the two brushes: the retopo vertices around the pointer, on the retopo mesh
// when the pointer is over it and around the source hit otherwise. They run on every drag event
// over all retopo vertices, so the retopo forms read the raw point buffer and one bulk normal array
// and compare squared distances.

#include <maya/MFloatPointArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MItMeshVertex.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/contextSupport.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// The vertices a brush must leave alone while a row is active: those of the row it grows from.
struct RowGuard {
    MIntArray firstRow;
    bool active = false;

    RowGuard() {
        MIntArray second, third;
        KY_REPORT_FAILURE(getShadowIndices(firstRow, second, third));
        active = getPlayerVertices().length() > 0;
    }
    bool skips(int id) const { return active && containsId(id, firstRow); }
};

// The retopo mesh as the fast forms read it: raw object-space points and angle-weighted
// object-space vertex normals.
struct RawMesh {
    const float* points = nullptr;
    int count = 0;
    MFloatVectorArray normals;

    explicit RawMesh(const MDagPath& path) {
        MStatus status;
        MFnMesh mesh(path, &status);
        if (KY_REPORT_FAILURE(status)) return;
        points = mesh.getRawPoints(&status);
        KY_REPORT_FAILURE(status);
        count = points ? mesh.numVertices() : 0;
        KY_REPORT_FAILURE(mesh.getVertexNormals(true, normals, MSpace::kObject));
    }
    MPoint point(int id) const { return MPoint(points[3 * id], points[3 * id + 1], points[3 * id + 2], 1.0); }
    // getVertexNormals gives one normal per vertex, so the loose `id <= length` check of the picks
    // never lets `id` reach past the array; should it, the missing normal reads as zero.
    MVector normal(int id) const {
        return id < static_cast<int>(normals.length()) ? MVector(normals[id]) : MVector::zero;
    }
};

double squaredDistance(const MPoint& a, const MPoint& b) {
    const double dx = a.x - b.x;
    const double dy = a.y - b.y;
    const double dz = a.z - b.z;
    return dx * dx + dy * dy + dz * dz;
}

MObject emptyVertexComponent(MFnSingleIndexedComponent& component) {
    MStatus status;
    MObject object = component.create(MFn::kMeshVertComponent, &status);
    KY_REPORT_FAILURE(status);
    return object;
}

}  // namespace

MObject kyStrakeContext::pickVerticesAround(double radius, const MDagPath& retopo, MVector& normal) {
    const RawMesh mesh(retopo);
    MFnSingleIndexedComponent picked;
    MObject component = emptyVertexComponent(picked);

    MFloatPointArray hits;
    MIntArray faces;
    if (!intersectSurface(retopo, hits, normal, view, accelParams, currentX, currentY, faces, true))
        return pickVerticesAroundSource(radius, retopo, normal);
    if (hits.length() == 0) return MObject::kNullObj;

    const MPoint worldHit(hits[0]);
    brushCenter = worldHit * retopo.inclusiveMatrix().inverse();
    brushVertex = -1;
    const RowGuard guard;
    const BackFaceTest backFaces(view);
    const double radiusSquared = radius * radius;
    for (int id = 0; id < mesh.count; ++id) {
        if (guard.skips(id)) continue;
        const double distanceSquared = squaredDistance(mesh.point(id), brushCenter);
        if (!(radiusSquared >= distanceSquared)) continue;  // the rim counts
        if (!(id <= static_cast<int>(mesh.normals.length()))) continue;
        // An object-space normal against the world view direction: kept as the brush has always
        // tested it.
        if (!backFaces.facesCamera(mesh.normal(id))) continue;
        if (brushVertex == -1 && distanceSquared < 100.0) brushVertex = id;
        if (freezeBorder && containsId(id, frozenVertices)) continue;
        picked.addElement(id);
    }
    KY_REPORT_FAILURE(setPoint3Attr("interPoint", findStrakeLocator(), worldHit.x, worldHit.y, worldHit.z));
    return component;
}

MObject kyStrakeContext::pickVerticesAroundSource(double radius, const MDagPath& retopo, MVector& normal) {
    MFnSingleIndexedComponent picked;
    MObject component = emptyVertexComponent(picked);
    sourceHitAt(currentX, currentY, brushCenter);
    brushVertex = -1;

    const RowGuard guard;
    const BackFaceTest backFaces(view);
    const double radiusSquared = radius * radius;
    MStatus status;
    MItMeshVertex vertices(retopo, MObject::kNullObj, &status);
    if (status) {
        for (; !vertices.isDone(); vertices.next()) {
            const int id = vertices.index();
            if (guard.skips(id)) continue;
            const MPoint position = vertices.position(MSpace::kWorld);
            if (!(radiusSquared > squaredDistance(position, brushCenter)))
                continue;  // the rim does not count
            MVector vertexNormal;
            vertices.getNormal(vertexNormal, MSpace::kWorld);
            normal = vertexNormal;
            if (!backFaces.facesCamera(vertexNormal)) continue;
            if (freezeBorder && containsId(id, frozenVertices)) continue;
            picked.addElement(id);
        }
    }
    KY_REPORT_FAILURE(
        setPoint3Attr("interPoint", findStrakeLocator(), brushCenter.x, brushCenter.y, brushCenter.z));
    return component;
}

MObject kyStrakeContext::pickWeightedAround(double radius, const MDagPath& retopo) {
    const RawMesh mesh(retopo);
    MFloatPointArray hits;
    MIntArray faces;
    MVector faceNormal;
    if (!intersectSurface(retopo, hits, faceNormal, view, accelParams, pressX, pressY, faces, true) ||
        hits.length() == 0)
        return pickWeightedAroundSource(radius, retopo);

    MFnSingleIndexedComponent picked;
    MObject component = emptyVertexComponent(picked);
    moveHitState = 1;
    brushCenter = MPoint(hits[0]) * retopo.inclusiveMatrix().inverse();
    const RowGuard guard;
    const bool backFaceTest = optionFlag("ky_strakeBackFace", 1);
    const MVector viewDirection = cameraViewDirection(view);
    const double radiusSquared = radius * radius;
    for (int id = 0; id < mesh.count; ++id) {
        if (guard.skips(id)) continue;
        const MPoint position = mesh.point(id);
        const double distanceSquared = squaredDistance(position, brushCenter);
        if (!(distanceSquared <= radiusSquared)) continue;
        // Unlike BackFaceTest, a normal at right angles to the view passes here.
        if (backFaceTest && viewDirection * mesh.normal(id) > 0.0) continue;
        picked.addElement(id);
        moveAnchors.append(position);
        // A parabolic falloff: 1 at the centre, 0 at the rim.
        moveWeights.push_back(1.0 - distanceSquared / radiusSquared);
    }
    KY_REPORT_FAILURE(
        setVector3Attr("interNormal", findStrakeLocator(), faceNormal.x, faceNormal.y, faceNormal.z));
    return component;
}

MObject kyStrakeContext::pickWeightedAroundSource(double radius, const MDagPath& retopo) {
    MFnSingleIndexedComponent picked;
    MObject component = emptyVertexComponent(picked);
    moveHitState = sourceHitAt(pressX, pressY, brushCenter) ? 1 : -1;

    const RowGuard guard;
    const BackFaceTest backFaces(view);
    const double radiusSquared = radius * radius;
    MVector lastNormal;
    MStatus status;
    MItMeshVertex vertices(retopo, MObject::kNullObj, &status);
    if (status) {
        for (; !vertices.isDone(); vertices.next()) {
            const int id = vertices.index();
            if (guard.skips(id)) continue;
            const MPoint position = vertices.position(MSpace::kWorld);
            const double distanceSquared = squaredDistance(position, brushCenter);
            if (!(radiusSquared > distanceSquared)) continue;
            vertices.getNormal(lastNormal, MSpace::kWorld);
            if (!backFaces.facesCamera(lastNormal)) continue;
            picked.addElement(id);
            moveWeights.push_back((radiusSquared - distanceSquared) / radiusSquared);
            moveAnchors.append(position);
        }
    }
    KY_REPORT_FAILURE(
        setVector3Attr("interNormal", findStrakeLocator(), lastNormal.x, lastNormal.y, lastNormal.z));
    return component;
}
