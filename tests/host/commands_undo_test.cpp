// The undo queue: recording from scripts, undo/redo order, the redo tail, the undo and redo commands,
// captured runs and the reset.

#include <gtest/gtest.h>
#include <maya/MArgList.h>
#include <maya/MGlobal.h>

#include "commands/CommandTable.h"
#include "commands/MessageLog.h"
#include "commands/ScriptRunner.h"
#include "commands/UndoCapture.h"
#include "commands/UndoQueue.h"

namespace {

// A tiny document: "push <word>" appends a word (undoable) and returns it, "peek" returns the count.
std::vector<std::string> gWords;

class PushCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList& args) override {
        fWord = args.asString(0).asChar();
        result().set(fWord);
        return redoIt();
    }
    MStatus redoIt() override {
        gWords.push_back(fWord);
        return MS::kSuccess;
    }
    MStatus undoIt() override {
        if (gWords.empty() || gWords.back() != fWord) return MS::kFailure;
        gWords.pop_back();
        return MS::kSuccess;
    }
    bool isUndoable() const override { return true; }

private:
    std::string fWord;
};

class PeekCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList&) override {
        result().set(static_cast<int>(gWords.size()));
        return MS::kSuccess;
    }
};

// An undoable command whose undo runs another undoable script, as a modifier's undo would.
class NestedCommand : public mhost::CommandInstance {
public:
    MStatus doIt(const MArgList&) override { return MS::kSuccess; }
    MStatus undoIt() override { return MGlobal::executeCommand("push fromUndo", false, true); }
    bool isUndoable() const override { return true; }
};

class UndoQueueTest : public testing::Test {
protected:
    void SetUp() override {
        mhost::resetCommands();
        mhost::messageLog().setEcho(false);
        gWords.clear();
        auto& table = mhost::commandTable();
        table.add(
            "push", [] { return std::make_unique<PushCommand>(); }, "undoTest");
        table.add(
            "peek", [] { return std::make_unique<PeekCommand>(); }, "undoTest");
        table.add(
            "nested", [] { return std::make_unique<NestedCommand>(); }, "undoTest");
    }
    void TearDown() override {
        for (const std::string& name : mhost::commandTable().namesOwnedBy("undoTest"))
            mhost::commandTable().remove(name);
        mhost::messageLog().setEcho(true);
    }

    static MStatus run(const std::string& text, bool undoEnabled = true) {
        mhost::CommandResult ignored;
        return mhost::runScript(text, ignored, undoEnabled);
    }
    static std::vector<std::string> journal() { return mhost::undoQueue().journal(); }
    static const mhost::MessageLog::Entry& lastMessage() { return mhost::messageLog().entries().back(); }
};

using Lines = std::vector<std::string>;

TEST_F(UndoQueueTest, RecordsOnlyUndoableCommandsOfRunsWithUndoOn) {
    ASSERT_TRUE(run("push a; peek;  push   \"b c\" ;if (1) {push d}"));
    ASSERT_TRUE(run("push notRecorded", false));
    ASSERT_TRUE(run("push `peek`; push `push inner`"));
    EXPECT_EQ((Lines{"push a", "push   \"b c\"", "push d", "push `peek`", "push inner", "push `push inner`"}),
              journal());
    EXPECT_EQ((Lines{"a", "b c", "d", "notRecorded", "4", "inner", "inner"}), gWords);
}

TEST_F(UndoQueueTest, UndoAndRedoReplayInOrder) {
    ASSERT_TRUE(run("push a; push b; push c"));
    auto& queue = mhost::undoQueue();
    ASSERT_TRUE(queue.undo());
    ASSERT_TRUE(queue.undo());
    EXPECT_EQ((Lines{"a"}), gWords);
    EXPECT_EQ((Lines{"push a"}), journal());
    ASSERT_TRUE(queue.redo());
    EXPECT_EQ((Lines{"a", "b"}), gWords);
    ASSERT_TRUE(queue.undo());
    ASSERT_TRUE(queue.undo());
    EXPECT_FALSE(queue.canUndo());
    EXPECT_EQ(MS::kFailure, queue.undo());
    ASSERT_TRUE(queue.redo());
    ASSERT_TRUE(queue.redo());
    ASSERT_TRUE(queue.redo());
    EXPECT_FALSE(queue.canRedo());
    EXPECT_EQ(MS::kFailure, queue.redo());
    EXPECT_EQ((Lines{"a", "b", "c"}), gWords);
}

