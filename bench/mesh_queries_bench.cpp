// Mesh queries on a 1,000,000-triangle torus, each beside the same work done straight through Embree
// in the same run, and point-merging addPolygon into a 20,000-vertex mesh. After the usual table a
// summary line per pair gives the host's time over Embree's.

#include <benchmark/benchmark.h>
#include <embree3/rtcore.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "mesh/FanTriangulation.h"
#include "mesh/MeshTopology.h"
#include "mesh/ProceduralMeshes.h"
#include "mesh/RayAccelerator.h"
#include "rawEmbree.h"

namespace {

using mhost::Vec3;

// 1000 x 500 quads: exactly 1,000,000 triangles.
const mhost::MeshTopology& denseMesh() {
    static const mhost::MeshTopology mesh = mhost::makeTorus(3.0, 1.0, 1000, 500);
    return mesh;
}

const mhost::FanTriangulation& denseTriangles() {
    static const mhost::FanTriangulation fan = mhost::fanTriangulate(denseMesh().faces());
    return fan;
}

const mhost::RayAccelerator& hostAccelerator() {
    static const mhost::RayAccelerator accelerator(denseMesh());
    return accelerator;
}

// Rays from random points around the torus in random directions, cast both ways; and query points.
constexpr int kQueries = 4096;

std::vector<Vec3> randomPoints(unsigned seed, double extent) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> coordinate(-extent, extent);
    std::vector<Vec3> points(kQueries);
    for (Vec3& p : points) p = {coordinate(random), coordinate(random) * 0.4, coordinate(random)};
    return points;
}

const std::vector<Vec3>& rayOrigins() {
    static const std::vector<Vec3> points = randomPoints(1, 4.5);
    return points;
}

const std::vector<Vec3>& rayDirections() {
    static const std::vector<Vec3> directions = [] {
        std::vector<Vec3> d = randomPoints(2, 1.0);
        for (Vec3& v : d) v = mhost::normalized(v);
        return d;
    }();
    return directions;
}

// Points within 0.1 of the torus surface, the kind of query that snapping retopology vertices makes.
const std::vector<Vec3>& queryPoints() {
    static const std::vector<Vec3> points = [] {
        std::mt19937 random(3);
        std::uniform_real_distribution<double> angle(0, 6.283185307179586), offset(-0.1, 0.1);
        std::vector<Vec3> near(kQueries);
        for (Vec3& p : near) {
            const double around = angle(random), tube = angle(random);
            const Vec3 radial{std::cos(around), 0, -std::sin(around)};
            const Vec3 out = radial * std::cos(tube) + Vec3(0, std::sin(tube), 0);
            p = radial * 3.0 + out * (1.0 + offset(random));
        }
        return near;
    }();
    return points;
}

// ---- Raw Embree: the same triangles, no host types in the way. ----

// The dense mesh's fan triangles as a raw Embree scene, built anew.
kybench::RawTriangleScene makeRawTriangles() {
    const mhost::MeshTopology& mesh = denseMesh();
    const mhost::FanTriangulation& fan = denseTriangles();
    return kybench::RawTriangleScene(
        std::vector<float>(mesh.rawPoints(), mesh.rawPoints() + 3 * mesh.numVertices()),
        std::vector<unsigned>(fan.vertexIds.begin(), fan.vertexIds.end()));
}

const kybench::RawTriangleScene& rawTriangles() {
    static const kybench::RawTriangleScene scene = makeRawTriangles();
    return scene;
}

RTCScene rawScene() { return rawTriangles().scene(); }

// ---- The pairs. ----

// Both build benchmarks first make their side's lasting scene, which also starts Embree's threads, so
// that neither timing pays for that.
void AcceleratorBuild_Host(benchmark::State& state) {
    hostAccelerator();
    mhost::MeshTopology mesh = denseMesh();
    std::vector<mhost::Vec3f> points(mesh.numVertices());
    for (int v = 0; v < mesh.numVertices(); ++v) points[v] = mesh.point(v);
    for (auto _ : state) {
        state.PauseTiming();
        mesh.setPoints(points);  // drops the cached normals: a build as on tool activation
        state.ResumeTiming();
        mhost::RayAccelerator accelerator(mesh);
        benchmark::DoNotOptimize(accelerator.numTriangles());
    }
    state.counters["triangles"] = denseTriangles().numTriangles();
}

void AcceleratorBuild_Embree(benchmark::State& state) {
    rawScene();
    for (auto _ : state) {
        const kybench::RawTriangleScene scene = makeRawTriangles();
        benchmark::DoNotOptimize(scene.scene());
    }
}

