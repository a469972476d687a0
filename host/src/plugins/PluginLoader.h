#pragma once
// Loading and unloading plug-in modules as Maya does: dlopen, read MApiVersion, call
// initializePlugin / uninitializePlugin with the plug-in object.

#include <maya/MStatus.h>

#include <string>
#include <vector>

namespace mhost {

// Loads the module at `path`. Refused (kFailure, with `error` set) when a plug-in of the same name
// is loaded, the module cannot be opened, lacks an entry point or MApiVersion, or was built for
// another major API version. When initializePlugin fails its status is returned; what it
// registered stays registered and the module stays mapped, since those registrations point into it.
MStatus loadPlugin(const std::string& path, std::string& error);
// Calls uninitializePlugin. On success whatever the plug-in left registered is removed and the
// module is closed; on failure the plug-in stays loaded with what it still has registered.
MStatus unloadPlugin(const std::string& name, std::string& error);
bool isPluginLoaded(const std::string& name);
std::vector<std::string> loadedPlugins();
// The name a module's path gives its plug-in: the file name without folder and extension.
std::string pluginNameOf(const std::string& path);

}  // namespace mhost
