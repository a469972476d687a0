// Tool activation on a 1,000,000-triangle source (`--triangles=N` for another size), beside one raw
// Embree build of the same triangles in the same run. Activation builds the source's closest-point
// structure, reads every face's corner normals and snaps nothing yet; each timed activation meets a
// source mesh made afresh, as when an artist opens a scan. After the table, a summary line gives the
// ratios of wall and CPU time.

#include <benchmark/benchmark.h>
#include <maya/MEvent.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <mhost/Driver.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "denseSource.h"
#include "interaction/ContextState.h"
#include "rawEmbree.h"
#include "summaryReporter.h"
#include "tool/kyStrake.h"

namespace {

namespace driver = mhost::driver;

// A new source shape from the arrays, connected to the scene's locator in place of the last one.
void makeFreshSource() {
    static std::string lastTransform;
    if (!lastTransform.empty()) driver::runCommand("delete " + lastTransform);
    const kystrake::PolygonMesh& mesh = kybench::denseSource();
    MPointArray points;
    for (const auto& p : mesh.points) points.append(MPoint(p[0], p[1], p[2]));
    MIntArray counts, connects;
    for (int count : mesh.polygonCounts) counts.append(count);
    for (int id : mesh.polygonConnects) connects.append(id);
    MFnMesh created;
    created.create(points.length(), counts.length(), points, counts, connects);
    lastTransform = created.name().asChar();
    MDagPath shape;
    MDagPath::getAPathTo(created.object(), shape);
    shape.extendToShape();
    driver::runCommand("connectAttr -f " + std::string(shape.partialPathName().asChar()) +
                       ".outMesh kyStrake1.kyStrakeMesh");
}

void setUpOnce() {
    static bool done = false;
    if (done) return;
    driver::resetScene();
    std::string error;
    if (!driver::loadPlugin(KY_PLUGIN_MODULE_PATH, &error)) std::fprintf(stderr, "%s\n", error.c_str());
    driver::runCommand("createNode -n kyStrake1 kyStrake");
    done = true;
}

void hostActivation(benchmark::State& state) {
    setUpOnce();
    for (auto _ : state) {
        state.PauseTiming();
        makeFreshSource();
        auto context = std::make_unique<kyStrakeContext>();
        mhost::ContextState::of(*context).contextCommand = "kyStrakeContext";
        MEvent setup;
        state.ResumeTiming();
        context->toolOnSetup(setup);
        state.PauseTiming();
        context->toolOffCleanup();
        context.reset();
        state.ResumeTiming();
    }
}

void rawEmbreeBuild(benchmark::State& state) {
    const std::vector<float> points = kybench::floatPoints(kybench::denseSource());
    const std::vector<unsigned> triangles = kybench::fanTriangles(kybench::denseSource());
    // The first build starts Embree's threads; neither side pays for that.
    kybench::RawTriangleScene warmUp(points, triangles);
    for (auto _ : state) {
        const kybench::RawTriangleScene scene(points, triangles);
        benchmark::DoNotOptimize(scene.scene());
    }
}

BENCHMARK(rawEmbreeBuild)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(hostActivation)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

int main(int argc, char** argv) {
    return kybench::runWithSummary(argc, argv, [](const kybench::SummaryReporter::Times& times) {
        const auto host = times.find("hostActivation/iterations:3");
        const auto raw = times.find("rawEmbreeBuild/iterations:3");
        if (host == times.end() || raw == times.end() || raw->second.wall <= 0 || raw->second.cpu <= 0)
            return;
        std::printf(
            "activation on %s triangles: wall %.1f ms, CPU %.1f ms; raw Embree build: wall %.1f ms, CPU "
            "%.1f ms; ratio wall %.2fx, CPU %.2fx\n",
            kybench::triangleCountText().c_str(), host->second.wall, host->second.cpu, raw->second.wall,
            raw->second.cpu, host->second.wall / raw->second.wall, host->second.cpu / raw->second.cpu);
    });
}
