#include "meshapi/MeshSpace.h"

#include <string>

#include "core/ApiObject.h"

namespace mhost {
bool MeshSpace::isWorldSpace(MSpace::Space space) {
    if (space <= MSpace::kInvalid || space >= MSpace::kLast)
        throw HostError("mesh: space " + std::to_string(static_cast<int>(space)) + " is not a space");
    return space == MSpace::kWorld;
}

const MeshSpace& MeshSpace::objectSpace() {
    static const MeshSpace object(MSpace::kObject, MMatrix());
    return object;
}

namespace {

// Every world-space call on a mesh makes a MeshSpace, and a stroke's calls all use the same matrix:
// the inverse of the last one is kept rather than computed again.
struct LastInverse {
    MMatrix matrix, inverse;
    bool valid = false;
};

const MMatrix& inverseOf(const MMatrix& matrix) {
    thread_local LastInverse last;
    if (!last.valid || !(last.matrix == matrix)) {
        last.matrix = matrix;
        last.inverse = matrix.inverse();
        last.valid = true;
    }
    return last.inverse;
}

}  // namespace

// World space through an identity matrix is object space, bit for bit: a normal is not normalised a
// second time, which could move its last bit. Scans often sit under an identity transform, and the
// tool reads every corner normal of one at activation.
MeshSpace::MeshSpace(MSpace::Space space, const MMatrix& objectToWorld)
    : transforms_(isWorldSpace(space) && !(objectToWorld == MMatrix::identity)) {
    if (!transforms_) return;
    toWorld_ = objectToWorld;
    toObject_ = inverseOf(objectToWorld);
    normalToWorld_ = toObject_.transpose();
}

MPoint MeshSpace::pointOut(const Vec3& objectPoint) const {
    const MPoint p(objectPoint.x, objectPoint.y, objectPoint.z);
    return transforms_ ? p * toWorld_ : p;
}

Vec3 MeshSpace::pointIn(const MPoint& point) const {
    MPoint p = transforms_ ? point * toObject_ : point;
    return toVec3(p.cartesianize());
}

Vec3 MeshSpace::directionIn(const MVector& direction) const {
    return toVec3(transforms_ ? direction * toObject_ : direction);
}

MVector MeshSpace::normalOut(const Vec3& objectNormal) const {
    const MVector n(objectNormal.x, objectNormal.y, objectNormal.z);
    return transforms_ ? (n * normalToWorld_).normal() : n;
}

}  // namespace mhost
