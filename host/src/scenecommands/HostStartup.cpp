// When the host library is loaded, the built-in scene commands join the command table and the
// command language learns where the active selection is, so every program and plug-in sees them.

#include <maya/MStringArray.h>

#include "commands/ArgumentParser.h"
#include "graph/Scene.h"
#include "scenecommands/SceneCommand.h"

namespace {

std::vector<std::string> activeSelectionNames() {
    MStringArray names;
    mhost::scene().settings.activeSelection.getSelectionStrings(names);
    std::vector<std::string> result;
    for (unsigned int i = 0; i < names.length(); ++i) result.push_back(names[i].asChar());
    return result;
}

struct SceneCommandsAtLoad {
    SceneCommandsAtLoad() {
        mhost::registerSceneCommands();
        // Commands whose syntax uses the selection as default objects read it from the scene.
        mhost::setSelectionSource(activeSelectionNames);
    }
};

const SceneCommandsAtLoad registerAtLoad;

}  // namespace
