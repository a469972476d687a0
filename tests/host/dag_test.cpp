#include <gtest/gtest.h>
#include <maya/MDagModifier.h>
#include <maya/MDagPath.h>
#include <maya/MFnDagNode.h>
#include <maya/MItDag.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>

namespace {

using namespace mhost;

class Dag : public ::testing::Test {
protected:
    void SetUp() override {
        driver::resetScene();
        ASSERT_TRUE(
            driver::runCommand("createNode transform -n root; createNode transform -n arm -p root;"
                               "createNode transform -n hand -p arm"));
    }
    void TearDown() override { driver::resetScene(); }

    static MDagPath pathTo(const char* name) {
        MSelectionList list;
        MDagPath path;
        EXPECT_TRUE(list.add(name));
        EXPECT_TRUE(list.getDagPath(0, path));
        return path;
    }
};

TEST_F(Dag, PathsNameTheHierarchy) {
    MDagPath hand = pathTo("hand");
    EXPECT_STREQ("|root|arm|hand", hand.fullPathName().asChar());
    EXPECT_STREQ("hand", hand.partialPathName().asChar());
    EXPECT_EQ(2u, hand.length());
    EXPECT_EQ(pathTo("|root|arm|hand"), hand);
    MSelectionList list;
    EXPECT_FALSE(list.add("|arm|hand"));
    hand.pop();
    EXPECT_STREQ("|root|arm", hand.fullPathName().asChar());
}

TEST_F(Dag, InclusiveMatrixComposesParentTransformsAsRowVectors) {
    ASSERT_TRUE(driver::runCommand(
        "setAttr root.translate 10 0 0; setAttr arm.scale 2 2 2; setAttr hand.translate 0 1 0"));
    MPoint world = MPoint(0, 0, 0) * pathTo("hand").inclusiveMatrix();
    EXPECT_TRUE(world.isEquivalent(MPoint(10, 2, 0))) << world.x << " " << world.y << " " << world.z;
    MPoint local = MPoint(1, 0, 0) * pathTo("hand").exclusiveMatrix();
    EXPECT_TRUE(local.isEquivalent(MPoint(12, 0, 0)));
    ASSERT_TRUE(driver::runCommand("setAttr root.rotate 0 0 1.5707963267948966"));
    MPoint turned = MPoint(1, 0, 0) * pathTo("root").inclusiveMatrix();
    EXPECT_TRUE(turned.isEquivalent(MPoint(10, 1, 0), 1e-9));
}

// World matrices are kept between queries; every way a transform's values change must show at once:
// a set value, a driving connection, a baked history, its undo, and a parent's move.
TEST_F(Dag, InclusiveMatrixFollowsEveryChangeOfATransform) {
    const auto handAt = [] { return MPoint(0, 0, 0) * pathTo("hand").inclusiveMatrix(); };
    EXPECT_TRUE(handAt().isEquivalent(MPoint(0, 0, 0)));
    ASSERT_TRUE(driver::runCommand("setAttr hand.translate 0 1 0"));
    EXPECT_TRUE(handAt().isEquivalent(MPoint(0, 1, 0)));
    ASSERT_TRUE(driver::runCommand(
        "createNode transform -n lever; connectAttr lever.translate arm.translate; setAttr lever.translate 5 0 0"));
    EXPECT_TRUE(handAt().isEquivalent(MPoint(5, 1, 0)));
    ASSERT_TRUE(driver::runCommand("delete -ch arm; setAttr lever.translate 7 0 0"));
    EXPECT_TRUE(handAt().isEquivalent(MPoint(5, 1, 0)));
    ASSERT_TRUE(driver::runCommand("undo"));
    ASSERT_TRUE(driver::runCommand("undo"));
    EXPECT_TRUE(handAt().isEquivalent(MPoint(5, 1, 0)));
    ASSERT_TRUE(driver::runCommand("setAttr lever.translate 9 0 0"));
    EXPECT_TRUE(handAt().isEquivalent(MPoint(9, 1, 0)));
    ASSERT_TRUE(driver::runCommand("setAttr root.scale 2 2 2"));
    EXPECT_TRUE(handAt().isEquivalent(MPoint(18, 2, 0)));
}

TEST_F(Dag, ExtendToShapeNeedsExactlyOneShape) {
    MDagPath root = pathTo("root");
    EXPECT_FALSE(root.extendToShape());
    EXPECT_STREQ("|root", root.fullPathName().asChar());
}

TEST_F(Dag, IteratorsWalkInOrderAndFilter) {
    std::vector<std::string> depthFirst;
    for (MItDag it; !it.isDone(); it.next()) depthFirst.push_back(it.partialPathName().asChar());
    EXPECT_EQ((std::vector<std::string>{"root", "arm", "hand"}), depthFirst);
    unsigned int transforms = 0, shading = 0;
    for (MItDependencyNodes it(MFn::kTransform); !it.isDone(); it.next()) ++transforms;
    for (MItDependencyNodes it(MFn::kShadingEngine); !it.isDone(); it.next()) ++shading;
    EXPECT_EQ(3u, transforms);
    EXPECT_EQ(1u, shading);
    MItDag below;
    ASSERT_TRUE(below.reset(pathTo("arm")));
    EXPECT_STREQ("arm", below.partialPathName().asChar());
}

TEST_F(Dag, DeletingAParentTakesItsChildrenAndUndoRestoresThem) {
    ASSERT_TRUE(driver::runCommand("delete arm"));
    MSelectionList list;
    EXPECT_FALSE(list.add("hand"));
    ASSERT_TRUE(driver::undo());
    EXPECT_STREQ("|root|arm|hand", pathTo("hand").fullPathName().asChar());
}

TEST_F(Dag, ModifierReparentsAndUndoes) {
    MDagModifier modifier;
    ASSERT_TRUE(modifier.reparentNode(pathTo("hand").node(), MObject::kNullObj));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_STREQ("|hand", pathTo("hand").fullPathName().asChar());
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_STREQ("|root|arm|hand", pathTo("hand").fullPathName().asChar());
    MDagModifier cycle;
    ASSERT_TRUE(cycle.reparentNode(pathTo("root").node(), pathTo("hand").node()));
    EXPECT_FALSE(cycle.doIt());
    EXPECT_STREQ("|root", pathTo("root").fullPathName().asChar());
}

TEST_F(Dag, DuplicateCopiesValuesAndChildren) {
    ASSERT_TRUE(driver::runCommand("setAttr arm.tx 3"));
    MFnDagNode arm(pathTo("arm"));
    MStatus status;
    MFnDagNode copy(arm.duplicate(false, false, &status));
    ASSERT_TRUE(status);
    EXPECT_STREQ("arm1", copy.name().asChar());
    EXPECT_EQ(1u, copy.childCount());
    EXPECT_EQ(3.0, copy.findPlug("tx", false).asDouble());
}

}  // namespace
