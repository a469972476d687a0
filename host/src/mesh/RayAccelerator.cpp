#include "mesh/RayAccelerator.h"

#include <embree3/rtcore.h>
#include <oneapi/tbb/task_group.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <limits>
#include <string>
#include <tuple>

#include "core/ApiObject.h"
#include "core/LargeArrays.h"
#include "core/ParallelParts.h"
#include "mesh/FanTriangulation.h"
#include "mesh/MeshTopology.h"
#include "mesh/TriangleGeometry.h"

namespace mhost {
namespace {

constexpr const char* kOwner = "RayAccelerator";

[[noreturn]] void fail(const std::string& message) { throw HostError(std::string(kOwner) + ": " + message); }

// One Embree device for the whole process: creating one starts its thread pool.
RTCDevice sharedDevice() {
    static const RTCDevice device = [] {
        RTCDevice created = rtcNewDevice(nullptr);
        if (!created) fail("Embree could not create a device");
        return created;
    }();
    return device;
}

void throwOnDeviceError(const char* step) {
    const RTCError error = rtcGetDeviceError(sharedDevice());
    if (error != RTC_ERROR_NONE)
        fail(std::string("Embree failed while ") + step + " (error " + std::to_string(error) + ")");
}

// Embree works in single precision; reaches beyond its range become infinite.
float toFloatReach(double reach) {
    return reach >= FLT_MAX ? std::numeric_limits<float>::infinity() : float(reach);
}

Vec3 pointAt(const std::vector<float>& coords, unsigned vertex) {
    const float* p = coords.data() + 3 * static_cast<std::size_t>(vertex);
    return {p[0], p[1], p[2]};
}

std::optional<std::vector<int>> sortedCopy(const std::optional<std::vector<int>>& ids) {
    if (!ids) return std::nullopt;
    std::vector<int> sorted = *ids;
    if (!std::is_sorted(sorted.begin(), sorted.end())) std::sort(sorted.begin(), sorted.end());
    return sorted;
}

// The face and triangle restrictions of a query, looked up by binary search.
class HitFilter {
public:
    explicit HitFilter(const RayQuery& query)
        : faces_(sortedCopy(query.faceIds)), triangles_(sortedCopy(query.triangleIds)) {}
    bool restricts() const { return faces_ || triangles_; }
    bool accepts(int face, int triangleInFace) const {
        return contains(faces_, face) && contains(triangles_, triangleInFace);
    }

private:
    static bool contains(const std::optional<std::vector<int>>& ids, int id) {
        return !ids || std::binary_search(ids->begin(), ids->end(), id);
    }
    std::optional<std::vector<int>> faces_;
    std::optional<std::vector<int>> triangles_;
};

struct RawHit {
    unsigned triangle;
    float param;  // along the direction Embree traced
    float u, v;   // Embree's: the hit is (1 - u - v) * v0 + u * v1 + v * v2
    bool behind;
};

void requireUsableRay(const RayQuery& query) {
    if (!isFinite(query.origin) || !isFinite(query.direction))
        fail("the ray's origin or direction is not finite");
    if (lengthSquared(query.direction) == 0) fail("the ray has no direction");
    if (!(query.maxParam >= 0)) fail("maxParam must not be negative");
}

RTCRayHit makeRay(const Vec3& origin, const Vec3& direction, double maxParam) {
    RTCRayHit ray{};
    ray.ray.org_x = float(origin.x);
    ray.ray.org_y = float(origin.y);
    ray.ray.org_z = float(origin.z);
    ray.ray.dir_x = float(direction.x);
    ray.ray.dir_y = float(direction.y);
    ray.ray.dir_z = float(direction.z);
    ray.ray.tnear = 0.0f;
    ray.ray.tfar = toFloatReach(maxParam);
    ray.ray.mask = ~0u;
    ray.hit.geomID = RTC_INVALID_GEOMETRY_ID;
    ray.hit.instID[0] = RTC_INVALID_GEOMETRY_ID;
    return ray;
}

}  // namespace

struct RayAccelerator::Impl {
    struct ReleaseScene {
        void operator()(RTCScene scene) const { rtcReleaseScene(scene); }
    };

