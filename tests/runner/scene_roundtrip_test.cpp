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

bool isEnter(const Step& step) {
    const Key* key = std::get_if<Key>(&step);
    return key && key->name == Key::Name::kEnter;
}
bool isRelease(const Step& step) { return std::holds_alternative<Release>(step); }

// The index just after the `n`th step (1-based) of the road that `matches`.
size_t after(const Session& session, int n, bool (*matches)(const Step&)) {
    for (size_t i = 0; i < session.steps.size(); ++i)
        if (matches(session.steps[i]) && --n == 0) return i + 1;
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

    // Two strokes drawn and not yet built; the first patch; the second band, before the bridge and the
    // merge; the chin patch, whose rows stay on the locator for the rework that follows. Picked anchors
    // are no cut point: the tool keeps them on its context alone, which a new host makes afresh.
    const std::pair<const char*, size_t> cuts[] = {{"strokes", after(road, 2, isRelease)},
                                                   {"patch", after(road, 1, isEnter)},
                                                   {"band", after(road, 3, isEnter)},
                                                   {"chin", after(road, 7, isEnter)}};
    for (const auto& [name, cut] : cuts) {
        SCOPED_TRACE(std::string("cut after the ") + name);
        ASSERT_LT(cut, road.steps.size());
        Session before = road;
        before.steps.resize(cut);
        before.steps.push_back(SaveScene{"cut.json"});
        const std::string beforeFolder = outputFolder(std::string("before-") + name);
        ASSERT_EQ(0, run(before, beforeFolder).playback.stepsFailed);

        Session after = road;
        after.steps.erase(after.steps.begin(), after.steps.begin() + cut);
        after.steps.insert(after.steps.begin(), LoadScene{beforeFolder + "/cut.json"});
        const std::string afterFolder = outputFolder(std::string("after-") + name);
        ASSERT_EQ(0, run(after, afterFolder).playback.stepsFailed);
        const json resumed = sceneDocument(afterFolder);
        EXPECT_EQ("", firstDifference(reference, resumed));
        EXPECT_TRUE(reference == resumed);
    }
}

}  // namespace
