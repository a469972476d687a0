#include <gtest/gtest.h>
#include <maya/MDGModifier.h>
#include <maya/MDataBlock.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MPlugArray.h>
#include <maya/MPointArray.h>
#include <maya/MPxNode.h>

#include <string>
#include <vector>

#include "support/TestPlugin.h"

namespace {

// sum = a + b, counting its computes; `echo` has an affects edge but its compute declines it.
class AdderNode : public MPxNode {
public:
    static void* creator() { return new AdderNode; }
    static MStatus initialize() {
        MFnNumericAttribute numeric;
        a = numeric.create("inputA", "a", MFnNumericData::kDouble, 0.0);
        b = numeric.create("inputB", "b", MFnNumericData::kDouble, 0.0);
        numeric.setMin(-10.0);
        sum = numeric.create("sum", "s", MFnNumericData::kDouble, 0.0);
        numeric.setWritable(false);
        numeric.setStorable(false);
        echo = numeric.create("echo", "e", MFnNumericData::kDouble, 7.0);
        items = numeric.create("items", "it", MFnNumericData::kDouble, 0.0);
        numeric.setArray(true);
        MFnTypedAttribute typed;
        points = typed.create("points", "pts", MFnData::kPointArray);
        for (MObject* attr : {&a, &b, &sum, &echo, &points, &items}) addAttribute(*attr);
        attributeAffects(a, sum);
        attributeAffects(b, sum);
        attributeAffects(a, echo);
        return MS::kSuccess;
    }
    MStatus compute(const MPlug& plug, MDataBlock& data) override {
        if (plug != sum) return MS::kUnknownParameter;
        ++computeCount;
        const double total = data.inputValue(a).asDouble() + data.inputValue(b).asDouble();
        MDataHandle out = data.outputValue(sum);
        out.set(total);
        out.setClean();
        return MS::kSuccess;
    }
    // Logs each connection the node is told of: "dst <- src" on the destination side, "src -> dst"
    // on the source side.
    MStatus connectionMade(const MPlug& plug, const MPlug& otherPlug, bool asSrc) override {
        const std::string arrow = asSrc ? " -> " : " <- ";
        connectionLog.push_back(std::string(plug.name().asChar()) + arrow + otherPlug.name().asChar());
        return MS::kUnknownParameter;
    }
    static MObject a, b, sum, echo, points, items;
    static int computeCount;
    static std::vector<std::string> connectionLog;
};

MObject AdderNode::a, AdderNode::b, AdderNode::sum, AdderNode::echo, AdderNode::points, AdderNode::items;
int AdderNode::computeCount = 0;
std::vector<std::string> AdderNode::connectionLog;

class GraphEvaluation : public TestPluginFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(registerNode("adder", 0x7001, AdderNode::creator, AdderNode::initialize));
        AdderNode::computeCount = 0;
        AdderNode::connectionLog.clear();
    }
    MObject makeAdder(const char* name = "") {
        MFnDependencyNode fn;
        MStatus status;
        MObject node = fn.create("adder", name, &status);
        EXPECT_TRUE(status);
        return node;
    }
    MPlug plug(const MObject& node, const char* attribute) {
        return MFnDependencyNode(node).findPlug(attribute, false);
    }
};

TEST_F(GraphEvaluation, ComputesOnDemandAndCachesUntilAnInputChanges) {
    MObject node = makeAdder();
    plug(node, "a").setDouble(2);
    plug(node, "b").setDouble(3);
    EXPECT_EQ(5.0, plug(node, "sum").asDouble());
    EXPECT_EQ(5.0, plug(node, "sum").asDouble());
    EXPECT_EQ(1, AdderNode::computeCount);
    plug(node, "inputB").setDouble(4);
    EXPECT_EQ(6.0, plug(node, "s").asDouble());
    EXPECT_EQ(2, AdderNode::computeCount);
}

TEST_F(GraphEvaluation, DeclinedComputeKeepsTheStoredValue) {
    MObject node = makeAdder();
    plug(node, "a").setDouble(1);
    EXPECT_EQ(7.0, plug(node, "echo").asDouble());
}

TEST_F(GraphEvaluation, DirtinessFlowsThroughConnectionsAndPullsUpstream) {
    MObject first = makeAdder("first"), second = makeAdder("second");
    MDGModifier modifier;
    ASSERT_TRUE(modifier.connect(plug(first, "sum"), plug(second, "a")));
    ASSERT_TRUE(modifier.doIt());
    plug(first, "a").setDouble(1);
    plug(first, "b").setDouble(2);
    plug(second, "b").setDouble(10);
    EXPECT_EQ(13.0, plug(second, "sum").asDouble());
    plug(first, "a").setDouble(5);
    EXPECT_EQ(17.0, plug(second, "sum").asDouble());
    EXPECT_EQ(4, AdderNode::computeCount);
    EXPECT_EQ(plug(first, "sum"), plug(second, "a").source());
    // A connected destination cannot be written, and undoing the connection frees it.
    EXPECT_FALSE(plug(second, "a").setDouble(0));
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_TRUE(plug(second, "a").source().isNull());
    EXPECT_TRUE(plug(second, "a").setDouble(0));
}

TEST_F(GraphEvaluation, NewConnectionsAreToldToBothNodesDestinationFirst) {
    MObject first = makeAdder("first"), second = makeAdder("second");
    MDGModifier modifier;
    ASSERT_TRUE(modifier.connect(plug(first, "sum"), plug(second, "a")));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ((std::vector<std::string>{"second.inputA <- first.sum", "first.sum -> second.inputA"}),
              AdderNode::connectionLog);

    // A refused connection is told to nobody; undoing one is no new connection either.
    AdderNode::connectionLog.clear();
    EXPECT_FALSE(mhost::scene().connect(plug(first, "a").hostPlug(), plug(second, "a").hostPlug(), false));
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_TRUE(AdderNode::connectionLog.empty());
}

