// loadPlugin and unloadPlugin, so scripts and sessions can manage plug-ins as in Maya.

#include "plugins/PluginLoader.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

class LoadPluginCommand : public SceneCommand {
public:
    MStatus doIt(const MArgList& args) override {
        if (args.length() != 1) return fail("loadPlugin: expects the path of one plug-in module");
        std::string error;
        const std::string path = args.asString(0).asChar();
        MStatus status = loadPlugin(path, error);
        if (!status) return fail(error, status);
        result().set(pluginNameOf(path));
        return MS::kSuccess;
    }
};

class UnloadPluginCommand : public SceneCommand {
public:
    MStatus doIt(const MArgList& args) override {
        if (args.length() != 1) return fail("unloadPlugin: expects the name of one plug-in");
        std::string error;
        MStatus status = unloadPlugin(args.asString(0).asChar(), error);
        return status ? status : fail(error, status);
    }
};

}  // namespace

void registerPluginCommands(CommandTable& table) {
    table.add("loadPlugin", [] { return std::make_unique<LoadPluginCommand>(); });
    table.add("unloadPlugin", [] { return std::make_unique<UnloadPluginCommand>(); });
}

}  // namespace mhost
