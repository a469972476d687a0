#include <gtest/gtest.h>
#include <maya/MFnDagNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>

#include "graph/Scene.h"

namespace {

using namespace mhost;

class SceneCommands : public ::testing::Test {
protected:
    void SetUp() override { driver::resetScene(); }
    void TearDown() override { driver::resetScene(); }

    static std::string run(const std::string& text) {
        std::string result;
        EXPECT_TRUE(driver::runCommand(text, &result)) << text;
        return result;
    }
    static bool fails(const std::string& text) { return !driver::runCommand(text); }
    static std::string lastError() {
        auto messages = driver::messages();
        for (auto it = messages.rbegin(); it != messages.rend(); ++it)
            if (it->kind == driver::Message::Kind::kError) return it->text;
        return "";
    }
};

TEST_F(SceneCommands, CreateNodeNamesUniquelyAndUndoes) {
    EXPECT_EQ("t", run("createNode transform -n t"));
    EXPECT_EQ("t1", run("createNode \"transform\" -n \"t\""));
    EXPECT_EQ("transform1", run("createNode transform"));
    ASSERT_TRUE(driver::undo());
    EXPECT_EQ("0", run("objExists transform1"));
    ASSERT_TRUE(driver::redo());
    EXPECT_EQ("1", run("objExists transform1"));
    EXPECT_TRUE(fails("createNode noSuchType"));
    EXPECT_EQ("Unknown object type: noSuchType", lastError());
}

TEST_F(SceneCommands, SetAttrWritesNumbersBooleansAndCompoundsWithUndo) {
    run("createNode transform -n t");
    run("setAttr t.translate 1 2.5 -3");
    EXPECT_EQ("1 2.5 -3", run("getAttr t.translate"));
    run("setAttr t.visibility false");
    EXPECT_EQ("0", run("getAttr t.v"));
    run("setAttr t.tx 9");
    EXPECT_EQ("9 2.5 -3", run("getAttr t.t"));
    ASSERT_TRUE(driver::undo());
    EXPECT_EQ("1 2.5 -3", run("getAttr t.t"));
    EXPECT_TRUE(fails("setAttr t.translate 1 2"));
    EXPECT_TRUE(fails("setAttr t.translate 1 x 3"));
    EXPECT_TRUE(fails("setAttr t.noSuchAttr 1"));
    EXPECT_EQ("No attribute matches name: t.noSuchAttr", lastError());
    EXPECT_TRUE(fails("setAttr nobody.tx 1"));
}

TEST_F(SceneCommands, ConnectAttrForcesAndUndoRestoresTheReplacedConnection) {
    run("createNode transform -n a; createNode transform -n b; createNode transform -n c");
    run("connectAttr a.tx c.ty");
    EXPECT_TRUE(fails("connectAttr b.tx c.ty"));
    run("connectAttr b.tx c.ty -f");
    run("setAttr b.tx 4");
    EXPECT_EQ("4", run("getAttr c.ty"));
    ASSERT_TRUE(driver::undo());  // the setAttr
    ASSERT_TRUE(driver::undo());  // the forced connection
    run("setAttr a.tx 7");
    EXPECT_EQ("7", run("getAttr c.ty"));
    run("disconnectAttr a.tx c.ty");
    EXPECT_TRUE(fails("disconnectAttr a.tx c.ty"));
}

TEST_F(SceneCommands, DeleteRemovesNodesWithTheirConnectionsAndUndoBringsThemBack) {
    run("createNode transform -n a; createNode transform -n b; connectAttr a.tx b.tx");
    run("delete a");
    EXPECT_EQ("0", run("objExists a"));
    ASSERT_TRUE(driver::undo());
    run("setAttr a.tx 3");
    EXPECT_EQ("3", run("getAttr b.tx"));
    EXPECT_TRUE(fails("delete nobody"));
}

TEST_F(SceneCommands, IfObjExistsGuardsADelete) {
    run("createNode transform -n a");
    run("if (`objExists a`) {delete a; }");
    run("if (`objExists a`) {delete a; }");
    EXPECT_EQ("0", run("objExists a"));
}

TEST_F(SceneCommands, ListHistoryWalksUpstreamAndDeleteHistoryBakes) {
    run("createNode transform -n src; createNode transform -n mid; createNode transform -n dst");
    run("connectAttr src.tx mid.tx; connectAttr mid.tx dst.tx");
    EXPECT_EQ("dst mid src", run("listHistory -ac dst"));
    run("setAttr src.tx 5");
    // Transforms are DAG nodes, so baking keeps them and only cuts the incoming connection.
    run("delete -constructionHistory dst");
    EXPECT_EQ("5", run("getAttr dst.tx"));
    EXPECT_EQ("dst", run("listHistory dst"));
    ASSERT_TRUE(driver::undo());
    EXPECT_EQ("dst mid src", run("listHistory dst"));
}

TEST_F(SceneCommands, ConstructionHistoryToggleIsQueried) {
    EXPECT_EQ("1", run("constructionHistory -query -toggle"));
    run("constructionHistory -toggle false");
    EXPECT_EQ("0", run("constructionHistory -q -tgl"));
}

TEST_F(SceneCommands, SelectReplacesAddsTogglesAndUndoes) {
    run("createNode transform -n a; createNode transform -n b");
    run("select a");
    run("select -add b");
    MSelectionList active;
    MGlobal::getActiveSelectionList(active);
    ASSERT_EQ(2u, active.length());
    run("select -tgl a");
    MGlobal::getActiveSelectionList(active);
    ASSERT_EQ(1u, active.length());
    MDagPath path;
    active.getDagPath(0, path);
    EXPECT_STREQ("|b", path.fullPathName().asChar());
    ASSERT_TRUE(driver::undo());
    MGlobal::getActiveSelectionList(active);
    EXPECT_EQ(2u, active.length());
    run("select -cl");
    MGlobal::getActiveSelectionList(active);
    EXPECT_TRUE(active.isEmpty());
    EXPECT_TRUE(fails("select nobody"));
}

TEST_F(SceneCommands, SetsForceElementMovesAMemberBetweenShadingGroups) {
    run("createNode transform -n t; createNode shadingEngine -n other");
    run("sets -e -forceElement other t");
    EXPECT_EQ("other", run("listHistory -ac other").substr(0, 5));
    run("sets -e -forceElement initialShadingGroup t");
    MSelectionList list;
    list.add("t.instObjGroups[0]");
    MPlug groups;
    ASSERT_TRUE(list.getPlug(0, groups));
    MPlugArray destinations;
    groups.destinations(destinations);
    ASSERT_EQ(1u, destinations.length());
    EXPECT_STREQ("initialShadingGroup.dagSetMembers[0]", destinations[0].name().asChar());
    ASSERT_TRUE(driver::undo());
    groups.destinations(destinations);
    ASSERT_EQ(1u, destinations.length());
    EXPECT_STREQ("other.dagSetMembers[0]", destinations[0].name().asChar());
    EXPECT_TRUE(fails("sets -e -forceElement nobody t"));
}

TEST_F(SceneCommands, ResetLeavesOnlyTheDefaultNodes) {
    run("createNode transform -n a; select a; optionVar -iv ky_uspan 4");
    driver::resetScene();
    EXPECT_EQ("0", run("objExists a"));
    EXPECT_EQ("1", run("objExists initialShadingGroup"));
    EXPECT_EQ("0", run("optionVar -exists ky_uspan"));
    EXPECT_TRUE(driver::undoJournal().empty() || driver::undoJournal().size() == 1);
}

}  // namespace
