// The tweak node as scripts wire it: its attributes, the snap of the selected vertices of the mesh
// on lowMesh onto the mesh on scanMesh when kyTweakEval is pulled, and every test that makes a pull
// move nothing.

#include <gtest/gtest.h>
#include <maya/MDataBlock.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>
#include <maya/MPxConstraint.h>
#include <maya/MSelectionList.h>
#include <maya/MVector.h>
#include <mhost/Driver.h>
#include <mhost/SceneFile.h>

#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <vector>

#include "geometry/functions.h"
#include "graph/Node.h"
#include "tests/plugin/geometryScene.h"

namespace {

using mhost::driver::runCommand;

std::string nameOf(const MDagPath& path) { return path.partialPathName().asChar(); }

class TweakNode : public kytest::GeometryScene {
protected:
    void SetUp() override {
        GeometryScene::SetUp();
        std::string created;
        ASSERT_TRUE(runCommand("createNode kyTweakNode", &created));
        tweak = kytest::nodeNamed(created);
        ASSERT_FALSE(tweak.isNull());
    }

    // The usual wiring: a locator with `scan` as its source, `scan` on scanMesh, `low` on lowMesh.
    void wire(const MDagPath& scan, const MDagPath& low) {
        connectSource(scan, makeLocator());
        connect(scan, "scanMesh");
        connect(low, "lowMesh");
    }
    void connect(const MDagPath& mesh, const std::string& attribute, bool force = false) {
        const std::string command = std::string("connectAttr ") + (force ? "-f " : "") + nameOf(mesh) +
                                    ".outMesh " + tweakName() + "." + attribute;
        ASSERT_TRUE(runCommand(command)) << command;
    }
    // The plug whose pull runs the snap. Attributes are looked up on the node: the module loaded by
    // the host has its own copies of the node's static attribute objects.
    MPlug evalPlug() const { return MFnDependencyNode(tweak).findPlug("kyTweakEval", false); }
    std::string tweakName() const { return MFnDependencyNode(tweak).name().asChar(); }

    // Runs the node's compute for kyTweakEval as the host's evaluation would, returning its status.
    MStatus pull() {
        mhost::NodePtr node = mhost::liveNodeOf(tweak);
        MDataBlock block(node.get());
        return MFnDependencyNode(tweak).userNode()->compute(evalPlug(), block);
    }
    // Selects vertices of `mesh` ("a" or "a:b") as the one selected item.
    void selectVertices(const MDagPath& mesh, const std::string& ids) {
        ASSERT_TRUE(runCommand("select -r " + nameOf(mesh) + ".vtx[" + ids + "]"));
    }
    // Selects the listed vertices of `mesh` as one component item, as Maya merges vertices picked
    // one after the other.
    void selectVertices(const MDagPath& mesh, std::initializer_list<int> ids) {
        MFnSingleIndexedComponent vertices;
        MObject component = vertices.create(MFn::kMeshVertComponent);
        for (int id : ids) vertices.addElement(id);
        MSelectionList selection;
        ASSERT_TRUE(selection.add(mesh, component));
        ASSERT_TRUE(MGlobal::setActiveSelectionList(selection));
    }
    // Sets a transform attribute ("translateY", "rotateZ", ...) of the mesh's transform.
    void setTransform(const MDagPath& mesh, const std::string& attribute, double value) {
        MDagPath transform = mesh;
        transform.pop();
        ASSERT_TRUE(
            runCommand("setAttr " + nameOf(transform) + "." + attribute + " " + std::to_string(value)));
    }
    static MDagPath pathOf(const std::string& name) {
        MDagPath path;
        MDagPath::getAPathTo(kytest::nodeNamed(name), path);
        return path;
    }
    static MPointArray worldPoints(const MDagPath& mesh) {
        MPointArray points;
        MFnMesh(mesh).getPoints(points, MSpace::kWorld);
        return points;
    }
    static void expectNear(const MPoint& expected, const MPoint& actual) {
        EXPECT_NEAR(expected.x, actual.x, 1e-4);
        EXPECT_NEAR(expected.y, actual.y, 1e-4);
        EXPECT_NEAR(expected.z, actual.z, 1e-4);
    }
    static void expectUnchanged(const MPointArray& before, const MDagPath& mesh) {
        const MPointArray after = worldPoints(mesh);
        ASSERT_EQ(before.length(), after.length());
        for (unsigned int i = 0; i < before.length(); ++i) EXPECT_EQ(before[i], after[i]) << "vertex " << i;
    }

