#pragma once
// Rebuilds the scene from a JSON document written by sceneToJson.

#include <nlohmann/json_fwd.hpp>

namespace mhost {

// Replaces the scene, the active selection and the option variables with the document's, and empties
// the undo queue, as opening a file in Maya does. The whole document is checked first: an unknown node
// type (its plug-in not loaded), attribute or data type, or a malformed entry, throws HostError naming
// it and leaves everything as it was. Only a connection or selection the graph then refuses can stop
// the rebuild half way; that too throws HostError.
void loadSceneFromJson(const nlohmann::json& document);

// Checks the document as loadSceneFromJson does before it touches anything, and throws the same
// HostError; the scene stays as it is either way.
void checkSceneJson(const nlohmann::json& document);

}  // namespace mhost
