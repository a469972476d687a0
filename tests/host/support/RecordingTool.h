#pragma once
// A tool registered in-process for the interaction tests: a context that logs every call the host
// makes on it, its context command (flags -w/-word and -n/-number), and a tool command that logs its
// undo and redo with its serial number. The fixture registers them through MFnPlugin with a plug-in
// object of its own and removes them again, with the contexts, when the test ends.

#include <gtest/gtest.h>
// The test program is no plug-in: it exports no MApiVersion, whichever files include this.
#define MNoVersionString
#include <maya/MArgList.h>
#include <maya/MArgParser.h>
#include <maya/MCursor.h>
#include <maya/MFnPlugin.h>
#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>
#include <maya/MPxToolCommand.h>
#include <maya/MSyntax.h>
#include <maya/MUIDrawManager.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>

#include <memory>
#include <string>
#include <vector>

#include "plugins/PluginRecord.h"

namespace recording {

inline std::vector<std::string>& log() {
    static std::vector<std::string> lines;
    return lines;
}

inline std::string describe(const char* what, MEvent& event) {
    short x = 0, y = 0;
    event.getPosition(x, y);
    return std::string(what) + " " + std::to_string(x) + " " + std::to_string(y) + " b" +
           std::to_string(event.mouseButton()) + " m" + std::to_string(event.modifiers());
}

class Command : public MPxToolCommand {
public:
    Command() : fSerial(++made()) { ++alive(); }
    ~Command() override { --alive(); }
    static void* creator() { return new Command; }
    static int& made() {
        static int count = 0;
        return count;
    }
    static int& alive() {
        static int count = 0;
        return count;
    }

    MStatus doIt(const MArgList&) override { return MS::kSuccess; }
    MStatus undoIt() override { return note("undo"); }
    MStatus redoIt() override { return note("redo"); }
    bool isUndoable() const override { return true; }
    MStatus finalize() override {
        MArgList words;
        words.addArg(MString("stroke"));
        words.addArg(fSerial);
        return doFinalize(words);
    }

private:
    MStatus note(const char* what) {
        log().push_back(std::string(what) + " " + std::to_string(fSerial));
        return MS::kSuccess;
    }
    int fSerial;
};

class Context : public MPxContext {
public:
    std::string word;
    // Tool commands the next release makes: the first is finalised, the others abandoned.
    int commandsPerRelease = 1;

    void toolOnSetup(MEvent&) override {
        log().push_back("setup");
        setHelpString("draw on the surface");
        setCursor(MCursor::pencilCursor);
    }
    void toolOffCleanup() override { log().push_back("cleanup"); }
    MStatus doPress(MEvent& e, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) override {
        return note("press", e);
    }
    // Draws a 2D line from the view's origin to the pointer.
    MStatus doDrag(MEvent& e, MHWRender::MUIDrawManager& drawManager,
                   const MHWRender::MFrameContext&) override {
        short x = 0, y = 0;
        e.getPosition(x, y);
        drawManager.beginDrawable();
        drawManager.line2d(MPoint(0, 0), MPoint(x, y));
        drawManager.endDrawable();
        return note("drag", e);
    }
    MStatus doRelease(MEvent& e, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) override {
        for (int i = 0; i < commandsPerRelease; ++i) {
            MPxToolCommand* command = newToolCommand();
            if (!command) return MS::kFailure;
            if (i == 0) command->finalize();
        }
        return note("release", e);
    }
    MStatus doPtrMoved(MEvent& e, MHWRender::MUIDrawManager&, const MHWRender::MFrameContext&) override {
        return note("move", e);
    }
    void completeAction() override { log().push_back("complete"); }
    void abortAction() override { log().push_back("abort"); }
    void deleteAction() override { log().push_back("delete"); }

private:
    MStatus note(const char* what, MEvent& event) {
        log().push_back(describe(what, event));
        return MS::kSuccess;
    }
};

class ContextCommand : public MPxContextCommand {
public:
    static void* creator() { return new ContextCommand; }
    MPxContext* makeObj() override { return fContext = new Context; }
    MStatus appendSyntax() override {
        MSyntax mine = syntax();
        mine.addFlag("-w", "-word", MSyntax::kString);
        return mine.addFlag("-n", "-number", MSyntax::kLong);
    }
    MStatus doEditFlags() override {
        MArgParser line = parser();
        MString word;
        if (line.isFlagSet("-w")) line.getFlagArgument("-w", 0, word);
        fContext->word = word.asChar();
        return MS::kSuccess;
    }
    MStatus doQueryFlags() override {
        MArgParser line = parser();
        if (line.isFlagSet("-word")) return setResult(MString(fContext->word.c_str()));
        if (line.isFlagSet("-number")) return setResult(42);
        return MS::kSuccess;
    }

private:
    Context* fContext = nullptr;
};

inline MSyntax commandSyntax() {
    MSyntax syntax;
    syntax.addFlag("-s", "-size", MSyntax::kLong);
    return syntax;
}

}  // namespace recording

class RecordingToolFixture : public ::testing::Test {
protected:
    RecordingToolFixture() : record_(std::make_shared<mhost::PluginRecord>()), object_(record_) {
        record_->name = "recordingToolPlugin";
        mhost::driver::resetScene();
        recording::log().clear();
        MFnPlugin plugin(object_);
        EXPECT_TRUE(plugin.registerContextCommand("recordingTool", recording::ContextCommand::creator,
                                                  "recordingToolCmd", recording::Command::creator,
                                                  recording::commandSyntax));
    }
    ~RecordingToolFixture() override {
        unregister();
        mhost::driver::resetScene();
    }

    // Deregisters the tool as uninitializePlugin would; what fails on a second call is ignored.
    void unregister() {
        MFnPlugin plugin(object_);
        plugin.deregisterContextCommand("recordingTool", "recordingToolCmd");
    }

    // Makes a context through the command language and makes it the current tool.
    void activate(const std::string& name) {
        ASSERT_TRUE(mhost::driver::runCommand("recordingTool " + name));
        ASSERT_TRUE(mhost::driver::setToolTo(name));
    }

private:
    std::shared_ptr<mhost::PluginRecord> record_;
    MObject object_;
};
