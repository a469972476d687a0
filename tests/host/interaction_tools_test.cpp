// Tool contexts and their commands: context commands run through the command language, tool
// switching, and tool commands filed on the undo queue by doFinalize.

#include <gtest/gtest.h>
#include <maya/MEventMessage.h>

#include "interaction/ToolContexts.h"
#include "support/RecordingTool.h"

using mhost::driver::MouseButton;

namespace {

std::string resultOf(const std::string& script, MStatus* status = nullptr) {
    std::string result;
    const MStatus ran = mhost::driver::runCommand(script, &result);
    if (status) *status = ran;
    return result;
}

void countCall(void* clientData) { ++*static_cast<int*>(clientData); }

}  // namespace

using ContextCommandTest = RecordingToolFixture;

TEST_F(ContextCommandTest, MakesNamedAndNumberedContexts) {
    EXPECT_EQ(resultOf("recordingTool brush"), "brush");
    EXPECT_EQ(resultOf("recordingTool"), "recordingTool1");
    EXPECT_EQ(resultOf("recordingTool"), "recordingTool2");
    EXPECT_EQ(resultOf("recordingTool -exists brush"), "1");
    EXPECT_EQ(resultOf("recordingTool -ex nothing"), "0");
    MStatus status;
    resultOf("recordingTool brush", &status);
    EXPECT_FALSE(status) << "a second context of the same name";
}

TEST_F(ContextCommandTest, EditAndQueryReachTheCommandThatMadeTheContext) {
    resultOf("recordingTool -word first brush");
    EXPECT_EQ(resultOf("recordingTool -q -word brush"), "first") << "flags at creation are edits";
    EXPECT_TRUE(mhost::driver::runCommand("recordingTool -e -w second brush"));
    EXPECT_EQ(resultOf("recordingTool -q -w brush"), "second");
    EXPECT_EQ(resultOf("recordingTool -query -number brush"), "42");
    EXPECT_TRUE(mhost::driver::runCommand("recordingTool -e -image1 \"brush.png\" brush"));
    EXPECT_EQ(resultOf("recordingTool -q -i1 brush"), "brush.png");
}

TEST_F(ContextCommandTest, EditAndQueryFailWithoutAKnownContext) {
    MStatus status;
    resultOf("recordingTool -e -w x missing", &status);
    EXPECT_EQ(status, MS::kNotFound);
    resultOf("recordingTool -q -w", &status);
    EXPECT_EQ(status, MS::kInvalidParameter);
    resultOf("recordingTool -e -unknownFlag 1 brush", &status);
    EXPECT_FALSE(status);
}

using ToolSwitchTest = RecordingToolFixture;

TEST_F(ToolSwitchTest, CleansUpTheOldToolAnnouncesTheChangeThenSetsUpTheNew) {
    int changes = 0;
    const MCallbackId id = MEventMessage::addEventCallback("ToolChanged", countCall, &changes);
    activate("first");
    resultOf("recordingTool second");
    recording::log().clear();
    recording::log().push_back("switch");
    const int before = changes;
    ASSERT_TRUE(mhost::driver::runCommand("setToolTo second"));
    EXPECT_EQ(changes, before + 1);
    EXPECT_EQ(recording::log(), (std::vector<std::string>{"switch", "cleanup", "setup"}));
    EXPECT_EQ(resultOf("currentCtx"), "second");
    EXPECT_EQ(mhost::driver::currentToolHelp(), "draw on the surface");
    EXPECT_EQ(mhost::driver::currentToolCursor(), "pencil");
    EXPECT_TRUE(MMessage::removeCallback(id));
}

TEST_F(ToolSwitchTest, SelectToolHasNoContextAndUnknownToolsFail) {
    activate("brush");
    ASSERT_TRUE(mhost::driver::setToolTo("selectSuperContext"));
    EXPECT_EQ(recording::log().back(), "cleanup");
    EXPECT_EQ(mhost::driver::press(10, 10, MouseButton::kLeft), MS::kNotFound);
    EXPECT_EQ(mhost::driver::setToolTo("noSuchTool"), MS::kNotFound);
    EXPECT_FALSE(mhost::driver::runCommand("setToolTo noSuchTool"));
    EXPECT_EQ(mhost::driver::currentTool(), "selectSuperContext");
}

