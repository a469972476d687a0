// The scene saved part way along the full road and opened again in a fresh host through the session's
// own save and load steps: the rest of the road then ends with the very scene the road ends with when
// it runs through without a break.

#include <gtest/gtest.h>
#include <mhost/SceneFile.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "runner/DemoSession.h"
#include "runner/SessionRun.h"

namespace {

using namespace kystrake;
using nlohmann::json;

std::string outputFolder(const std::string& name) {
    const std::string folder = testing::TempDir() + "kystrake-roundtrip-" + name;
    std::filesystem::remove_all(folder);
    return folder;
}

RunSummary run(const Session& session, const std::string& folder) {
    return runSession(session, folder, KY_PLUGIN_MODULE_PATH, false);
}

// The full road on a lighter relief, without its frames, which change nothing in the scene.
Session lightRoad() {
    Session session = fullRoadSession();
    session.source.triangles = 30000;
    auto& steps = session.steps;
    steps.erase(std::remove_if(steps.begin(), steps.end(),
                               [](const Step& step) { return std::holds_alternative<Frame>(step); }),
                steps.end());
    return session;
}

// The current scene as its file holds it, less the node uuids: nodes made after a load get new ones.
json sceneDocument(const std::string& folder) {
    const std::string path = folder + "/final.json";
    std::string error;
    EXPECT_TRUE(mhost::driver::saveScene(path, &error)) << error;
    std::ifstream file(path);
    json document = json::parse(file);
    for (json& node : document["nodes"]) node.erase("uuid");
    return document;
}

// The steps just after the `n`th ENTER of the road (1-based).
size_t afterEnter(const Session& session, int n) {
    for (size_t i = 0; i < session.steps.size(); ++i)
        if (const Key* key = std::get_if<Key>(&session.steps[i]))
            if (key->name == Key::Name::kEnter && --n == 0) return i + 1;
    return session.steps.size();
}

// Where the names of two documents' nodes first differ, or their first differing node; for a
// readable failure instead of two whole scenes.
std::string firstDifference(const json& expected, const json& actual) {
    for (const char* part : {"connections", "selection", "optionVars", "viewCamera"})
        if (expected.value(part, json()) != actual.value(part, json())) return part;
    const json& a = expected["nodes"];
    const json& b = actual["nodes"];
    for (size_t i = 0; i < std::min(a.size(), b.size()); ++i)
        if (a[i] != b[i])
            return "node " + a[i]["name"].get<std::string>() + " / " + b[i]["name"].get<std::string>();
    return a.size() == b.size() ? "" : "node count";
}

TEST(SceneRoundTrip, TheRoadGoesOnAfterSavingAndOpeningTheScene) {
    const Session road = lightRoad();
    const std::string referenceFolder = outputFolder("reference");
    ASSERT_EQ(0, run(road, referenceFolder).playback.stepsFailed);
    const json reference = sceneDocument(referenceFolder);

    // After the first patch; after the second band, before the bridge and the merge; after the chin
    // patch, whose rows stay on the locator for the rework that follows.
    for (int enter : {1, 3, 7}) {
        SCOPED_TRACE("cut after ENTER " + std::to_string(enter));
        const size_t cut = afterEnter(road, enter);
        ASSERT_LT(cut, road.steps.size());
        Session before = road;
        before.steps.resize(cut);
        before.steps.push_back(SaveScene{"cut.json"});
        const std::string beforeFolder = outputFolder("before-" + std::to_string(enter));
        ASSERT_EQ(0, run(before, beforeFolder).playback.stepsFailed);

        Session after = road;
        after.steps.erase(after.steps.begin(), after.steps.begin() + cut);
        after.steps.insert(after.steps.begin(), LoadScene{beforeFolder + "/cut.json"});
        const std::string afterFolder = outputFolder("after-" + std::to_string(enter));
        ASSERT_EQ(0, run(after, afterFolder).playback.stepsFailed);
        const json resumed = sceneDocument(afterFolder);
        EXPECT_EQ("", firstDifference(reference, resumed));
        EXPECT_TRUE(reference == resumed);
    }
}

}  // namespace
