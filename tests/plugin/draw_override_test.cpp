// The draw override as the host runs it: which feedback routine runs on which attribute, the
// thresholds of the brush circle and of the normals, depth priorities from the option, the camera
// test of the active view, and the redraw request on a change of the model editor.

#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>

#include "drawing/DrawRecorder.h"
#include "drawing/HostFrameContext.h"
#include "tests/plugin/drawOverrideScene.h"
#include "viewport/kyStrakeDrawOverride.h"
#include "viewport/palette.h"

namespace {

using namespace kytest;
namespace driver = mhost::driver;

using DrawOverride = DrawOverrideScene;

TEST_F(DrawOverride, EmptyLocatorDrawsOnlyTheTexts) {
    MGlobal::setOptionVarValue("kyStrake_info1", MString("status"));
    MGlobal::setOptionVarValue("kyStrake_info2", MString("help"));
    const Records drawn = drawFrame();
    EXPECT_EQ((std::vector<std::string>{"help", "status"}), texts(drawn));
    EXPECT_EQ(2u, drawn.size());
}

TEST_F(DrawOverride, EachRoutineRunsOnItsOwnAttribute) {
    setInt("displayInfo", 0);
    const MPointArray row = polyline({MPoint(2, 0, 3), MPoint(4, 0, 3), MPoint(6, 0, 3)});

    setPoints("freepoints", row);
    Records drawn = drawFrame();
    EXPECT_EQ(3u, inColor(ofCall(drawn, DrawCall::kCircle, true), MColor(0.1f, 0.1f, 0.8f, 1.0f)).size());
    EXPECT_EQ(3u, inColor(ofCall(drawn, DrawCall::kCircle, true), MColor::kOpaqueBlack).size());

    setPoints("freepoints", MPointArray());
    setPoints("freezeMedian", row);
    drawn = drawFrame();
    const MColor medianFill(colorDarkGrey.r, colorDarkGrey.g, colorDarkGrey.b, 1.0f);
    const Records median = inColor(ofCall(drawn, DrawCall::kCircle, true), medianFill);
    ASSERT_EQ(3u, median.size());
    EXPECT_DOUBLE_EQ(5.0, median[0]->radius);
    EXPECT_TRUE(median[0]->state.xray);

    setPoints("freezeMedian", MPointArray());
    setPoints("playersLine", row);
    drawn = drawFrame();
    const Records lines = ofCall(drawn, DrawCall::kLineStrip, false);
    ASSERT_EQ(1u, lines.size());
    EXPECT_EQ(colorYellow, lines[0]->state.color);
    EXPECT_FLOAT_EQ(2.2f, lines[0]->state.lineWidth);
    EXPECT_EQ(62u, lines[0]->state.depthPriority);  // 2.5 + 50 + 10, truncated
    EXPECT_TRUE(lines[0]->state.xray);
}

TEST_F(DrawOverride, RowAndPreviewPrioritiesFollowTheCutOption) {
    setPoints("playersLine", polyline({MPoint(2, 0, 3), MPoint(4, 0, 3)}));
    setPoints("freepoints", polyline({MPoint(2, 0, 3)}));
    MGlobal::setOptionVarValue("kyCutDp", 10.7);
    const Records drawn = drawFrame();
    EXPECT_EQ(70u, ofCall(drawn, DrawCall::kLineStrip, false).at(0)->state.depthPriority);
    EXPECT_EQ(65u, ofCall(drawn, DrawCall::kCircle, true).at(0)->state.depthPriority);
}

TEST_F(DrawOverride, TweakCircleRadiusFollowsItsOption) {
    setInts("tweakRadius", {1});
    ASSERT_TRUE(setPoint3Attr("interPoint", locator, 1.0, 2.0, 3.0));
    ASSERT_TRUE(setVector3Attr("interNormal", locator, 0.0, 0.0, 1.0));
    EXPECT_DOUBLE_EQ(1.5, ofCall(drawFrame(), DrawCall::kCircle, false).at(0)->radius);  // 50 x 0.03
    MGlobal::setOptionVarValue("ky_strakeTweakR", 100);
    const Records circles = ofCall(drawFrame(), DrawCall::kCircle, false);
    ASSERT_EQ(1u, circles.size());
    EXPECT_DOUBLE_EQ(3.0, circles[0]->radius);
    EXPECT_EQ(9999u, circles[0]->state.depthPriority);
    EXPECT_EQ(MPoint(1.0, 2.0, 3.0), circles[0]->points[0]);
    EXPECT_EQ(MVector(0.0, 0.0, 1.0), circles[0]->normal);
}

TEST_F(DrawOverride, BrushCircleShowsFromDisplayInfoTwo) {
    setDouble("radiusRelaxInteractive", 40.0);
    setDouble("intensityRelaxInteractive", 20.0);
    setDouble("radiusMoveInteractive", 10.0);
    setInt("displayInfo", 1);
    EXPECT_TRUE(ofCall(drawFrame(), DrawCall::kCircle, false).empty());

    struct Case {
        int displayInfo;
        MColor rgb;
        double radius;
    };
    for (const Case& c : {Case{2, colorGreen, 2.0}, Case{3, colorDarkGrey, 1.0}, Case{4, colorDeepRed, 0.3},
                          Case{5, MColor(0.0f, 0.0f, 0.0f), 0.0}}) {
        setInt("displayInfo", c.displayInfo);
        const Records circles = ofCall(drawFrame(), DrawCall::kCircle, false);
        ASSERT_EQ(2u, circles.size()) << c.displayInfo;
        EXPECT_EQ(MColor(c.rgb.r, c.rgb.g, c.rgb.b, 1.0f), circles[0]->state.color) << c.displayInfo;
        EXPECT_DOUBLE_EQ(c.radius, circles[0]->radius) << c.displayInfo;
        EXPECT_EQ(999u, circles[0]->state.depthPriority);
        EXPECT_DOUBLE_EQ(c.radius * 0.8, circles[1]->radius);
        EXPECT_TRUE(circles[1]->filled && !circles[0]->filled);
        EXPECT_EQ(MColor(0.4f, 0.4f, 0.4f, 0.8f), circles[1]->state.color);
    }
    // Both circles face the camera.
    const MVector toTarget = (MPoint(5.0, 0.0, 5.0) - MPoint(5.0, -20.0, 15.0)).normal();
    EXPECT_TRUE(
        ofCall(drawFrame(), DrawCall::kCircle, false).at(0)->normal.normal().isEquivalent(toTarget, 1e-6));
}

// A grid selected as the retopo mesh, with its first face as the last patch.
class DrawNormals : public DrawOverrideScene {
protected:
    void SetUp() override {
        DrawOverrideScene::SetUp();
        retopo = makeGrid(3, 3, 1.0, 0.5);
        select(retopo);
        MIntArray faces;
        faces.append(0);
        ASSERT_TRUE(setNewFaces(faces));
    }
    MDagPath retopo;
};

TEST_F(DrawNormals, DisplaySizeOfExactlyTheThresholdDrawsNoNormals) {
    setDouble("displaySize", 0.01);
    EXPECT_TRUE(ofCall(drawFrame(), DrawCall::kLineList, false).empty());
}

TEST_F(DrawNormals, EachVertexOfThePatchGetsItsNormalTwice) {
    setDouble("displaySize", 0.5);
    const Records drawn = drawFrame();
    const Records lists = ofCall(drawn, DrawCall::kLineList, false);
    ASSERT_EQ(1u, lists.size());
    EXPECT_EQ(16u, lists[0]->points.size());  // four vertices, each pair twice
    EXPECT_EQ(MUIDrawManager::kShortDashed, lists[0]->state.lineStyle);
    EXPECT_FALSE(lists[0]->state.xray);
    const MColor tint(colorDarkGrey.r, colorDarkGrey.g, colorDarkGrey.b * 1.1f, 0.3f);
    EXPECT_EQ(tint, lists[0]->state.color);
    EXPECT_EQ(8u, inColor(ofCall(drawn, DrawCall::kCircle, true), tint).size());
    // The first vertex, at its world position, and the tip half a unit along its normal.
    MFnMesh mesh(retopo);
    MVector normal;
    mesh.getVertexNormal(0, true, normal, MSpace::kWorld);
    EXPECT_TRUE(lists[0]->points[0].isEquivalent(MPoint(0.5, 1.0, 0.0)));
    EXPECT_TRUE(lists[0]->points[1].isEquivalent(MPoint(0.5, 1.0, 0.0) + 0.5 * normal));
    EXPECT_TRUE(lists[0]->points[2].isEquivalent(lists[0]->points[0]));
}

TEST_F(DrawNormals, MovedMeshDrawsItsNormalsInWorldSpace) {
    MDagPath transform = retopo;
    transform.pop();
    const std::string command =
        "setAttr " + std::string(transform.partialPathName().asChar()) + ".translate 0 0 4";
    ASSERT_TRUE(driver::runCommand(command)) << command;
    setDouble("displaySize", 1.0);
    const Records lists = ofCall(drawFrame(), DrawCall::kLineList, false);
    ASSERT_EQ(1u, lists.size());
    EXPECT_TRUE(lists[0]->points[0].isEquivalent(MPoint(0.5, 1.0, 4.0))) << lists[0]->points[0].z;
}

TEST_F(DrawOverride, SymmetryPlaneStandsOnTheSourceBounds) {
    setInt("symmetry", 1);
    EXPECT_TRUE(ofCall(drawFrame(), DrawCall::kRect, false).empty());  // no source mesh yet

    const MDagPath source = makeGrid(4, 2, 1.0);
    connectSource(source, locator);
    const Records drawn = drawFrame();
    const Records rects = ofCall(drawn, DrawCall::kRect, false);
    ASSERT_EQ(1u, rects.size());
    EXPECT_TRUE(rects[0]->points[0].isEquivalent(MPoint(2.0, 1.0, 1.0)));
    EXPECT_DOUBLE_EQ(2.0 * 0.6, rects[0]->scaleX);  // depth along z
    EXPECT_DOUBLE_EQ(0.0, rects[0]->scaleY);        // a flat grid has no height
    EXPECT_TRUE(rects[0]->filled);
    EXPECT_EQ(0u, rects[0]->state.depthPriority);
    const Records lines = ofCall(drawn, DrawCall::kLine, false);
    ASSERT_EQ(2u, lines.size());
    EXPECT_TRUE(lines[1]->points[0].isEquivalent(MPoint(2.0, 1.0, 1.0 - 0.6)));
    EXPECT_TRUE(lines[1]->points[1].isEquivalent(MPoint(2.0, 1.0, 1.0 + 0.6)));
}

TEST_F(DrawOverride, FeedbackShowsOnlyThroughTheActiveViewsCamera) {
    setPoints("playersLine", polyline({MPoint(2, 0, 3), MPoint(4, 0, 3)}));
    drawFrame();
    ASSERT_TRUE(driver::placeCamera(MPoint(0.0, -10.0, 0.0), MPoint(0.0, 0.0, 0.0), "side"));
    ASSERT_TRUE(driver::placeCamera(MPoint(5.0, -20.0, 15.0), MPoint(5.0, 0.0, 5.0), "persp"));

    MHWRender::MPxDrawOverride* drawOverride = kyStrakeDrawOverride::creator(locator);
    MDagPath locatorPath;
    MDagPath::getAPathTo(locator, locatorPath);
    MDagPath side;
    MSelectionList list;
    list.add("sideShape");
    ASSERT_TRUE(list.getDagPath(0, side));
    MDagPath persp;
    M3dView::active3dView().getCamera(persp);
    for (const MDagPath& camera : {side, persp}) {
        mhost::DisplayList recorded;
        mhost::DrawRecorder recorder(recorded);
        MHWRender::MUIDrawManager& manager = recorder.manager();
        mhost::HostFrameContext context(camera, 640, 480);
        drawOverride->prepareForDraw(locatorPath, camera, context, nullptr);
        drawOverride->addUIDrawables(locatorPath, manager, context, nullptr);
        EXPECT_EQ(camera == persp, !recorded.primitives().empty()) << camera.partialPathName().asChar();
    }
    delete drawOverride;
}

TEST_F(DrawOverride, EditorChangeAsksToRedrawTheLocator) {
    drawFrame();
    ASSERT_TRUE(driver::setViewSize(800, 600));
    bool asked = false;
    for (const auto& request : driver::drawDirtyRequests())
        asked = asked || request.node == MFnDependencyNode(locator).name().asChar();
    EXPECT_TRUE(asked);

    // Once the locator is gone with its override, a change of editor reaches nothing.
    driver::resetScene();
    ASSERT_TRUE(driver::placeCamera(MPoint(5.0, -20.0, 15.0), MPoint(5.0, 0.0, 5.0)));
    EXPECT_TRUE(driver::runFrame());
    EXPECT_TRUE(driver::setViewSize(640, 480));
    EXPECT_TRUE(driver::drawDirtyRequests().empty());
}

}  // namespace
