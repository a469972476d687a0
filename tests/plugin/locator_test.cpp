// The kyStrake locator as the host sees it once the module is loaded: its attribute table on a new
// node, the order the attributes join it, the dirty propagation that makes it redraw, and compute,
// preEvaluation and isBounded.

#include <gtest/gtest.h>
#include <maya/MDGContext.h>
#include <maya/MDataBlock.h>
#include <maya/MEvaluationNode.h>
#include <maya/MFn.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnData.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MPxLocatorNode.h>
#include <mhost/Driver.h>
#include <mhost/Frames.h>

#include <set>
#include <string>
#include <vector>

#include "drawing/DrawDirtyRequests.h"
#include "geometry/functions.h"
#include "graph/Node.h"
#include "tests/plugin/pluginScene.h"

namespace {

using mhost::driver::runCommand;

enum class Kind { kTyped, kNumeric, kGeneric };

struct ExpectedAttribute {
    const char* longName;
    const char* shortName;
    Kind kind;
    int type;  // MFnData::Type for typed attributes, MFnNumericData::Type for numeric ones
    bool keyable;
    bool hidden;
    double defaultValue;
};

constexpr bool K = true;   // keyable
constexpr bool W = false;  // writable only
constexpr bool hid = true;
constexpr bool shown = false;

const ExpectedAttribute kTable[] = {
    {"strokes", "stk", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"playervtx", "pvt", Kind::kTyped, MFnData::kIntArray, K, hid, 0},
    {"freepoints", "frt", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"freezeMedian", "frm", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"sizes", "sz", Kind::kTyped, MFnData::kIntArray, W, hid, 0},
    {"playersLine", "pla", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"playerpts", "ppt", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"pointsDebug", "pdb", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"strokesShadow", "shtk", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"sizesShadow", "shz", Kind::kTyped, MFnData::kIntArray, K, hid, 0},
    {"strokesNondestruct", "stnd", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"sizesNondestruct", "snd", Kind::kTyped, MFnData::kIntArray, K, hid, 0},
    {"newFaces", "nf", Kind::kTyped, MFnData::kIntArray, W, hid, 0},
    {"displayInfo", "di", Kind::kNumeric, MFnNumericData::kInt, W, shown, 1},
    {"tweakRadius", "twr", Kind::kTyped, MFnData::kIntArray, W, hid, 0},
    {"kyStrakeMesh", "km", Kind::kGeneric, 0, K, shown, 0},
    {"shadowIndices1", "shio", Kind::kTyped, MFnData::kIntArray, W, hid, 0},
    {"shadowIndices2", "shis", Kind::kTyped, MFnData::kIntArray, W, hid, 0},
    {"shadowIndices3", "shit", Kind::kTyped, MFnData::kIntArray, W, hid, 0},
    {"fusept", "fpt", Kind::kTyped, MFnData::kPointArray, W, hid, 0},
    {"magnetPt", "mgn", Kind::kTyped, MFnData::kPointArray, W, hid, 0},
    {"sublines", "sbl", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"fusemesh", "fmh", Kind::kTyped, MFnData::kPointArray, K, hid, 0},
    {"fuseindices", "fid", Kind::kTyped, MFnData::kIntArray, W, hid, 0},
    {"verticestweak", "tkv", Kind::kTyped, MFnData::kPointArray, W, hid, 0},
    {"inputNormals", "ino", Kind::kTyped, MFnData::kVectorArray, W, hid, 0},
    {"displaySize", "dsz", Kind::kNumeric, MFnNumericData::kDouble, W, shown, 0},
    {"pinch", "pch", Kind::kNumeric, MFnNumericData::kDouble, W, hid, 0},
    {"mode", "mo", Kind::kNumeric, MFnNumericData::kInt, W, hid, 0},
    {"symmetry", "sym", Kind::kNumeric, MFnNumericData::kInt, W, hid, 0},
    {"radiusMoveInteractive", "rmi", Kind::kNumeric, MFnNumericData::kDouble, W, shown, 0},
    {"radiusRelaxInteractive", "rri", Kind::kNumeric, MFnNumericData::kDouble, W, shown, 0},
    {"intensityRelaxInteractive", "iri", Kind::kNumeric, MFnNumericData::kDouble, W, shown, 0},
    {"interPoint", "ip", Kind::kNumeric, MFnNumericData::k3Double, W, hid, 0},
    {"interNormal", "in", Kind::kNumeric, MFnNumericData::k3Double, W, hid, 0},
};

const std::vector<std::string> kAddOrder = {
    "pointsDebug",
    "intensityRelaxInteractive",
    "radiusRelaxInteractive",
    "radiusMoveInteractive",
    "interPoint",
    "interNormal",
    "symmetry",
    "sublines",
    "mode",
    "pinch",
    "sizes",
    "newFaces",
    "tweakRadius",
    "fusept",
    "strokes",
    "playerpts",
    "magnetPt",
    "fusemesh",
    "playervtx",
    "kyStrakeMesh",
    "verticestweak",
    "shadowIndices1",
    "shadowIndices2",
    "shadowIndices3",
    "playersLine",
    "fuseindices",
    "displayInfo",
    "inputNormals",
    "freezeMedian",
    "sizesShadow",
    "freepoints",
    "strokesShadow",
    "displaySize",
    "sizesNondestruct",
    "strokesNondestruct",
};

class Locator : public kytest::PluginScene {
protected:
    void SetUp() override {
        kytest::PluginScene::SetUp();
        name = kytest::createLocator();
        node = kytest::nodeNamed(name);
        ASSERT_FALSE(node.isNull());
    }
    MPlug plug(const char* attribute) const { return MFnDependencyNode(node).findPlug(attribute, false); }
    MObject attribute(const char* name) const { return MFnDependencyNode(node).attribute(name); }
    mhost::NodePtr hostNode() const { return mhost::liveNodeOf(node); }

