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
    std::ifstream file(path, std::ios::binary);
    if (!file) return failure(error, "cannot read the scene file " + path);
    try {
        nlohmann::json document = nlohmann::json::parse(file);
        loadSceneFromJson(document);
    } catch (const nlohmann::json::exception& e) {
        return failure(error, "the scene file " + path + " is not JSON: " + e.what());
    } catch (const std::exception& e) {
        return failure(error, e.what());
    }
    return MS::kSuccess;
}

}  // namespace driver
}  // namespace mhost
