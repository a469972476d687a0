// The mesh surgery functions: the exact script texts of the builders, running them on the host,
// creating the retopo mesh, and putting a patch node into a mesh's history and taking it out.

#include <maya/MGlobal.h>

#include "geometry/functions.h"
#include "tests/plugin/patchNodeScene.h"

namespace {

using kytest::lookOf;
using kytest::nodesOfType;
using kytest::run;
using kytest::sourceOf;

MIntArray ids(std::initializer_list<int> values) {
    MIntArray array;
    for (int v : values) array.append(v);
    return array;
}

class MeshSurgery : public kytest::PatchNodeScene {};

TEST_F(MeshSurgery, BuildersComposeTheExactTexts) {
    const MDagPath path = addTorus();
    EXPECT_EQ(
        MString(
            " polySplitRing -splitType 1 -weight 0.1 -smoothingAngle 30 -fixQuads 1 - insertWithEdgeFlow 0 "
            "|ring|ringShape.e[4] |ring|ringShape.e[12]  ;"),
        splitRingCommand(path, ids({4, 12}), 0.1));
    EXPECT_EQ(MString(" polySplitRing -splitType 1 -weight 0.5 -smoothingAngle 30 -fixQuads 1 - "
                      "insertWithEdgeFlow 0  ;"),
              splitRingCommand(path, MIntArray(), 0.5));

    EXPECT_EQ(
        MString("polyBridgeEdge -divisions 2 -direction 0 \"|ring|ringShape.e[1]\" \"|ring|ringShape.e[7]\""
                " \"|ring|ringShape.e[3]\" \"|ring|ringShape.e[9]\""),
        bridgeCommand(path, ids({1, 3}), ids({7, 9}), 2));
    EXPECT_EQ(MString("polyBridgeEdge -divisions 1 -direction 0"),
              bridgeCommand(path, MIntArray(), MIntArray(), 1));

    EXPECT_EQ(
        MString("polyMergeVertex -d 9999 - am 1  \"|ring|ringShape.vtx[5]\" \"|ring|ringShape.vtx[11]\""),
        mergePairCommand(ids({5, 11, 20}), path));

    MPointArray positions;
    positions.append(MPoint(0.5, -1, 2.25));
    EXPECT_EQ(MString("move -a 0.5 -1 2.25 |ring|ringShape.vtx[3];move -a 0.5 -1 2.25 |ring|ringShape.vtx[8];"
                      "polyMergeVertex -am 1 -d 0.01 |ring|ringShape.vtx[3] |ring|ringShape.vtx[8] "),
              fuseBordersCommand(path, ids({3}), ids({8}), positions));
    EXPECT_EQ(MString("polyMergeVertex -am 1 -d 0.01 "),
              fuseBordersCommand(path, MIntArray(), MIntArray(), MPointArray()));

    EXPECT_EQ(MString("kyPatchCmd -m \"|ring|ringShape\" -o \"kyPatch3\";"),
              patchCommandText("kyPatch3", path));
}

TEST_F(MeshSurgery, BuiltTextsRunOnTheHost) {
    const MDagPath path = addTorus();
    const int vertices = MFnMesh(path).numVertices();
    ASSERT_TRUE(MGlobal::executeCommand(mergePairCommand(ids({0, 1}), path)));
    EXPECT_EQ(vertices - 1, MFnMesh(path).numVertices());

    const int polygons = MFnMesh(path).numPolygons();
    ASSERT_TRUE(MGlobal::executeCommand(splitRingCommand(path, ids({20}), 0.1)));
    EXPECT_GT(MFnMesh(path).numPolygons(), polygons);
}

TEST_F(MeshSurgery, PatchNodeNamesSkipTakenPatchNodesOnly) {
    const MDagPath ball = addSphereWithHistory();
    run("createNode kyPatchNode -n kyPatch1; createNode kyPatchNode -n kyPatch3");
    EXPECT_EQ(MString("kyPatch2"), nextPatchNodeName("kyPatch"));
    MObject node;
    ASSERT_TRUE(applyPatchCommand("kyPatch2", ball, node));
    EXPECT_EQ(MString("kyPatch4"), nextPatchNodeName("kyPatch"));
    // Meshes do not count, even for the mesh stem.
    run("createNode mesh -n kyMeshShape1");
    EXPECT_EQ(MString("kyMeshShape1"), nextPatchNodeName("kyMeshShape"));
}

TEST_F(MeshSurgery, RetopoMeshesAreNumberedVisibleAndSelected) {
    MStatus status;
    const MDagPath first = createRetopoMesh(status);
    ASSERT_TRUE(status);
    EXPECT_EQ(MString("kyMeshShape1"), getActiveMeshPath().partialPathName());
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MDagPath selected;
    ASSERT_EQ(1u, selection.length());
    selection.getDagPath(0, selected);
    EXPECT_EQ(first.fullPathName(), selected.fullPathName()) << "the transform is selected";
    EXPECT_TRUE(first.node().hasFn(MFn::kTransform));
    EXPECT_NE(std::string::npos, sourceOf("initialShadingGroup.dagSetMembers[0]").find("kyMeshShape1"));

    const MDagPath second = createRetopoMesh(status);
    ASSERT_TRUE(status);
    EXPECT_EQ(MString("kyMeshShape2"), getActiveMeshPath().partialPathName());
    EXPECT_NE(first.fullPathName(), second.fullPathName());
}

TEST_F(MeshSurgery, RetopoMeshTakesAPatchNode) {
    MStatus status;
    createRetopoMesh(status);
    ASSERT_TRUE(status);
    MObject node;
    ASSERT_TRUE(applyPatchCommand("kyPatch1", getActiveMeshPath(), node));
    EXPECT_EQ(MString("kyPatch1"), MFnDependencyNode(node).name());
    EXPECT_EQ("kyPatch1.outMesh", sourceOf("kyMeshShape1.inMesh"));
    EXPECT_EQ(0, MFnMesh(getActiveMeshPath()).numVertices());
}

TEST_F(MeshSurgery, ApplyPatchCommandFailsWhereNoNodeCouldBeMade) {
    MObject node;
    EXPECT_EQ(MS::kInvalidParameter, applyPatchCommand("kyPatch1", MDagPath(), node).statusCode());
    EXPECT_TRUE(node.isNull());
    EXPECT_TRUE(nodesOfType("kyPatchNode").empty());

    // With history off the node is baked away at once, which the lookup reports too.
    const MDagPath ball = addSphere();
    run("constructionHistory -toggle false");
    EXPECT_EQ(MS::kInvalidParameter, applyPatchCommand("kyPatch1", ball, node).statusCode());
}

TEST_F(MeshSurgery, RemovingThePatchNodeRestoresTheLookBeforeIt) {
    for (bool withHistory : {true, false}) {
        mhost::driver::resetScene();
        const MDagPath ball = withHistory ? addSphereWithHistory() : addSphere();
        const kytest::MeshLook before = lookOf(ball);
        MObject node;
        ASSERT_TRUE(applyPatchCommand("kyPatch1", ball, node));
        MPointArray points;
        MFnMesh(ball).getPoints(points);
        points[0] = MPoint(9, 9, 9);
        ASSERT_TRUE(setPointArrayAttr("vertexarray", node, points));
        ASSERT_FALSE(before == lookOf(ball));

        EXPECT_TRUE(removePatchNode("kyPatch1"));
        EXPECT_TRUE(nodesOfType("kyPatchNode").empty());
        EXPECT_TRUE(before == lookOf(ball)) << (withHistory ? "with history" : "without history");
    }
}

TEST_F(MeshSurgery, RemovePatchNodeFailsWithoutTheNodeOrItsConnections) {
    EXPECT_EQ(MS::kInvalidParameter, removePatchNode("kyPatch1").statusCode());
    run("createNode kyPatchNode -n kyPatch1");
    EXPECT_EQ(MS::kInvalidParameter, removePatchNode("kyPatch1").statusCode());
    EXPECT_EQ(1u, nodesOfType("kyPatchNode").size()) << "nothing is deleted";

    MString source, destination;
    EXPECT_FALSE(readNeighbourPlugs(source, kytest::nodeNamed("kyPatch1"), destination, "inMesh", "outMesh"));
    EXPECT_FALSE(readNeighbourPlugs(source, kytest::nodeNamed("kyPatch1"), destination, "noSuch", "outMesh"));
}

TEST_F(MeshSurgery, NeighbourPlugsTakeTheLastDestination) {
    const MDagPath ball = addSphereWithHistory();
    MObject node;
    ASSERT_TRUE(applyPatchCommand("kyPatch1", ball, node));
    run("createNode mesh -n spareShape; connectAttr kyPatch1.outMesh spareShape.inMesh");
    MString source, destination;
    ASSERT_TRUE(readNeighbourPlugs(source, node, destination, "inMesh", "outMesh"));
    EXPECT_EQ(MString("feedShape.outMesh"), source);
    EXPECT_EQ(MString("spareShape.inMesh"), destination);
}

}  // namespace
