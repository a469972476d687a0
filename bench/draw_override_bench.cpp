// One viewport frame of the locator's draw override, prepareForDraw and addUIDrawables, with 50
// strokes of 200 points and a player row of 2,000 vertices on the locator; beside it the time of
// copying the same arrays once, which prepareForDraw cannot beat. A summary line gives the ratio.

#include <benchmark/benchmark.h>
#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MFrameContext.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MUIDrawManager.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>

#include <chrono>
#include <cstdio>
#include <map>
#include <memory>
#include <string>

#include "drawing/DisplayList.h"
#include "drawing/DrawRecorder.h"
#include "drawing/HostFrameContext.h"
#include "geometry/functions.h"
#include "viewport/kyStrakeDrawOverride.h"

namespace {

namespace driver = mhost::driver;

constexpr int kStrokes = 50;
constexpr int kStrokePoints = 200;
constexpr int kRowPoints = 2000;

// The locator with its strokes and player row, a camera looking at them, and an override of it.
struct DrawScene {
    MDagPath locatorPath;
    MDagPath camera;
    MPointArray strokes;
    MIntArray sizes;
    MPointArray row;
    std::unique_ptr<MHWRender::MPxDrawOverride> drawOverride;

    DrawScene() {
        driver::resetScene();
        std::string error;
        if (!driver::loadPlugin(KY_PLUGIN_MODULE_PATH, &error)) std::fprintf(stderr, "%s\n", error.c_str());
        driver::setViewSize(1280, 720);
        driver::placeCamera(MPoint(5.0, -20.0, 15.0), MPoint(5.0, 0.0, 5.0));
        M3dView::active3dView().getCamera(camera);
        std::string name;
        driver::runCommand("createNode kyStrake", &name);
        const MObject locator = findStrakeLocator();
        MDagPath::getAPathTo(locator, locatorPath);

        for (int s = 0; s < kStrokes; ++s) {
            sizes.append(kStrokePoints);
            for (int i = 0; i < kStrokePoints; ++i) strokes.append(MPoint(0.05 * i, 0.5, 0.2 * s + 0.5));
        }
        for (int i = 0; i < kRowPoints; ++i) row.append(MPoint(0.005 * i, 0.5, 11.0));
        setPointArrayAttr("strokes", locator, strokes);
        setIntArrayAttr("sizes", locator, sizes);
        setPointArrayAttr("playerpts", locator, row);
        setPointArrayAttr("playersLine", locator, row);
        drawOverride.reset(kyStrakeDrawOverride::creator(locator));
    }
};

DrawScene& scene() {
    static DrawScene scene;
    return scene;
}

std::map<std::string, double>& nanosPerRun() {
    static std::map<std::string, double> figures;
    return figures;
}

void keepFigure(benchmark::State& state, const char* name, double seconds) {
    if (state.iterations() > 0) nanosPerRun()[name] = seconds * 1e9 / static_cast<double>(state.iterations());
}

void drawFrame(benchmark::State& state) {
    DrawScene& s = scene();
    const mhost::HostFrameContext context(s.camera, 1280, 720);
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        mhost::DisplayList list;
        mhost::DrawRecorder recorder(list);
        s.drawOverride->prepareForDraw(s.locatorPath, s.camera, context, nullptr);
        s.drawOverride->addUIDrawables(s.locatorPath, recorder.manager(), context, nullptr);
        benchmark::DoNotOptimize(list.records.data());
    }
    keepFigure(state, "frame",
               std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

void copyArrays(benchmark::State& state) {
    DrawScene& s = scene();
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        MPointArray strokes = s.strokes;
        MIntArray sizes = s.sizes;
        MPointArray playerpts = s.row;
        MPointArray playersLine = s.row;
        benchmark::DoNotOptimize(&strokes[0]);
        benchmark::DoNotOptimize(&sizes[0]);
        benchmark::DoNotOptimize(&playerpts[0]);
        benchmark::DoNotOptimize(&playersLine[0]);
    }
    keepFigure(state, "copy",
               std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

BENCHMARK(drawFrame)->Unit(benchmark::kMicrosecond);
BENCHMARK(copyArrays)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    const auto& figures = nanosPerRun();
    if (figures.count("frame") && figures.count("copy") && figures.at("copy") > 0.0)
        std::printf("frame / copy of the same arrays: %.1fx\n", figures.at("frame") / figures.at("copy"));
    scene().drawOverride.reset();
    benchmark::Shutdown();
    return 0;
}
