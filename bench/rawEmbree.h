#pragma once
// Raw Embree beside the host, for benchmarks that report the host's figures as ratios to it: a
// triangle scene made straight from points and triangle ids, its nearest-point query and its
// every-hit ray cast, with no host types in the way.

#include <embree3/rtcore.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "mesh/TriangleGeometry.h"

namespace kybench {

using mhost::Vec3;

class RawTriangleScene {
public:
    // `points` as x, y, z floats, `triangles` as three vertex ids each.
    RawTriangleScene(std::vector<float> points, std::vector<unsigned> triangles)
        : points_(std::move(points)), triangles_(std::move(triangles)) {
        scene_ = rtcNewScene(device());
        rtcSetSceneFlags(scene_, RTC_SCENE_FLAG_ROBUST | RTC_SCENE_FLAG_CONTEXT_FILTER_FUNCTION);
        RTCGeometry geometry = rtcNewGeometry(device(), RTC_GEOMETRY_TYPE_TRIANGLE);
        auto* vertices = static_cast<float*>(rtcSetNewGeometryBuffer(
            geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 3 * sizeof(float), points_.size() / 3));
        std::copy(points_.begin(), points_.end(), vertices);
        auto* indices = static_cast<unsigned*>(rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0,
                                                                       RTC_FORMAT_UINT3, 3 * sizeof(unsigned),
                                                                       triangles_.size() / 3));
        std::copy(triangles_.begin(), triangles_.end(), indices);
        rtcCommitGeometry(geometry);
        rtcAttachGeometry(scene_, geometry);
        rtcReleaseGeometry(geometry);
        rtcCommitScene(scene_);
    }
    RawTriangleScene(const RawTriangleScene&) = delete;
    RawTriangleScene& operator=(const RawTriangleScene&) = delete;
    ~RawTriangleScene() { rtcReleaseScene(scene_); }

    RTCScene scene() const { return scene_; }

    // A hit as Embree reports it: the triangle and the ray parameter.
    using Hit = std::pair<unsigned, float>;
    // Appends every hit of the ray within maxParam to `hits`, in traversal order.
    void allHits(const Vec3& origin, const Vec3& direction, float maxParam, std::vector<Hit>& hits) const {
        Collector collector{{}, &hits};
        rtcInitIntersectContext(&collector.context);
        collector.context.filter = collectHit;
        RTCRayHit ray{};
        ray.ray.org_x = float(origin.x);
        ray.ray.org_y = float(origin.y);
        ray.ray.org_z = float(origin.z);
        ray.ray.dir_x = float(direction.x);
        ray.ray.dir_y = float(direction.y);
        ray.ray.dir_z = float(direction.z);
        ray.ray.tfar = maxParam;
        ray.ray.mask = ~0u;
        ray.hit.geomID = RTC_INVALID_GEOMETRY_ID;
        rtcIntersect1(scene_, &collector.context, &ray);
    }

    struct Nearest {
        double distanceSquared = std::numeric_limits<double>::infinity();
        unsigned triangle = 0;
    };
    // The triangle nearest to `p`, and its squared distance.
    Nearest nearest(const Vec3& p) const {
        Visit visit{this, p, {}};
        RTCPointQuery query{};
        query.x = float(p.x);
        query.y = float(p.y);
        query.z = float(p.z);
        query.radius = std::numeric_limits<float>::infinity();
        RTCPointQueryContext context;
        rtcInitPointQueryContext(&context);
        rtcPointQuery(scene_, &query, &context, visitTriangle, &visit);
        return visit.best;
    }

private:
    // Embree hands the context to the filter, so the hit list rides behind it.
    struct Collector {
        RTCIntersectContext context;
        std::vector<Hit>* hits;
    };
    // Records the hit and rejects it, so that traversal goes on to the next one.
    static void collectHit(const RTCFilterFunctionNArguments* args) {
        auto* collector = reinterpret_cast<Collector*>(args->context);
        collector->hits->emplace_back(RTCHitN_primID(args->hit, args->N, 0), RTCRayN_tfar(args->ray, args->N, 0));
        args->valid[0] = 0;
    }

    struct Visit {
        const RawTriangleScene* owner;
        Vec3 query;
        Nearest best;
    };

    static RTCDevice device() {
        static const RTCDevice made = rtcNewDevice(nullptr);
        return made;
    }
    Vec3 point(unsigned id) const { return Vec3(points_[3 * id], points_[3 * id + 1], points_[3 * id + 2]); }

    static bool visitTriangle(RTCPointQueryFunctionArguments* args) {
        auto* visit = static_cast<Visit*>(args->userPtr);
        const RawTriangleScene& self = *visit->owner;
        const unsigned* ids = &self.triangles_[3 * args->primID];
        const auto on = mhost::closestPointOnTriangle(visit->query, self.point(ids[0]), self.point(ids[1]),
                                                      self.point(ids[2]));
        const double d = mhost::lengthSquared(on.point - visit->query);
        if (d >= visit->best.distanceSquared) return false;
        visit->best = {d, args->primID};
        args->query->radius = float(std::sqrt(d));
        return true;
    }

    std::vector<float> points_;
    std::vector<unsigned> triangles_;
    RTCScene scene_ = nullptr;
};

}  // namespace kybench