    FanTriangulation fan;
    // x, y, z per vertex plus one float of padding: Embree reads the last vertex as 16 bytes.
    std::vector<float> coords;
    // Shared with the mesh, which copies them before it changes them.
    std::shared_ptr<const std::vector<Vec3>> vertexNormals;
    std::shared_ptr<const std::vector<Vec3>> faceNormals;
    // Last, so that it goes first: the scene reads the arrays above.
    std::unique_ptr<RTCSceneTy, ReleaseScene> scene;

    Impl(const MeshTopology& mesh, bool refittable);
    void attachTriangles(bool refittable);
    void buildBesideNormals(const MeshTopology& mesh);
    // Shares the mesh's current normals, which closest points report.
    void takeNormals(const MeshTopology& mesh) {
        vertexNormals = mesh.sharedVertexNormals(true);
        faceNormals = mesh.sharedFaceNormals();
    }
    void refit(const MeshTopology& mesh);
    std::array<Vec3, 3> corners(unsigned triangle) const;
    bool accepts(const HitFilter& filter, unsigned triangle) const {
        const FanTriangulation::Owner owner = fan.owners[triangle];
        return filter.accepts(owner.face, owner.indexInFace);
    }
    void trace(const RayQuery& query, const Vec3& direction, const HitFilter& filter, bool behind,
               std::vector<RawHit>& hits) const;
    std::optional<RawHit> traceNearest(const Vec3& origin, const Vec3& direction, double maxParam,
                                       const HitFilter& filter, bool behind) const;
    RayHit toRayHit(const RayQuery& query, const RawHit& raw) const;
    SurfacePoint surfacePoint(unsigned triangle, const TrianglePoint& on, double distance) const;
};

namespace {

// Context handed to Embree's filter callbacks: the Embree context first, so the callback can cast back.
struct TraceContext {
    RTCIntersectContext embree;
    const RayAccelerator::Impl* impl;
    const HitFilter* filter;
    std::vector<RawHit>* hits;
    bool behind;
    bool outOfMemory;
};

RawHit rawHitOf(const RTCFilterFunctionNArguments* args, bool behind) {
    return {RTCHitN_primID(args->hit, args->N, 0), RTCRayN_tfar(args->ray, args->N, 0),
            RTCHitN_u(args->hit, args->N, 0), RTCHitN_v(args->hit, args->N, 0), behind};
}

// Whether `hits` already hold the polygon of `hit` within `tolerance` of it along the ray. The floor on
// the tolerance absorbs single-precision rounding when the ray passes through an edge or corner inside
// the polygon, which two of its triangles report. Hits are few, so a scan beats any index.
bool repeatsFace(const std::vector<RayHit>& hits, const RayHit& hit, double tolerance) {
    const double reach = std::max(tolerance, 1e-5 * (1.0 + std::abs(hit.param)));
    return std::any_of(hits.begin(), hits.end(), [&](const RayHit& kept) {
        return kept.faceId == hit.faceId && std::abs(kept.param - hit.param) <= reach;
    });
}

// Records every accepted hit and rejects all of them, so that traversal goes on to the next one. The
// triangle's owner is only prefetched here: reading it after the traversal hides the cache miss that
// dominates the cost of a hit.
void collectEveryHit(const RTCFilterFunctionNArguments* args) {
    auto* trace = reinterpret_cast<TraceContext*>(args->context);
    args->valid[0] = 0;
    const RawHit raw = rawHitOf(args, trace->behind);
    if (trace->filter->restricts() && !trace->impl->accepts(*trace->filter, raw.triangle)) return;
    __builtin_prefetch(&trace->impl->fan.owners[raw.triangle]);
    try {
        trace->hits->push_back(raw);
    } catch (const std::bad_alloc&) {
        trace->outOfMemory = true;
    }
}

// Rejects hits outside the query's face and triangle lists; Embree keeps the nearest of the rest.
void rejectFilteredHit(const RTCFilterFunctionNArguments* args) {
    auto* trace = reinterpret_cast<TraceContext*>(args->context);
    if (!trace->impl->accepts(*trace->filter, RTCHitN_primID(args->hit, args->N, 0))) args->valid[0] = 0;
}

// The mesh's coordinates and one float more: Embree reads the last vertex with a 16-byte load.
// Reserved in one go, as growing a scan's array by that one float would copy all of it.
std::vector<float> paddedCoords(const MeshTopology& mesh) {
    const float* points = mesh.rawPoints();
    std::vector<float> coords;
    reserveLarge(coords, 3 * static_cast<std::size_t>(mesh.numVertices()) + 1);
    coords.assign(points, points + 3 * static_cast<std::size_t>(mesh.numVertices()));
    coords.push_back(0.0f);
    return coords;
}

}  // namespace

RayAccelerator::Impl::Impl(const MeshTopology& mesh, bool refittable)
    : fan(fanTriangulate(mesh.faces())), coords(paddedCoords(mesh)) {
    scene.reset(rtcNewScene(sharedDevice()));
    throwOnDeviceError("creating a scene");
    // Robust traversal keeps rays from slipping between triangles through a shared edge.
    int flags = RTC_SCENE_FLAG_ROBUST | RTC_SCENE_FLAG_CONTEXT_FILTER_FUNCTION;
    // Embree refits only a dynamic scene of low build quality; anything else rebuilds from scratch
    // at every commit, which costs a drag event on a retopo mesh some milliseconds.
    if (refittable) flags |= RTC_SCENE_FLAG_DYNAMIC;
    rtcSetSceneFlags(scene.get(), static_cast<RTCSceneFlags>(flags));
    if (refittable) rtcSetSceneBuildQuality(scene.get(), RTC_BUILD_QUALITY_LOW);
    if (fan.numTriangles() > 0) attachTriangles(refittable);
    buildBesideNormals(mesh);
    throwOnDeviceError("building the hierarchy");
}

// Embree's build leaves a core idle in its serial phases; the mesh's normals, which closest points
// report, are worked out in them. Small meshes, built inside drag events, wake no other thread.
void RayAccelerator::Impl::buildBesideNormals(const MeshTopology& mesh) {
    if (mesh.numFaces() < kParallelMinimum) {
        takeNormals(mesh);
        return rtcCommitScene(scene.get());
    }
    tbb::task_group normals;
    normals.run([&] { takeNormals(mesh); });
    try {
        rtcCommitScene(scene.get());
    } catch (...) {
        normals.wait();
        throw;
    }
    normals.wait();
}

// The geometry reads the vertex and index arrays in place, so they live as long as the scene.
void RayAccelerator::Impl::attachTriangles(bool refittable) {
    RTCGeometry geometry = rtcNewGeometry(sharedDevice(), RTC_GEOMETRY_TYPE_TRIANGLE);
    if (refittable) rtcSetGeometryBuildQuality(geometry, RTC_BUILD_QUALITY_REFIT);
    rtcSetSharedGeometryBuffer(geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, coords.data(), 0,
                               3 * sizeof(float), (coords.size() - 1) / 3);
    rtcSetSharedGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3, fan.vertexIds.data(), 0,
                               3 * sizeof(unsigned), fan.numTriangles());
    rtcCommitGeometry(geometry);
    rtcAttachGeometry(scene.get(), geometry);
    rtcReleaseGeometry(geometry);
    throwOnDeviceError("creating the triangles");
}

