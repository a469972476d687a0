#include "meshapi/MeshSpace.h"

#include <string>

#include "core/ApiObject.h"
#include "meshapi/MeshRef.h"

namespace mhost {
bool MeshSpace::isWorldSpace(MSpace::Space space) {
    if (space <= MSpace::kInvalid || space >= MSpace::kLast)
        throw HostError("mesh: space " + std::to_string(static_cast<int>(space)) + " is not a space");
    return space == MSpace::kWorld;
}

MeshSpace::MeshSpace(MSpace::Space space, const MMatrix& objectToWorld) : world_(isWorldSpace(space)) {
    if (!world_) return;
    toWorld_ = objectToWorld;
    toObject_ = objectToWorld.inverse();
    normalToWorld_ = toObject_.transpose();
}

MeshSpace MeshSpace::of(const MeshRef& mesh, MSpace::Space space) {
    return isWorldSpace(space) ? MeshSpace(space, mesh.worldMatrix()) : MeshSpace(space, MMatrix());
}

MPoint MeshSpace::pointOut(const Vec3& objectPoint) const {
    const MPoint p(objectPoint.x, objectPoint.y, objectPoint.z);
    return world_ ? p * toWorld_ : p;
}

Vec3 MeshSpace::pointIn(const MPoint& point) const {
    MPoint p = world_ ? point * toObject_ : point;
    return toVec3(p.cartesianize());
}

Vec3 MeshSpace::directionIn(const MVector& direction) const {
    return toVec3(world_ ? direction * toObject_ : direction);
}

MVector MeshSpace::normalOut(const Vec3& objectNormal) const {
    const MVector n(objectNormal.x, objectNormal.y, objectNormal.z);
    return world_ ? (n * normalToWorld_).normal() : n;
}

}  // namespace mhost
