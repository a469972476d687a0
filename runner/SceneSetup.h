#pragma once
// Builds the scene the artist's panel builds before the tool runs: the plug-in loaded, the dense
// source mesh, one kyStrake locator with the source connected to its kyStrakeMesh, a camera framing
// the source, and the tool context made and current.

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

// Where the camera goes when the session gives none: looking at the source's centre from the front
// and a little above, far enough for its bounding sphere to fill most of the view.
CameraPlacement framingCamera(const PolygonMesh& source);

}  // namespace kystrake
