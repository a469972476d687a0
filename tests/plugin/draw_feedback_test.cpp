// The feedback routines' drawing, read back from the host's draw manager: strokes with their
// numbers, pairs and closing marks; the player row's ends, count and arrow; the shadow rows'
// colours; the bridge and merge preview; and the two text blocks.

#include "tests/plugin/drawOverrideScene.h"
#include "viewport/palette.h"

namespace {

using namespace kytest;

using DrawStrokes = DrawOverrideScene;
using DrawRows = DrawOverrideScene;
using DrawFuse = DrawOverrideScene;
using DrawHud = DrawOverrideScene;

// The view position of a world point in the active view.
MPoint viewOf(const MPoint& point) { return worldToScreen(point); }

MPointArray line(int count, double z, bool closed = false) {
    MPointArray points;
    for (int i = 0; i < count; ++i) points.append(MPoint(1.0 + i, 0.5, z + 0.1 * i));
    if (closed) points[count - 1] = points[0];
    return points;
}

TEST_F(DrawStrokes, EachStrokeIsNumberedAndDrawnAsPairs) {
    setInt("displayInfo", 0);
    const MPointArray even = line(4, 2.0), odd = line(5, 6.0);
    setStrokeSet("strokes", "sizes", {even, odd});
    const Records drawn = drawFrame();

    const Records lists = ofCall(drawn, DrawCall::kLineList, false);
    ASSERT_EQ(2u, lists.size());
    EXPECT_EQ(4u, lists[0]->points.size());
    ASSERT_EQ(6u, lists[1]->points.size());  // the odd stroke repeats its last point
    EXPECT_EQ(odd[4], lists[1]->points[4]);
    EXPECT_EQ(odd[4], lists[1]->points[5]);
    EXPECT_EQ(colorYellow, lists[0]->state.color);
    EXPECT_EQ(990u, lists[0]->state.depthPriority);

    const DrawRecord* one = textRecord(drawn, "1");
    const DrawRecord* two = textRecord(drawn, "2");
    ASSERT_TRUE(one && two);
    EXPECT_TRUE(one->is2D);
    EXPECT_TRUE(samePixel(viewOf(even[0]) + MVector(10.0, 5.0, 0.0), one->points[0]));
    EXPECT_TRUE(samePixel(viewOf(odd[0]) + MVector(10.0, 5.0, 0.0), two->points[0]));

    // Each end: a filled yellow disc and a black ring around it.
    const Records circles = ofCall(drawn, DrawCall::kCircle, true);
    const Records discs = inColor(circles, colorYellow);
    const Records rings = inColor(circles, colorBlack);
    ASSERT_EQ(4u, discs.size());
    ASSERT_EQ(4u, rings.size());
    EXPECT_TRUE(discs[0]->filled && !rings[0]->filled);
    EXPECT_DOUBLE_EQ(6.0, rings[0]->radius);
    EXPECT_TRUE(samePixel(viewOf(even[3]), discs[1]->points[0]));
    EXPECT_TRUE(textRecord(drawn, "o") == nullptr);
}

TEST_F(DrawStrokes, StrokesWithoutSizesAreNotDrawn) {
    setInt("displayInfo", 0);
    setPoints("strokes", line(4, 2.0));
    EXPECT_TRUE(ofCall(drawFrame(), DrawCall::kLineList, false).empty());
}

TEST_F(DrawStrokes, ClosedStrokeMarksItsEnds) {
    const MPointArray closed = line(4, 2.0, true);
    setStrokeSet("strokes", "sizes", {closed});
    const Records drawn = drawFrame();
    const DrawRecord* o = textRecord(drawn, "o");
    const DrawRecord* x = textRecord(drawn, "x");
    ASSERT_TRUE(o && x);
    EXPECT_FALSE(o->is2D);
    EXPECT_EQ(closed[0], o->points[0]);
    EXPECT_EQ(closed[3], x->points[0]);
    const Records links = ofCall(drawn, DrawCall::kLine, false);
    ASSERT_EQ(1u, links.size());
    EXPECT_EQ(MUIDrawManager::kShortDashed, links[0]->state.lineStyle);
    // The stroke itself goes back to a solid line.
    EXPECT_EQ(MUIDrawManager::kSolid, ofCall(drawn, DrawCall::kLineList, false).at(0)->state.lineStyle);
}

TEST_F(DrawStrokes, OddClosedStrokeMarksItsLastTwoPoints) {
    const MPointArray closed = line(5, 2.0, true);
    setStrokeSet("strokes", "sizes", {line(2, 8.0), closed});
    const Records drawn = drawFrame();
    const DrawRecord* o = textRecord(drawn, "o");
    const DrawRecord* x = textRecord(drawn, "x");
    ASSERT_TRUE(o && x);
    EXPECT_EQ(closed[4], o->points[0]);
    EXPECT_EQ(closed[3], x->points[0]);
}

TEST_F(DrawRows, OnePointRowShowsOnlyItsFirstEnd) {
    setInt("displayInfo", 0);
    const MPoint point(3.0, 0.5, 4.0);
    setPoints("playerpts", polyline({point}));
    const Records drawn = drawFrame();
    EXPECT_EQ(std::vector<std::string>{"1"}, texts(drawn));
    const DrawRecord* one = textRecord(drawn, "1");
    EXPECT_TRUE(samePixel(viewOf(point) + MVector(10.0, 10.0, 0.0), one->points[0]));
    EXPECT_EQ(16u, one->state.fontSize);
    EXPECT_EQ("Arial", one->state.fontName);
    // The marker: ring and disc in yellow, and its dark edge.
    const Records circles = ofCall(drawn, DrawCall::kCircle, true);
    ASSERT_EQ(4u, circles.size());
    EXPECT_EQ(colorYellow, circles[0]->state.color);
    EXPECT_DOUBLE_EQ(7.0, circles[0]->radius);
    EXPECT_TRUE(samePixel(viewOf(point), circles[0]->points[0]));
}

TEST_F(DrawRows, OpenRowShowsBothEndsAndItsCount) {
    setInt("displayInfo", 0);
    const MPointArray row = line(3, 4.0);
    setPoints("playerpts", row);
    const Records drawn = drawFrame();
    EXPECT_EQ((std::vector<std::string>{"1", "2", "3\""}), texts(drawn));
    const DrawRecord* count = textRecord(drawn, "3\"");
    EXPECT_FALSE(count->is2D);
    EXPECT_TRUE(count->points[0].isEquivalent(row[2] + MVector(0.3, -0.3, -0.3)));
    EXPECT_EQ(MColor(0.7f, 0.7f, 0.6f, 1.0f), count->state.color);
    EXPECT_EQ(15u, count->state.fontSize);
    EXPECT_TRUE(samePixel(viewOf(row[2]) + MVector(10.0, 10.0, 0.0), textRecord(drawn, "2")->points[0]));
    EXPECT_TRUE(ofCall(drawn, DrawCall::kMesh, true).empty());
}

TEST_F(DrawRows, ClosedRowShowsItsDirection) {
    setInt("displayInfo", 0);
    const MPointArray row = line(4, 4.0, true);
    setPoints("playerpts", row);
    const Records drawn = drawFrame();
    const DrawRecord* closed = textRecord(drawn, "Closed");
    ASSERT_TRUE(closed);
    EXPECT_TRUE(closed->points[0].isEquivalent(row[0] + MVector(0.05, -0.05, -0.5)));

    const Records arrows = ofCall(drawn, DrawCall::kMesh, true);
    ASSERT_EQ(1u, arrows.size());
    EXPECT_EQ(MUIDrawManager::kTriStrip, arrows[0]->primitive);
    ASSERT_EQ(3u, arrows[0]->points.size());
    const MPoint start = viewOf(row[0]);
    const MVector dir = (viewOf(row[1]) - start).normal();
    EXPECT_TRUE(samePixel(start + dir * 60.0, arrows[0]->points[0]));
    EXPECT_NEAR(10.0, (arrows[0]->points[1] - start).length(), 1e-3);
    EXPECT_NEAR(0.0, (arrows[0]->points[1] - start) * dir, 1e-3);
    const Records edges = ofCall(drawn, DrawCall::kLine, true);
    ASSERT_EQ(3u, edges.size());
    EXPECT_EQ(colorBlack, edges[0]->state.color);
    EXPECT_NE(nullptr, textRecord(drawn, "4\""));
}

TEST_F(DrawRows, ShadowColoursTellOneRowFromTwo) {
    setInt("displayInfo", 0);
    setStrokeSet("strokesShadow", "sizesShadow", {line(3, 2.0)});
    Records strips = ofCall(drawFrame(), DrawCall::kLineStrip, false);
    ASSERT_EQ(1u, strips.size());
    EXPECT_EQ(MColor(0.1f, 0.9f, 0.1f, 1.0f), strips[0]->state.color);
    EXPECT_EQ(MUIDrawManager::kDashed, strips[0]->state.lineStyle);
    EXPECT_FLOAT_EQ(3.0f, strips[0]->state.lineWidth);
    EXPECT_EQ(52u, strips[0]->state.depthPriority);

    setStrokeSet("strokesShadow", "sizesShadow", {line(3, 2.0), line(4, 6.0)});
    const Records drawn = drawFrame();
    strips = ofCall(drawn, DrawCall::kLineStrip, false);
    ASSERT_EQ(2u, strips.size());
    EXPECT_EQ(MColor(0.9f, 0.1f, 0.1f, 1.0f), strips[0]->state.color);
    EXPECT_EQ(MColor(0.1f, 0.1f, 0.9f, 1.0f), strips[1]->state.color);
    EXPECT_EQ(4u, strips[1]->points.size());
    // Points numbered from 1 in each row, grey and on top.
    EXPECT_EQ((std::vector<std::string>{"1", "2", "3", "1", "2", "3", "4"}), texts(drawn));
    const DrawRecord* number = textRecord(drawn, "4");
    EXPECT_EQ(990u, number->state.depthPriority);
    EXPECT_EQ(MColor(0.7f, 0.7f, 0.7f, 0.5f), number->state.color);
    EXPECT_EQ(11u, number->state.fontSize);
}

// A bridge preview: two points of fuse line, one triangle of preview mesh, a player line.
class DrawFusePreview : public DrawOverrideScene {
protected:
    void SetUp() override {
        DrawOverrideScene::SetUp();
        setInt("displayInfo", 0);
        setPoints("fusept", polyline({MPoint(1, 0.5, 6), MPoint(3, 0.5, 6)}));
        setInts("fuseindices", {0, 1, 2});
        setPoints("fusemesh", polyline({MPoint(1, 0.5, 6), MPoint(3, 0.5, 6), MPoint(2, 0.5, 3)}));
        setPoints("sublines", line(6, 4.0));
    }
};

TEST_F(DrawFusePreview, WithoutPlayersLineNothingIsPreviewed) {
    setInt("mode", 1);
    EXPECT_TRUE(drawFrame().empty());
}

TEST_F(DrawFusePreview, BridgeShowsItsFacesLinksAndDivisions) {
    setInt("mode", 1);
    setPoints("playersLine", polyline({MPoint(1, 0.5, 2), MPoint(3, 0.5, 2)}));
    MGlobal::setOptionVarValue("ky_bdiv", 2);
    const Records drawn = drawFrame();

    const Records strips = ofCall(drawn, DrawCall::kLineStrip, false);
    ASSERT_EQ(5u, strips.size());  // the fuse line, three division runs, and the player line last
    EXPECT_EQ(colorYellow, strips[4]->state.color);
    EXPECT_EQ(colorBlue, strips[0]->state.color);
    EXPECT_FLOAT_EQ(1.7f, strips[0]->state.lineWidth);
    EXPECT_EQ(52u, strips[0]->state.depthPriority);
    EXPECT_TRUE(strips[0]->state.xray);
    // The runs keep the faces' faint colour.
    const MColor faint(colorBlue.r, colorBlue.g, colorBlue.b, 0.3f);
    for (int run = 1; run <= 3; ++run) {
        EXPECT_EQ(2u, strips[run]->points.size()) << run;
        EXPECT_EQ(faint, strips[run]->state.color) << run;
        EXPECT_FLOAT_EQ(1.0f, strips[run]->state.lineWidth) << run;
    }
    EXPECT_EQ(line(6, 4.0)[4], strips[3]->points[0]);

    const Records links = ofCall(drawn, DrawCall::kLine, false);
    ASSERT_EQ(2u, links.size());
    EXPECT_EQ(MUIDrawManager::kDashed, links[0]->state.lineStyle);
    EXPECT_EQ(MPoint(3, 0.5, 2), links[1]->points[0]);
    EXPECT_EQ(MPoint(3, 0.5, 6), links[1]->points[1]);

    const Records faces = ofCall(drawn, DrawCall::kMesh, false);
    ASSERT_EQ(1u, faces.size());
    EXPECT_EQ(MUIDrawManager::kTriangles, faces[0]->primitive);
    EXPECT_EQ((std::vector<unsigned int>{0, 1, 2}), faces[0]->indices);
    EXPECT_EQ(MColor(colorBlue.r, colorBlue.g, colorBlue.b, 0.3f), faces[0]->state.color);
    // The end markers are plain rings in the preview's own colour.
    EXPECT_EQ(4u, inColor(ofCall(drawn, DrawCall::kCircle, true), colorBlue).size());
}

TEST_F(DrawFusePreview, MergeDrawsNoDivisionLines) {
    setInt("mode", 0);
    setPoints("playersLine", polyline({MPoint(1, 0.5, 2), MPoint(3, 0.5, 2)}));
    MGlobal::setOptionVarValue("ky_bdiv", 2);
    const Records drawn = drawFrame();
    const Records strips = ofCall(drawn, DrawCall::kLineStrip, false);
    ASSERT_EQ(2u, strips.size());  // the fuse line and the player line
    EXPECT_EQ(MColor(0.3f, 0.9f, 0.3f, 1.0f), strips[0]->state.color);
    setInt("mode", -1);
    const Records merged = ofCall(drawFrame(), DrawCall::kLineStrip, false);
    ASSERT_EQ(5u, merged.size());
    EXPECT_EQ(colorRed, merged[0]->state.color);
}

TEST_F(DrawHud, StatusAndHelpSplitAtCommasInOppositeDirections) {
    MGlobal::setOptionVarValue("kyStrake_info1", MString("a,b,c,"));
    MGlobal::setOptionVarValue("kyStrake_info2", MString("help one,help two"));
    const Records drawn = drawFrame();
    EXPECT_EQ((std::vector<std::string>{"help one", "help two", "a", "b", "c"}), texts(drawn));
    const int height = M3dView::active3dView().portHeight();
    EXPECT_TRUE(samePixel(MPoint(10, height - 20), textRecord(drawn, "help one")->points[0]));
    EXPECT_TRUE(samePixel(MPoint(10, height - 36), textRecord(drawn, "help two")->points[0]));
    EXPECT_TRUE(samePixel(MPoint(10, 55), textRecord(drawn, "a")->points[0]));
    EXPECT_TRUE(samePixel(MPoint(10, 87), textRecord(drawn, "c")->points[0]));
    const DrawRecord* a = textRecord(drawn, "a");
    EXPECT_EQ(MColor(colorGrey.r, colorGrey.g, colorGrey.b, 0.25f), a->state.color);
    EXPECT_EQ(9u, a->state.fontSize);
    EXPECT_EQ(990u, a->state.depthPriority);
    EXPECT_TRUE(a->state.xray);
}

TEST_F(DrawHud, StatusWithoutCommaIsOneLine) {
    MGlobal::setOptionVarValue("kyStrake_info1", MString("Ready to draw"));
    MGlobal::setOptionVarValue("kyStrake_info2", MString(""));
    EXPECT_EQ(std::vector<std::string>{"Ready to draw"}, texts(drawFrame()));
}

TEST_F(DrawHud, UnsetChannelsShowTheirPlaceholders) {
    MGlobal::removeOptionVar("kyStrake_info1");
    MGlobal::removeOptionVar("kyStrake_info2");
    EXPECT_EQ((std::vector<std::string>{"... 2", "... 1"}), texts(drawFrame()));
}

TEST_F(DrawHud, DisplayInfoZeroBlanksTheTextsButNotTheFeedback) {
    MGlobal::setOptionVarValue("kyStrake_info1", MString("status"));
    MGlobal::setOptionVarValue("kyStrake_info2", MString("help"));
    setPoints("playersLine", polyline({MPoint(2, 0.5, 3), MPoint(4, 0.5, 3)}));
    setInt("displayInfo", 0);
    const Records drawn = drawFrame();
    EXPECT_TRUE(texts(drawn).empty());
    EXPECT_EQ(1u, ofCall(drawn, DrawCall::kLineStrip, false).size());
}

}  // namespace
