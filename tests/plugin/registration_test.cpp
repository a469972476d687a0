// Loading and unloading the kyStrake module through the host as Maya does: what it registers, the
// banner, the exported version text, and how failures stop the sequences.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <mhost/Driver.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "commands/CommandTable.h"
#include "drawing/DrawOverrideRegistry.h"
#include "graph/NodeType.h"
#include "plugins/ContextCommandRegistry.h"
#include "tests/plugin/geometryScene.h"
#include "tests/plugin/pluginScene.h"

namespace {

namespace driver = mhost::driver;
using kytest::kPluginName;

const char* const kBannerTail = "(Beta version, use at your own risk)\n ";
const char* const kErrorLine = "\nAPI error detected in pluginMain at line ";

bool locatorRegistered() { return mhost::nodeTypes().findById(0x80025) != nullptr; }
bool drawOverrideRegistered() {
    return mhost::drawOverrideRegistry().creatorFor("drawdb/geometry/kyStrake") != nullptr;
}
bool contextRegistered() { return mhost::contextCommands().find("kyStrakeContext") != nullptr; }
bool toolCommandRegistered() { return mhost::commandTable().contains("kyStrakeCmd"); }
bool patchCommandRegistered() { return mhost::commandTable().contains("kyPatchCmd"); }
bool patchNodeRegistered() { return mhost::nodeTypes().findById(0x80026) != nullptr; }
bool tweakNodeRegistered() { return mhost::nodeTypes().findById(0x80032) != nullptr; }

// Which of the six registrations stand, in load order: locator, draw override, context with its tool
// command, tweak node, patch command, patch node.
std::vector<bool> registrations() {
    return {locatorRegistered(),   drawOverrideRegistered(), contextRegistered() && toolCommandRegistered(),
            tweakNodeRegistered(), patchCommandRegistered(), patchNodeRegistered()};
}
const std::vector<bool> kAll(6, true);
const std::vector<bool> kNone(6, false);

bool isBanner(const driver::Message& message) {
    const std::string& text = message.text;
    return message.kind == driver::Message::Kind::kInfo && text.size() > std::string(kBannerTail).size() &&
           text.compare(text.size() - std::string(kBannerTail).size(), std::string::npos, kBannerTail) == 0;
}

// Each test starts with the module unloaded and an empty scene.
class Registration : public ::testing::Test {
protected:
    void SetUp() override {
        driver::resetScene();
        if (mhost::isPluginLoaded(kPluginName)) {
            ASSERT_TRUE(driver::unloadPlugin(kPluginName));
        }
        driver::resetScene();
    }
    void TearDown() override { driver::resetScene(); }
};

TEST_F(Registration, LoadRegistersTheNodesAndCommandsThenShowsTheBanner) {
    int banners = 0;
    std::string banner;
    bool registeredBeforeBanner = false;
    const int listener = driver::addMessageListener([&](const driver::Message& message) {
        if (!isBanner(message)) return;
        ++banners;
        banner = message.text;
        registeredBeforeBanner = registrations() == kAll;
    });
    std::string error;
    const MStatus status = driver::loadPlugin(KY_PLUGIN_MODULE_PATH, &error);
    driver::removeMessageListener(listener);

    ASSERT_TRUE(status) << error;
    EXPECT_EQ(1, banners);
    EXPECT_TRUE(registeredBeforeBanner);
    // A newline, five art lines (the fifth closing on its tag, then a newline and a blank), and
    // the beta line.
    EXPECT_EQ('\n', banner.front());
    EXPECT_NE(std::string::npos, banner.find("]\n (Beta version"));
    EXPECT_EQ(7, std::count(banner.begin(), banner.end(), '\n'));
    EXPECT_EQ("kyStrake", mhost::nodeTypes().findById(0x80025)->name);
    EXPECT_EQ("kyStrakeCmd", mhost::contextCommands().find("kyStrakeContext")->toolCommandName);
    EXPECT_EQ("kyPatchNode", mhost::nodeTypes().findById(0x80026)->name);
    EXPECT_EQ("kyTweakNode", mhost::nodeTypes().findById(0x80032)->name);
}

TEST_F(Registration, ModuleExportsTheApiVersionText) {
    void* handle = dlopen(KY_PLUGIN_MODULE_PATH, RTLD_LAZY | RTLD_LOCAL);
    ASSERT_NE(nullptr, handle) << dlerror();
    const char* version = static_cast<const char*>(dlsym(handle, "MApiVersion"));
    ASSERT_NE(nullptr, version);
    EXPECT_STREQ("20190300", version);
    EXPECT_NE(nullptr, dlsym(handle, "initializePlugin"));
    EXPECT_NE(nullptr, dlsym(handle, "uninitializePlugin"));
    dlclose(handle);
}

TEST_F(Registration, SecondLoadIsRefusedAndChangesNothing) {
    ASSERT_TRUE(driver::loadPlugin(KY_PLUGIN_MODULE_PATH));
    std::string error;
    EXPECT_FALSE(driver::loadPlugin(KY_PLUGIN_MODULE_PATH, &error));
    EXPECT_NE(std::string::npos, error.find("already loaded"));
    EXPECT_TRUE(locatorRegistered());
    EXPECT_TRUE(contextRegistered());
}

TEST_F(Registration, UnloadWithALocatorInTheSceneStopsAtTheNodeType) {
    ASSERT_TRUE(driver::loadPlugin(KY_PLUGIN_MODULE_PATH));
    kytest::createLocator();

    testing::internal::CaptureStderr();
    EXPECT_FALSE(driver::unloadPlugin(kPluginName));
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_NE(std::string::npos, printed.find(kErrorLine)) << printed;

    // The sequence stopped at its first step: everything is still registered.
    EXPECT_TRUE(mhost::isPluginLoaded(kPluginName));
    EXPECT_EQ(kAll, registrations());

    driver::resetScene();
    EXPECT_TRUE(driver::unloadPlugin(kPluginName));
    EXPECT_EQ(kNone, registrations());
}

// The patch node type goes after the context and the patch command: a patch node in the scene stops
// the sequence there, with those already gone and the tweak node, last to go, still registered. Since a
// second unload then fails at once on the missing locator type, the plug-in cannot be unloaded again, so the
// scenario runs in a child process.
TEST_F(Registration, UnloadWithAPatchNodeInTheSceneStopsAtThePatchNodeType) {
    ASSERT_TRUE(driver::loadPlugin(KY_PLUGIN_MODULE_PATH));
    ASSERT_TRUE(driver::runCommand("createNode kyPatchNode"));
    auto scenario = [] {
        const bool unloaded = driver::unloadPlugin(kPluginName);
        const bool stoppedAtPatchNode =
            registrations() == std::vector<bool>{false, false, false, true, false, true};
        driver::resetScene();
        const bool secondUnload = driver::unloadPlugin(kPluginName);
        std::exit(!unloaded && stoppedAtPatchNode && !secondUnload ? 0 : 1);
    };
    EXPECT_EXIT(scenario(), ::testing::ExitedWithCode(0), "API error detected in pluginMain at line ");
}

// The tweak node registers after the context and before the patch command: with its type id taken,
// loading stops there with the first three in place and the patch command and node never made. The
// squatting type stays behind, so the scenario runs in a child process.
TEST_F(Registration, TakenTweakNodeIdStopsTheLoadBeforeThePatchCommand) {
    auto scenario = [] {
        kytest::registerTestType("tweakSquatter", 0x80032, kytest::ProbeNode::creator,
                                 kytest::ProbeNode::initialize);
        const bool loaded = driver::loadPlugin(KY_PLUGIN_MODULE_PATH);
        const bool stoppedAtTweakNode =
            registrations() == std::vector<bool>{true, true, true, true, false, false} &&
            mhost::nodeTypes().findById(0x80032)->name == "tweakSquatter";
        std::exit(!loaded && stoppedAtTweakNode ? 0 : 1);
    };
    EXPECT_EXIT(scenario(), ::testing::ExitedWithCode(0), "API error detected in pluginMain at line ");
}

// The tweak node type goes last: with a tweak node in the scene everything else is gone and only it
// stays; once the node is gone the plug-in unloads.
TEST_F(Registration, UnloadWithATweakNodeInTheSceneStopsAtTheLastStep) {
    ASSERT_TRUE(driver::loadPlugin(KY_PLUGIN_MODULE_PATH));
    ASSERT_TRUE(driver::runCommand("createNode kyTweakNode"));
    auto scenario = [] {
        const bool unloaded = driver::unloadPlugin(kPluginName);
        const bool stoppedAtTweakNode =
            registrations() == std::vector<bool>{false, false, false, true, false, false};
        std::exit(!unloaded && stoppedAtTweakNode && mhost::isPluginLoaded(kPluginName) ? 0 : 1);
    };
    EXPECT_EXIT(scenario(), ::testing::ExitedWithCode(0), "API error detected in pluginMain at line ");
}

// A second copy of the module under another file name loads as another plug-in, whose first
// registration finds the type taken: it reports, returns at once and shows no banner.
TEST_F(Registration, TakenTypeFailsTheLoadBeforeTheBanner) {
    ASSERT_TRUE(driver::loadPlugin(KY_PLUGIN_MODULE_PATH));
    const std::filesystem::path twin =
        std::filesystem::temp_directory_path() / ("kyStrakeTwin" + std::to_string(getpid()) + ".so");
    std::filesystem::copy_file(KY_PLUGIN_MODULE_PATH, twin,
                               std::filesystem::copy_options::overwrite_existing);

    int banners = 0;
    const int listener =
        driver::addMessageListener([&](const driver::Message& message) { banners += isBanner(message); });
    testing::internal::CaptureStderr();
    const MStatus status = driver::loadPlugin(twin.string());
    const std::string printed = testing::internal::GetCapturedStderr();
    driver::removeMessageListener(listener);
    std::filesystem::remove(twin);

    EXPECT_FALSE(status);
    EXPECT_EQ(0, banners);
    EXPECT_NE(std::string::npos, printed.find(kErrorLine)) << printed;
    // The first plug-in keeps its registrations.
    EXPECT_TRUE(locatorRegistered());
    EXPECT_TRUE(contextRegistered());
}

}  // namespace
