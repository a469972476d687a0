#include <mhost/SceneFile.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "core/ApiObject.h"
#include "scenefile/SceneReader.h"
#include "scenefile/SceneWriter.h"

namespace mhost {
namespace driver {
namespace {

MStatus failure(std::string* error, const std::string& why) {
    if (error) *error = why;
    return MS::kFailure;
}

// Reads the file at `path` and hands its document to `use`; every fault comes back as a failure
// whose message starts with the file's name.
template <typename Use>
MStatus withDocument(const std::string& path, std::string* error, Use use) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return failure(error, "cannot read the scene file " + path);
    try {
        use(nlohmann::json::parse(file));
    } catch (const nlohmann::json::exception& e) {
        return failure(error, "the scene file " + path + " is not JSON: " + e.what());
    } catch (const std::exception& e) {
        return failure(error, path + ": " + e.what());
    }
    return MS::kSuccess;
}

}  // namespace

MStatus saveScene(const std::string& path, std::string* error) {
    try {
        const std::string text = sceneToJson().dump(1, '\t', false, nlohmann::json::error_handler_t::replace);
        std::ofstream file(path, std::ios::binary);
        if (!(file << text << '\n')) return failure(error, "cannot write the scene file " + path);
    } catch (const std::exception& e) {
        return failure(error, e.what());
    }
    return MS::kSuccess;
}

MStatus loadScene(const std::string& path, std::string* error) {
    return withDocument(path, error, [](const nlohmann::json& document) { loadSceneFromJson(document); });
}

MStatus checkSceneFile(const std::string& path, std::string* error) {
    return withDocument(path, error, [](const nlohmann::json& document) { checkSceneJson(document); });
}

}  // namespace driver
}  // namespace mhost
