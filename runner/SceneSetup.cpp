#include "runner/SceneSetup.h"

#include <maya/MFloatPointArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>
#include <mhost/SceneFile.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace kystrake {
namespace {

const char* const kContextName = "kyStrakeContext1";

void require(MStatus status, const std::string& step, const std::string& detail = "") {
    if (!status) throw SetupError(step + (detail.empty() ? "" : ": " + detail));
}

std::string runOrThrow(const std::string& script, const std::string& step) {
    std::string result;
    require(mhost::driver::runCommand(script, &result), step, script);
    return result;
}

std::string createSourceMesh(const PolygonMesh& source) {
    MFloatPointArray points;
    for (const auto& p : source.points) points.append(MFloatPoint(float(p[0]), float(p[1]), float(p[2])));
    MIntArray counts, connects;
    for (int c : source.polygonCounts) counts.append(c);
    for (int v : source.polygonConnects) connects.append(v);
    MFnMesh mesh;
    MStatus status;
    MObject transform =
        mesh.create(points.length(), counts.length(), points, counts, connects, MObject::kNullObj, &status);
    require(status, "creating the source mesh", "the polygons are not a valid mesh");
    MFnDependencyNode(transform).setName("sourceMesh");
    return mesh.name().asChar();
}

// Makes the tool context and makes it current.
std::string startTool() {
    const std::string context =
        runOrThrow(std::string("kyStrakeContext ") + kContextName, "making the tool context");
    require(mhost::driver::setToolTo(context), "making the tool current");
    return context;
}

}  // namespace

CameraPlacement framingCamera(const PolygonMesh& source) {
    std::array<double, 3> low{1e300, 1e300, 1e300}, high{-1e300, -1e300, -1e300};
    for (const auto& p : source.points)
        for (int i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], p[i]);
            high[i] = std::max(high[i], p[i]);
        }
    Vec3 centre{(low[0] + high[0]) / 2, (low[1] + high[1]) / 2, (low[2] + high[2]) / 2};
    const double radius = 0.5 * std::sqrt(std::pow(high[0] - low[0], 2) + std::pow(high[1] - low[1], 2) +
                                          std::pow(high[2] - low[2], 2));
    const double fov = 45.0;
    const double distance = radius / std::sin(fov * M_PI / 360.0) * 1.05;
    return {{centre[0], centre[1] + 0.25 * distance, centre[2] + distance}, centre, fov};
}

SceneNames setUpScene(const Session& session, const PolygonMesh& source, const std::string& pluginPath) {
    // Tool contexts outlive scene resets: one left by an earlier run in this process goes first, while
    // its scene is still there for its clean-up, so each run starts with a fresh tool.
    mhost::driver::deleteToolContext(kContextName);
    mhost::driver::resetScene();
    std::string error;
    if (!mhost::driver::loadPlugin(pluginPath, &error) && error.find("already loaded") == std::string::npos)
        throw SetupError("loading the plug-in: " + error);
    SceneNames names;
    names.sourceShape = createSourceMesh(source);
    names.locator = runOrThrow("createNode kyStrake -n kyStrakeShape1", "creating the kyStrake locator");
    runOrThrow("connectAttr " + names.sourceShape + ".outMesh " + names.locator + ".kyStrakeMesh",
               "connecting the source mesh to the locator");
    require(mhost::driver::setViewSize(session.viewWidth, session.viewHeight), "sizing the view");
    const CameraPlacement camera = session.camera ? *session.camera : framingCamera(source);
    require(mhost::driver::placeCamera(MPoint(camera.eye[0], camera.eye[1], camera.eye[2]),
                                       MPoint(camera.target[0], camera.target[1], camera.target[2])),
            "placing the camera");
    names.context = startTool();
    return names;
}

MStatus reopenScene(const std::string& path, const SceneNames& names, std::string* error) {
    MStatus status = mhost::driver::checkSceneFile(path, error);
    if (!status) return status;
    mhost::driver::deleteToolContext(names.context);
    status = mhost::driver::loadScene(path, error);
    startTool();
    return status;
}

std::string scenePath(const std::string& path, const std::string& outDir) {
    const std::filesystem::path file(path);
    return file.is_relative() ? (std::filesystem::path(outDir) / file).string() : path;
}

}  // namespace kystrake
