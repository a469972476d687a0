// One relax-brush drag event over about 2,000 vertices of a 20,000-vertex retopo grid lying on a
// 1,000,000-triangle source grid, beside the same number of closest-point queries made straight
// through Embree on the same triangles in the same run. A summary line gives the ratio.

#include <benchmark/benchmark.h>
#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MEvent.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MUIDrawManager.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "drawing/DisplayList.h"
#include "drawing/DrawRecorder.h"
#include "drawing/HostFrameContext.h"
#include "interaction/ContextState.h"
#include "rawEmbree.h"
#include "tool/kyStrake.h"

namespace {

namespace driver = mhost::driver;
using mhost::Vec3;

// Source: 1000 x 500 quads of 0.1, exactly 1,000,000 triangles. Retopo: 141 x 141 vertices of 0.2
// (19,881), a hair in front of the source. A brush of radius 5.05 covers about 2,000 of them.
constexpr int kSourceColumns = 1000, kSourceRows = 500;
constexpr double kSourceStep = 0.1;
constexpr int kRetopoSide = 141;
constexpr double kRetopoStep = 0.2;
constexpr double kRetopoOrigin = 36.0;
constexpr double kRadiusOption = 101.0;  // x 0.05 = 5.05 scene units

MObject gridMesh(int columns, int rows, double step, double x0, double z0, double y) {
    MPointArray points;
    for (int r = 0; r <= rows; ++r)
        for (int c = 0; c <= columns; ++c) points.append(MPoint(x0 + c * step, y, z0 + r * step));
    MIntArray counts, connects;
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c) {
            const int corner = r * (columns + 1) + c;
            counts.append(4);
            for (int id : {corner, corner + 1, corner + columns + 2, corner + columns + 1})
                connects.append(id);
        }
    }
    MFnMesh mesh;
    return mesh.create(points.length(), counts.length(), points, counts, connects);
}

MDagPath shapePath(const MObject& transform) {
    MDagPath path;
    MDagPath::getAPathTo(transform, path);
    path.extendToShape();
    return path;
}

struct BrushScene {
    MDagPath source, retopo;
    kyStrakeContext context;
    mhost::DisplayList displayList;
    mhost::DrawRecorder drawRecorder{displayList};
    MHWRender::MUIDrawManager& drawManager = drawRecorder.manager();
    mhost::HostFrameContext frameContext{MDagPath(), 1280, 720};
    std::vector<Vec3> queries;  // the brushed vertices' positions, for the Embree side

    BrushScene() {
        driver::resetScene();
        std::string error;
        if (!driver::loadPlugin(KY_PLUGIN_MODULE_PATH, &error)) std::fprintf(stderr, "%s\n", error.c_str());
        driver::setViewSize(1280, 720);
        driver::placeCamera(MPoint(50.0, -40.0, 25.0), MPoint(50.0, 0.0, 25.0));
        source = shapePath(gridMesh(kSourceColumns, kSourceRows, kSourceStep, 0.0, 0.0, 0.0));
        retopo = shapePath(gridMesh(kRetopoSide - 1, kRetopoSide - 1, kRetopoStep, kRetopoOrigin,
                                    kRetopoOrigin - 25.0, -0.001));
        std::string locator;
        driver::runCommand("createNode kyStrake", &locator);
        driver::runCommand("connectAttr " + std::string(source.partialPathName().asChar()) + ".outMesh " +
                           locator + ".kyStrakeMesh");
        driver::runCommand("optionVar -fv ky_strakeRadius " + std::to_string(kRadiusOption));
        mhost::ContextState::of(context).contextCommand = "kyStrakeContext";
        MEvent setup;
        context.toolOnSetup(setup);
        MGlobal::selectByName(retopo.fullPathName(), MGlobal::kReplaceList);

        MEvent press = eventAtCentre();
        context.doPress(press, drawManager, frameContext);

        MPointArray points;
        MFnMesh(retopo).getPoints(points, MSpace::kWorld);
        const MPoint centre = brushCentre();
        const double radius = kRadiusOption * 0.05;
        for (unsigned i = 0; i < points.length(); ++i)
            if (points[i].distanceTo(centre) <= radius)
                queries.emplace_back(points[i].x, points[i].y, points[i].z);
    }
    ~BrushScene() { context.toolOffCleanup(); }

    static MPoint brushCentre() { return MPoint(50.0, 0.0, 25.0); }
    static MEvent eventAtCentre() {
        short x = 0, y = 0;
        M3dView::active3dView().worldToView(brushCentre(), x, y);
        return mhost::makeEvent(x, y, MEvent::kMiddleMouse, MEvent::shiftKey | MEvent::controlKey);
    }
};

BrushScene& scene() {
    static BrushScene scene;
    return scene;
}

// The source's triangles for Embree, two per quad as a fan from each quad's first corner.
const kybench::RawTriangleScene& rawSource() {
    static const kybench::RawTriangleScene source = [] {
        MFnMesh mesh(::scene().source);
        const float* raw = mesh.getRawPoints(nullptr);
        std::vector<float> points(raw, raw + 3 * mesh.numVertices());
        MIntArray counts, connects;
        mesh.getVertices(counts, connects);
        std::vector<unsigned> triangles;
        for (unsigned f = 0, start = 0; f < counts.length(); start += counts[f], ++f)
            for (int k = 1; k + 1 < counts[f]; ++k)
                for (unsigned id : {connects[start], connects[start + k], connects[start + k + 1]})
                    triangles.push_back(id);
        return kybench::RawTriangleScene(std::move(points), std::move(triangles));
    }();
    return source;
}

std::map<std::string, double>& secondsPerRun() {
    static std::map<std::string, double> figures;
    return figures;
}

void keepFigure(benchmark::State& state, const char* name, double seconds) {
    if (state.iterations() > 0) secondsPerRun()[name] = seconds / static_cast<double>(state.iterations());
}

void RelaxDragEvent(benchmark::State& state) {
    BrushScene& s = scene();
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        MEvent event = BrushScene::eventAtCentre();
        benchmark::DoNotOptimize(s.context.doDrag(event, s.drawManager, s.frameContext));
        s.displayList.records.clear();
    }
    keepFigure(state, "relax",
               std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    state.counters["vertices"] = static_cast<double>(s.queries.size());
}

void EmbreeClosestPoints(benchmark::State& state) {
    const std::vector<Vec3>& queries = scene().queries;
    const kybench::RawTriangleScene& source = rawSource();
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        for (const Vec3& p : queries) benchmark::DoNotOptimize(source.nearest(p).distanceSquared);
    }
    keepFigure(state, "embree",
               std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
}

BENCHMARK(RelaxDragEvent)->Unit(benchmark::kMillisecond);
BENCHMARK(EmbreeClosestPoints)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    const auto& figures = secondsPerRun();
    if (figures.count("relax") && figures.count("embree") && figures.at("embree") > 0.0)
        std::printf("relax drag event %.3f ms, Embree closest points %.3f ms, ratio %.2fx (%zu vertices)\n",
                    figures.at("relax") * 1e3, figures.at("embree") * 1e3,
                    figures.at("relax") / figures.at("embree"), scene().queries.size());
    benchmark::Shutdown();
    return 0;
}
