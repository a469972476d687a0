// kyPatchNode: transparent while its arrays are empty, a rebuild of the whole mesh from the arrays
// once they are written, which writes reach the mesh, the has-no-effect state, and bad arrays.

#include <maya/MFnAttribute.h>
#include <maya/MFnDependencyNode.h>

#include "geometry/functions.h"
#include "nodes/kyPatchNode.h"
#include "tests/plugin/patchNodeScene.h"

namespace {

using kytest::lookOf;
using kytest::MeshLook;
using kytest::run;

// A mesh as the tool command writes it into a patch node.
struct MeshArrays {
    MPointArray points;
    MIntArray counts, connects;
    MFloatArray us, vs;
    MIntArray uvCounts, uvIds;
    MIntArray edges, smooth;
    MVectorArray normals;
    MIntArray normalFaces, normalVertices;
};

MeshArrays arraysOf(const MDagPath& shape) {
    MeshArrays arrays;
    MFnMesh mesh(shape);
    mesh.getPoints(arrays.points, MSpace::kObject);
    mesh.getVertices(arrays.counts, arrays.connects);
    mesh.getUVs(arrays.us, arrays.vs);
    mesh.getAssignedUVs(arrays.uvCounts, arrays.uvIds);
    for (int edge = 0; edge < mesh.numEdges(); ++edge) {
        arrays.edges.append(edge);
        arrays.smooth.append(mesh.isEdgeSmooth(edge) ? 1 : 0);
    }
    // One made-up normal per face-vertex: the node carries these and applies none.
    int corner = 0;
    for (unsigned int face = 0; face < arrays.counts.length(); ++face) {
        for (int k = 0; k < arrays.counts[face]; ++k, ++corner) {
            arrays.normals.append(MVector(0, 0, 1));
            arrays.normalFaces.append(static_cast<int>(face));
            arrays.normalVertices.append(arrays.connects[corner]);
        }
    }
    return arrays;
}

// Writes the arrays in the tool command's order, polyconnUV last unless `withUvIds` is false.
void writeArrays(const MObject& node, const MeshArrays& a, bool withUvIds = true) {
    ASSERT_TRUE(setPointArrayAttr("vertexarray", node, a.points));
    ASSERT_TRUE(setIntArrayAttr("polycount", node, a.counts));
    ASSERT_TRUE(setIntArrayAttr("polyconnect", node, a.connects));
    ASSERT_TRUE(setIntAttr("numpolys", node, static_cast<int>(a.counts.length())));
    ASSERT_TRUE(setIntAttr("numverts", node, static_cast<int>(a.points.length())));
    ASSERT_TRUE(setFloatArrayAttr("uarray", node, a.us));
    ASSERT_TRUE(setFloatArrayAttr("varray", node, a.vs));
    ASSERT_TRUE(setVectorArrayAttr("normalsin", node, a.normals));
    ASSERT_TRUE(setIntArrayAttr("facelist", node, a.normalFaces));
    ASSERT_TRUE(setIntArrayAttr("vertexlist", node, a.normalVertices));
    ASSERT_TRUE(setIntArrayAttr("hardenvalues", node, a.smooth));
    ASSERT_TRUE(setIntArrayAttr("edgesharden", node, a.edges));
    ASSERT_TRUE(setIntArrayAttr("polycountUV", node, a.uvCounts));
    if (withUvIds) {
        ASSERT_TRUE(setIntArrayAttr("polyconnUV", node, a.uvIds));
    }
}

// A sphere "ball" with a patch node "kyPatch1" in its history, and the arrays of a torus with
// two hard edges to write into it.
class PatchNode : public kytest::PatchNodeScene {
protected:
    void SetUp() override {
        PatchNodeScene::SetUp();
        shape = addSphereWithHistory();
        sphereLook = lookOf(shape);
        run("kyPatchCmd -m ball -o kyPatch1");
        node = kytest::nodeNamed("kyPatch1");
        ASSERT_FALSE(node.isNull());

        const MDagPath torus = addTorus();
        MFnMesh(torus).setEdgeSmoothing(3, false);
        MFnMesh(torus).setEdgeSmoothing(17, false);
        torusArrays = arraysOf(torus);
        torusLook = lookOf(torus);
        // The torus seen through the ball's transform: the same object-space mesh.
        torusLook.worldPoints.clear();
    }

    MeshLook shapeLook() {
        MeshLook look = lookOf(shape);
        look.worldPoints.clear();
        return look;
    }

