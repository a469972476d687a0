// Message callbacks: event callbacks for undo and selection changes, attribute-changed callbacks
// fired by plug writes, and removal, including removal while callbacks are being called.

#include <gtest/gtest.h>
#include <maya/MCallbackIdArray.h>
#include <maya/MEventMessage.h>
#include <maya/MGlobal.h>
#include <maya/MNodeMessage.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>
#include <mhost/Driver.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string>& heard() {
    static std::vector<std::string> lines;
    return lines;
}

void noteEvent(void* clientData) { heard().push_back(static_cast<const char*>(clientData)); }

void noteAttribute(MNodeMessage::AttributeMessage message, MPlug& plug, MPlug& otherPlug, void*) {
    heard().push_back(std::string(plug.partialName(false, false, false, false, false, true).asChar()) + " " +
                      std::to_string(message) + (otherPlug.isNull() ? "" : " other"));
}

// Removes itself the first time it is called.
void removeSelf(void* clientData) {
    heard().push_back("once");
    MMessage::removeCallback(*static_cast<MCallbackId*>(clientData));
}

MObject nodeNamed(const char* name) {
    MSelectionList list;
    list.add(name);
    MObject node;
    list.getDependNode(0, node);
    return node;
}

class MessagesTest : public testing::Test {
protected:
    void SetUp() override {
        mhost::driver::resetScene();
        heard().clear();
    }
    void TearDown() override { MMessage::removeCallbacks(ids_); }
    void keep(MCallbackId id) {
        ASSERT_NE(id, 0u);
        ids_.append(id);
    }

private:
    MCallbackIdArray ids_;
};

}  // namespace

TEST_F(MessagesTest, UndoAndRedoAreAnnouncedAfterEachStep) {
    static char undo[] = "undo", redo[] = "redo";
    keep(MEventMessage::addEventCallback("Undo", noteEvent, undo));
    keep(MEventMessage::addEventCallback("Redo", noteEvent, redo));
    ASSERT_TRUE(mhost::driver::runCommand("createNode transform -n a"));
    ASSERT_TRUE(mhost::driver::undo());
    ASSERT_TRUE(mhost::driver::redo());
    EXPECT_FALSE(mhost::driver::redo()) << "nothing left to redo, nothing announced";
    EXPECT_EQ(heard(), (std::vector<std::string>{"undo", "redo"}));
}

TEST_F(MessagesTest, SelectionChangedOnlyWhenTheItemsChange) {
    static char changed[] = "changed";
    mhost::driver::runCommand("createNode transform -n a; createNode transform -n b; select -cl");
    keep(MEventMessage::addEventCallback("SelectionChanged", noteEvent, changed));
    ASSERT_TRUE(mhost::driver::runCommand("select -r a"));
    ASSERT_TRUE(mhost::driver::runCommand("select -r a"));
    ASSERT_TRUE(MGlobal::selectByName("b", MGlobal::kAddToList));
    ASSERT_TRUE(MGlobal::clearSelectionList());
    ASSERT_TRUE(MGlobal::clearSelectionList());
    EXPECT_EQ(heard().size(), 3u);
}

TEST_F(MessagesTest, UnknownEventsAndNodesAreRefused) {
    MStatus status;
    EXPECT_EQ(MEventMessage::addEventCallback("NoSuchEvent", noteEvent, nullptr, &status), 0u);
    EXPECT_EQ(status, MS::kInvalidParameter);
    MObject none;
    EXPECT_EQ(MNodeMessage::addAttributeChangedCallback(none, noteAttribute, nullptr, &status), 0u);
    EXPECT_EQ(status, MS::kInvalidParameter);
    EXPECT_EQ(MMessage::removeCallback(987654321), MS::kFailure);
    MStringArray names;
    MEventMessage::getEventNames(names);
    EXPECT_EQ(names.length(), 5u);
}

TEST_F(MessagesTest, PlugWritesCallTheNodesAttributeChangedCallbacks) {
    mhost::driver::runCommand("createNode transform -n a; createNode transform -n b");
    MObject a = nodeNamed("a");
    const MCallbackId id = MNodeMessage::addAttributeChangedCallback(a, noteAttribute);
    keep(id);
    MCallbackIdArray onNode;
    MMessage::nodeCallbacks(a, onNode);
    ASSERT_EQ(onNode.length(), 1u);
    EXPECT_EQ(onNode[0], id);

    ASSERT_TRUE(mhost::driver::runCommand("setAttr a.translateX 2; setAttr b.translateX 3"));
    const std::string set = std::to_string(MNodeMessage::kAttributeSet | MNodeMessage::kIncomingDirection);
    EXPECT_EQ(heard(), std::vector<std::string>{"translateX " + set});
    ASSERT_TRUE(MMessage::removeCallback(id));
    ASSERT_TRUE(mhost::driver::runCommand("setAttr a.translateX 4"));
    EXPECT_EQ(heard().size(), 1u);
}

TEST_F(MessagesTest, ACallbackMayRemoveItselfWhileCalled) {
    static MCallbackId id = 0;
    id = MEventMessage::addEventCallback("Undo", removeSelf, &id);
    mhost::driver::runCommand("createNode transform -n a; createNode transform -n b");
    mhost::driver::undo();
    mhost::driver::undo();
    EXPECT_EQ(heard(), std::vector<std::string>{"once"});
    EXPECT_EQ(MMessage::removeCallback(id), MS::kFailure) << "already gone";
}
