#include <gtest/gtest.h>
#include <mhost/Driver.h>

#include "graph/NameLookup.h"
#include "graph/Scene.h"
#include "mesh/ProceduralMeshes.h"
#include "meshnode/MeshShapeNode.h"
#include "meshnode/ShapeGeometry.h"
#include "support/MeshOpsChecks.h"

namespace {

using namespace mhost;

// Everything a mesh holds, to compare two meshes bit for bit.
struct MeshArrays {
    std::vector<float> points;
    CompressedRows faces;
    std::vector<UvSet> uvSets;
    std::vector<bool> smooth;

    explicit MeshArrays(const MeshTopology& mesh)
        : points(mesh.rawPoints(), mesh.rawPoints() + 3 * mesh.numVertices()), faces(mesh.faces()) {
        for (const std::string& name : mesh.uvSets().names()) uvSets.push_back(mesh.uvSets().get(name));
        for (int e = 0; e < mesh.numEdges(); ++e) smooth.push_back(mesh.isEdgeSmooth(e));
    }
    bool operator==(const MeshArrays& o) const {
        const auto sameSet = [](const UvSet& a, const UvSet& b) {
            return a.name == b.name && a.u == b.u && a.v == b.v && a.faceVertexUvIds == b.faceVertexUvIds;
        };
        return points == o.points && faces.offsets == o.faces.offsets && faces.items == o.faces.items &&
               smooth == o.smooth && uvSets.size() == o.uvSets.size() &&
               std::equal(uvSets.begin(), uvSets.end(), o.uvSets.begin(), sameSet);
    }
};

// Two 3 x 1 strips facing +Y with the gap between rows 4..7 and 8..11 (see the bridge tests), with UVs.
MeshTopology twoStrips() {
    MeshTopology far = makePlaneGrid(3, 1, 3, 1);
    for (int v = 0; v < far.numVertices(); ++v) far.setPoint(v, Vec3f(Vec3(far.point(v)) + Vec3(0, 0, -2)));
    MeshTopology mesh = meshops::glued(makePlaneGrid(3, 1, 3, 1), far);
    std::vector<float> u, v;
    for (int i = 0; i < mesh.numVertices(); ++i) {
        u.push_back(mesh.point(i).x);
        v.push_back(mesh.point(i).z);
    }
    mesh.setUvs("map1", u, v);
    mesh.assignUvs("map1", mesh.polygonCounts(), mesh.faces().items);
    return mesh;
}

class PolyCommands : public ::testing::Test {
protected:
    void SetUp() override { driver::resetScene(); }
    void TearDown() override { driver::resetScene(); }

    static std::string run(const std::string& text) {
        std::string result;
        EXPECT_TRUE(driver::runCommand(text, &result)) << text;
        return result;
    }
    static std::string lastError() {
        const auto messages = driver::messages();
        for (auto it = messages.rbegin(); it != messages.rend(); ++it)
            if (it->kind == driver::Message::Kind::kError) return it->text;
        return "";
    }
    static const MeshTopology& shown(const std::string& shape) {
        return shapeGeometry(lookUpNode(shape))->mesh();
    }
    static std::string sourceOf(const std::string& plug) {
        const auto source = scene().sourceOf(lookUpName(plug).plug.hostPlug());
        return source ? source->node->name : "";
    }

    // A mesh shape "strips" (under "transform1") that holds the strips itself: no history.
    static void makeStripsWithoutHistory() {
        run("createNode mesh -n strips");
        setShapeMesh(lookUpNode("strips"), twoStrips());
    }
    // "srcShape" holds the strips and feeds "strips", which thus has history.
    static void makeStripsWithHistory() {
        run("createNode mesh -n srcShape");
        setShapeMesh(lookUpNode("srcShape"), twoStrips());
        run("createNode mesh -n strips");
        run("connectAttr srcShape.outMesh strips.inMesh");
    }
    static std::string edge(int a, int b) {
        return " strips.e[" + std::to_string(shown("strips").adjacency().findEdge(a, b)) + "]";
    }
    // The bridge of the strips' facing rows, as the tool writes it: pairs of edges, one from each side.
    static std::string bridgeCommand(int divisions) {
        std::string text = "polyBridgeEdge -divisions " + std::to_string(divisions) + " -direction 0";
        for (int i = 0; i < 3; ++i) text += edge(4 + i, 5 + i) + edge(8 + i, 9 + i);
        return text;
    }

