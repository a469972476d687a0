#pragma once
// Points, directions and normals between the API's spaces and the mesh kernel's object space. World
// space goes through the mesh's object-to-world matrix; normals go through its inverse transpose and
// come out unit length. Under an identity matrix, world space is object space.

#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

#include "mesh/Vec3.h"

namespace mhost {

class MeshSpace {
public:
    // kWorld is world space; kObject (kPreTransform), kTransform and kPostTransform are taken as object
    // space. Throws HostError for kInvalid and values past kLast.
    MeshSpace(MSpace::Space space, const MMatrix& objectToWorld);
    // Whether the space is world space; throws HostError as the constructor does.
    static bool isWorldSpace(MSpace::Space space);
    // Object space, made once: every non-world space is the mesh's own.
    static const MeshSpace& objectSpace();

    MPoint pointOut(const Vec3& objectPoint) const;
    Vec3 pointIn(const MPoint& point) const;
    // A direction (a ray's): transformed without translation and without normalising.
    Vec3 directionIn(const MVector& direction) const;
    MVector normalOut(const Vec3& objectNormal) const;

private:
    // Whether points and normals go through the matrices: world space under a matrix other than the
    // identity.
    bool transforms_;
    MMatrix toWorld_, toObject_, normalToWorld_;
};

inline Vec3 toVec3(const MPoint& p) { return {p.x, p.y, p.z}; }
inline Vec3 toVec3(const MVector& v) { return {v.x, v.y, v.z}; }

}  // namespace mhost
