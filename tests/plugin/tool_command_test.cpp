// The tool command's frame: its script flags, the strokes it appends to and closes on the locator,
// and the journal word it files itself under.

#include <gtest/gtest.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <mhost/Driver.h>

#include <string>
#include <vector>

#include "geometry/functions.h"
#include "interaction/ContextCall.h"
#include "interaction/ToolContexts.h"
#include "patch/kyStrakeToolCmd.h"
#include "tests/plugin/pluginScene.h"

namespace {

using mhost::driver::runCommand;

MPointArray line(std::initializer_list<double> xs) {
    MPointArray points;
    for (double x : xs) points.append(MPoint(x, 0.0, 1.0));
    return points;
}

std::vector<double> xsOf(const MPointArray& points) {
    std::vector<double> xs;
    for (unsigned int i = 0; i < points.length(); ++i) xs.push_back(points[i].x);
    return xs;
}

std::vector<int> valuesOf(const MIntArray& array) {
    std::vector<int> values;
    for (unsigned int i = 0; i < array.length(); ++i) values.push_back(array[i]);
    return values;
}

class ToolCommand : public kytest::PluginScene {
protected:
    void SetUp() override {
        kytest::PluginScene::SetUp();
        locator = kytest::nodeNamed(kytest::createLocator());
    }
    MPointArray strokes() const {
        MPointArray points;
        getStrokes(locator, points);
        return points;
    }
    MIntArray sizes() const {
        MIntArray counts;
        getSizes(locator, counts);
        return counts;
    }

    MObject locator;
};

TEST_F(ToolCommand, AppendsStrokesPointsFirstThenTheirCount) {
    kyStrakeToolCmd command;
    MStatus status;
    command.appendStrokeToLocator(status, line({1, 2, 3}));
    ASSERT_TRUE(status);
    command.appendStrokeToLocator(status, line({4, 5}));
    ASSERT_TRUE(status);
    EXPECT_EQ((std::vector<double>{1, 2, 3, 4, 5}), xsOf(strokes()));
    EXPECT_EQ((std::vector<int>{3, 2}), valuesOf(sizes()));
}

TEST_F(ToolCommand, AnEmptyStrokeIsRefusedAndChangesNothing) {
    kyStrakeToolCmd command;
    MStatus status;
    command.appendStrokeToLocator(status, line({1, 2}));
    command.appendStrokeToLocator(status, MPointArray());
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    EXPECT_EQ(2u, strokes().length());
    EXPECT_EQ((std::vector<int>{2}), valuesOf(sizes()));
}

TEST_F(ToolCommand, CloseFlagEndsEveryStrokeOnItsFirstPoint) {
    kyStrakeToolCmd command;
    MStatus status;
    command.appendStrokeToLocator(status, line({1, 2, 3}));
    command.appendStrokeToLocator(status, line({4, 5}));
    command.appendStrokeToLocator(status, line({6}));
    ASSERT_TRUE(runCommand("kyStrakeCmd -close 1"));
    EXPECT_EQ((std::vector<double>{1, 2, 1, 4, 4, 6}), xsOf(strokes()));
    EXPECT_EQ((std::vector<int>{3, 2, 1}), valuesOf(sizes()));
}

TEST_F(ToolCommand, HelpGivesTheOneLineBanner) {
    std::string result;
    ASSERT_TRUE(runCommand("kyStrakeCmd -help 1", &result));
    EXPECT_EQ(0u, result.find("kyStrake ("));
    EXPECT_EQ(')', result.back());
}

// The first flag set decides: glue comes before spans, which are never read then.
TEST_F(ToolCommand, GlueIsHandledAloneEvenBesideSpans) {
    ASSERT_TRUE(runCommand("kyStrakeCmd -glue 1 -uspan 5 -vspan 6"));
    EXPECT_TRUE(getGlue());
    EXPECT_FALSE(MGlobal::optionVarExists("ky_uspan"));
    ASSERT_TRUE(runCommand("kyStrakeCmd -gu 0"));
    EXPECT_FALSE(getGlue());
}

TEST_F(ToolCommand, SpansNeedBothFlags) {
    EXPECT_FALSE(runCommand("kyStrakeCmd -uspan 8"));
    EXPECT_FALSE(MGlobal::optionVarExists("ky_uspan"));
    EXPECT_FALSE(MGlobal::optionVarExists("ky_vspan"));
}

TEST_F(ToolCommand, SpansAreStoredThenTheMissingShadowFailsQuietly) {
    const MStatus status = runCommand("kyStrakeCmd -uspan 0 -vspan 9");
    EXPECT_EQ(MS::kInvalidParameter, status.statusCode());
    EXPECT_EQ(1, getUSpan());
    EXPECT_EQ(9, getVSpan());
}

// The bare redo acts on the selection: with nothing selected it finds no target.
TEST_F(ToolCommand, AcceptedFlagsWithoutWorkFallThroughToRedo) {
    EXPECT_EQ(MS::kUnknownParameter,
              runCommand("kyStrakeCmd -relax 1 -freeze 0 -freezeMedian 1 -figure 2").statusCode());
    EXPECT_FALSE(runCommand("kyStrakeCmd -bogus 1"));
}

// Finalising files the command under "kyStrakeCmd" and one word naming the operation.
TEST_F(ToolCommand, FinalizeJournalsTheOperationsWord) {
    std::string contextName;
    ASSERT_TRUE(runCommand("kyStrakeContext", &contextName));
    MPxContext* context = mhost::toolContexts().find(contextName)->context.get();

    const std::vector<std::pair<uint32_t, std::string>> operations = {
        {kyStrakeToolCmd::kAppendPatch, "kyStrakeCmd kyStrake_appendPatch"},
        {kyStrakeToolCmd::kScratchOrphan, "kyStrakeCmd kyStrake_scratch_orphan"},
        {kyStrakeToolCmd::kTwist, "kyStrakeCmd kyStrake_twist"},
    };
    for (const auto& [operation, journalLine] : operations) {
        ASSERT_TRUE(mhost::callContext("test", [&] {
            auto* command = static_cast<kyStrakeToolCmd*>(context->_newToolCommand());
            command->operation = operation;
            return command->finalize();
        }));
        EXPECT_EQ(journalLine, mhost::driver::undoJournal().back());
    }
}

}  // namespace