// The vertex array keeps its size and place, so the geometry's shared buffer only needs telling.
void RayAccelerator::Impl::refit(const MeshTopology& mesh) {
    std::copy(mesh.rawPoints(), mesh.rawPoints() + 3 * static_cast<std::size_t>(mesh.numVertices()),
              coords.begin());
    takeNormals(mesh);
    if (fan.numTriangles() == 0) return;
    RTCGeometry geometry = rtcGetGeometry(scene.get(), 0);
    rtcUpdateGeometryBuffer(geometry, RTC_BUFFER_TYPE_VERTEX, 0);
    rtcCommitGeometry(geometry);
    rtcCommitScene(scene.get());
    throwOnDeviceError("refitting the hierarchy");
}

std::array<Vec3, 3> RayAccelerator::Impl::corners(unsigned triangle) const {
    const unsigned* ids = fan.vertexIds.data() + 3 * static_cast<std::size_t>(triangle);
    return {pointAt(coords, ids[0]), pointAt(coords, ids[1]), pointAt(coords, ids[2])};
}

void RayAccelerator::Impl::trace(const RayQuery& query, const Vec3& direction, const HitFilter& filter,
                                 bool behind, std::vector<RawHit>& hits) const {
    TraceContext context{{}, this, &filter, &hits, behind, false};
    rtcInitIntersectContext(&context.embree);
    context.embree.filter = collectEveryHit;
    RTCRayHit ray = makeRay(query.origin, direction, query.maxParam);
    rtcIntersect1(scene.get(), &context.embree, &ray);
    if (context.outOfMemory) throw std::bad_alloc();
}

