// One left-button drag event of a 200-point freehand stroke on a 1,000,000-triangle source
// (`--triangles=N` for another size), through the kyStrake plug-in on the headless host, beside the
// queries such an event makes, made straight through Embree in the same run. A drag event picks the
// surface under the pointer and pulls the whole stroke back onto the surface: every hit both ways
// along the pointer's line, then every hit both ways along each stroke point's line through the eye,
// sorted. After the table, a summary line gives the ratios of wall and CPU time.

#include <benchmark/benchmark.h>
#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MFnCamera.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <streambuf>
#include <string>
#include <vector>

#include "denseSource.h"
#include "rawEmbree.h"
#include "runner/SceneSetup.h"
#include "summaryReporter.h"

namespace {

using namespace kystrake;
namespace driver = mhost::driver;
using mhost::Vec3;

constexpr int kStrokePoints = 200;

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

// Keeps the error stream's text in memory, as the runner does for its log: a freehand stroke with no
// row prints the guide's failure trace at every drag event, and a terminal write per line would time
// the terminal rather than the event.
class ErrorLines : public std::streambuf {
protected:
    int overflow(int c) override {
        text_.push_back(static_cast<char>(c));
        if (text_.size() > (1u << 20)) text_.clear();
        return c;
    }

private:
    std::string text_;
};

void setUpOnce() {
    static bool done = false;
    if (done) return;
    static ErrorLines errorLines;
    std::cerr.rdbuf(&errorLines);
    Session session;
    session.viewWidth = 960;
    session.viewHeight = 640;
    setUpScene(session, kybench::denseSource(), KY_PLUGIN_MODULE_PATH);
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

// The source's fan triangles straight in Embree.
const kybench::RawTriangleScene& rawSource() {
    static const kybench::RawTriangleScene scene(kybench::floatPoints(kybench::denseSource()),
                                                 kybench::fanTriangles(kybench::denseSource()));
    return scene;
}

using Hits = std::vector<kybench::RawTriangleScene::Hit>;

// Every hit of the line through `origin` both ways within `reach`, behind the origin negative and
// sorted along the line, as the host's allIntersections gives them.
void sortedHitsBothWays(const Vec3& origin, const Vec3& direction, float reach, Hits& hits) {
    hits.clear();
    rawSource().allHits(origin, direction, reach, hits);
    const std::size_t ahead = hits.size();
    rawSource().allHits(origin, -direction, reach, hits);
    for (std::size_t i = ahead; i < hits.size(); ++i) hits[i].second = -hits[i].second;
    std::sort(hits.begin(), hits.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
}

Vec3 toVec3(const MPoint& p) { return {p.x, p.y, p.z}; }

// The queries of the last drag event: the pick under the pointer (every hit both ways, reach 10000),
// then one line per stroke point through the eye (every hit both ways, reach 100). The stroke points
// are where the host's reprojection leaves them, the last hit along each pixel's line.
struct EventQueries {
    Vec3 pickOrigin, pickDirection;
    std::vector<Vec3> strokePoints;
    Vec3 eye;
};

const EventQueries& eventQueries() {
    static const EventQueries queries = [] {
        setUpOnce();
        M3dView view = M3dView::active3dView();
        MDagPath camera;
        view.getCamera(camera);
        EventQueries q;
        q.eye = toVec3(MFnCamera(camera).eyePoint(MSpace::kWorld));
        Hits hits;
        for (const Pixel& p : strokePixels()) {
            MPoint source;
            MVector direction;
            view.viewToWorld(static_cast<short>(p[0]), static_cast<short>(p[1]), source, direction);
            q.pickOrigin = toVec3(source);
            q.pickDirection = Vec3(direction.x, direction.y, direction.z);
            sortedHitsBothWays(q.pickOrigin, q.pickDirection, 10000.0f, hits);
            if (!hits.empty())
                q.strokePoints.push_back(q.pickOrigin + q.pickDirection * double(hits.back().second));
        }
        return q;
    }();
    return queries;
}

void rawEmbreeQueries(benchmark::State& state) {
    const EventQueries& q = eventQueries();
    Hits hits;
    for (auto _ : state) {
        std::size_t total = 0;
        sortedHitsBothWays(q.pickOrigin, q.pickDirection, 10000.0f, hits);
        total += hits.size();
        for (const Vec3& point : q.strokePoints) {
            sortedHitsBothWays(point, point - q.eye, 100.0f, hits);
            total += hits.size();
        }
        benchmark::DoNotOptimize(total);
    }
    state.counters["stroke points"] = static_cast<double>(q.strokePoints.size());
}

BENCHMARK(hostDragEvent)->Unit(benchmark::kMillisecond)->Iterations(50);
BENCHMARK(rawEmbreeQueries)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    return kybench::runWithSummary(argc, argv, [](const kybench::SummaryReporter::Times& times) {
        const auto host = times.find("hostDragEvent/iterations:50"), raw = times.find("rawEmbreeQueries");
        if (host == times.end() || raw == times.end() || raw->second.wall <= 0 || raw->second.cpu <= 0)
            return;
        std::printf(
            "drag event of a %d-point stroke on %s triangles: wall %.3f ms, CPU %.3f ms; raw Embree "
            "queries: wall %.3f ms, CPU %.3f ms; ratio wall %.2fx, CPU %.2fx\n",
            kStrokePoints, kybench::triangleCountText().c_str(), host->second.wall, host->second.cpu,
            raw->second.wall, raw->second.cpu, host->second.wall / raw->second.wall,
            host->second.cpu / raw->second.cpu);
    });
}
