// A 12 x 12-span strake patch appended to a retopo mesh of 20,022 vertices, and its undo and redo,
// beside the time the host takes to build the same final mesh straight from its arrays with
// MFnMesh::create, all in one run. The retopo mesh is a grid whose history is already a patch
// node, as after a first patch; the player row is 13 vertices of its border and the stroke runs
// parallel to it. After the table, summary lines give the ratios.

#include <benchmark/benchmark.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MFnMeshData.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>

#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

namespace driver = mhost::driver;

constexpr int kRetopoColumns = 141;  // vertices along x
constexpr int kRetopoRows = 142;     // vertices along z: 20,022 in all
constexpr double kSpacing = 0.1;
constexpr int kSpans = 12;

// A grid of (columns - 1) x (rows - 1) quads in the XZ plane at y = 0, corner at the origin.
MObject makeGrid(int columns, int rows, double spacing) {
    MPointArray points;
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) points.append(MPoint(c * spacing, 0.0, r * spacing));
    MIntArray counts, connects;
    for (int r = 0; r + 1 < rows; ++r) {
        for (int c = 0; c + 1 < columns; ++c) {
            const int corner = r * columns + c;
            counts.append(4);
            for (int id : {corner, corner + 1, corner + columns + 1, corner + columns}) connects.append(id);
        }
    }
    MFnMesh mesh;
    return mesh.create(points.length(), counts.length(), points, counts, connects);
}

MDagPath shapeOf(const MObject& transform) {
    MDagPath path;
    MDagPath::getAPathTo(transform, path);
    path.extendToShape();
    return path;
}

void run(const std::string& command) {
    if (!driver::runCommand(command)) std::fprintf(stderr, "failed: %s\n", command.c_str());
}

// The dense source under everything, the locator with its per-face normals, the retopo mesh under
// a filled patch node, selected.
struct StrakeScene {
    MDagPath retopo;
    MIntArray playerRow;
    MPointArray stroke;

    StrakeScene() {
        driver::resetScene();
        std::string error;
        if (!driver::loadPlugin(KY_PLUGIN_MODULE_PATH, &error)) std::fprintf(stderr, "%s\n", error.c_str());
        const MDagPath source = shapeOf(makeGrid(301, 301, 0.1));
        std::string locator;
        driver::runCommand("createNode kyStrake", &locator);
        run("connectAttr " + std::string(source.partialPathName().asChar()) + ".outMesh " + locator +
            ".kyStrakeMesh");
        const MObject locatorNode = findStrakeLocator();
        MVectorArray normals(static_cast<unsigned int>(MFnMesh(source).numPolygons()),
                             MVector(0.0, -1.0, 0.0));
        setVectorArrayAttr("inputNormals", locatorNode, normals);

        retopo = shapeOf(makeGrid(kRetopoColumns, kRetopoRows, kSpacing));
        MGlobal::selectByName(retopo.fullPathName(), MGlobal::kReplaceList);
        MObject node;
        applyPatchCommand("kyPatch", retopo, node);
        kyStrakeToolCmd fill;
        MFnMesh mesh(retopo);
        fill.commitPatchMesh(mesh, false, node, MIntArray());

        run("optionVar -iv ky_vspan " + std::to_string(kSpans));
        const int lastRow = (kRetopoRows - 1) * kRetopoColumns;
        for (int c = 0; c <= kSpans; ++c) playerRow.append(lastRow + c);
        for (int i = 0; i <= 2 * kSpans; ++i)
            stroke.append(MPoint(i * kSpacing / 2.0, 0.0, (kRetopoRows - 1 + kSpans) * kSpacing));

        // One patch made and undone first, so that the source's ray accelerator, built on the first
        // projection, is not counted against the first timed patch.
        armStroke();
        appendPatch()->undoIt();
    }