std::optional<RawHit> RayAccelerator::Impl::traceNearest(const Vec3& origin, const Vec3& direction,
                                                         double maxParam, const HitFilter& filter,
                                                         bool behind) const {
    TraceContext context{{}, this, &filter, nullptr, behind, false};
    rtcInitIntersectContext(&context.embree);
    if (filter.restricts()) context.embree.filter = rejectFilteredHit;
    RTCRayHit ray = makeRay(origin, direction, maxParam);
    rtcIntersect1(scene.get(), &context.embree, &ray);
    if (ray.hit.geomID == RTC_INVALID_GEOMETRY_ID) return std::nullopt;
    return RawHit{ray.hit.primID, ray.ray.tfar, ray.hit.u, ray.hit.v, behind};
}

// Embree's single-precision hit in the host's terms. Maya's own ray queries take and return single
// precision, so nothing is recomputed: that would cost three more random memory reads per hit.
RayHit RayAccelerator::Impl::toRayHit(const RayQuery& query, const RawHit& raw) const {
    const FanTriangulation::Owner owner = fan.owners[raw.triangle];
    RayHit hit;
    hit.faceId = owner.face;
    hit.triangleId = owner.indexInFace;
    hit.param = raw.behind ? -double(raw.param) : double(raw.param);
    hit.bary1 = 1.0 - double(raw.u) - double(raw.v);
    hit.bary2 = raw.u;
    hit.point = query.origin + query.direction * hit.param;
    return hit;
}

SurfacePoint RayAccelerator::Impl::surfacePoint(unsigned triangle, const TrianglePoint& on,
                                                double distance) const {
    const unsigned* ids = fan.vertexIds.data() + 3 * static_cast<std::size_t>(triangle);
    SurfacePoint result;
    result.point = on.point;
    result.distance = distance;
    result.faceId = fan.owners[triangle].face;
    result.triangleId = fan.owners[triangle].indexInFace;
    result.bary1 = on.bary1;
    result.bary2 = on.bary2;
    result.faceNormal = (*faceNormals)[result.faceId];
    const std::vector<Vec3>& normals = *vertexNormals;
    const Vec3 blended = normalized(normals[ids[0]] * on.bary1 + normals[ids[1]] * on.bary2 +
                                    normals[ids[2]] * (1.0 - on.bary1 - on.bary2));
    result.normal = lengthSquared(blended) > 0 ? blended : result.faceNormal;
    return result;
}

RayAccelerator::RayAccelerator(const MeshTopology& mesh, bool refittable)
    : impl_(std::make_unique<Impl>(mesh, refittable)),
      meshVersion_(mesh.version()),
      facesVersion_(mesh.facesVersion()),
      refittable_(refittable) {}

RayAccelerator::~RayAccelerator() = default;

bool RayAccelerator::isBuiltFor(const MeshTopology& mesh) const { return meshVersion_ == mesh.version(); }

bool RayAccelerator::hasFacesOf(const MeshTopology& mesh) const {
    return facesVersion_ == mesh.facesVersion();
}

void RayAccelerator::refit(const MeshTopology& mesh) {
    if (!refittable_ || !hasFacesOf(mesh)) fail("refit needs a refittable accelerator and the same faces");
    impl_->refit(mesh);
    meshVersion_ = mesh.version();
}

int RayAccelerator::numTriangles() const { return impl_->fan.numTriangles(); }

std::vector<RayHit> RayAccelerator::allIntersections(const RayQuery& query) const {
    std::vector<RayHit> hits;
    allIntersections(query, hits);
    return hits;
}

void RayAccelerator::allIntersections(const RayQuery& query, std::vector<RayHit>& hits) const {
    requireUsableRay(query);
    const HitFilter filter(query);
    // Every call needs a list of raw hits; keeping one per thread spares a drag event of hundreds of
    // rays an allocation per ray.
    thread_local std::vector<RawHit> raw;
    raw.clear();
    impl_->trace(query, query.direction, filter, false, raw);
    if (query.bothDirections) impl_->trace(query, -query.direction, filter, true, raw);
    hits.clear();
    hits.reserve(raw.size());
    for (const RawHit& r : raw) {
        const RayHit hit = impl_->toRayHit(query, r);
        if (std::abs(hit.param) <= query.maxParam && !repeatsFace(hits, hit, query.tolerance))
            hits.push_back(hit);
    }
    if (query.sortHits) {
        std::sort(hits.begin(), hits.end(), [](const RayHit& x, const RayHit& y) {
            return std::tie(x.param, x.faceId, x.triangleId) < std::tie(y.param, y.faceId, y.triangleId);
        });
    }
}