TEST_F(GraphEvaluation, ConnectionRulesRejectBadPairs) {
    MObject first = makeAdder(), second = makeAdder();
    auto& scene = mhost::scene();
    std::string why;
    EXPECT_FALSE(scene.connect(plug(first, "sum").hostPlug(), plug(first, "sum").hostPlug(), false, &why));
    EXPECT_FALSE(scene.connect(plug(first, "a").hostPlug(), plug(second, "sum").hostPlug(), false, &why));
    EXPECT_EQ("the destination attribute is not writable", why);
    EXPECT_FALSE(scene.connect(plug(first, "a").hostPlug(), plug(second, "points").hostPlug(), false, &why));
    ASSERT_TRUE(scene.connect(plug(first, "a").hostPlug(), plug(second, "b").hostPlug(), false));
    EXPECT_FALSE(scene.connect(plug(second, "a").hostPlug(), plug(second, "b").hostPlug(), false, &why));
    EXPECT_EQ("the destination already has an incoming connection", why);
    EXPECT_TRUE(scene.connect(plug(second, "a").hostPlug(), plug(second, "b").hostPlug(), true));
    EXPECT_EQ(plug(second, "a"), plug(second, "b").source());
}

TEST_F(GraphEvaluation, MinimumClampsWritesButNotTheDefault) {
    MObject node = makeAdder();
    EXPECT_EQ(0.0, plug(node, "b").asDouble());
    plug(node, "b").setDouble(-50);
    EXPECT_EQ(-10.0, plug(node, "b").asDouble());
}

TEST_F(GraphEvaluation, TypedDataIsCopiedOnWriteAndReadsEmptyWhenNeverSet) {
    MObject node = makeAdder();
    EXPECT_EQ(0u, MFnPointArrayData(plug(node, "points").asMObject()).array().length());
    MPointArray points;
    points.append(MPoint(1, 2, 3));
    MFnPointArrayData data;
    MObject object = data.create(points);
    ASSERT_TRUE(plug(node, "points").setMObject(object));
    points.append(MPoint(4, 5, 6));
    data.set(points);
    MFnPointArrayData stored(plug(node, "points").asMObject());
    ASSERT_EQ(1u, stored.array().length());
    EXPECT_EQ(MPoint(1, 2, 3), stored.array()[0]);
}

TEST_F(GraphEvaluation, NamesAreMadeUniqueWithTheLowestFreeNumber) {
    EXPECT_STREQ("adder1", MFnDependencyNode(makeAdder()).name().asChar());
    EXPECT_STREQ("adder2", MFnDependencyNode(makeAdder()).name().asChar());
    EXPECT_STREQ("foo", MFnDependencyNode(makeAdder("foo")).name().asChar());
    EXPECT_STREQ("foo1", MFnDependencyNode(makeAdder("foo")).name().asChar());
    MObject third = makeAdder("foo7");
    EXPECT_STREQ("foo7", MFnDependencyNode(third).name().asChar());
    EXPECT_STREQ("foo2", MFnDependencyNode(makeAdder("foo7")).name().asChar());
    MFnDependencyNode(third).setName("adder1");
    EXPECT_STREQ("adder3", MFnDependencyNode(third).name().asChar());
}

TEST_F(GraphEvaluation, ArrayPlugsAddressElementsLogicallyAndPhysically) {
    MObject node = makeAdder("arr");
    MPlug items = plug(node, "items");
    ASSERT_TRUE(items.isArray());
    EXPECT_EQ(0u, items.numElements());
    items.elementByLogicalIndex(5).setDouble(50);
    items.elementByLogicalIndex(2).setDouble(20);
    EXPECT_EQ(2u, items.numElements());
    EXPECT_EQ(2u, items.elementByPhysicalIndex(0).logicalIndex());
    EXPECT_EQ(50.0, items[1].asDouble());
    EXPECT_TRUE(items.elementByPhysicalIndex(2).isNull());
    EXPECT_STREQ("arr.items[5]", items.elementByLogicalIndex(5).name().asChar());
    EXPECT_EQ(items, items.elementByLogicalIndex(5).array());
    EXPECT_TRUE(plug(node, "a").elementByLogicalIndex(0).isNull());
}

TEST_F(GraphEvaluation, DeregisteringATypeWithLiveNodesFails) {
    MObject node = makeAdder();
    MFnPlugin plugin(pluginObject());
    EXPECT_FALSE(plugin.deregisterNode(MTypeId(0x7001)));
    mhost::scene().deleteNode(mhost::nodeOf(node));
    EXPECT_TRUE(plugin.deregisterNode(MTypeId(0x7001)));
    EXPECT_TRUE(registerNode("adder", 0x7001, AdderNode::creator, AdderNode::initialize));
}

TEST_F(GraphEvaluation, RegisteringATakenNameOrIdFails) {
    EXPECT_FALSE(registerNode("adder", 0x7002, AdderNode::creator, AdderNode::initialize));
    EXPECT_FALSE(registerNode("adder2", 0x7001, AdderNode::creator, AdderNode::initialize));
    EXPECT_FALSE(registerNode("transform", 0x7003, AdderNode::creator, AdderNode::initialize));
}

}  // namespace
