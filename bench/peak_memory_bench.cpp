// Peak memory of the tool activated on a dense source (10,000,000 triangles unless `--triangles=N`
// says otherwise), beside raw Embree's scene of the same triangles. Each side runs in a child process
// of its own, so that each peak is its own: the host side makes the source's arrays, the scene with
// the source shape and the locator, and activates the tool; the raw side makes the same arrays and
// one Embree scene from them. The summary line gives both peaks and their ratio.

#include <embree3/rtcore.h>
#include <mhost/Driver.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <functional>

#include "denseSource.h"
#include "runner/SceneSetup.h"

namespace {

// The arrays straight into Embree's own buffers, as an application that keeps nothing else would.
void rawEmbreeScene() {
    const kystrake::PolygonMesh& mesh = kybench::denseSource();
    const std::vector<unsigned> triangles = kybench::fanTriangles(mesh);
    RTCDevice device = rtcNewDevice(nullptr);
    RTCScene scene = rtcNewScene(device);
    RTCGeometry geometry = rtcNewGeometry(device, RTC_GEOMETRY_TYPE_TRIANGLE);
    auto* vertices = static_cast<float*>(rtcSetNewGeometryBuffer(
        geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 3 * sizeof(float), mesh.points.size()));
    for (std::size_t v = 0; v < mesh.points.size(); ++v)
        for (int k = 0; k < 3; ++k) vertices[3 * v + k] = static_cast<float>(mesh.points[v][k]);
    auto* indices = static_cast<unsigned*>(rtcSetNewGeometryBuffer(
        geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3, 3 * sizeof(unsigned), triangles.size() / 3));
    std::copy(triangles.begin(), triangles.end(), indices);
    rtcCommitGeometry(geometry);
    rtcAttachGeometry(scene, geometry);
    rtcReleaseGeometry(geometry);
    rtcCommitScene(scene);
    rtcReleaseScene(scene);
    rtcReleaseDevice(device);
}

void hostActivatedTool() {
    kystrake::Session session;
    kystrake::setUpScene(session, kybench::denseSource(), KY_PLUGIN_MODULE_PATH);
}

struct Peak {
    double mebibytes = 0;
    double seconds = 0;
};

// Runs `work` in a child process; its peak resident memory and its time.
Peak inChild(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    Peak peak;
    peak.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return peak;
    peak.mebibytes = usage.ru_maxrss / 1024.0;  // Linux gives kibibytes
    return peak;
}

}  // namespace

int main(int argc, char** argv) {
    kybench::sourceTriangleCount() = 10000000;
    kybench::takeTriangleCount(argc, argv);
    const Peak raw = inChild(rawEmbreeScene);
    const Peak host = inChild(hostActivatedTool);
    if (raw.mebibytes <= 0 || host.mebibytes <= 0) {
        std::fprintf(stderr, "peak_memory_bench: a side failed\n");
        return 1;
    }
    std::printf(
        "peak memory on %s triangles: host, tool activated %.0f MiB (%.1f s); raw Embree scene and "
        "the arrays %.0f MiB (%.1f s); ratio %.2fx\n",
        kybench::triangleCountText().c_str(), host.mebibytes, host.seconds, raw.mebibytes, raw.seconds,
        host.mebibytes / raw.mebibytes);
    return 0;
}