std::optional<RayHit> RayAccelerator::closestIntersection(const RayQuery& query) const {
    requireUsableRay(query);
    const HitFilter filter(query);
    std::optional<RawHit> nearest =
        impl_->traceNearest(query.origin, query.direction, query.maxParam, filter, false);
    if (query.bothDirections) {
        const double reach = nearest ? double(nearest->param) : query.maxParam;
        const auto behind = impl_->traceNearest(query.origin, -query.direction, reach, filter, true);
        if (behind && (!nearest || behind->param < nearest->param)) nearest = behind;
    }
    if (!nearest) return std::nullopt;
    return impl_->toRayHit(query, *nearest);
}

namespace {

struct ClosestSearch {
    const RayAccelerator::Impl* impl;
    Vec3 query;
    // How far Embree's single-precision centre of the query sphere lies from `query`.
    double centreError;
    double limitSquared;
    bool found;
    unsigned triangle;
    double distanceSquared;
    TrianglePoint nearest;
};

// Embree calls this for each triangle whose bounds meet the query sphere; an improvement shrinks the
// sphere, widened by the centre's rounding and rounded up so that equally near triangles are still
// visited for the tie rule.
bool visitTriangle(RTCPointQueryFunctionArguments* args) {
    auto* search = static_cast<ClosestSearch*>(args->userPtr);
    const auto [a, b, c] = search->impl->corners(args->primID);
    const TrianglePoint on = closestPointOnTriangle(search->query, a, b, c);
    const double d = lengthSquared(on.point - search->query);
    const bool better = search->found ? d < search->distanceSquared ||
                                            (d == search->distanceSquared && args->primID < search->triangle)
                                      : d <= search->limitSquared;
    if (!better) return false;
    search->found = true;
    search->triangle = args->primID;
    search->distanceSquared = d;
    search->nearest = on;
    args->query->radius =
        std::nextafter(float(std::sqrt(d) + search->centreError), std::numeric_limits<float>::infinity());
    return true;
}

}  // namespace

std::optional<SurfacePoint> RayAccelerator::closestPoint(const Vec3& p, double maxDistance) const {
    if (!isFinite(p)) fail("the query point is not finite");
    if (!(maxDistance >= 0)) fail("maxDistance must not be negative");
    const Vec3f centre(p);
    const double centreError = length(Vec3(centre) - p);
    ClosestSearch search{impl_.get(), p, centreError, maxDistance * maxDistance, false, 0, 0, {}};
    RTCPointQuery query{};
    query.x = centre.x;
    query.y = centre.y;
    query.z = centre.z;
    query.radius =
        std::nextafter(toFloatReach(maxDistance + centreError), std::numeric_limits<float>::infinity());
    RTCPointQueryContext context;
    rtcInitPointQueryContext(&context);
    rtcPointQuery(impl_->scene.get(), &query, &context, visitTriangle, &search);
    if (!search.found) return std::nullopt;
    return impl_->surfacePoint(search.triangle, search.nearest, std::sqrt(search.distanceSquared));
}

const RayAccelerator& RayAcceleratorCache::acceleratorFor(const MeshTopology& mesh) {
    if (!accelerator_ || !accelerator_->isBuiltFor(mesh)) rebuildFor(mesh);
    return *accelerator_;
}

std::shared_ptr<const RayAccelerator> RayAcceleratorCache::sharedAcceleratorFor(const MeshTopology& mesh) {
    acceleratorFor(mesh);
    return accelerator_;
}

// An accelerator someone else holds stays as it is: they asked for the mesh as it was.
void RayAcceleratorCache::rebuildFor(const MeshTopology& mesh) {
    const bool deforming = accelerator_ && accelerator_->hasFacesOf(mesh);
    if (deforming && accelerator_->isRefittable() && accelerator_.use_count() == 1) {
        accelerator_->refit(mesh);
        return;
    }
    accelerator_.reset();
    accelerator_ = std::make_shared<RayAccelerator>(mesh, deforming);
}

}  // namespace mhost
