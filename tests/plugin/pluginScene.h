#pragma once
// Shared set-up of the plug-in tests that need the kyStrake module loaded the way Maya loads it:
// the module is loaded once per test process and each test starts from an empty scene.

#include <gtest/gtest.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MString.h>
#include <mhost/Driver.h>

#include <string>

#include "plugins/PluginLoader.h"

namespace kytest {

inline const char* const kPluginName = "kyStrake_2019";

// Loads the module unless it is loaded already; the error text on failure.
inline std::string ensurePluginLoaded() {
    if (mhost::isPluginLoaded(kPluginName)) return "";
    std::string error;
    if (!mhost::driver::loadPlugin(KY_PLUGIN_MODULE_PATH, &error) && error.empty()) error = "load failed";
    return error;
}

class PluginScene : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string error = ensurePluginLoaded();
        ASSERT_TRUE(error.empty()) << error;
        mhost::driver::resetScene();
    }
    void TearDown() override { mhost::driver::resetScene(); }
};

// The node of that name, or a null object.
inline MObject nodeNamed(const std::string& name) {
    MSelectionList list;
    MObject node;
    if (list.add(MString(name.c_str())) && list.getDependNode(0, node)) return node;
    return MObject::kNullObj;
}

// Creates a kyStrake locator shape under a new transform and returns the shape's name.
inline std::string createLocator(const std::string& name = "kyStrakeShape1") {
    std::string created;
    EXPECT_TRUE(mhost::driver::runCommand("createNode kyStrake -n " + name, &created));
    return created;
}

}  // namespace kytest
