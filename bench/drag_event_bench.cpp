// One left-button drag event of a 200-point freehand stroke on a 1,000,000-triangle source, through the
// kyStrake plug-in on the headless host, beside the rays such an event casts made straight through
// Embree in the same run. A drag event picks the surface under the pointer and pulls the whole stroke
// back onto the surface, so it casts about one ray per stroke point: the raw side casts the rays of
// the stroke's 200 pixels from the camera. After the table, a summary line gives the ratio.

#include <benchmark/benchmark.h>
#include <embree3/rtcore.h>
#include <maya/M3dView.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "runner/SceneSetup.h"
#include "runner/SourceMeshes.h"

namespace {

using namespace kystrake;
namespace driver = mhost::driver;

constexpr int kStrokePoints = 200;

const PolygonMesh& sourceMesh() {
    static const PolygonMesh mesh = proceduralMesh("limb", 1000000);
    return mesh;
}

// The stroke runs along the limb's axis as the framing camera sees it.
const std::vector<Pixel>& strokePixels() {
    static const std::vector<Pixel> pixels = [] {
        std::vector<Pixel> path;
        for (int i = 0; i < kStrokePoints; ++i)
            path.push_back({440 + 80 * i / kStrokePoints, 150 + 350 * i / kStrokePoints});
        return path;
    }();
    return pixels;
}

void setUpOnce() {
    static bool done = false;
    if (done) return;
    Session session;
    session.viewWidth = 960;
    session.viewHeight = 640;
    setUpScene(session, sourceMesh(), KY_PLUGIN_MODULE_PATH);
    done = true;
}

void hostDragEvent(benchmark::State& state) {
    setUpOnce();
    const auto& pixels = strokePixels();
    for (auto _ : state) {
        state.PauseTiming();
        driver::press(pixels[0][0], pixels[0][1], driver::MouseButton::kLeft);
        for (int i = 1; i + 1 < kStrokePoints; ++i)
            driver::drag(pixels[i][0], pixels[i][1], driver::MouseButton::kLeft);
        state.ResumeTiming();
        driver::drag(pixels.back()[0], pixels.back()[1], driver::MouseButton::kLeft);
        state.PauseTiming();
        driver::release(pixels.back()[0], pixels.back()[1], driver::MouseButton::kLeft);
        driver::sendKey(driver::Key::kEscape);
        state.ResumeTiming();
    }
}

struct RawScene {
    RTCDevice device = rtcNewDevice(nullptr);
    RTCScene scene = rtcNewScene(device);
    std::vector<RTCRayHit> rays;
};

RawScene& rawScene() {
    static RawScene raw = [] {
        RawScene r;
        const PolygonMesh& mesh = sourceMesh();
        RTCGeometry geometry = rtcNewGeometry(r.device, RTC_GEOMETRY_TYPE_TRIANGLE);
        auto* vertices = static_cast<float*>(rtcSetNewGeometryBuffer(
            geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 3 * sizeof(float), mesh.points.size()));
        for (size_t i = 0; i < mesh.points.size(); ++i)
            for (int k = 0; k < 3; ++k) vertices[3 * i + k] = static_cast<float>(mesh.points[i][k]);
        std::vector<unsigned> triangles;
        size_t corner = 0;
        for (int count : mesh.polygonCounts) {
            for (int k = 1; k + 1 < count; ++k)
                for (int c : {0, k, k + 1}) triangles.push_back(mesh.polygonConnects[corner + c]);
            corner += count;
        }
        auto* indices = static_cast<unsigned*>(rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0,
                                                                       RTC_FORMAT_UINT3, 3 * sizeof(unsigned),
                                                                       triangles.size() / 3));
        std::copy(triangles.begin(), triangles.end(), indices);
        rtcCommitGeometry(geometry);
        rtcAttachGeometry(r.scene, geometry);
        rtcReleaseGeometry(geometry);
        rtcCommitScene(r.scene);
        return r;
    }();
    return raw;
}

void rawEmbreeRays(benchmark::State& state) {
    setUpOnce();
    RawScene& raw = rawScene();
    M3dView view = M3dView::active3dView();
    std::vector<std::pair<MPoint, MVector>> rays;
    for (const Pixel& p : strokePixels()) {
        MPoint source;
        MVector direction;
        view.viewToWorld(static_cast<short>(p[0]), static_cast<short>(p[1]), source, direction);
        rays.push_back({source, direction});
    }
    RTCIntersectContext context;
    for (auto _ : state) {
        int hits = 0;
        for (const auto& [source, direction] : rays) {
            RTCRayHit hit{};
            hit.ray.org_x = float(source.x), hit.ray.org_y = float(source.y), hit.ray.org_z = float(source.z);
            hit.ray.dir_x = float(direction.x), hit.ray.dir_y = float(direction.y),
            hit.ray.dir_z = float(direction.z);
            hit.ray.tfar = 10000.0f;
            hit.ray.mask = ~0u;
            hit.hit.geomID = RTC_INVALID_GEOMETRY_ID;
            rtcInitIntersectContext(&context);
            rtcIntersect1(raw.scene, &context, &hit);
            hits += hit.hit.geomID != RTC_INVALID_GEOMETRY_ID;
        }
        benchmark::DoNotOptimize(hits);
    }
}

BENCHMARK(hostDragEvent)->Unit(benchmark::kMillisecond)->Iterations(8);
BENCHMARK(rawEmbreeRays)->Unit(benchmark::kMillisecond);

// Collects each benchmark's time per iteration to print the ratio after the table.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) times_[run.benchmark_name()] = run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
    void Finalize() override {
        ConsoleReporter::Finalize();
        const double host = times_["hostDragEvent/iterations:8"], raw = times_["rawEmbreeRays"];
        if (host > 0 && raw > 0)
            std::printf("drag event of a %d-point stroke: %.3f ms, raw Embree rays: %.3f ms, ratio %.2fx\n",
                        kStrokePoints, host, raw, host / raw);
    }

private:
    std::map<std::string, double> times_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
