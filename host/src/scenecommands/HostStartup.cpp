// The host's built-in scene commands join the command table when the host library is loaded, so
// every program and plug-in sees them from the start.

#include "scenecommands/SceneCommand.h"

namespace {

struct SceneCommandsAtLoad {
    SceneCommandsAtLoad() { mhost::registerSceneCommands(); }
};

const SceneCommandsAtLoad registerAtLoad;

}  // namespace
