#include "plugins/PluginLoader.h"

#include <dlfcn.h>
#include <maya/MObject.h>

#include <algorithm>
#include <memory>

#include "commands/CommandTable.h"
#include "commands/UndoQueue.h"
#include "graph/NodeType.h"
#include "graph/Scene.h"
#include "interaction/ContextCommands.h"
#include "plugins/ContextCommandRegistry.h"
#include "plugins/PluginRecord.h"

namespace mhost {
namespace {

using EntryPoint = MStatus (*)(MObject);

std::vector<std::shared_ptr<PluginRecord>>& loaded() {
    static std::vector<std::shared_ptr<PluginRecord>> plugins;
    return plugins;
}

std::shared_ptr<PluginRecord> findLoaded(const std::string& name) {
    for (const auto& p : loaded())
        if (p->name == name) return p;
    return nullptr;
}

// The host accepts modules built for the same major API version (the year): "2019xxxx".
bool compatibleVersion(const std::string& version) {
    const std::string host = std::to_string(MAYA_API_VERSION);
    return version.size() == host.size() && version.compare(0, 4, host, 0, 4) == 0;
}

EntryPoint entryPoint(void* handle, const char* name) {
    return reinterpret_cast<EntryPoint>(dlsym(handle, name));
}

// Removes whatever a plug-in left registered, so nothing points into a module about to be closed.
void removeLeftovers(const std::string& owner) {
    for (const auto& name : contextCommands().namesOwnedBy(owner)) removeContextCommand(name);
    for (const auto& name : commandTable().namesOwnedBy(owner)) commandTable().remove(name);
    for (const auto& type : nodeTypes().all()) {
        if (type->owner != owner) continue;
        for (const auto& node : std::vector<NodePtr>(scene().nodes()))
            if (node->type == type) scene().deleteNode(node);
        nodeTypes().remove(type->name);
    }
}

}  // namespace

std::string pluginNameOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    std::string file = slash == std::string::npos ? path : path.substr(slash + 1);
    const size_t dot = file.find('.');
    return dot == std::string::npos ? file : file.substr(0, dot);
}

MStatus loadPlugin(const std::string& path, std::string& error) {
    const std::string name = pluginNameOf(path);
    if (findLoaded(name)) {
        error = "Plug-in \"" + name + "\" is already loaded";
        return MS::kFailure;
    }
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* why = dlerror();
        error = "Cannot load plug-in \"" + path + "\": " + (why ? why : "unknown error");
        return MS::kFailure;
    }
    const char* version = static_cast<const char*>(dlsym(handle, "MApiVersion"));
    EntryPoint initialize = entryPoint(handle, "initializePlugin");
    if (!version || !initialize || !entryPoint(handle, "uninitializePlugin") || !compatibleVersion(version)) {
        error = "Plug-in \"" + name + "\" is not a Maya " + std::to_string(MAYA_APP_VERSION) +
                " plug-in (missing entry points or API version mismatch)";
        dlclose(handle);
        return MS::kFailure;
    }
    auto record = std::make_shared<PluginRecord>();
    record->name = name;
    record->path = path;
    record->apiVersion = version;
    record->handle = handle;
    loaded().push_back(record);
    MStatus status = initialize(MObject(record));
    if (!status) error = "initializePlugin of \"" + name + "\" failed";
    return status;
}

MStatus unloadPlugin(const std::string& name, std::string& error) {
    auto record = findLoaded(name);
    if (!record) {
        error = "Plug-in \"" + name + "\" is not loaded";
        return MS::kFailure;
    }
    MStatus status = entryPoint(record->handle, "uninitializePlugin")(MObject(record));
    if (!status) {
        error = "uninitializePlugin of \"" + name + "\" failed";
        return status;
    }
    removeLeftovers(name);
    // Undo steps may hold the plug-in's objects; like Maya, unloading flushes the undo queue.
    undoQueue().clear();
    auto& plugins = loaded();
    plugins.erase(std::remove(plugins.begin(), plugins.end(), record), plugins.end());
    dlclose(record->handle);
    return MS::kSuccess;
}

bool isPluginLoaded(const std::string& name) { return findLoaded(name) != nullptr; }

std::vector<std::string> loadedPlugins() {
    std::vector<std::string> names;
    for (const auto& p : loaded()) names.push_back(p->name);
    return names;
}

}  // namespace mhost