void AllIntersectionsBothWays_Host(benchmark::State& state) {
    const mhost::RayAccelerator& accelerator = hostAccelerator();
    mhost::RayQuery query;
    query.bothDirections = true;
    query.maxParam = 10000.0;
    query.tolerance = 0.001;
    std::size_t hits = 0, i = 0;
    for (auto _ : state) {
        query.origin = rayOrigins()[i % kQueries];
        query.direction = rayDirections()[i++ % kQueries];
        hits += accelerator.allIntersections(query).size();
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["hits/ray"] = double(hits) / double(state.iterations());
}

void AllIntersectionsBothWays_Embree(benchmark::State& state) {
    rawScene();
    std::vector<kybench::RawTriangleScene::Hit> hits;
    std::size_t total = 0, i = 0;
    for (auto _ : state) {
        hits.clear();
        rawTriangles().allHits(rayOrigins()[i % kQueries], rayDirections()[i % kQueries], 10000.0f, hits);
        rawTriangles().allHits(rayOrigins()[i % kQueries], -rayDirections()[i % kQueries], 10000.0f, hits);
        ++i;
        total += hits.size();
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["hits/ray"] = double(total) / double(state.iterations());
}

void ClosestPoint_Host(benchmark::State& state) {
    const mhost::RayAccelerator& accelerator = hostAccelerator();
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(accelerator.closestPoint(queryPoints()[i++ % kQueries], 1e300));
    }
    state.SetItemsProcessed(state.iterations());
}

void ClosestPoint_Embree(benchmark::State& state) {
    rawScene();
    std::size_t i = 0;
    for (auto _ : state) {
        const Vec3& p = queryPoints()[i++ % kQueries];
        benchmark::DoNotOptimize(rawTriangles().nearest(p).triangle);
    }
    state.SetItemsProcessed(state.iterations());
}

// A 12 x 12 quad patch welded by point merge onto the border of a 141 x 142 (20,022-vertex) grid, on
// a fresh copy each time, so the merge grid is built as when a patch lands on a mesh just read.
void AddPolygonMergePatch(benchmark::State& state) {
    const mhost::MeshTopology base = mhost::makePlaneGrid(1.0, 1.0, 140, 141);
    const double step = 1.0 / 140;
    for (auto _ : state) {
        state.PauseTiming();
        mhost::MeshTopology mesh = base;
        state.ResumeTiming();
        for (int row = 0; row < 12; ++row) {
            for (int col = 0; col < 12; ++col) {
                const auto at = [&](int c, int r) { return Vec3(-0.5 + c * step, 0.0, -0.5 - r * step); };
                mesh.addPolygon({at(col, row), at(col + 1, row), at(col + 1, row + 1), at(col, row + 1)},
                                true, 1e-4);
            }
        }
        benchmark::DoNotOptimize(mesh.numVertices());
    }
    state.SetItemsProcessed(144 * state.iterations());
    state.counters["vertices"] = base.numVertices();
}

BENCHMARK(AcceleratorBuild_Host)->Unit(benchmark::kMillisecond)->Iterations(4);
BENCHMARK(AcceleratorBuild_Embree)->Unit(benchmark::kMillisecond)->Iterations(4);
BENCHMARK(AllIntersectionsBothWays_Host)->Unit(benchmark::kMicrosecond);
BENCHMARK(AllIntersectionsBothWays_Embree)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClosestPoint_Host)->Unit(benchmark::kMicrosecond);
BENCHMARK(ClosestPoint_Embree)->Unit(benchmark::kMicrosecond);
BENCHMARK(AddPolygonMergePatch)->Unit(benchmark::kMillisecond);

// The console table, then for each host/Embree pair the ratio of their times per iteration: wall time,
// and CPU time of the calling thread (steadier on a shared machine; the builds also use other threads).
class RatioReporter : public benchmark::ConsoleReporter {
public:
    RatioReporter() : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_Defaults : OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const double toSeconds = 1.0 / benchmark::GetTimeUnitMultiplier(run.time_unit);
            times_[run.run_name.function_name] = {run.GetAdjustedRealTime() * toSeconds,
                                                  run.GetAdjustedCPUTime() * toSeconds};
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        for (const char* pair : {"AcceleratorBuild", "AllIntersectionsBothWays", "ClosestPoint"}) {
            const auto host = times_.find(std::string(pair) + "_Host");
            const auto embree = times_.find(std::string(pair) + "_Embree");
            if (host == times_.end() || embree == times_.end()) continue;
            std::printf("%-25s host %11.3f us  Embree %11.3f us  host/Embree %.2fx wall, %.2fx CPU\n", pair,
                        host->second.wall * 1e6, embree->second.wall * 1e6,
                        host->second.wall / embree->second.wall, host->second.cpu / embree->second.cpu);
        }
    }

private:
    struct Times {
        double wall, cpu;
    };
    std::map<std::string, Times> times_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
