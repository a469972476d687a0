// Activation and clean-up of the tool context: how it finds the source mesh, builds its picking
// accelerators, selects the retopo mesh, shows its texts, and what leaving the tool clears.

#include <maya/MCursor.h>
#include <maya/MSelectionList.h>
#include <maya/MVectorArray.h>

#include "messages/Notifications.h"
#include "tests/plugin/contextScene.h"
#include "tool/helpTexts.h"

namespace kytest {
namespace {

class ContextActivation : public ContextScene {
protected:
    static unsigned selectionCount() {
        MSelectionList list;
        MGlobal::getActiveSelectionList(list);
        return list.length();
    }
    void writeStroke() {
        MPointArray points;
        points.append(MPoint(1, 0, 1));
        points.append(MPoint(2, 0, 2));
        ASSERT_TRUE(setPointArrayAttr("strokes", locator, points));
        MIntArray sizes;
        sizes.append(2);
        ASSERT_TRUE(setIntArrayAttr("sizes", locator, sizes));
    }
};

TEST_F(ContextActivation, FindsTheSourceBuildsAcceleratorsAndSelectsTheRetopoMeshAlone) {
    makeSourceScene();
    const MDagPath retopo = makeGrid(2, 2, 1.0, 20.0);
    select(retopo);
    MGlobal::selectByName("kyStrakeShape1", MGlobal::kAddToList);
    auto context = makeContext();
    context->figure = 3;
    context->moveBrushArmed = true;
    activate(*context);

    EXPECT_TRUE(context->meshValid);
    EXPECT_TRUE(context->meshIsMesh);
    EXPECT_TRUE(context->intersector.isCreated());
    EXPECT_EQ(context->figure, 0);
    EXPECT_FALSE(context->moveBrushArmed);
    EXPECT_EQ(selectionCount(), 1u);
    EXPECT_EQ(getActiveMeshPath().fullPathName(), retopo.fullPathName());
    EXPECT_EQ(mhost::ContextState::of(*context).cursor, MCursor::doubleCrossHairCursor);
    EXPECT_EQ(option("kyStrake_info1"), "kyStrake activated,");
    EXPECT_EQ(option("kyStrake_info2"), helpStart.asChar());

    // One mean vertex normal per source face; the grid faces -Y.
    MVectorArray normals;
    ASSERT_TRUE(getVectorArrayAttr("inputNormals", locator, normals));
    ASSERT_EQ(normals.length(), 100u);
    EXPECT_NEAR(normals[42].y, -1.0, 1e-9);

    // With nothing selected, nothing gets selected.
    MGlobal::clearSelectionList();
    activate(*makeContext());
    EXPECT_EQ(selectionCount(), 0u);
}

TEST_F(ContextActivation, MissingOrNonMeshSourceRefusesDragsButActivates) {
    for (const bool patchSource : {false, true}) {
        mhost::driver::resetScene();
        locator = makeLocator();
        if (patchSource) {
            // A dependency node's mesh output: it gives no DAG path to a mesh.
            makePatchNode("kyPatch1");
            ASSERT_TRUE(
                mhost::driver::runCommand("connectAttr kyPatch1.outMesh kyStrakeShape1.kyStrakeMesh"));
        }
        auto context = makeContext();
        activate(*context);
        EXPECT_NE(context->checkSourceMesh(), MS::kSuccess);
        EXPECT_FALSE(context->meshValid);
        EXPECT_FALSE(context->intersector.isCreated());
        EXPECT_EQ(option("kyStrake_info2"), helpStart.asChar());
        EXPECT_EQ(press(*context, MPoint(5, 0, 5), kLeft), MS::kSuccess);
        EXPECT_EQ(drag(*context, MPoint(5, 0, 5), kLeft), MS::kInvalidParameter);
        release(*context, MPoint(5, 0, 5), kLeft);
        EXPECT_EQ(intArray("sizes", locator).size(), 0u);
    }
}

TEST_F(ContextActivation, NoLocatorAtAllStillActivatesAndCleansUp) {
    auto context = makeContext();
    activate(*context);
    EXPECT_EQ(context->clearToolData(), MS::kSuccess);
    deactivate(*context);
    EXPECT_TRUE(option("kyStrake_info1").empty());
}

TEST_F(ContextActivation, CleanupClearsTheLocatorTextsAndStopsListening) {
    makeSourceScene();
    select(makeGrid(2, 2, 1.0, 20.0));
    auto context = makeContext();
    activate(*context);
    writeStroke();
    ASSERT_TRUE(setDoubleAttr("displaySize", locator, 2.0));

    deactivate(*context);
    EXPECT_EQ(intArray("sizes", locator).size(), 0u);
    EXPECT_EQ(pointArray("strokes", locator).length(), 0u);
    double displaySize = -1.0;
    getDoubleAttr("displaySize", locator, displaySize);
    EXPECT_EQ(displaySize, 0.0);
    EXPECT_TRUE(option("kyStrake_info1").empty());
    EXPECT_TRUE(option("kyStrake_info2").empty());

    // The tool-change callback went with the clean-up.
    writeStroke();
    mhost::notifyEvent("ToolChanged");
    EXPECT_EQ(intArray("sizes", locator).size(), 1u);
}

TEST_F(ContextActivation, AnyToolChangeWhileActiveClearsTheToolData) {
    makeSourceScene();
    select(makeGrid(2, 2, 1.0, 20.0));
    auto context = makeContext();
    activate(*context);
    writeStroke();
    mhost::notifyEvent("ToolChanged");
    EXPECT_EQ(intArray("sizes", locator).size(), 0u);
    EXPECT_TRUE(option("kyStrake_info1").empty());
    deactivate(*context);
}

TEST_F(ContextActivation, AcceleratorsOutliveCleanupWithTheirFirstMatrix) {
    makeSourceScene();
    auto context = makeContext();
    activate(*context);
    deactivate(*context);
    MDagPath sourceTransform = source;
    sourceTransform.pop();
    ASSERT_TRUE(mhost::driver::runCommand("setAttr " +
                                          std::string(sourceTransform.partialPathName().asChar()) + ".ty 3"));
    activate(*context);
    EXPECT_TRUE(context->intersector.isCreated());
    EXPECT_EQ(context->sourceMatrix, MMatrix::identity);  // not rebuilt: the source moved unnoticed
    deactivate(*context);
}

}  // namespace
}  // namespace kytest
