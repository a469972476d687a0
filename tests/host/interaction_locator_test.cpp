// Plug-in locators and constraints as node types, and the rich selection.

#include <gtest/gtest.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MPxConstraint.h>
#include <maya/MPxLocatorNode.h>
#include <maya/MRichSelection.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <mhost/Driver.h>

#include "support/TestPlugin.h"

namespace {

class MarkerLocator : public MPxLocatorNode {
public:
    static void* creator() { return new MarkerLocator; }
    static MStatus initialize() { return MS::kSuccess; }
};

class PinConstraint : public MPxConstraint {
public:
    static void* creator() { return new PinConstraint; }
    static MStatus initialize() { return MS::kSuccess; }
};

MObject nodeNamed(const char* name) {
    MSelectionList list;
    list.add(name);
    MObject node;
    list.getDependNode(0, node);
    return node;
}

}  // namespace

using LocatorTypeTest = TestPluginFixture;

TEST_F(LocatorTypeTest, LocatorIsAPluginShapeWithLocalPositionAndScale) {
    ASSERT_TRUE(registerNode("markerLocator", 0x7f001, MarkerLocator::creator, MarkerLocator::initialize,
                             MPxNode::kLocatorNode));
    ASSERT_TRUE(mhost::driver::runCommand("createNode markerLocator -n marker"));
    MObject marker = nodeNamed("marker");
    EXPECT_TRUE(marker.hasFn(MFn::kPluginLocatorNode));
    EXPECT_TRUE(marker.hasFn(MFn::kLocator));
    EXPECT_TRUE(marker.hasFn(MFn::kPluginDependNode));
    MFnDependencyNode fn(marker);
    auto* locator = dynamic_cast<MPxLocatorNode*>(fn.userNode());
    ASSERT_NE(locator, nullptr);
    EXPECT_EQ(locator->type(), MPxNode::kLocatorNode);
    EXPECT_FALSE(locator->isBounded());
    EXPECT_DOUBLE_EQ(MPlug(marker, MPxLocatorNode::localScaleY).asDouble(), 1.0);
    ASSERT_TRUE(MPlug(marker, MPxLocatorNode::localPositionZ).setDouble(2.5));
    EXPECT_EQ(mhost::driver::runCommandForWords("getAttr marker.localPositionZ"),
              std::vector<std::string>{"2.5"});
}

TEST_F(LocatorTypeTest, ConstraintRegisteredAsAPlainNodeAnswersNullAttributes) {
    ASSERT_TRUE(registerNode("pinConstraint", 0x7f002, PinConstraint::creator, PinConstraint::initialize));
    ASSERT_TRUE(mhost::driver::runCommand("createNode pinConstraint -n pin"));
    MFnDependencyNode fn(nodeNamed("pin"));
    auto* constraint = dynamic_cast<MPxConstraint*>(fn.userNode());
    ASSERT_NE(constraint, nullptr);
    EXPECT_TRUE(constraint->weightAttribute().isNull());
    EXPECT_FALSE(nodeNamed("pin").hasFn(MFn::kDagNode));
}

TEST(RichSelection, IsTheActiveSelectionWithoutSymmetry) {
    mhost::driver::resetScene();
    mhost::driver::runCommand("createNode transform -n a; createNode transform -n b; select -r b a");
    MRichSelection rich;
    ASSERT_TRUE(MGlobal::getRichSelection(rich));
    MSelectionList selection, symmetry;
    rich.getSelection(selection);
    rich.getSymmetry(symmetry);
    MStringArray names;
    selection.getSelectionStrings(names);
    ASSERT_EQ(names.length(), 2u);
    EXPECT_EQ(names[0], MString("b"));
    EXPECT_TRUE(symmetry.isEmpty());

    MRichSelection copy(rich);
    rich.clear();
    copy.getSelection(selection);
    EXPECT_EQ(selection.length(), 2u) << "a copy keeps its items";
    ASSERT_TRUE(MGlobal::getRichSelection(rich, false));
    rich.getSelection(selection);
    EXPECT_TRUE(selection.isEmpty());
    MGlobal::setRichSelection(copy);
    MGlobal::getActiveSelectionList(selection);
    EXPECT_EQ(selection.length(), 2u);
    mhost::driver::resetScene();
}