TEST_F(ToolSwitchTest, DeregisteringTheContextCommandSwitchesItsToolOff) {
    activate("brush");
    recording::log().clear();
    unregister();
    EXPECT_EQ(recording::log(), std::vector<std::string>{"cleanup"});
    EXPECT_EQ(mhost::driver::currentTool(), "selectSuperContext");
    EXPECT_FALSE(mhost::driver::runCommand("recordingTool again"));
}

TEST_F(ToolSwitchTest, DeletingAContextSwitchesItOffAndFreesItsName) {
    activate("brush");
    resultOf("recordingTool spare");
    recording::log().clear();
    ASSERT_TRUE(mhost::driver::deleteToolContext("brush"));
    EXPECT_EQ(recording::log(), std::vector<std::string>{"cleanup"});
    EXPECT_EQ(mhost::driver::currentTool(), "selectSuperContext");
    EXPECT_EQ(resultOf("recordingTool -exists brush"), "0");
    EXPECT_EQ(resultOf("recordingTool -exists spare"), "1");
    EXPECT_EQ(mhost::driver::deleteToolContext("brush"), MS::kNotFound);
    EXPECT_EQ(resultOf("recordingTool brush"), "brush") << "the name is free again";

    // A context that is not current goes without a cleanup call.
    recording::log().clear();
    ASSERT_TRUE(mhost::driver::deleteToolContext("spare"));
    EXPECT_TRUE(recording::log().empty());
    EXPECT_EQ(mhost::driver::setToolTo("spare"), MS::kNotFound);
}

using ToolCommandTest = RecordingToolFixture;

TEST_F(ToolCommandTest, FinalizedCommandIsUndoneAndRedoneAsTheSameInstanceInOrder) {
    activate("brush");
    const int first = recording::Command::made() + 1;
    for (int stroke = 0; stroke < 2; ++stroke) {
        ASSERT_TRUE(mhost::driver::press(5, 5, MouseButton::kLeft));
        ASSERT_TRUE(mhost::driver::release(6, 6, MouseButton::kLeft));
    }
    const std::string a = std::to_string(first), b = std::to_string(first + 1);
    EXPECT_EQ(mhost::driver::undoJournal(),
              (std::vector<std::string>{"recordingToolCmd stroke " + a, "recordingToolCmd stroke " + b}));
    recording::log().clear();
    ASSERT_TRUE(mhost::driver::undo());
    ASSERT_TRUE(mhost::driver::undo());
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_EQ(recording::log(), (std::vector<std::string>{"undo " + b, "undo " + a, "redo " + a}));
}

TEST_F(ToolCommandTest, UnfinalizedCommandsDieWhenTheEventReturns) {
    activate("brush");
    auto* context = dynamic_cast<recording::Context*>(mhost::toolContexts().current());
    ASSERT_NE(context, nullptr);
    context->commandsPerRelease = 3;
    const int aliveBefore = recording::Command::alive();
    ASSERT_TRUE(mhost::driver::press(5, 5, MouseButton::kLeft));
    ASSERT_TRUE(mhost::driver::release(5, 5, MouseButton::kLeft));
    EXPECT_EQ(recording::Command::alive(), aliveBefore + 1) << "only the finalised one lives on the queue";
    EXPECT_EQ(mhost::driver::undoJournal().size(), 1u);
}

TEST_F(ToolCommandTest, ToolCommandAlsoRunsAsAScriptCommand) {
    EXPECT_TRUE(mhost::driver::runCommand("recordingToolCmd -size 3"));
    EXPECT_EQ(mhost::driver::undoJournal(), std::vector<std::string>{"recordingToolCmd -size 3"});
    EXPECT_FALSE(mhost::driver::runCommand("recordingToolCmd -bogus"));
}
