#pragma once
// MMeshIntersector: closest-point queries on a mesh through the host's accelerator, and MPointOnMesh,
// the point found. The intersector works on the mesh as it was when created; later changes of the mesh
// are not seen until create is called again.

#include <float.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>

#include <memory>

namespace mhost {
class RayAccelerator;
}

class MPointOnMesh;

class OPENMAYA_EXPORT MMeshIntersector {
public:
    MMeshIntersector(void);
    virtual ~MMeshIntersector(void);

    // Prepares queries on a mesh shape or mesh data. `matrix` maps the mesh's object space to the space
    // query points come in (usually the shape's world matrix). Builds the mesh's accelerator unless it
    // has one (O(triangles log triangles)). kInvalidParameter for an object that is no mesh.
    MStatus create(MObject& meshObject, const MMatrix& matrix = MMatrix::identity);
    bool isCreated(void) const;
    // The surface point nearest to `point`, which is first brought into object space by the inverse of
    // the create matrix; maxDistance is measured there too. The result is in object space. kFailure when
    // nothing lies within maxDistance or nothing was created; kInvalidParameter for a non-finite point or
    // a negative distance.
    MStatus getClosestPoint(const MPoint& point, MPointOnMesh& meshPoint, double maxDistance = DBL_MAX) const;

    static const char* className();

private:
    std::shared_ptr<const mhost::RayAccelerator> fAccelerator;
    MMatrix fToObject;
};

class OPENMAYA_EXPORT MPointOnMesh {
public:
    MPointOnMesh();

    // The point, in the mesh's object space.
    MFloatPoint& getPoint();
    // The normal there: the angle-weighted vertex normals interpolated over the triangle, object space.
    MFloatVector& getNormal();
    // The point as u * v0 + v * v1 + (1 - u - v) * v2 of triangleIndex()'s corners.
    void getBarycentricCoords(float& u, float& v) const;
    // The polygon, and the triangle within it (triangle k of a polygon has corners 0, k + 1, k + 2).
    int faceIndex() const;
    int triangleIndex() const;

private:
    friend class MMeshIntersector;
    MFloatPoint point;
    MFloatVector normal;
    int faceId;
    int triangleId;
    float baryU;
    float baryV;
};