    MDagPath shape;
    MObject node;
    MeshLook sphereLook, torusLook;
    MeshArrays torusArrays;
};

TEST_F(PatchNode, AttributesJoinTheNodeInTheirOrderAllHidden) {
    MFnDependencyNode fn(node);
    std::vector<std::string> own;
    for (unsigned int i = 0; i < fn.attributeCount(); ++i) {
        MFnAttribute attribute(fn.attribute(i));
        const std::string name = attribute.name().asChar();
        if (name == "outMesh" || !own.empty()) own.push_back(name);
        if (own.empty()) continue;
        EXPECT_TRUE(attribute.isHidden()) << name;
        EXPECT_EQ(name != "outMesh", attribute.isStorable()) << name;
    }
    const std::vector<std::string> expected = {"outMesh",     "inMesh",       "uarray",      "varray",
                                               "vertexarray", "polyconnect",  "polycount",   "numpolys",
                                               "numverts",    "hardenvalues", "edgesharden", "vertexlist",
                                               "normalsin",   "facelist",     "polyconnUV",  "polycountUV"};
    EXPECT_EQ(expected, own);
    EXPECT_EQ(MString(""), MFnDependencyNode::classification("kyPatchNode")) << "registered unclassified";
}

TEST_F(PatchNode, PassesTheIncomingMeshOnWhileEmpty) {
    EXPECT_TRUE(sphereLook == lookOf(shape));
    // Live, not a copy: a change upstream shows through.
    MFnMesh(kytest::pathNamed("feedShape")).setPoint(0, MPoint(0.5, -3, 0.25));
    MPoint moved;
    MFnMesh(shape).getPoint(0, moved);
    EXPECT_TRUE(moved.isEquivalent(MPoint(0.5, -3, 0.25)));
}

TEST_F(PatchNode, RebuildsTheMeshFromTheWrittenArrays) {
    writeArrays(node, torusArrays);
    EXPECT_TRUE(torusLook == shapeLook());
    MFnMesh mesh(shape);
    for (unsigned int i = 0; i < torusArrays.edges.length(); ++i)
        EXPECT_EQ(torusArrays.smooth[i] == 1, mesh.isEdgeSmooth(torusArrays.edges[i])) << "edge " << i;
    EXPECT_FALSE(mesh.isEdgeSmooth(17));
    // The upstream mesh no longer matters.
    MFnMesh(kytest::pathNamed("feedShape")).setPoint(0, MPoint(0.5, -3, 0.25));
    EXPECT_TRUE(torusLook == shapeLook());
}

TEST_F(PatchNode, OnlyUvIdsPointsAndStateReachTheMesh) {
    writeArrays(node, torusArrays);
    ASSERT_TRUE(torusLook == shapeLook());

    MFloatArray shifted = torusArrays.us;
    for (unsigned int i = 0; i < shifted.length(); ++i) shifted[i] += 0.5f;
    MIntArray allHard = torusArrays.smooth;
    for (unsigned int i = 0; i < allHard.length(); ++i) allHard[i] = 0;
    ASSERT_TRUE(setFloatArrayAttr("uarray", node, shifted));
    ASSERT_TRUE(setIntArrayAttr("hardenvalues", node, allHard));
    ASSERT_TRUE(setIntAttr("numpolys", node, 0));
    EXPECT_TRUE(torusLook == shapeLook()) << "these writes alone leave outMesh clean";
    EXPECT_TRUE(MFnMesh(shape).isEdgeSmooth(0));

    ASSERT_TRUE(setIntAttr("numpolys", node, static_cast<int>(torusArrays.counts.length())));
    ASSERT_TRUE(setIntArrayAttr("polyconnUV", node, torusArrays.uvIds));
    EXPECT_EQ(kytest::toVector(shifted), shapeLook().us);
    EXPECT_FALSE(MFnMesh(shape).isEdgeSmooth(0));

    for (unsigned int i = 0; i < shifted.length(); ++i) shifted[i] = 0.25f;
    ASSERT_TRUE(setFloatArrayAttr("uarray", node, shifted));
    ASSERT_TRUE(setPointArrayAttr("vertexarray", node, torusArrays.points));
    EXPECT_EQ(kytest::toVector(shifted), shapeLook().us) << "the points dirty the mesh too";
}

TEST_F(PatchNode, HasNoEffectStateMovesTheIncomingPointsOnly) {
    writeArrays(node, torusArrays);
    ASSERT_TRUE(setNodeStateHasNoEffect(node));
    // The torus's points do not fit the sphere: they are refused and the sphere passes on.
    EXPECT_TRUE(sphereLook == lookOf(shape));

    MPointArray lifted;
    MFnMesh(kytest::pathNamed("feedShape")).getPoints(lifted);
    for (unsigned int i = 0; i < lifted.length(); ++i) lifted[i].y += 1.0;
    ASSERT_TRUE(setPointArrayAttr("vertexarray", node, lifted));
    MeshLook look = shapeLook();
    const std::vector<double> expected = kytest::toVector(lifted);
    ASSERT_EQ(expected.size(), look.points.size());
    // Mesh points are kept in single precision.
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(expected[i], look.points[i], 1e-6) << i;
    EXPECT_EQ(sphereLook.connects, look.connects) << "the topology stays the incoming one";

    ASSERT_TRUE(setPointArrayAttr("vertexarray", node, MPointArray()));
    EXPECT_TRUE(sphereLook.connects == lookOf(shape).connects);

    ASSERT_TRUE(setNodeStateNormal(node));
    writeArrays(node, torusArrays);
    EXPECT_TRUE(torusLook == shapeLook());
}

TEST_F(PatchNode, BadArraysGiveAnEmptyMeshAndAReport) {
    MIntArray connects;
    for (int id : {0, 1, 2}) connects.append(id);
    testing::internal::CaptureStderr();
    ASSERT_TRUE(setIntArrayAttr("polyconnect", node, connects));
    ASSERT_TRUE(setIntArrayAttr("polyconnUV", node, MIntArray()));
    EXPECT_EQ(0, MFnMesh(shape).numVertices()) << "an empty mesh, not the input";
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_NE(std::string::npos, printed.find("\nAPI error detected in kyPatchNode at line ")) << printed;
}

TEST_F(PatchNode, AnyUvIdEndsTheTransparency) {
    MIntArray uvIds;
    uvIds.append(0);
    ASSERT_TRUE(setIntArrayAttr("polyconnUV", node, uvIds));
    EXPECT_EQ(0, MFnMesh(shape).numVertices()) << "rebuilt from empty counts, not passed through";
}

TEST_F(PatchNode, RebuildsAMeshWithoutUvs) {
    MeshArrays arrays = torusArrays;
    arrays.us.clear();
    arrays.vs.clear();
    arrays.uvCounts.clear();
    arrays.uvIds.clear();
    writeArrays(node, arrays);
    const MeshLook look = shapeLook();
    EXPECT_EQ(torusLook.connects, look.connects);
    EXPECT_TRUE(look.us.empty());
}

}  // namespace