    std::string name;
    MObject node;
};

void expectTypeAndDefault(const ExpectedAttribute& expected, const MObject& attribute, const MPlug& plug) {
    switch (expected.kind) {
        case Kind::kTyped:
            EXPECT_EQ(expected.type, MFnTypedAttribute(attribute).attrType());
            // Never written: no data at all, or empty data.
            EXPECT_TRUE(plug.asMObject().isNull() || plug.numElements() == 0);
            break;
        case Kind::kNumeric:
            EXPECT_EQ(expected.type, MFnNumericAttribute(attribute).unitType());
            if (expected.type == MFnNumericData::k3Double) {
                for (unsigned int i = 0; i < 3; ++i) EXPECT_EQ(0.0, plug.child(i).asDouble());
            } else {
                EXPECT_EQ(expected.defaultValue, plug.asDouble());
            }
            break;
        case Kind::kGeneric:
            EXPECT_TRUE(attribute.hasFn(MFn::kGenericAttribute));
            EXPECT_TRUE(MFnAttribute(attribute).accepts(MFnData::kMesh));
            EXPECT_FALSE(MFnAttribute(attribute).accepts(MFnData::kPointArray));
            break;
    }
}

TEST_F(Locator, NewNodeMatchesTheAttributeTable) {
    for (const ExpectedAttribute& expected : kTable) {
        SCOPED_TRACE(expected.longName);
        MObject object = attribute(expected.longName);
        ASSERT_FALSE(object.isNull());
        MFnAttribute fn(object);
        EXPECT_EQ(MString(expected.shortName), fn.shortName());
        EXPECT_EQ(expected.keyable, fn.isKeyable());
        EXPECT_TRUE(fn.isWritable());
        EXPECT_TRUE(fn.isReadable());
        EXPECT_EQ(expected.hidden, fn.isHidden());
        EXPECT_TRUE(fn.isStorable());
        // Only the source mesh connection is read through afresh each time.
        EXPECT_EQ(std::string(expected.longName) != "kyStrakeMesh", fn.isCached());
        expectTypeAndDefault(expected, object, plug(expected.longName));
    }
}

TEST_F(Locator, AttributesJoinTheNodeInTheirOwnOrder) {
    std::set<std::string> ours(kAddOrder.begin(), kAddOrder.end());
    std::vector<std::string> seen;
    MFnDependencyNode fn(node);
    for (unsigned int i = 0; i < fn.attributeCount(); ++i) {
        const std::string attributeName = MFnAttribute(fn.attribute(i)).name().asChar();
        if (ours.count(attributeName)) seen.push_back(attributeName);
    }
    EXPECT_EQ(kAddOrder, seen);
}

TEST_F(Locator, IdentityClassificationAndBounds) {
    MFnDependencyNode fn(node);
    EXPECT_EQ(0x80025u, fn.typeId().id());
    EXPECT_EQ("kyStrake", std::string(fn.typeName().asChar()));
    EXPECT_TRUE(node.hasFn(MFn::kPluginLocatorNode));
    EXPECT_TRUE(node.hasFn(MFn::kPluginDependNode));
    EXPECT_EQ("drawdb/geometry/kyStrake",
              std::string(MFnDependencyNode::classification("kyStrake").asChar()));
    // Unbounded, so the node is drawn whatever the camera frames.
    auto* locator = dynamic_cast<MPxLocatorNode*>(fn.userNode());
    ASSERT_NE(nullptr, locator);
    EXPECT_FALSE(locator->isBounded());
}

TEST_F(Locator, InteractiveMinimumLimitsWritesNotTheDefault) {
    for (const char* attributeName :
         {"radiusMoveInteractive", "radiusRelaxInteractive", "intensityRelaxInteractive"}) {
        SCOPED_TRACE(attributeName);
        EXPECT_EQ(0.0, plug(attributeName).asDouble());
        ASSERT_TRUE(plug(attributeName).setDouble(0.05));
        EXPECT_DOUBLE_EQ(0.1, plug(attributeName).asDouble());
        ASSERT_TRUE(plug(attributeName).setDouble(3.5));
        EXPECT_DOUBLE_EQ(3.5, plug(attributeName).asDouble());
    }
    // The other doubles have no limit.
    ASSERT_TRUE(plug("displaySize").setDouble(-2.0));
    EXPECT_DOUBLE_EQ(-2.0, plug("displaySize").asDouble());
}

TEST_F(Locator, SourceMeshConnectsFromAMeshOnly) {
    ASSERT_TRUE(runCommand("createNode mesh -n sourceShape"));
    EXPECT_TRUE(runCommand("connectAttr sourceShape.outMesh " + name + ".kyStrakeMesh"));
    const std::string other = kytest::createLocator("otherLocator");
    EXPECT_FALSE(runCommand("connectAttr -f " + other + ".strokes " + name + ".kyStrakeMesh"));
}

// Writes a fresh value of the attribute's own kind into the plug, as the tool's accessors do.
void write(MPlug plug) {
    const MObject attribute = plug.attribute();
    if (!attribute.hasFn(MFn::kTypedAttribute)) {
        ASSERT_TRUE(plug.setInt(3));
        return;
    }
    MObject data;
    switch (MFnTypedAttribute(attribute).attrType()) {
        case MFnData::kIntArray:
            data = MFnIntArrayData().create(MIntArray(2, 7));
            break;
        case MFnData::kPointArray:
            data = MFnPointArrayData().create(MPointArray(2, MPoint(1, 2, 3)));
            break;
        default:
            FAIL() << "no writer for this attribute";
    }
    ASSERT_TRUE(plug.setMObject(data));
}

// Writes `source` on a clean node and lists which of our other attributes became dirty.
std::set<std::string> dirtiedBy(const MObject& node, const mhost::NodePtr& hostNode, const char* source) {
    hostNode->dirty.clear();
    MFnDependencyNode fn(node);
    write(fn.findPlug(source, false));
    MDataBlock block(hostNode.get());
    std::set<std::string> dirty;
    for (const std::string& attributeName : kAddOrder) {
        if (attributeName == source) continue;
        if (!block.isClean(fn.attribute(attributeName.c_str()))) dirty.insert(attributeName);
    }
    return dirty;
}

TEST_F(Locator, WritesDirtyOnlyWhatTheirDependenciesName) {
    using Names = std::set<std::string>;
    const Names shadowCycle = {"newFaces", "sizesShadow", "strokesShadow"};
    EXPECT_EQ((Names{"sizes", "newFaces", "kyStrakeMesh", "freepoints", "sizesShadow", "strokesShadow"}),
              dirtiedBy(node, hostNode(), "strokes"));
    EXPECT_EQ(
        (Names{"strokes", "sizes", "newFaces", "kyStrakeMesh", "freepoints", "sizesShadow", "strokesShadow"}),
        dirtiedBy(node, hostNode(), "displayInfo"));
    EXPECT_EQ((Names{"kyStrakeMesh", "sizes"}), dirtiedBy(node, hostNode(), "tweakRadius"));
    EXPECT_EQ(shadowCycle, dirtiedBy(node, hostNode(), "verticestweak"));
    EXPECT_EQ(shadowCycle, dirtiedBy(node, hostNode(), "playervtx"));
    EXPECT_EQ(Names{}, dirtiedBy(node, hostNode(), "playerpts"));
}

TEST_F(Locator, ComputeAnswersForStrokesOnlyAndLeavesTheDataBlockAlone) {
    MPxNode* locator = MFnDependencyNode(node).userNode();
    ASSERT_NE(nullptr, locator);
    mhost::NodePtr host = hostNode();
    host->dirty.clear();
    write(plug("displayInfo"));  // dirties strokes, and sizes through it
    MDataBlock block(host.get());
    ASSERT_FALSE(block.isClean(attribute("strokes")));

    EXPECT_EQ(MS::kSuccess, locator->compute(plug("strokes"), block).statusCode());
    EXPECT_EQ(MS::kUnknownParameter, locator->compute(plug("sizes"), block).statusCode());
    EXPECT_EQ(MS::kUnknownParameter, locator->compute(plug("displayInfo"), block).statusCode());
    EXPECT_FALSE(block.isClean(attribute("strokes")));
    EXPECT_FALSE(block.isClean(attribute("sizes")));
}

TEST_F(Locator, PreEvaluationFlagsTheDrawDirtyOnlyForADirtySizes) {
    MPxNode* locator = MFnDependencyNode(node).userNode();
    ASSERT_NE(nullptr, locator);
    mhost::NodePtr host = hostNode();

    host->dirty.clear();
    mhost::drawDirtyRequests().clear();
    write(plug("playerpts"));
    EXPECT_TRUE(locator->preEvaluation(MDGContext::fsNormal, MEvaluationNode(host)));
    EXPECT_TRUE(mhost::driver::drawDirtyRequests().empty());

    write(plug("strokes"));
    EXPECT_TRUE(locator->preEvaluation(MDGContext::fsNormal, MEvaluationNode(host)));
    const auto requests = mhost::driver::drawDirtyRequests();
    ASSERT_EQ(1u, requests.size());
    EXPECT_EQ(name, requests[0].node);
    EXPECT_TRUE(requests[0].topologyChanged);
}

}  // namespace

TEST_F(Locator, ScriptsReadTheRowsBackWithGetAttr) {
    MIntArray row;
    for (int id : {7, 3, 12}) row.append(id);
    setIntArrayAttr("playervtx", node, row);
    std::string ids;
    ASSERT_TRUE(runCommand("getAttr " + name + ".playervtx", &ids));
    EXPECT_EQ(ids, "7 3 12");
    setIntArrayAttr("playervtx", node, MIntArray());
    ASSERT_TRUE(runCommand("getAttr " + name + ".playervtx", &ids));
    EXPECT_EQ(ids, "");
    EXPECT_FALSE(runCommand("getAttr " + name + ".strokes")) << "points are not printable";
}
