#pragma once
// Builds the scene the artist's panel builds before the tool runs: the plug-in loaded, the dense
// source mesh, one kyStrake locator with the source connected to its kyStrakeMesh, a camera framing
// the source, and the tool context made and current.

#include <maya/MStatus.h>

#include <stdexcept>
#include <string>

#include "runner/ObjFile.h"
#include "runner/Session.h"

namespace kystrake {

class SetupError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct SceneNames {
    std::string sourceShape;
    std::string locator;
    std::string context;
};

// Sets the scene up; throws SetupError naming the step that failed.
SceneNames setUpScene(const Session& session, const PolygonMesh& source, const std::string& pluginPath);

// Replaces the scene with the one saved at `path`, as File > Open does mid-session, and starts the
// tool afresh on it: the context, whose state belongs to the scene it leaves, is deleted and made
// again. The file is checked before anything changes; kFailure with `error` set leaves the scene
// and the tool as they were.
MStatus reopenScene(const std::string& path, const SceneNames& names, std::string* error);

// Where a scene file named in a session lies: a relative path is taken from the output folder.
std::string scenePath(const std::string& path, const std::string& outDir);

// Where the camera goes when the session gives none: looking at the source's centre from the front
// and a little above, far enough for its bounding sphere to fill most of the view.
CameraPlacement framingCamera(const PolygonMesh& source);

}  // namespace kystrake