    // The locator as the release of the stroke leaves it: a player row and one stroke.
    void armStroke() const {
        setPlayerVertices(playerRow);
        setPlayerLineFromIds(playerRow);
        clearStrokes();
        kyStrakeToolCmd writer;
        MStatus status;
        writer.appendStrokeToLocator(status, stroke);
    }

    // Evaluates the retopo mesh, as the viewport's next redraw does: an edit's result is rebuilt by
    // the patch node when it is first read, and that is part of the edit's cost.
    void settle() const { benchmark::DoNotOptimize(MFnMesh(retopo).numVertices()); }

    std::unique_ptr<kyStrakeToolCmd> appendPatch() const {
        auto cmd = std::make_unique<kyStrakeToolCmd>();
        MMeshIsectAccelParams accel;
        cmd->appendStrakePatch(pointsFromIds(playerRow, retopo), accel, false);
        return cmd;
    }
};

StrakeScene& scene() {
    static StrakeScene scene;
    return scene;
}

// Each timed step starts from a settled scene and ends when its result has been evaluated.
void strakePatch(benchmark::State& state) {
    StrakeScene& s = scene();
    for (auto _ : state) {
        state.PauseTiming();
        s.armStroke();
        s.settle();
        state.ResumeTiming();
        std::unique_ptr<kyStrakeToolCmd> cmd = s.appendPatch();
        s.settle();
        state.PauseTiming();
        cmd->undoIt();
        s.settle();
        state.ResumeTiming();
    }
}

void strakeUndo(benchmark::State& state) {
    StrakeScene& s = scene();
    s.armStroke();
    std::unique_ptr<kyStrakeToolCmd> cmd = s.appendPatch();
    s.settle();
    for (auto _ : state) {
        cmd->undoIt();
        s.settle();
        state.PauseTiming();
        cmd->redoIt();
        s.settle();
        state.ResumeTiming();
    }
    cmd->undoIt();
}

void strakeRedo(benchmark::State& state) {
    StrakeScene& s = scene();
    s.armStroke();
    std::unique_ptr<kyStrakeToolCmd> cmd = s.appendPatch();
    for (auto _ : state) {
        state.PauseTiming();
        cmd->undoIt();
        s.settle();
        state.ResumeTiming();
        cmd->redoIt();
        s.settle();
    }
    cmd->undoIt();
}

// The final mesh of the patch, built from its arrays by the host alone.
void meshFromArrays(benchmark::State& state) {
    StrakeScene& s = scene();
    s.armStroke();
    std::unique_ptr<kyStrakeToolCmd> cmd = s.appendPatch();
    const MeshSnapshot mesh = cmd->meshAfterState();
    cmd->undoIt();
    for (auto _ : state) {
        MFnMeshData data;
        MObject owner = data.create();
        MFnMesh builder;
        builder.create(static_cast<int>(mesh.numverts), static_cast<int>(mesh.numpolys), mesh.vertexarray,
                       mesh.polycount, mesh.polyconnect, mesh.uarray, mesh.varray, owner);
        benchmark::DoNotOptimize(owner);
    }
}

BENCHMARK(meshFromArrays)->Unit(benchmark::kMillisecond);
BENCHMARK(strakePatch)->Unit(benchmark::kMillisecond);
BENCHMARK(strakeUndo)->Unit(benchmark::kMillisecond);
BENCHMARK(strakeRedo)->Unit(benchmark::kMillisecond);

// Collects each benchmark's mean time per iteration for the ratio lines.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) times[run.benchmark_name()] = run.GetAdjustedRealTime();
    }
    std::map<std::string, double> times;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    const double reference = reporter.times["meshFromArrays"];
    if (reference > 0.0) {
        for (const char* name : {"strakePatch", "strakeUndo", "strakeRedo"})
            std::printf("%s: %.2f ms, %.2fx the mesh built from its arrays (%.2f ms)\n", name,
                        reporter.times[name], reporter.times[name] / reference, reference);
    }
    return 0;
}
