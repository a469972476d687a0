#pragma once
// Saving and loading scenes, for programs and tests driving the headless host. A scene file is JSON:
// the nodes with their storable attribute values, the connections, the active selection and the
// option variables.

#include <maya/MStatus.h>

#include <string>

namespace mhost {
namespace driver {

// Writes the current scene to `path`. kFailure, with `error` set, when the file cannot be written or a
// value has a data type that cannot be saved.
MStatus saveScene(const std::string& path, std::string* error = nullptr);

// Replaces the scene with the one saved at `path`, as Maya's "file -open": the undo queue is emptied,
// the selection and option variables are the file's. The plug-ins whose node types the file uses must
// be loaded. kFailure, with `error` naming the problem (the first unknown node type, for instance),
// when the file cannot be read or does not fit; the scene is then left as it was.
MStatus loadScene(const std::string& path, std::string* error = nullptr);

}  // namespace driver
}  // namespace mhost
