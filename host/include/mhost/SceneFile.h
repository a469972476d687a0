#pragma once
// Saving and loading scenes, for programs and tests driving the headless host. A scene file is JSON:
// the nodes with their storable attribute values, the connections, the active selection, the option
// variables and the camera the view looks through.

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

// Checks the file at `path` as loadScene does before it touches anything, without loading it; the
// same kFailure and `error` for a file loadScene would refuse. Every error names the file, and the
// line and column of a JSON syntax error or the entry at fault ("nodes[3]: ...").
MStatus checkSceneFile(const std::string& path, std::string* error = nullptr);

}  // namespace driver
}  // namespace mhost
