#pragma once
// Writes the scene to a JSON document: every node with its storable values, the connections, the
// active selection, the option variables and the view's camera.

#include <nlohmann/json_fwd.hpp>

namespace mhost {

// The document of the current scene. Values that a connection feeds are left out (the connection
// gives them back), as are non-storable attributes and message attributes. Throws HostError when a
// stored data object has no serializer.
nlohmann::json sceneToJson();

}  // namespace mhost
