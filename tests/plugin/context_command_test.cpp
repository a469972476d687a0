// The context command as the panel drives it: making a context, the edit flags' actions and their
// fixed order, and the query flags.

#include <gtest/gtest.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <mhost/Driver.h>

#include <string>

#include "geometry/functions.h"
#include "tests/plugin/pluginScene.h"

namespace {

using mhost::driver::runCommand;

class ContextCommand : public kytest::PluginScene {
protected:
    void SetUp() override {
        kytest::PluginScene::SetUp();
        locator = kytest::createLocator();
        ASSERT_TRUE(runCommand("kyStrakeContext", &context));
        ASSERT_FALSE(context.empty());
    }

    // Runs an edit of the context; the command's status.
    MStatus edit(const std::string& flags) {
        return runCommand("kyStrakeContext -e " + flags + " " + context);
    }
    std::string query(const std::string& flag) {
        std::string result;
        EXPECT_TRUE(runCommand("kyStrakeContext -q " + flag + " " + context, &result));
        return result;
    }
    double locatorDouble(const char* attribute) const {
        return MFnDependencyNode(kytest::nodeNamed(locator)).findPlug(attribute, false).asDouble();
    }
    static std::string statusLine() { return MGlobal::optionVarStringValue("kyStrake_info1").asChar(); }
    static int option(const char* name) { return MGlobal::optionVarIntValue(name); }

    std::string locator;
    std::string context;
};

TEST_F(ContextCommand, SpansAreStoredTogetherAndRaisedToOne) {
    EXPECT_EQ("12", query("-uspan"));
    EXPECT_EQ("12", query("-vspan"));
    ASSERT_TRUE(edit("-uspan 5 -vspan 7"));
    EXPECT_EQ(5, option("ky_uspan"));
    EXPECT_EQ(7, option("ky_vspan"));
    EXPECT_EQ("5", query("-u"));
    EXPECT_EQ("7", query("-v"));

    ASSERT_TRUE(edit("-u 0 -v 0"));
    EXPECT_EQ(1, option("ky_uspan"));
    EXPECT_EQ(1, option("ky_vspan"));

    // A stored 0 (written by someone else) still reads as one span.
    MGlobal::setOptionVarValue("ky_vspan", 0);
    EXPECT_EQ("1", query("-v"));
}

// The flag is declared boolean but read as an integer: the figures 2 and 3 must come through.
TEST_F(ContextCommand, FigureIsSetAndQueried) {
    EXPECT_EQ("0", query("-fig"));
    ASSERT_TRUE(edit("-figure 1"));
    EXPECT_EQ("1", query("-figure"));
    ASSERT_TRUE(edit("-fig 3"));
    EXPECT_EQ("3", query("-fig"));
}

TEST_F(ContextCommand, PinchIsClampedJustInsideTheLimits) {
    struct Case {
        const char* given;
        double stored;
        const char* shown;
    };
    const Case cases[] = {
        {"0.95", 0.95, "Pinch value: 0.95"},
        {"0.96", 0.949999988079071, "Pinch value: 0.949999988079071"},
        {"-0.95", -0.949999988079071, "Pinch value: -0.949999988079071"},
        {"-0.2", -0.2, "Pinch value: -0.2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.given);
        ASSERT_TRUE(edit(std::string("-pinch ") + c.given));
        EXPECT_EQ(c.stored, locatorDouble("pinch"));
        EXPECT_EQ(c.shown, statusLine());
    }
}

TEST_F(ContextCommand, BrushValuesAtOrBelowTheMinimumAreOnlyReported) {
    ASSERT_TRUE(edit("-radiusmoveinter 2.5"));
    EXPECT_EQ(2.5, locatorDouble("radiusMoveInteractive"));
    EXPECT_EQ("Move Radius: 2.5", statusLine());

    ASSERT_TRUE(edit("-rmi 0.05"));
    EXPECT_EQ(2.5, locatorDouble("radiusMoveInteractive"));
    EXPECT_EQ("Move Radius: 0.05", statusLine());

    ASSERT_TRUE(edit("-rri 0.1"));
    EXPECT_EQ(0.0, locatorDouble("radiusRelaxInteractive"));
    EXPECT_EQ("Relax Radius: 0.1", statusLine());

    ASSERT_TRUE(edit("-intensityrelativeinteractive 4"));
    EXPECT_EQ(4.0, locatorDouble("intensityRelaxInteractive"));
    EXPECT_EQ("Relax intensity: 4", statusLine());

    // The whisker length has no such minimum.
    ASSERT_TRUE(edit("-displayDistance 0.05"));
    EXPECT_EQ(0.05, locatorDouble("displaySize"));
}

// The handlers run in their own order, whatever the order on the line: the status line is the
// one written by the last of them.
TEST_F(ContextCommand, FlagsRunInTheirFixedOrderNotTheLinesOrder) {
    ASSERT_TRUE(edit("-radiusmoveinter 2 -moveBrush 1"));
    EXPECT_EQ("Move Radius: 2", statusLine());
    ASSERT_TRUE(edit("-reverseBridge 1 -moveBrush 0"));
    EXPECT_EQ("Reverse direction", statusLine());
    ASSERT_TRUE(edit("-relaxBrush 1 -radius 10 -intensity 0.5 -freeze 1"));
    EXPECT_EQ("Relax Brush", statusLine());
    ASSERT_TRUE(edit("-freezeMedian 0 -freeze 1"));
    EXPECT_EQ("Freeze Median", statusLine());
}

TEST_F(ContextCommand, RefreshDropsThePlayerRow) {
    MIntArray ids;
    for (int id : {3, 4, 5, 6}) ids.append(id);
    ASSERT_TRUE(setPlayerVertices(ids));
    ASSERT_TRUE(setPlayerLine(MPointArray(4, MPoint(1, 2, 3))));
    ASSERT_TRUE(edit("-refresh 1"));
    EXPECT_EQ(0u, getPlayerVertices().length());
    EXPECT_EQ(0u, getPlayerPoints().length());
}

TEST_F(ContextCommand, DeclaredFlagsWithoutHandlersAreAccepted) {
    EXPECT_TRUE(edit("-relax 1 -mergeThreshold 0.5 -radius 2 -intensity 3"));
    EXPECT_FALSE(edit("-noSuchFlag 1"));
}

TEST_F(ContextCommand, SeveralEditFlagsInOneCallAndBadValuesChangeNothing) {
    ASSERT_TRUE(edit("-uspan 7 -vspan 3 -displayDistance 0.5"));
    EXPECT_EQ(7, option("ky_uspan"));
    EXPECT_EQ(3, option("ky_vspan"));
    EXPECT_DOUBLE_EQ(0.5, locatorDouble("displaySize"));

    EXPECT_FALSE(edit("-displayDistance abc"));
    EXPECT_FALSE(edit("-uspan"));
    EXPECT_FALSE(edit("-pinch high -uspan 9"));
    EXPECT_EQ(7, option("ky_uspan")) << "a refused line runs none of its flags";
    EXPECT_EQ(3, option("ky_vspan"));
    EXPECT_DOUBLE_EQ(0.5, locatorDouble("displaySize"));
    EXPECT_EQ("7", query("-u"));
}

}  // namespace