    // Undo then redo of the last step give back the mesh before and after it, exactly.
    static void expectUndoRedoExact(const std::string& shape, const MeshArrays& before) {
        const MeshArrays after(shown(shape));
        ASSERT_TRUE(driver::undo());
        EXPECT_TRUE(before == MeshArrays(shown(shape))) << "undo";
        ASSERT_TRUE(driver::redo());
        EXPECT_TRUE(after == MeshArrays(shown(shape))) << "redo";
    }
};

TEST_F(PolyCommands, BridgeOnAShapeWithHistoryInsertsANodeThatFollowsUpstream) {
    makeStripsWithHistory();
    const MeshArrays before(shown("strips"));
    EXPECT_EQ("polyBridgeEdge1", run(bridgeCommand(1)));
    EXPECT_EQ(16 + 4, shown("strips").numVertices());
    EXPECT_EQ(6 + 6, shown("strips").numFaces());
    EXPECT_EQ("polyBridgeEdge1", sourceOf("strips.inMesh"));
    EXPECT_EQ("srcShape", sourceOf("polyBridgeEdge1.inputPolymesh"));
    expectUndoRedoExact("strips", before);

    // The node edits whatever comes from upstream: a moved source vertex reaches the bridged mesh.
    MeshTopology moved = twoStrips();
    moved.setPoint(4, {-1.5f, 1, -0.5f});
    setShapeMesh(lookUpNode("srcShape"), moved);
    EXPECT_EQ(Vec3f(-1.5f, 1, -0.5f), shown("strips").point(4));
    EXPECT_EQ(20, shown("strips").numVertices());

    ASSERT_TRUE(driver::undo());
    EXPECT_EQ("srcShape", sourceOf("strips.inMesh"));
    EXPECT_EQ("0", run("objExists polyBridgeEdge1"));
}

TEST_F(PolyCommands, MergeWithoutHistoryReplacesTheShapesOwnMesh) {
    makeStripsWithoutHistory();
    const MeshArrays before(shown("strips"));
    EXPECT_EQ(
        "strips",
        run("polyMergeVertex -d 9999 - am 1  \"|transform1|strips.vtx[4]\" \"|transform1|strips.vtx[8]\""));
    EXPECT_EQ(15, shown("strips").numVertices());
    meshops::expectPointNear({-1.5, 0, -1}, shown("strips").point(4));
    EXPECT_EQ("", sourceOf("strips.inMesh"));
    expectUndoRedoExact("strips", before);
}

// The tool's border fuse: both rows moved onto their midpoints in world space, then welded.
TEST_F(PolyCommands, FuseOfMovedBordersWithHistoryMovesTheTweaksUpstream) {
    makeStripsWithHistory();
    run("setAttr transform2.translate 0 5 0");
    const MeshArrays before(shown("strips"));
    std::string script;
    std::string merge = "polyMergeVertex -am 1 -d 0.01 ";
    for (int i = 0; i < 4; ++i) {
        const std::string x = std::to_string(-1.5 + i);
        for (int v : {4 + i, 8 + i}) {
            script += "move -a " + x + " 5 -1 |transform2|strips.vtx[" + std::to_string(v) + "];";
            merge += "|transform2|strips.vtx[" + std::to_string(v) + "] ";
        }
    }
    run(script + merge);
    EXPECT_EQ(12, shown("strips").numVertices());
    EXPECT_EQ(17, shown("strips").numEdges());
    meshops::expectOrientedManifold(shown("strips"));
    meshops::expectPointNear({-1.5, 0, -1}, shown("strips").point(4));
    EXPECT_EQ("polyMergeVert1", sourceOf("strips.inMesh"));
    EXPECT_EQ("polyTweak1", sourceOf("polyMergeVert1.inputPolymesh"));
    EXPECT_EQ("0 0 0", run("getAttr strips.pnts[4]")) << "the tweaks left the shape";

    for (int step = 0; step < 9; ++step) ASSERT_TRUE(driver::undo());
    EXPECT_TRUE(before == MeshArrays(shown("strips")));
    EXPECT_EQ("srcShape", sourceOf("strips.inMesh"));
}

TEST_F(PolyCommands, SplitRingTakesTheToolsTextAsWritten) {
    makeStripsWithHistory();
    const MeshArrays before(shown("strips"));
    const std::string text =
        " polySplitRing -splitType 1 -weight 0.1 -smoothingAngle 30 -fixQuads 1 - "
        "insertWithEdgeFlow 0 |transform2|strips.e[" +
        std::to_string(shown("strips").adjacency().findEdge(0, 1)) + "]  ;";
    EXPECT_EQ("polySplitRing1", run(text));
    EXPECT_EQ(16 + 2, shown("strips").numVertices());
    meshops::expectPointNear({-1.4, 0, 0.5}, shown("strips").point(16));
    expectUndoRedoExact("strips", before);
}

TEST_F(PolyCommands, MoveSetsWorldPositionsAsTweaksAndUndoes) {
    makeStripsWithoutHistory();
    run("setAttr transform1.translate 1 2 3");
    const MeshArrays before(shown("strips"));
    run("move -a 0 0 0 strips.vtx[0] strips.vtx[2]");
    EXPECT_EQ(Vec3f(-1, -2, -3), shown("strips").point(0)) << "the world origin, in object space";
    EXPECT_EQ(Vec3f(-1, -2, -3), shown("strips").point(2));
    const MeshArrays absolute(shown("strips"));
    run("move -r -os 0 1 0 strips.vtx[0]");
    EXPECT_EQ(Vec3f(-1, -1, -3), shown("strips").point(0));
    expectUndoRedoExact("strips", absolute);
    ASSERT_TRUE(driver::undo());
    ASSERT_TRUE(driver::undo());
    EXPECT_TRUE(before == MeshArrays(shown("strips")));
}

TEST_F(PolyCommands, BadInputLogsAClearLineAndLeavesTheSceneAlone) {
    makeStripsWithHistory();
    const MeshArrays before(shown("strips"));
    const std::size_t steps = driver::undoJournal().size();
    const auto rejects = [&](const std::string& text, const std::string& error) {
        EXPECT_FALSE(driver::runCommand(text)) << text;
        EXPECT_EQ(error, lastError()) << text;
    };
    const int inner = shown("strips").adjacency().findEdge(1, 5);
    rejects("polyBridgeEdge -divisions 1 strips.e[" + std::to_string(inner) + "]" + edge(8, 9),
            "polyBridgeEdge: bridgeEdges: edge " + std::to_string(inner) + " is not on a border");
    rejects("polyBridgeEdge -divisions 1" + edge(4, 5),
            "polyBridgeEdge: bridgeEdges: the edges form 1 chains, 2 are needed");
    rejects("polyMergeVertex -d 1 strips.vtx[0] srcShape.vtx[1]",
            "polyMergeVertex: the vertices must all belong to one mesh");
    rejects("polySplitRing -splitType 0" + edge(0, 1),
            "polySplitRing: only -splitType 1 (relative) is supported");
    rejects("polySplitRing -insertWithEdgeFlow 1" + edge(0, 1),
            "polySplitRing: -insertWithEdgeFlow is not supported");
    rejects("polySplitRing strips.vtx[0]", "polySplitRing: strips.vtx[0] names no mesh edges");
    rejects("move -a 0 0 0 transform2", "move: transform2 names no mesh vertices");
    rejects("polyMergeVertex -d 1 nobody.vtx[0]", "No object matches name: nobody.vtx[0]");
    EXPECT_FALSE(driver::runCommand("polyBridgeEdge -divisions 1 -direction 0"));
    EXPECT_TRUE(before == MeshArrays(shown("strips")));
    EXPECT_EQ("srcShape", sourceOf("strips.inMesh"));
    EXPECT_EQ(steps, driver::undoJournal().size());
}

}  // namespace