    MObject tweak;
};

struct ExpectedAttribute {
    const char* longName;
    const char* shortName;
    bool storable;
    bool keyable;
    bool hidden;
};

TEST_F(TweakNode, AttributesMatchTheTableAndThresholdStaysOffTheNode) {
    const ExpectedAttribute table[] = {
        {"lowMesh", "low", true, false, true},
        {"scanMesh", "scn", true, false, true},
        {"kyTweakEval", "kt", false, false, true},
        {"selectionAttr", "sl", false, true, false},
    };
    MFnDependencyNode fn(tweak);
    std::vector<std::string> added;
    for (unsigned int i = 0; i < fn.attributeCount(); ++i) {
        const std::string name = MFnAttribute(fn.attribute(i)).name().asChar();
        for (const ExpectedAttribute& expected : table)
            if (name == expected.longName) added.push_back(name);
    }
    EXPECT_EQ((std::vector<std::string>{"lowMesh", "scanMesh", "kyTweakEval", "selectionAttr"}), added);

    for (const ExpectedAttribute& expected : table) {
        SCOPED_TRACE(expected.longName);
        MFnAttribute attribute(fn.attribute(expected.longName));
        EXPECT_EQ(MString(expected.shortName), attribute.shortName());
        EXPECT_EQ(expected.storable, attribute.isStorable());
        EXPECT_EQ(expected.keyable, attribute.isKeyable());
        EXPECT_EQ(expected.hidden, attribute.isHidden());
    }
    for (const char* mesh : {"lowMesh", "scanMesh"}) {
        EXPECT_TRUE(MFnAttribute(fn.attribute(mesh)).accepts(MFnData::kMesh));
        EXPECT_FALSE(MFnAttribute(fn.attribute(mesh)).accepts(MFnData::kPointArray));
    }
    EXPECT_EQ(MFnNumericData::kDouble, MFnNumericAttribute(fn.attribute("kyTweakEval")).unitType());
    EXPECT_EQ(5.0, evalPlug().asDouble());
    EXPECT_EQ(MFnData::kPointArray, MFnTypedAttribute(fn.attribute("selectionAttr")).attrType());
    EXPECT_TRUE(MFnAttribute(fn.attribute("selectionAttr")).isCached());
    const MObject selectionData = fn.findPlug("selectionAttr", false).asMObject();
    EXPECT_TRUE(selectionData.isNull() || MFnPointArrayData(selectionData).length() == 0);
    // threshold is made but never added: no node has it, by either name.
    EXPECT_FALSE(fn.hasAttribute("threshold"));
    EXPECT_FALSE(fn.hasAttribute("th"));

    EXPECT_EQ(0x80032u, fn.typeId().id());
    EXPECT_NE(nullptr, dynamic_cast<MPxConstraint*>(fn.userNode()));
}

TEST_F(TweakNode, SelectedVerticesLandOnTheScanAndTheOthersStay) {
    const MDagPath scan = makeGrid(6, 6, 0.0, -1.0);
    const MDagPath low = makeGrid(3, 3, 0.5);
    wire(scan, low);
    selectVertices(low, {2, 5});
    const MPointArray before = worldPoints(low);

    // A pull through the graph, as a script's getAttr would do it; the value itself never changes.
    EXPECT_EQ(5.0, evalPlug().asDouble());

    const MPointArray after = worldPoints(low);
    ASSERT_EQ(before.length(), after.length());
    for (unsigned int i = 0; i < after.length(); ++i) {
        SCOPED_TRACE(i);
        if (i == 2 || i == 5)
            expectNear(MPoint(before[i].x, 0.0, before[i].z), after[i]);
        else
            EXPECT_EQ(before[i], after[i]);
    }

    // A new selection alone dirties nothing, so the next pull computes nothing; a write of
    // selectionAttr does, and the pull then snaps the new selection.
    selectVertices(low, "7");
    evalPlug().asDouble();
    EXPECT_EQ(before[7], worldPoints(low)[7]);
    MFnPointArrayData data;
    MObject points = data.create(MPointArray());
    ASSERT_TRUE(MFnDependencyNode(tweak).findPlug("selectionAttr", false).setMObject(points));
    evalPlug().asDouble();
    expectNear(MPoint(before[7].x, 0.0, before[7].z), worldPoints(low)[7]);
}

// The scan's transform is taken when scanMesh is connected, and kept: the points come back to world
// space through it, and moving the scan later does not move the snap target.
TEST_F(TweakNode, MovedAndTiltedScanUsesItsMatrixFromTheConnection) {
    const MDagPath scan = makeGrid(10, 10, 0.0, -3.0);
    setTransform(scan, "translateY", -1.0);
    setTransform(scan, "rotateZ", 0.2);
    const MDagPath low = makeGrid(3, 3, 0.5);
    wire(scan, low);
    setTransform(scan, "translateY", 5.0);  // after the connection: not seen by the node

    selectVertices(low, "0:15");
    const MPointArray before = worldPoints(low);
    ASSERT_TRUE(pull());

    // The tilted plane as it was connected: through (0, -1, 0) with normal (-sin 0.2, cos 0.2, 0).
    const MVector normal(-std::sin(0.2), std::cos(0.2), 0.0);
    const MPoint onPlane(0.0, -1.0, 0.0);
    const MPointArray after = worldPoints(low);
    for (unsigned int i = 0; i < after.length(); ++i) {
        SCOPED_TRACE(i);
        const MPoint expected = before[i] - normal * ((before[i] - onPlane) * normal);
        expectNear(expected, after[i]);
    }
}

TEST_F(TweakNode, SecondScanConnectionKeepsTheFirstMesh) {
    const MDagPath first = makeGrid(6, 6, 0.0, -1.0);
    const MDagPath second = makeGrid(6, 6, -2.0, -1.0);
    const MDagPath low = makeGrid(2, 2, 0.5);
    wire(first, low);
    // The locator and the node now both name the second mesh, so the pull gets past the name test.
    const std::string locatorName = MFnDependencyNode(findStrakeLocator()).name().asChar();
    ASSERT_TRUE(runCommand("connectAttr -f " + nameOf(second) + ".outMesh " + locatorName + ".kyStrakeMesh"));
    connect(second, "scanMesh", true);

    selectVertices(low, "4");
    ASSERT_TRUE(pull());
    expectNear(MPoint(1.0, 0.0, 1.0), worldPoints(low)[4]);
}

// A loaded scene remakes the connections, and with them the intersector of a fresh node.
TEST_F(TweakNode, ReloadedSceneSnapsAgain) {
    const MDagPath scan = makeGrid(6, 6, 0.0, -1.0);
    const std::string lowName = nameOf(makeGrid(2, 2, 0.5));
    wire(scan, pathOf(lowName));
    const std::string tweakNodeName = tweakName();
    const std::string file = ::testing::TempDir() + "tweakNodeScene.json";
    ASSERT_TRUE(mhost::driver::saveScene(file));
    const MStatus loaded = mhost::driver::loadScene(file);
    std::remove(file.c_str());
    ASSERT_TRUE(loaded);

    tweak = kytest::nodeNamed(tweakNodeName);
    const MDagPath low = pathOf(lowName);
    selectVertices(low, "4");
    ASSERT_TRUE(pull());
    expectNear(MPoint(1.0, 0.0, 1.0), worldPoints(low)[4]);
}

TEST_F(TweakNode, ObjectSelectionMovesNothing) {
    const MDagPath scan = makeGrid(4, 4);
    const MDagPath low = makeGrid(2, 2, 0.5);
    wire(scan, low);
    select(low);
    const MPointArray before = worldPoints(low);
    EXPECT_EQ(MS::kUnknownParameter, pull().statusCode());
    expectUnchanged(before, low);
}

TEST_F(TweakNode, EmptySelectionIsReportedAndMovesNothing) {
    const MDagPath scan = makeGrid(4, 4);
    const MDagPath low = makeGrid(2, 2, 0.5);
    wire(scan, low);
    ASSERT_TRUE(runCommand("select -cl"));
    const MPointArray before = worldPoints(low);

    testing::internal::CaptureStderr();
    const MStatus status = pull();
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_FALSE(status);
    EXPECT_NE(std::string::npos, printed.find("\nAPI error detected in kyTweakNode at line ")) << printed;
    expectUnchanged(before, low);
}

// Steps that decline silently: a scan that is not the locator's source, a selected mesh that is not
// the one on lowMesh, and a node with nothing on lowMesh.
TEST_F(TweakNode, WrongWiringDeclinesSilently) {
    const MDagPath scan = makeGrid(4, 4);
    const MDagPath other = makeGrid(4, 4, -1.0);
    const MDagPath low = makeGrid(2, 2, 0.5);
    connectSource(scan, makeLocator());
    connect(other, "scanMesh");
    connect(low, "lowMesh");
    selectVertices(low, "0:8");
    const MPointArray before = worldPoints(low);

    testing::internal::CaptureStderr();
    EXPECT_EQ(MS::kUnknownParameter, pull().statusCode());

    // The right scan, but the vertices selected on another mesh than the low one.
    connect(scan, "scanMesh", true);
    selectVertices(other, "0:8");
    EXPECT_EQ(MS::kUnknownParameter, pull().statusCode());
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    expectUnchanged(before, low);
}

TEST_F(TweakNode, NodeWiredToNoMeshDeclines) {
    const MDagPath low = makeGrid(2, 2, 0.5);
    selectVertices(low, "0:8");
    // No locator and no scan: both ends are unnamed and match; the missing low mesh declines.
    EXPECT_EQ(MS::kUnknownParameter, pull().statusCode());
    const MDagPath scan = makeGrid(4, 4);
    connectSource(scan, makeLocator());
    connect(scan, "scanMesh");
    EXPECT_EQ(MS::kUnknownParameter, pull().statusCode());
}

// One selected vertex beyond the reach fails the query, and the pull writes nothing at all, not even
// the vertices already snapped in the loop.
TEST_F(TweakNode, VertexOutOfReachFailsThePullWithNothingMoved) {
    const MDagPath scan = makeGrid(4, 4);
    MPointArray points;
    points.append(MPoint(1, 0.5, 1));
    points.append(MPoint(2, 0.5, 1));
    points.append(MPoint(2, 0.5, 2));
    points.append(MPoint(1, 150.0, 2));
    const MDagPath low = makeMesh(points, {{0, 1, 2, 3}});
    wire(scan, low);
    selectVertices(low, "0:3");
    const MPointArray before = worldPoints(low);

    testing::internal::CaptureStderr();
    EXPECT_FALSE(pull());
    EXPECT_NE(std::string::npos, testing::internal::GetCapturedStderr().find("kyTweakNode"));
    expectUnchanged(before, low);

    // Within reach (99 units), the same vertex snaps.
    MFnMesh(low).setPoint(3, MPoint(1, 90.0, 2));
    ASSERT_TRUE(pull());
    expectNear(MPoint(1, 0, 2), worldPoints(low)[3]);
}

}  // namespace
