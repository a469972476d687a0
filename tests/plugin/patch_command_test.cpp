// kyPatchCmd: putting a kyPatchNode into a mesh's history without changing what the mesh shows,
// for a mesh with history, without history, with vertex tweaks and with history recording off.

#include <maya/MFnDagNode.h>
#include <maya/MGlobal.h>

#include "tests/plugin/patchNodeScene.h"

namespace {

using kytest::lookOf;
using kytest::nodesOfType;
using kytest::run;
using kytest::sourceOf;

class PatchCommand : public kytest::PatchNodeScene {
protected:
    // Runs "kyPatchCmd" on `mesh` as the tool does and returns the command's result.
    std::string insertPatch(const std::string& mesh, const std::string& name = "kyPatch1") {
        return run("kyPatchCmd -m \"" + mesh + "\" -o \"" + name + "\";");
    }

    // Errors the host showed since the scene was reset.
    static std::vector<std::string> errors() {
        std::vector<std::string> texts;
        for (const auto& message : mhost::driver::messages())
            if (message.kind == mhost::driver::Message::Kind::kError) texts.push_back(message.text);
        return texts;
    }
};

TEST_F(PatchCommand, MeshWithHistoryGainsThePatchNodeBetweenItsUpstreamAndTheShape) {
    const MDagPath shape = addSphereWithHistory();
    const kytest::MeshLook before = lookOf(shape);
    const std::size_t transforms = nodesOfType("transform").size();

    EXPECT_EQ("kyPatch1", insertPatch("ball"));
    EXPECT_EQ("feedShape.outMesh", sourceOf("kyPatch1.inMesh"));
    EXPECT_EQ("kyPatch1.outMesh", sourceOf("ballShape.inMesh"));
    // The tweak node is made in every case and stays loose without tweaks.
    ASSERT_EQ(std::vector<std::string>{"polyTweak1"}, nodesOfType("polyTweak"));
    EXPECT_EQ("", sourceOf("polyTweak1.inputPolymesh"));
    EXPECT_TRUE(before == lookOf(shape));
    EXPECT_EQ(transforms, nodesOfType("transform").size());
    EXPECT_EQ(2u, nodesOfType("mesh").size()) << "no Orig shape for a mesh with history";
}

TEST_F(PatchCommand, MeshWithoutHistoryKeepsItsGeometryInAnOrigShapeUnderItsOwnTransform) {
    const MDagPath shape = addTorus();
    const kytest::MeshLook before = lookOf(shape);
    const std::size_t transforms = nodesOfType("transform").size();

    EXPECT_EQ("kyPatch1", insertPatch("ringShape"));
    EXPECT_EQ("ringShape1Orig.outMesh", sourceOf("kyPatch1.inMesh"));
    EXPECT_EQ("kyPatch1.outMesh", sourceOf("ringShape.inMesh"));
    const MDagPath orig = kytest::pathNamed("ringShape1Orig");
    EXPECT_EQ(MString("|ring|ringShape1Orig"), orig.fullPathName());
    EXPECT_TRUE(MFnDagNode(orig).isIntermediateObject());
    EXPECT_EQ(transforms, nodesOfType("transform").size()) << "the duplicate's transform is deleted";
    EXPECT_TRUE(before == lookOf(shape));
    // The transform still leads to the visible shape alone.
    MDagPath viaTransform = kytest::pathNamed("ring");
    ASSERT_TRUE(viaTransform.extendToShape());
    EXPECT_EQ(MString("|ring|ringShape"), viaTransform.fullPathName());
}

TEST_F(PatchCommand, TweaksMoveOntoThePolyTweakNodeWithTheirConnections) {
    const MDagPath shape = addSphere();
    run("setAttr ballShape.pnts[5] 0.25 1 -0.5; setAttr ballShape.pnts[9].pnty 0.75");
    run("createNode transform -n driver; setAttr driver.tx 0.125; connectAttr driver.tx "
        "ballShape.pnts[5].pntx");
    const kytest::MeshLook before = lookOf(shape);

    insertPatch("ball");
    EXPECT_EQ("polyTweak1.output", sourceOf("kyPatch1.inMesh"));
    EXPECT_EQ("ballShape1Orig.outMesh", sourceOf("polyTweak1.inputPolymesh"));
    EXPECT_TRUE(kytest::plugNamed("polyTweak1.tweak[5].tweakX").source() == kytest::plugNamed("driver.tx"));
    EXPECT_EQ("", sourceOf("ballShape.pnts[5].pntx"));
    EXPECT_EQ(1.0, kytest::plugNamed("polyTweak1.tweak[5].tweakY").asDouble());
    EXPECT_EQ(0.75, kytest::plugNamed("polyTweak1.tweak[9].tweakY").asDouble());
    for (const char* component : {"pntx", "pnty", "pntz"}) {
        EXPECT_EQ(0.0, kytest::plugNamed(std::string("ballShape.pnts[5].") + component).asDouble());
        EXPECT_EQ(0.0, kytest::plugNamed(std::string("ballShape.pnts[9].") + component).asDouble());
    }
    EXPECT_TRUE(before == lookOf(shape)) << "tweaks are applied once, by the tweak node";
}

TEST_F(PatchCommand, TweaksOfAllZeroComponentsCountAsNone) {
    const MDagPath shape = addSphereWithHistory();
    run("setAttr ballShape.pnts[3] 0 0 0");
    insertPatch("ballShape");
    EXPECT_EQ("feedShape.outMesh", sourceOf("kyPatch1.inMesh"));
    EXPECT_EQ("", sourceOf("polyTweak1.inputPolymesh"));
}

TEST_F(PatchCommand, WithHistoryOffTheInsertionIsBakedAndThePatchNodeGoes) {
    const MDagPath shape = addSphere();
    run("setAttr ballShape.pnts[2] 0 0.5 0");
    const kytest::MeshLook before = lookOf(shape);
    run("constructionHistory -toggle false");

    insertPatch("ball");
    EXPECT_TRUE(nodesOfType("kyPatchNode").empty());
    EXPECT_TRUE(nodesOfType("polyTweak").empty());
    EXPECT_EQ("", sourceOf("ballShape.inMesh"));
    EXPECT_EQ(std::vector<std::string>{"ballShape"}, nodesOfType("mesh")) << "the Orig shape goes too";
    EXPECT_TRUE(before == lookOf(shape));
}

TEST_F(PatchCommand, HistoryOffDoesNotBakeAMeshThatHadHistory) {
    addSphereWithHistory();
    run("constructionHistory -toggle false");
    insertPatch("ball");
    EXPECT_EQ("kyPatch1.outMesh", sourceOf("ballShape.inMesh"));
}

TEST_F(PatchCommand, UnknownMeshShowsTheErrorAndStillSucceeds) {
    std::string result;
    EXPECT_TRUE(mhost::driver::runCommand("kyPatchCmd -mesh \"nothing\" -outname \"kyPatch1\"", &result));
    EXPECT_EQ(std::vector<std::string>{"Invalid mesh shape path: "}, errors());
    EXPECT_TRUE(nodesOfType("kyPatchNode").empty());
    EXPECT_TRUE(nodesOfType("polyTweak").empty());
}

TEST_F(PatchCommand, NamesTheNodeAsAskedOrLeavesTheHostsDefault) {
    addSphereWithHistory();
    EXPECT_EQ("kyPatchNode1", insertPatch("ballShape", ""));
    addSphereWithHistory("other");
    EXPECT_EQ("kyPatch", run("kyPatchCmd -m other"));
}

TEST_F(PatchCommand, IsNotFiledOnTheUndoQueue) {
    addSphereWithHistory();
    const std::size_t steps = mhost::driver::undoJournal().size();
    insertPatch("ball");
    EXPECT_EQ(steps, mhost::driver::undoJournal().size());
}

}  // namespace
