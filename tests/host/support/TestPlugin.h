#pragma once
// Registers node types and commands in-process through MFnPlugin, with a plug-in object of the
// test's own, so graph and command tests need no module on disk. Everything is removed again,
// with the scene, when the fixture ends.

#include <gtest/gtest.h>
// The test program is no plug-in: it exports no MApiVersion, whichever files include this.
#define MNoVersionString
#include <maya/MFnPlugin.h>

#include "commands/UndoQueue.h"
#include "graph/Scene.h"
#include "plugins/PluginRecord.h"

class TestPluginFixture : public ::testing::Test {
protected:
    TestPluginFixture() : record_(std::make_shared<mhost::PluginRecord>()), object_(record_) {
        record_->name = "hostTestTypes";
        mhost::scene().clear();
    }
    ~TestPluginFixture() override {
        mhost::undoQueue().clear();
        mhost::scene().clear();
        MFnPlugin plugin(object_);
        for (unsigned int id : ids_) plugin.deregisterNode(MTypeId(id));
        for (const auto& name : commands_) plugin.deregisterCommand(MString(name.c_str()));
    }

    MStatus registerNode(const char* name, unsigned int id, MCreatorFunction creator,
                         MInitializeFunction init, MPxNode::Type kind = MPxNode::kDependNode) {
        MFnPlugin plugin(object_);
        MStatus status = plugin.registerNode(name, MTypeId(id), creator, init, kind);
        if (status) ids_.push_back(id);
        return status;
    }

    MStatus registerCommand(const char* name, MCreatorFunction creator,
                            MCreateSyntaxFunction syntax = nullptr) {
        MFnPlugin plugin(object_);
        MStatus status = plugin.registerCommand(name, creator, syntax);
        if (status) commands_.push_back(name);
        return status;
    }

    MObject& pluginObject() { return object_; }

private:
    std::shared_ptr<mhost::PluginRecord> record_;
    MObject object_;
    std::vector<unsigned int> ids_;
    std::vector<std::string> commands_;
};
