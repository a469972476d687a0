#include <maya/MMeshIntersector.h>

#include "attributes/ApiCall.h"
#include "meshapi/MeshRef.h"
#include "meshapi/MeshSpace.h"

MMeshIntersector::MMeshIntersector(void) = default;
MMeshIntersector::~MMeshIntersector(void) = default;
const char* MMeshIntersector::className() { return "MMeshIntersector"; }

MStatus MMeshIntersector::create(MObject& meshObject, const MMatrix& matrix) {
    return mhost::guardStatus([&] {
        fAccelerator.reset();
        fAccelerator = mhost::MeshRef::of(meshObject).data()->sharedAccelerator();
        fToObject = matrix.inverse();
    });
}

bool MMeshIntersector::isCreated(void) const { return fAccelerator != nullptr; }

MStatus MMeshIntersector::getClosestPoint(const MPoint& point, MPointOnMesh& meshPoint,
                                          double maxDistance) const {
    return mhost::guardStatus([&] {
        if (!fAccelerator) throw mhost::StatusError(MS::kFailure, "MMeshIntersector: create was not called");
        MPoint objectPoint = point * fToObject;
        const auto found = fAccelerator->closestPoint(mhost::toVec3(objectPoint.cartesianize()), maxDistance);
        if (!found) throw mhost::StatusError(MS::kFailure, "MMeshIntersector: no surface point within reach");
        meshPoint.point = MFloatPoint(float(found->point.x), float(found->point.y), float(found->point.z));
        meshPoint.normal =
            MFloatVector(float(found->normal.x), float(found->normal.y), float(found->normal.z));
        meshPoint.faceId = found->faceId;
        meshPoint.triangleId = found->triangleId;
        meshPoint.baryU = float(found->bary1);
        meshPoint.baryV = float(found->bary2);
    });
}

MPointOnMesh::MPointOnMesh() : faceId(-1), triangleId(-1), baryU(0), baryV(0) {}
MFloatPoint& MPointOnMesh::getPoint() { return point; }
MFloatVector& MPointOnMesh::getNormal() { return normal; }
int MPointOnMesh::faceIndex() const { return faceId; }
int MPointOnMesh::triangleIndex() const { return triangleId; }

void MPointOnMesh::getBarycentricCoords(float& u, float& v) const {
    u = baryU;
    v = baryV;
}
