// The mesh shape in the graph: history through inMesh, pnts and polyTweak tweaks, how MFnMesh edits are
// kept with and without history, duplication, deleting history, worldMesh and bounds.

#include <maya/MDataHandle.h>
#include <maya/MFnGeometryData.h>
#include <maya/MGlobal.h>
#include <maya/MMatrix.h>
#include <maya/MNodeMessage.h>
#include <maya/MPlug.h>

#include "graph/Node.h"
#include "meshnode/MeshShapeNode.h"
#include "support/MeshScene.h"

namespace {

using mhost::driver::runCommand;

MPoint pointOf(const MDagPath& shape, int vertex, MSpace::Space space = MSpace::kObject) {
    MPoint p;
    EXPECT_TRUE(MFnMesh(shape).getPoint(vertex, p, space));
    return p;
}

MPoint pointOf(const MObject& meshData, int vertex) {
    MPoint p;
    EXPECT_TRUE(MFnMesh(meshData).getPoint(vertex, p));
    return p;
}

std::string commandResult(const std::string& command) {
    std::string result;
    runCommand(command, &result);
    return result;
}

MPlug plugOf(const MDagPath& shape, const char* attribute) {
    return MFnDependencyNode(shape.node()).findPlug(attribute, false);
}

// A cube "src" feeding an empty mesh shape "dstShape" through its outMesh.
class MeshApiHistory : public MeshSceneTest {
protected:
    void SetUp() override {
        MeshSceneTest::SetUp();
        src = addMesh(unitCube(), "src");
        ASSERT_TRUE(runCommand("createNode transform -n dst; createNode mesh -n dstShape -p dst"));
        dst = pathTo("dstShape");
    }
    MDagPath src, dst;
};

TEST_F(MeshApiHistory, AShapeWithHistoryFollowsItsInputAndAddsItsTweaks) {
    ASSERT_TRUE(runCommand("connectAttr srcShape.outMesh dstShape.inMesh"));
    EXPECT_EQ(8, MFnMesh(dst).numVertices());
    ASSERT_TRUE(MFnMesh(src).setPoint(7, MPoint(1, 5, 1)));
    EXPECT_TRUE(pointOf(dst, 7).isEquivalent(MPoint(1, 5, 1)));
    ASSERT_TRUE(runCommand("setAttr dstShape.pnts[7] 0 1 0; setAttr dstShape.pnts[2].pntx 0.5"));
    EXPECT_TRUE(pointOf(dst, 7).isEquivalent(MPoint(1, 6, 1)));
    EXPECT_TRUE(pointOf(dst, 2).isEquivalent(MPoint(0.5, 1, 0)));
    EXPECT_TRUE(pointOf(plugOf(dst, "cachedInMesh").asMObject(), 7).isEquivalent(MPoint(1, 5, 1)))
        << "cachedInMesh holds the mesh before the tweaks";
}

TEST_F(MeshApiHistory, PolyTweakAddsItsOffsetsBetweenTwoShapes) {
    ASSERT_TRUE(
        runCommand("createNode polyTweak -n tweaks; connectAttr srcShape.outMesh tweaks.inputPolymesh;"
                   "connectAttr tweaks.output dstShape.inMesh; setAttr tweaks.tweak[3] 0 0 1"));
    EXPECT_TRUE(pointOf(dst, 3).isEquivalent(MPoint(1, 1, 1)));
    EXPECT_TRUE(pointOf(dst, 4).isEquivalent(MPoint(0, 0, 1)));
    ASSERT_TRUE(runCommand("setAttr tweaks.tk[3].tz 2"));
    EXPECT_TRUE(pointOf(dst, 3).isEquivalent(MPoint(1, 1, 2)));
}

TEST_F(MeshApiHistory, DeletingAnObjectTakesTheHistoryThatFeedsOnlyIt) {
    ASSERT_TRUE(runCommand(
        "createNode polyTweak -n only; createNode polyTweak -n shared;"
        "connectAttr srcShape.outMesh shared.inputPolymesh; connectAttr shared.output only.inputPolymesh;"
        "connectAttr only.output dstShape.inMesh"));
    ASSERT_TRUE(runCommand("delete dst"));
    EXPECT_EQ("0", commandResult("objExists only"));
    EXPECT_EQ("0", commandResult("objExists shared"));
    EXPECT_EQ("1", commandResult("objExists srcShape")) << "DAG nodes upstream are other objects";
    ASSERT_TRUE(runCommand("undo"));
    EXPECT_EQ("1", commandResult("objExists only"));
    EXPECT_EQ("1", commandResult("objExists shared"));
}

// As after a first patch: the shape's history starts at an intermediate "Orig" shape under the same
// transform. Deleting the transform takes that shape with its children, not a second time as history;
// undo brings back the shapes' connections too, so the shape, never evaluated before, still follows
// its history.
TEST_F(MeshApiHistory, DeletingATransformTakesItsOrigShapeOnceAndUndoBringsAllBack) {
    ASSERT_TRUE(runCommand(
        "createNode mesh -n dstShapeOrig -p dst; setAttr dstShapeOrig.intermediateObject 1;"
        "connectAttr srcShape.outMesh dstShapeOrig.inMesh; createNode polyTweak -n edits;"
        "connectAttr dstShapeOrig.outMesh edits.inputPolymesh; connectAttr edits.output dstShape.inMesh"));
    ASSERT_TRUE(runCommand("delete dst"));
    for (const char* gone : {"dst", "dstShape", "dstShapeOrig", "edits"})
        EXPECT_EQ("0", commandResult(std::string("objExists ") + gone)) << gone;
    ASSERT_TRUE(runCommand("undo"));
    for (const char* back : {"dst", "dstShape", "dstShapeOrig", "edits"})
        EXPECT_EQ("1", commandResult(std::string("objExists ") + back)) << back;
    EXPECT_EQ(8, MFnMesh(pathTo("dstShape")).numVertices());
    EXPECT_EQ("dstShape edits dstShapeOrig srcShape", commandResult("listHistory dstShape"));
}

TEST_F(MeshApiHistory, HistoryThatFeedsAnotherObjectSurvivesTheDelete) {
    ASSERT_TRUE(runCommand(
        "createNode polyTweak -n shared; createNode transform -n other; createNode mesh -n otherShape -p "
        "other;"
        "connectAttr srcShape.outMesh shared.inputPolymesh; connectAttr shared.output dstShape.inMesh;"
        "connectAttr shared.output otherShape.inMesh"));
    ASSERT_TRUE(runCommand("delete dst"));
    EXPECT_EQ("1", commandResult("objExists shared"));
}

// Resolving "shape.attribute" must not pull the shape's mesh through its history; only a component
// name ("shape.vtx[3]") needs the mesh.
TEST_F(MeshApiHistory, NamingAnAttributeOfAShapeLeavesItsMeshUnevaluated) {
    ASSERT_TRUE(
        runCommand("createNode polyTweak -n tweaks; connectAttr srcShape.outMesh tweaks.inputPolymesh;"
                   "connectAttr tweaks.output dstShape.inMesh; setAttr tweaks.tweak[3] 0 0 1"));
    const mhost::NodePtr shape = mhost::nodeOf(dst.node());
    const mhost::PlugKey outMesh{mhost::meshShapeAttributes().outMesh.get(), -1};
    ASSERT_TRUE(shape->isDirty(outMesh));
    ASSERT_TRUE(runCommand("getAttr dstShape.intermediateObject"));
    EXPECT_TRUE(shape->isDirty(outMesh));
    ASSERT_TRUE(runCommand("select dstShape.vtx[3]"));
    EXPECT_FALSE(shape->isDirty(outMesh));
}

TEST_F(MeshApiHistory, EditsOnAShapeWithHistoryLastUntilTheHistoryEvaluatesAgain) {
    ASSERT_TRUE(runCommand("connectAttr srcShape.outMesh dstShape.inMesh"));
    MFnMesh fn(dst);
    ASSERT_TRUE(fn.setPoint(0, MPoint(0, -1, 0)));
    ASSERT_FALSE(
        fn.addPolygon(pointArray({MPoint(0, 0, 1), MPoint(0, 0, 3), MPoint(1, 0, 3)}), true, 1e-3).isNull());
    EXPECT_EQ(7, fn.numPolygons());
    EXPECT_TRUE(pointOf(dst, 0).isEquivalent(MPoint(0, -1, 0)));
    EXPECT_TRUE(pointOf(src, 0).isEquivalent(MPoint(0, 0, 0))) << "the input is not touched";
    ASSERT_TRUE(MFnMesh(src).setPoint(1, MPoint(2, 0, 0)));
    EXPECT_EQ(6, fn.numPolygons());
    EXPECT_TRUE(pointOf(dst, 0).isEquivalent(MPoint(0, 0, 0)));
    EXPECT_TRUE(pointOf(dst, 1).isEquivalent(MPoint(2, 0, 0)));
}

TEST_F(MeshApiHistory, EditsOnAShapeWithoutHistoryAreKeptUnderItsTweaks) {
    ASSERT_TRUE(runCommand("setAttr srcShape.pnts[0] 0 0 2"));
    EXPECT_TRUE(pointOf(src, 0).isEquivalent(MPoint(0, 0, 2)));
    ASSERT_TRUE(MFnMesh(src).setPoint(0, MPoint(3, 3, 3)));
    EXPECT_TRUE(pointOf(src, 0).isEquivalent(MPoint(3, 3, 3)));
    ASSERT_TRUE(runCommand("setAttr srcShape.pnts[0] 0 0 0"));
    EXPECT_TRUE(pointOf(src, 0).isEquivalent(MPoint(3, 3, 1)))
        << "the edit went into the mesh under the tweak";
    ASSERT_FALSE(MFnMesh(src)
                     .addPolygon(pointArray({MPoint(0, 1, 0), MPoint(0, 3, 0), MPoint(1, 3, 0)}), true, 1e-3)
                     .isNull());
    ASSERT_TRUE(runCommand("setAttr srcShape.pnts[1] 1 0 0"));
    EXPECT_EQ(7, MFnMesh(src).numPolygons()) << "a new polygon survives re-evaluation";
}

TEST_F(MeshApiHistory, EditsInPlaceReachConsumersAndSpareCopiesHeldElsewhere) {
    ASSERT_TRUE(runCommand("connectAttr srcShape.outMesh dstShape.inMesh"));
    EXPECT_EQ(8, MFnMesh(dst).numVertices());
    const MObject held = plugOf(src, "outMesh").asMObject();
    MFnMesh source(src);
    ASSERT_TRUE(source.setPoint(6, MPoint(0, 4, 1)));
    EXPECT_TRUE(pointOf(held, 6).isEquivalent(MPoint(0, 1, 1))) << "a copy taken before keeps its point";
    EXPECT_TRUE(pointOf(dst, 6).isEquivalent(MPoint(0, 4, 1)));
    ASSERT_TRUE(source.setPoint(6, MPoint(0, 5, 1)));
    EXPECT_TRUE(pointOf(dst, 6).isEquivalent(MPoint(0, 5, 1))) << "the consumer hears every edit";
    ASSERT_TRUE(runCommand("setAttr src.translateX 2"));
    EXPECT_TRUE(pointOf(src, 6, MSpace::kWorld).isEquivalent(MPoint(2, 5, 1)));
    EXPECT_TRUE(pointOf(plugOf(src, "worldMesh").elementByLogicalIndex(0).asMObject(), 6)
                    .isEquivalent(MPoint(0, 5, 1)))
        << "worldMesh data holds object-space points under its matrix";
}

void countInMeshSets(MNodeMessage::AttributeMessage, MPlug& plug, MPlug&, void* count) {
    if (plug.partialName() == "i") ++*static_cast<int*>(count);
}

TEST_F(MeshApiHistory, EveryEditTellsInMeshListenersWhetherInPlaceOrCopied) {
    int sets = 0;
    MObject shape = src.node();
    const MCallbackId id = MNodeMessage::addAttributeChangedCallback(shape, countInMeshSets, &sets);
    ASSERT_TRUE(MFnMesh(src).setPoint(1, MPoint(2, 0, 0)));
    EXPECT_EQ(1, sets) << "nothing else holds the mesh: changed in place";
    const MObject held = plugOf(src, "outMesh").asMObject();
    ASSERT_TRUE(MFnMesh(src).setPoint(1, MPoint(3, 0, 0)));
    EXPECT_EQ(2, sets) << "a copy is held: copied first";
    EXPECT_TRUE(pointOf(held, 1).isEquivalent(MPoint(2, 0, 0)));
    MMessage::removeCallback(id);
}

TEST_F(MeshApiHistory, DeletingHistoryOrDisconnectingKeepsTheLastMesh) {
    ASSERT_TRUE(
        runCommand("createNode polyTweak -n tweaks; connectAttr srcShape.outMesh tweaks.inputPolymesh;"
                   "connectAttr tweaks.output dstShape.inMesh; setAttr tweaks.tweak[3] 0 0 1;"
                   "delete -ch dstShape"));
    std::string exists;
    ASSERT_TRUE(runCommand("objExists tweaks", &exists));
    EXPECT_EQ("0", exists);
    EXPECT_TRUE(pointOf(dst, 3).isEquivalent(MPoint(1, 1, 1)));
    ASSERT_TRUE(runCommand("setAttr dstShape.pnts[0] 1 0 0"));
    EXPECT_TRUE(pointOf(dst, 0).isEquivalent(MPoint(1, 0, 0)));
    EXPECT_TRUE(pointOf(dst, 3).isEquivalent(MPoint(1, 1, 1)));
    ASSERT_TRUE(runCommand("connectAttr srcShape.outMesh dstShape.inMesh"));
    EXPECT_TRUE(pointOf(dst, 3).isEquivalent(MPoint(1, 1, 0)));
    ASSERT_TRUE(runCommand("disconnectAttr srcShape.outMesh dstShape.inMesh"));
    ASSERT_TRUE(MFnMesh(src).setPoint(3, MPoint(9, 9, 9)));
    EXPECT_TRUE(pointOf(dst, 3).isEquivalent(MPoint(1, 1, 0))) << "it keeps the last mesh that came in";
    EXPECT_TRUE(pointOf(dst, 0).isEquivalent(MPoint(1, 0, 0)));
}

TEST_F(MeshApiHistory, DuplicateCopiesTheGeometryAndNotTheConnections) {
    ASSERT_TRUE(runCommand("connectAttr srcShape.outMesh dstShape.inMesh; setAttr dstShape.pnts[5] 0 2 0"));
    ASSERT_TRUE(MFnMesh(src).setPoint(6, MPoint(0, 4, 1)));
    MStatus status;
    MObject copy = MFnDagNode(pathTo("dst")).duplicate(false, false, &status);
    ASSERT_TRUE(status);
    MDagPath copyShape;
    ASSERT_TRUE(MDagPath::getAPathTo(MFnDagNode(copy).child(0), copyShape));
    EXPECT_FALSE(plugOf(copyShape, "inMesh").isConnected());
    EXPECT_TRUE(pointOf(copyShape, 6).isEquivalent(MPoint(0, 4, 1)));
    EXPECT_TRUE(pointOf(copyShape, 5).isEquivalent(MPoint(1, 2, 1)));
    ASSERT_TRUE(MFnMesh(copyShape).setPoint(0, MPoint(-1, -1, -1)));
    EXPECT_TRUE(pointOf(dst, 0).isEquivalent(MPoint(0, 0, 0)));
}

TEST_F(MeshApiHistory, DuplicatingAShapeMakesACopyOfItsTransformHoldingTheCopy) {
    ASSERT_TRUE(runCommand("setAttr src.translate 0 5 0; createNode transform -n extra -p src"));
    MStatus status;
    MObject copy = MFnDagNode(src).duplicate(false, false, &status);
    ASSERT_TRUE(status);
    MFnDagNode transform(copy);
    EXPECT_EQ(MString("transform"), transform.typeName());
    EXPECT_EQ(MString("src1"), transform.name());
    ASSERT_EQ(1u, transform.childCount()) << "the transform's other children are not copied";
    MDagPath copyShape;
    ASSERT_TRUE(MDagPath::getAPathTo(transform.child(0), copyShape));
    EXPECT_EQ(MString("|src1|srcShape1"), copyShape.fullPathName());
    EXPECT_TRUE(pointOf(copyShape, 7, MSpace::kWorld).isEquivalent(MPoint(1, 6, 1)));
    EXPECT_EQ(2u, MFnDagNode(pathTo("src")).childCount()) << "the original keeps its shape and child";
}

TEST_F(MeshApiHistory, DeletingHistoryTakesAnIntermediateShapeUpstreamWithIt) {
    ASSERT_TRUE(runCommand(
        "createNode mesh -n origShape -p dst; connectAttr srcShape.outMesh origShape.inMesh;"
        "setAttr origShape.intermediateObject true; createNode polyTweak -n tweaks;"
        "connectAttr origShape.outMesh tweaks.inputPolymesh; connectAttr tweaks.output dstShape.inMesh;"
        "delete -ch dstShape"));
    std::string exists;
    ASSERT_TRUE(runCommand("objExists origShape", &exists));
    EXPECT_EQ("0", exists);
    ASSERT_TRUE(runCommand("objExists srcShape", &exists));
    EXPECT_EQ("1", exists) << "a visible shape upstream stays";
    EXPECT_EQ(8, MFnMesh(dst).numVertices());
}

TEST_F(MeshApiHistory, GlobalDeleteNodeRemovesANodeWithItsChildren) {
    MObject transform = pathTo("src").node();
    ASSERT_TRUE(MGlobal::deleteNode(transform));
    std::string exists;
    ASSERT_TRUE(runCommand("objExists srcShape", &exists));
    EXPECT_EQ("0", exists);
    EXPECT_EQ(MS::kInvalidParameter, MGlobal::deleteNode(transform).statusCode());
}

TEST_F(MeshApiHistory, WorldMeshCarriesTheWorldMatrixAndBoundsStayInObjectSpace) {
    ASSERT_TRUE(runCommand("setAttr src.translate 0 5 0"));
    MPlug world = plugOf(src, "worldMesh").elementByLogicalIndex(0);
    MObject data = world.asMObject();
    MMatrix matrix;
    ASSERT_TRUE(MFnGeometryData(data).getMatrix(matrix));
    EXPECT_TRUE(matrix.isEquivalent(src.inclusiveMatrix()));
    MPoint p;
    ASSERT_TRUE(MFnMesh(data).getPoint(1, p, MSpace::kWorld));
    EXPECT_TRUE(p.isEquivalent(MPoint(1, 5, 0)));
    MDataHandle handle = world.asMDataHandle();
    EXPECT_TRUE(pointOf(handle.asMeshTransformed(), 1).isEquivalent(MPoint(1, 5, 0)));
    const MBoundingBox box = MFnDagNode(src).boundingBox();
    EXPECT_TRUE(box.min().isEquivalent(MPoint(0, 0, 0)));
    EXPECT_TRUE(box.max().isEquivalent(MPoint(1, 1, 1)));
}

}  // namespace
