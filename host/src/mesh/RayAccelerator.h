#pragma once
// Ray casts and closest-point queries on a mesh through a bounding volume hierarchy (Intel Embree),
// built once from a MeshTopology and valid for as long as that mesh keeps the same version. Polygons
// are fan-triangulated (FanTriangulation) and hits name both the polygon and the triangle within it.
// Ray hits come in single precision, as Maya's ray queries do; closest points are exact in double.

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "mesh/Vec3.h"

namespace mhost {

class MeshTopology;

struct RayQuery {
    Vec3 origin;
    // Need not be unit length; ray parameters are measured in multiples of it.
    Vec3 direction;
    // Hits beyond this parameter (either way along the ray) are ignored.
    double maxParam = 1e30;
    // Also look behind the origin; such hits get negative parameters.
    bool bothDirections = false;
    // Consider only these polygons / triangle indices within their polygon (any order).
    std::optional<std::vector<int>> faceIds;
    std::optional<std::vector<int>> triangleIds;
    // Order hits by ascending parameter (behind the origin first); otherwise front hits come first,
    // each side in no particular order.
    bool sortHits = true;
    // Hits on one polygon closer than this along the ray count once (a ray through an edge or corner
    // shared by two of the polygon's triangles).
    double tolerance = 1e-6;
};

struct RayHit {
    Vec3 point;
    double param = 0;
    int faceId = -1;
    int triangleId = -1;  // within the polygon
    // point = bary1 * v0 + bary2 * v1 + (1 - bary1 - bary2) * v2 of the triangle's corners.
    double bary1 = 0;
    double bary2 = 0;
};

struct SurfacePoint {
    Vec3 point;
    double distance = 0;
    int faceId = -1;
    int triangleId = -1;
    double bary1 = 0;
    double bary2 = 0;
    // The triangle's angle-weighted vertex normals interpolated at the point (unit length; the face
    // normal where they cancel out), and the polygon's own normal.
    Vec3 normal;
    Vec3 faceNormal;
};

class RayAccelerator {
public:
    // Builds the hierarchy over the mesh's triangles: O(triangles log triangles), multi-threaded.
    // A refittable one can later follow moved vertices (refit). An empty mesh gives an accelerator
    // that finds nothing. Throws HostError if Embree fails.
    explicit RayAccelerator(const MeshTopology& mesh, bool refittable = false);
    ~RayAccelerator();
    RayAccelerator(const RayAccelerator&) = delete;
    RayAccelerator& operator=(const RayAccelerator&) = delete;

    // True while `mesh` is (a copy of) the mesh this was built from and has not changed since.
    bool isBuiltFor(const MeshTopology& mesh) const;
    // True when `mesh` has the polygons this was built over, its vertices moved or not.
    bool hasFacesOf(const MeshTopology& mesh) const;
    bool isRefittable() const { return refittable_; }
    // Follows `mesh`, which must have the same faces, by moving the triangles' corners and refitting
    // the boxes of the hierarchy: O(triangles), much cheaper than a new build. Every query answers as
    // on a new build, except that a ray through a point two triangles share may name the other one.
    void refit(const MeshTopology& mesh);
    int numTriangles() const;

    // Every hit along the ray within maxParam, one per polygon and position. Throws HostError on a
    // non-finite ray, a zero direction or a negative maxParam. Cost: O(log triangles + hits).
    std::vector<RayHit> allIntersections(const RayQuery& query) const;
    // The same into `hits` (emptied first), for a caller that reuses one list over many rays.
    void allIntersections(const RayQuery& query, std::vector<RayHit>& hits) const;
    // The hit nearest to the origin (smallest |param| when both directions count); sortHits and
    // tolerance play no part.
    std::optional<RayHit> closestIntersection(const RayQuery& query) const;
    // The surface point nearest to p within maxDistance (inclusive); nothing when the mesh is further.
    // Equally near triangles resolve to the lowest triangle. Throws HostError on a non-finite p or a
    // negative maxDistance.
    std::optional<SurfacePoint> closestPoint(const Vec3& p, double maxDistance) const;

    // The Embree scene and the mesh data its queries read; defined where Embree is used.
    struct Impl;

private:
    std::unique_ptr<Impl> impl_;
    std::uint64_t meshVersion_;
    std::uint64_t facesVersion_;
    bool refittable_;
};

// Keeps one accelerator and rebuilds it only when asked for a mesh it was not built for. Copies of a
// cache share the accelerator it holds, so copies of a mesh reuse one build until they change. A mesh
// whose vertices move (the same faces as the last build) gets a refittable accelerator, refitted in
// place from then on while nothing else holds it.
class RayAcceleratorCache {
public:
    // Valid until the next call for another version of the mesh.
    const RayAccelerator& acceleratorFor(const MeshTopology& mesh);
    // The same accelerator, for callers that keep it beyond the cache's next rebuild.
    std::shared_ptr<const RayAccelerator> sharedAcceleratorFor(const MeshTopology& mesh);
    void clear() { accelerator_.reset(); }

private:
    void rebuildFor(const MeshTopology& mesh);

    std::shared_ptr<RayAccelerator> accelerator_;
};

}  // namespace mhost