TEST_F(UndoQueueTest, ANewCommandDropsTheRedoTail) {
    ASSERT_TRUE(run("push a; push b; push c"));
    mhost::undoQueue().undo();
    mhost::undoQueue().undo();
    ASSERT_TRUE(run("push x"));
    EXPECT_FALSE(mhost::undoQueue().canRedo());
    EXPECT_EQ((Lines{"push a", "push x"}), journal());
    EXPECT_EQ((Lines{"a", "x"}), gWords);
}

// A command's undo or redo that reports a failure has still done what it could: the failure is
// returned and the queue moves on, so the step is not replayed on top of itself.
TEST_F(UndoQueueTest, AFailingUndoIsReportedAndTheQueueMovesOn) {
    ASSERT_TRUE(run("push a; push b"));
    gWords.back() = "tampered";
    EXPECT_FALSE(mhost::undoQueue().undo());
    EXPECT_EQ((Lines{"push a"}), journal());
    EXPECT_TRUE(mhost::undoQueue().canRedo());
    gWords.pop_back();  // what the failed undo could not take away
    EXPECT_TRUE(mhost::undoQueue().undo());
    EXPECT_EQ((Lines{}), journal());
}

TEST_F(UndoQueueTest, CommandsRunDuringAReplayAreNotRecorded) {
    ASSERT_TRUE(run("push a; nested"));
    ASSERT_TRUE(mhost::undoQueue().undo());
    EXPECT_EQ((Lines{"a", "fromUndo"}), gWords);
    EXPECT_EQ((Lines{"push a"}), journal());
    EXPECT_TRUE(mhost::undoQueue().canRedo());
}

TEST_F(UndoQueueTest, UndoAndRedoCommandsReportWhatTheyReplay) {
    ASSERT_TRUE(run("push a"));
    ASSERT_TRUE(run("undo"));
    EXPECT_EQ(mhost::MessageLog::Kind::kInfo, lastMessage().kind);
    EXPECT_EQ("Undo: push a", lastMessage().text);
    ASSERT_TRUE(run("undo"));
    EXPECT_EQ(mhost::MessageLog::Kind::kWarning, lastMessage().kind);
    EXPECT_EQ("There are no more commands to undo.", lastMessage().text);
    ASSERT_TRUE(run("redo; redo"));
    EXPECT_EQ("There are no more commands to redo.", lastMessage().text);
    EXPECT_EQ((Lines{"a"}), gWords);
    EXPECT_EQ((Lines{"push a"}), journal());
    EXPECT_FALSE(run("undo 2"));
}

TEST_F(UndoQueueTest, CapturedRunsStayOffTheQueue) {
    mhost::CapturedCommands steps;
    ASSERT_TRUE(mhost::runScriptCapturingUndo("push a; peek; push b", steps));
    EXPECT_EQ((Lines{"push a", "push b"}), steps.journal());
    EXPECT_TRUE(journal().empty());
    ASSERT_TRUE(steps.undoAll());
    EXPECT_TRUE(gWords.empty());
    ASSERT_TRUE(steps.redoAll());
    EXPECT_EQ((Lines{"a", "b"}), gWords);
    ASSERT_TRUE(mhost::runScriptCapturingUndo("push c", steps));
    EXPECT_EQ((Lines{"push c"}), steps.journal());
}

TEST_F(UndoQueueTest, ResetEmptiesQueueOptionVarsAndLog) {
    ASSERT_TRUE(run("push a; optionVar -iv keep 1"));
    MGlobal::displayInfo("hello");
    mhost::resetCommands();
    EXPECT_FALSE(mhost::undoQueue().canUndo());
    EXPECT_FALSE(MGlobal::optionVarExists("keep"));
    EXPECT_TRUE(mhost::messageLog().entries().empty());
}

}  // namespace
