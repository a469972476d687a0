#include <gtest/gtest.h>
#include <mhost/Driver.h>

#include "commands/CommandTable.h"
#include "graph/NodeType.h"
#include "plugins/PluginLoader.h"

namespace {

using namespace mhost;

class PluginLoading : public ::testing::Test {
protected:
    void SetUp() override { driver::resetScene(); }
    void TearDown() override {
        driver::resetScene();
        for (const auto& name : loadedPlugins()) driver::unloadPlugin(name);
    }
};

TEST_F(PluginLoading, LoadsRunsAndUnloadsAModule) {
    std::string error;
    ASSERT_TRUE(driver::loadPlugin(KY_GREETERPLUGIN_PATH, &error)) << error;
    EXPECT_TRUE(isPluginLoaded("greeterPlugin"));

    std::string result;
    ASSERT_TRUE(driver::runCommand("greet -n \"maya\" -t 2", &result));
    EXPECT_EQ("hello maya hello maya", result);
    EXPECT_FALSE(driver::runCommand("greet -bogus"));
    EXPECT_FALSE(driver::runCommand("greet -t 0"));

    ASSERT_TRUE(driver::runCommand("createNode doubler -n d; setAttr d.input 21", &result));
    ASSERT_TRUE(driver::runCommand("getAttr d.output", &result));
    EXPECT_EQ("42", result);

    // A node of the plug-in's type blocks unloading; once it is gone the module unloads cleanly.
    EXPECT_FALSE(driver::unloadPlugin("greeterPlugin", &error));
    EXPECT_TRUE(isPluginLoaded("greeterPlugin"));
    ASSERT_TRUE(driver::runCommand("delete d"));
    ASSERT_TRUE(driver::unloadPlugin("greeterPlugin", &error)) << error;
    EXPECT_FALSE(commandTable().contains("greet"));
    EXPECT_EQ(nullptr, nodeTypes().find("doubler"));
    EXPECT_FALSE(driver::runCommand("greet"));
}

TEST_F(PluginLoading, RefusesASecondLoadOfTheSamePlugin) {
    ASSERT_TRUE(driver::loadPlugin(KY_GREETERPLUGIN_PATH));
    std::string error;
    EXPECT_FALSE(driver::loadPlugin(KY_GREETERPLUGIN_PATH, &error));
    EXPECT_EQ("Plug-in \"greeterPlugin\" is already loaded", error);
    EXPECT_EQ(1u, loadedPlugins().size());
}

TEST_F(PluginLoading, AFailedInitialisationKeepsWhatRegisteredBeforeIt) {
    std::string error;
    EXPECT_FALSE(driver::loadPlugin(KY_HALFBROKENPLUGIN_PATH, &error));
    EXPECT_EQ("initializePlugin of \"halfBrokenPlugin\" failed", error);
    EXPECT_TRUE(commandTable().contains("nothingAtAll"));
    EXPECT_EQ(nullptr, nodeTypes().find("brokenNode"));
    ASSERT_TRUE(driver::unloadPlugin("halfBrokenPlugin", &error)) << error;
    EXPECT_FALSE(commandTable().contains("nothingAtAll"));
}

TEST_F(PluginLoading, RejectsFilesThatAreNoPlugins) {
    std::string error;
    EXPECT_FALSE(driver::loadPlugin("/nonexistent/plugin.so", &error));
    EXPECT_NE(std::string::npos, error.find("Cannot load plug-in"));
    EXPECT_FALSE(driver::unloadPlugin("neverLoaded", &error));
    EXPECT_EQ("Plug-in \"neverLoaded\" is not loaded", error);
}

TEST_F(PluginLoading, ScriptsCanLoadPlugins) {
    std::string result;
    ASSERT_TRUE(driver::runCommand(std::string("loadPlugin \"") + KY_GREETERPLUGIN_PATH + "\"", &result));
    EXPECT_EQ("greeterPlugin", result);
    EXPECT_TRUE(driver::runCommand("unloadPlugin greeterPlugin"));
}

}  // namespace
