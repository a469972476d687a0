// Declarations that must read as Maya declares them, so that code written against the host compiles
// against Maya unchanged: const objects set on plugs, defaulted array arguments, the node accessors
// reached through the base class, and the array iterators' reference types.

#include <gtest/gtest.h>
#include <maya/MFnBase.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MIntArray.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>
#include <maya/MPxNode.h>
#include <maya/MUIDrawManager.h>

#include <type_traits>
#include <vector>

#include "support/TestPlugin.h"

namespace {

// A plug-in node that overrides nothing Maya asks plug-ins to leave alone, with one typed attribute.
class BareNode : public MPxNode {
public:
    static void* creator() { return new BareNode; }
    static MStatus initialize() {
        MFnTypedAttribute typed;
        points = typed.create("points", "pts", MFnData::kPointArray);
        return addAttribute(points);
    }
    static MObject points;
};
MObject BareNode::points;

constexpr unsigned int kBareNodeId = 0x7f101;

class ApiSurface : public TestPluginFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(registerNode("bareNode", kBareNodeId, BareNode::creator, BareNode::initialize));
    }

    MObject createBareNode(const char* name) {
        MFnDependencyNode fn;
        return fn.create("bareNode", name);
    }

    static std::vector<MPoint> storedPoints(const MPlug& plug) {
        MFnPointArrayData data(plug.asMObject());
        std::vector<MPoint> points;
        for (const MPoint& point : data.array()) points.push_back(point);
        return points;
    }
};

TEST_F(ApiSurface, ConstAndTemporaryDataObjectsSetOnAPlug) {
    const MObject node = createBareNode("bare");
    MPlug plug(node, BareNode::points);
    MPointArray two;
    two.append(MPoint(1, 2, 3));
    two.append(MPoint(4, 5, 6));
    MFnPointArrayData maker;
    const MObject constData = maker.create(two);
    ASSERT_EQ(MS::kSuccess, plug.setValue(constData));
    EXPECT_EQ(std::vector<MPoint>({MPoint(1, 2, 3), MPoint(4, 5, 6)}), storedPoints(plug));

    MPointArray one;
    one.append(MPoint(7, 8, 9));
    ASSERT_EQ(MS::kSuccess, plug.setValue(MFnPointArrayData().create(one)));
    EXPECT_EQ(std::vector<MPoint>({MPoint(7, 8, 9)}), storedPoints(plug))
        << "a temporary object replaces the value";
}

TEST_F(ApiSurface, NodeAccessorsAnswerThroughTheBaseClass) {
    const MObject node = createBareNode("bare");
    MFnDependencyNode fn(node);
    const MPxNode* base = fn.userNode();
    ASSERT_NE(base, nullptr);
    EXPECT_EQ(MString("bare"), base->name());
    EXPECT_EQ(MString("bareNode"), base->typeName());
    EXPECT_EQ(kBareNodeId, base->typeId().id());
    EXPECT_TRUE(base->thisMObject() == node);

    fn.setName("renamed");
    EXPECT_EQ(MString("renamed"), base->name()) << "the name is the node's current one, not a copy";
}

TEST(ObjectArrays, SizedConstructionDefaultsToNullObjects) {
    const MObjectArray nulls(5);
    ASSERT_EQ(5u, nulls.length());
    for (unsigned int i = 0; i < nulls.length(); ++i) EXPECT_TRUE(nulls[i].isNull()) << i;

    const MObjectArray none(0);
    EXPECT_EQ(0u, none.length());
}

TEST(ArrayIterators, ConstIteratorsHandOutReferencesIntoTheArray) {
    MIntArray values;
    values.append(3);
    values.append(5);
    const MIntArray& view = values;
    MIntArray::ConstIterator it = view.begin();
    static_assert(std::is_same<decltype(*it), const int&>::value, "a const element reference");
    static_assert(std::is_same<decltype(++it), const MIntArray::ConstIterator&>::value,
                  "steps return the iterator");
    EXPECT_EQ(&values[0], &*it);
    EXPECT_EQ(&++it, &it) << "the step returns the same iterator";
    EXPECT_EQ(&values[1], &*it);
    ++it;
    MIntArray::ConstIterator end = view.end();
    EXPECT_TRUE(it == end);
    --it;
    EXPECT_EQ(5, *it);

    MIntArray::Iterator writer = values.begin();
    static_assert(std::is_same<decltype(*writer), int&>::value, "a mutable element reference");
    *writer = 9;
    EXPECT_EQ(9, values[0]);
}

TEST(ClassShapes, FunctionSetBaseAndDrawManagerAreNotForPlugInsToMake) {
    static_assert(!std::is_default_constructible<MFnBase>::value, "only derived function sets are made");
    static_assert(std::is_default_constructible<MFnDagNode>::value, "derived function sets are");
    static_assert(!std::is_destructible<MHWRender::MUIDrawManager>::value,
                  "the host owns every draw manager");
    static_assert(std::has_virtual_destructor<MFnBase>::value, "function sets are deleted through the base");
    SUCCEED();
}

}  // namespace
