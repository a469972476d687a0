// Slice strokes through a closed source, the freeze border and median lists with their markers, and
// the ring bevel's rung edges and stored command.

#include <gtest/gtest.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <mhost/Driver.h>

#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidget>
#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "drawing/GuiApplication.h"
#include "tests/plugin/patchFlowScene.h"

namespace {

using kytest::Ids;
using kytest::kLeft;
using kytest::kShift;

// A closed box source from (3, -1, 3) to (7, 1, 7), faces turned outwards, optionally moved and
// tilted, with the tool on. The camera looks at it from below, so its bottom is its front.
class SliceScene : public kytest::PatchFlowScene {
protected:
    void makeBoxScene(bool transformed) {
        const double corners[8][3] = {{3, -1, 3}, {7, -1, 3}, {7, 1, 3}, {3, 1, 3},
                                      {3, -1, 7}, {7, -1, 7}, {7, 1, 7}, {3, 1, 7}};
        MPointArray points;
        for (const auto& corner : corners) points.append(MPoint(corner[0], corner[1], corner[2]));
        source = makeMesh(
            points, {{0, 1, 5, 4}, {3, 7, 6, 2}, {0, 3, 2, 1}, {4, 5, 6, 7}, {0, 4, 7, 3}, {1, 2, 6, 5}});
        if (transformed) {
            const std::string transform = MFnDependencyNode(source.transform()).name().asChar();
            ASSERT_TRUE(mhost::driver::runCommand("setAttr " + transform + ".translateX 0.7; setAttr " +
                                                  transform + ".rotateY 0.25; setAttr " + transform +
                                                  ".rotateX 0.15"));
        }
        locator = makeLocator();
        connectSource(source, locator);
        MGlobal::clearSelectionList();
        context = makeContext();
        activate(*context);
    }

    // World point of the box's local point.
    MPoint onBox(double x, double y, double z) const { return MPoint(x, y, z) * source.inclusiveMatrix(); }

    // A SHIFT drag along the box's bottom at z = 5, from x = 3.5 to 6.5 in `steps` events.
    void sliceAcrossBottom(int steps) {
        press(*context, onBox(3.5, -1, 5), kLeft, kShift);
        for (int i = 0; i <= steps; ++i) drag(*context, onBox(3.5 + 3.0 * i / steps, -1, 5), kLeft, kShift);
    }

    double distanceFromSource(const MPoint& point) const {
        MPoint closest;
        MFnMesh(source).getClosestPoint(point, closest, MSpace::kWorld);
        return closest.distanceTo(point);
    }
};

class SliceRing : public SliceScene, public ::testing::WithParamInterface<bool> {};

TEST_P(SliceRing, FrontAndBackHitsCloseIntoOneRingAppendedAsAStroke) {
    makeBoxScene(GetParam());
    sliceAcrossBottom(6);
    const unsigned front = context->frontHits.length();
    const unsigned back = context->backHits.length();
    EXPECT_EQ(front, 7u) << "one front hit per drag event";
    ASSERT_GE(back, 7u) << "the top of the box lies behind every front hit";
    EXPECT_TRUE(context->sliceStroke);
    release(*context, onBox(6.5, -1, 5), kLeft, kShift);

    ASSERT_EQ(strokeCount(), 1);
    const MPointArray ring = getStrokeList()[0];
    // Front hits, a 10-step bridge, the back hits, a 10-step bridge home, each segment in 6 steps.
    ASSERT_EQ(ring.length(), (front + back + 19) * 6);
    EXPECT_EQ(ring[0], ring[ring.length() - 1]) << "the ring is closed";
    EXPECT_TRUE(ring[0].isEquivalent(
        context->frontHits[0] + (context->frontHits[1] - context->frontHits[0]) / 6.0, 1e-4))
        << "the ring starts one step into its first segment";
    EXPECT_TRUE(ring[(front - 1) * 6 - 1].isEquivalent(context->frontHits[front - 1], 1e-4));
    EXPECT_TRUE(ring[(front + 10) * 6 - 1].isEquivalent(context->backHits[back - 1], 1e-4))
        << "the back is walked from its last hit";
    EXPECT_TRUE(ring[(front + 10 + back - 1) * 6 - 1].isEquivalent(context->backHits[0], 1e-4));
    double farthest = 0.0;
    for (unsigned i = 0; i < ring.length(); ++i) farthest = std::max(farthest, distanceFromSource(ring[i]));
    EXPECT_LT(farthest, 1e-4) << "every ring point is snapped onto the source";
    EXPECT_TRUE(context->sliceStroke) << "the flag outlives the release";
}

INSTANTIATE_TEST_SUITE_P(PlainAndTransformed, SliceRing, ::testing::Bool());

using SliceStroke = SliceScene;

TEST_F(SliceStroke, MissedSamplesShowAsAScreenLineUntilTheNextHit) {
    makeBoxScene(false);
    press(*context, onBox(4, -1, 5), kLeft, kShift);
    drag(*context, onBox(4, -1, 5), kLeft, kShift);
    drag(*context, MPoint(30, 0, 5), kLeft, kShift);
    drag(*context, MPoint(31, 0, 6), kLeft, kShift);
    ASSERT_EQ(context->strokePreview.length(), 2u);
    EXPECT_EQ(context->strokePreview[0].z, 0.0) << "the line is kept in view pixels";
    EXPECT_EQ(context->strokePoints.length(), 1u) << "a miss adds nothing to the slice";

    drag(*context, onBox(5, -1, 5), kLeft, kShift);
    EXPECT_EQ(context->strokePreview.length(), 0u);
    EXPECT_EQ(context->strokePoints.length(), 2u);
}

TEST_F(SliceStroke, ASurfaceSeenFromOneSideOnlyAppendsNothing) {
    makePatchScene(false);  // the open grid faces the camera: front hits only
    press(*context, onSource(2, 5), kLeft, kShift);
    for (double u = 2.0; u <= 8.0; u += 1.0) drag(*context, onSource(u, 5), kLeft, kShift);
    EXPECT_GT(context->frontHits.length(), 0u);
    EXPECT_EQ(context->backHits.length(), 0u);
    release(*context, onSource(8, 5), kLeft, kShift);
    EXPECT_EQ(context->strokePoints.length(), 0u);
    EXPECT_EQ(strokeCount(), 0);
}

TEST_F(SliceStroke, LineFigureRecastsItsSamplesAtEveryEvent) {
    makeBoxScene(false);
    context->figure = 1;
    press(*context, onBox(3.5, -1, 5), kLeft, kShift);
    drag(*context, onBox(3.5, -1, 5), kLeft, kShift);
    drag(*context, onBox(5, -1, 5), kLeft, kShift);
    drag(*context, onBox(6.5, -1, 5), kLeft, kShift);
    const unsigned samples = context->strokePoints.length();
    ASSERT_GT(samples, 2u);
    EXPECT_EQ(context->frontHits.length(), samples) << "the hits of earlier events are dropped";
    release(*context, onBox(6.5, -1, 5), kLeft, kShift);
    ASSERT_EQ(strokeCount(), 1);
    const MPointArray ring = getStrokeList()[0];
    EXPECT_EQ(ring[0], ring[ring.length() - 1]);
}

TEST(SliceSegments, StartOneStepInAndEndOnTheLastPoint) {
    MPointArray points;
    points.append(MPoint(0, 0, 0));
    EXPECT_EQ(kyStrakeContext::subdivideSegments(points, 6).length(), 0u);
    points.append(MPoint(6, 0, 0));
    points.append(MPoint(6, 3, 0));
    const MPointArray steps = kyStrakeContext::subdivideSegments(points, 6);
    ASSERT_EQ(steps.length(), 12u);
    EXPECT_TRUE(steps[0].isEquivalent(MPoint(1, 0, 0)));
    EXPECT_TRUE(steps[5].isEquivalent(MPoint(6, 0, 0)));
    EXPECT_TRUE(steps[6].isEquivalent(MPoint(6, 0.5, 0)));
    EXPECT_TRUE(steps[11].isEquivalent(MPoint(6, 3, 0)));
}

// The freeze switches on a retopo grid over the source grid, with the artist's panel present or
// absent. Grids face -Y like the source, towards the camera below.
class FreezeScene : public kytest::PatchFlowScene, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        kytest::PatchFlowScene::SetUp();
        if (GetParam()) makePanel();
        makePatchScene(false);
    }

    void makePanel() {
        mhost::ensureGuiApplication();
        panel = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(panel.get());
        for (const char* name : {"freezeBtn", "freezeSymBtn"}) {
            auto* button = new QPushButton;
            button->setObjectName(name);
            button->setCheckable(true);
            layout->addWidget(button);
            buttons.push_back(button);
        }
    }
    // Whether the panel's button is checked; always false without a panel.
    bool checked(int button) const { return panel && buttons[button]->isChecked(); }

    // A 3 x 3 retopo grid with its corner at (x0, -0.5, 0), selected, turned away from the camera
    // when `flipped`.
    MDagPath makeRetopo(double x0, bool flipped = false) {
        MDagPath retopo = makeGrid(3, 3, -0.5, x0);
        if (flipped) {
            MPointArray points;
            for (int r = 0; r <= 3; ++r)
                for (int c = 0; c <= 3; ++c) points.append(MPoint(x0 + c, -0.5, r));
            std::vector<std::vector<int>> faces;
            for (int r = 0; r < 3; ++r)
                for (int c = 0; c < 3; ++c)
                    faces.push_back({r * 4 + c, r * 4 + c + 4, r * 4 + c + 5, r * 4 + c + 1});
            retopo = makeMesh(points, faces);
        }
        select(retopo);
        return retopo;
    }

    static std::set<int> asSet(const MIntArray& ids) {
        const Ids entries = kytest::asVector(ids);
        return std::set<int>(entries.begin(), entries.end());
    }

    std::unique_ptr<QWidget> panel;
    std::vector<QPushButton*> buttons;
};

const std::set<int> kGridBorder{0, 1, 2, 3, 4, 7, 8, 11, 12, 13, 14, 15};

TEST_P(FreezeScene, BorderFreezesEveryBoundaryVertexAndMarksThoseFacingTheEye) {
    const MDagPath retopo = makeRetopo(2.0);
    context->freezeBorder = true;
    ASSERT_TRUE(context->refreshFreezeBorder());
    EXPECT_EQ(asSet(context->frozenVertices), kGridBorder);
    const MPointArray markers = pointArray("freepoints", locator);
    ASSERT_EQ(markers.length(), 12u);
    MPoint corner;
    MFnMesh(retopo).getPoint(context->frozenVertices[0], corner, MSpace::kWorld);
    EXPECT_TRUE(markers[0].isEquivalent(corner));
    EXPECT_EQ(checked(0), GetParam());

    // Off: the list and markers empty, and the next frame releases the button.
    context->freezeBorder = false;
    ASSERT_TRUE(context->refreshFreezeBorder());
    EXPECT_EQ(context->frozenVertices.length(), 0u);
    EXPECT_EQ(pointArray("freepoints", locator).length(), 0u);
    context->drawFeedback(drawManager, frameContext);
    EXPECT_FALSE(checked(0));
}

TEST_P(FreezeScene, BorderTurnedAwayIsFrozenButNotMarked) {
    makeRetopo(2.0, true);
    context->freezeBorder = true;
    ASSERT_TRUE(context->refreshFreezeBorder());
    EXPECT_EQ(asSet(context->frozenVertices), kGridBorder);
    EXPECT_EQ(pointArray("freepoints", locator).length(), 0u);
}

TEST_P(FreezeScene, MeshWithoutBorderOrWithoutSelectionFreezesNothing) {
    context->freezeBorder = true;
    MGlobal::clearSelectionList();
    EXPECT_TRUE(context->refreshFreezeBorder());
    EXPECT_EQ(context->frozenVertices.length(), 0u);

    const double corners[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                  {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    MPointArray points;
    for (const auto& c : corners) points.append(MPoint(c[0], c[1], c[2]));
    select(makeMesh(points,
                    {{0, 1, 5, 4}, {3, 7, 6, 2}, {0, 3, 2, 1}, {4, 5, 6, 7}, {0, 4, 7, 3}, {1, 2, 6, 5}}));
    context->freezeMedianOn = true;
    EXPECT_TRUE(context->refreshFreezeBorder());
    EXPECT_TRUE(context->refreshFreezeMedian());
    EXPECT_EQ(context->frozenVertices.length(), 0u);
    EXPECT_EQ(context->medianVertices.length(), 0u);
    EXPECT_EQ(pointArray("freepoints", locator).length(), 0u);
    EXPECT_EQ(pointArray("freezeMedian", locator).length(), 0u);
}

TEST_P(FreezeScene, MedianHoldsTheBorderOnOrOverTheCentrePlane) {
    const std::pair<double, Ids> halves[] = {
        {0.0, {0, 4, 8, 12}},          // a right half: its x = 0 column
        {-3.0, {3, 7, 11, 15}},        // a left half: its x = 0 column
        {-1.5, {0, 1, 4, 8, 12, 13}},  // centred on x = 0 counts as right: x at or below 0
    };
    context->freezeMedianOn = true;
    for (const auto& [x0, expected] : halves) {
        makeRetopo(x0);
        ASSERT_TRUE(context->refreshFreezeMedian());
        EXPECT_EQ(asSet(context->medianVertices), std::set<int>(expected.begin(), expected.end())) << x0;
        EXPECT_EQ(pointArray("freezeMedian", locator).length(), expected.size()) << x0;
    }
    EXPECT_EQ(checked(1), GetParam());

    context->freezeMedianOn = false;
    ASSERT_TRUE(context->refreshFreezeMedian());
    EXPECT_EQ(context->medianVertices.length(), 0u);
    EXPECT_EQ(pointArray("freezeMedian", locator).length(), 0u);
}

TEST_P(FreezeScene, MedianTestsWorldPositionsOfAMovedMesh) {
    const MDagPath retopo = makeRetopo(0.0);
    const std::string transform = MFnDependencyNode(retopo.transform()).name().asChar();
    ASSERT_TRUE(mhost::driver::runCommand("setAttr " + transform + ".translateX 2"));
    context->freezeMedianOn = true;
    ASSERT_TRUE(context->refreshFreezeMedian());
    EXPECT_EQ(context->medianVertices.length(), 0u) << "the mesh no longer reaches the plane";

    ASSERT_TRUE(mhost::driver::runCommand("setAttr " + transform + ".translateX -1"));
    context->freezeBorder = true;
    context->drawFeedback(drawManager, frameContext);  // each frame recomputes both lists
    EXPECT_EQ(asSet(context->medianVertices), (std::set<int>{0, 1, 4, 8, 12, 13}));
    EXPECT_EQ(asSet(context->frozenVertices), kGridBorder);
    EXPECT_EQ(checked(0), GetParam());
}

TEST(MedianSide, TheBoundaryItselfCounts) {
    EXPECT_TRUE(kyStrakeContext::onMedianSide(MPoint(0, 1, 1), "right"));
    EXPECT_TRUE(kyStrakeContext::onMedianSide(MPoint(0, 1, 1), "left"));
    EXPECT_FALSE(kyStrakeContext::onMedianSide(MPoint(1e-9, 1, 1), "right"));
    EXPECT_FALSE(kyStrakeContext::onMedianSide(MPoint(-1e-9, 1, 1), "left"));
}

INSTANTIATE_TEST_SUITE_P(PanelPresentAndAbsent, FreezeScene, ::testing::Bool());

// The bevel on a strip of three quads, row 1 along its bottom (0 to 3) and row 2 along its top
// (4 to 7), the faces as the last patch's new faces.
class RingBevel : public kytest::PatchFlowScene {
protected:
    void SetUp() override {
        kytest::PatchFlowScene::SetUp();
        makePatchScene(false);
        MPointArray points;
        for (int r = 0; r < 2; ++r)
            for (int c = 0; c < 4; ++c) points.append(MPoint(2 + c, -0.5, 3 + r));
        strip = makeMesh(points, {{0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}});
        select(strip);
        ASSERT_TRUE(setNewFaces(kytest::idArray({0, 1, 2})));
    }

    // The rungs as vertex pairs, low id first.
    std::vector<std::pair<int, int>> rungEnds(const MIntArray& edges) const {
        std::vector<std::pair<int, int>> ends;
        MFnMesh mesh(strip);
        for (unsigned i = 0; i < edges.length(); ++i) {
            int2 vertices;
            mesh.getEdgeVertices(edges[i], vertices);
            ends.emplace_back(std::min(vertices[0], vertices[1]), std::max(vertices[0], vertices[1]));
        }
        return ends;
    }

    MDagPath strip;
};

TEST_F(RingBevel, RungsLeaveEachRowInRowOrder) {
    const MIntArray faces = kytest::idArray({0, 1, 2});
    const std::vector<std::pair<int, int>> rungs{{0, 4}, {1, 5}, {2, 6}, {3, 7}};
    EXPECT_EQ(rungEnds(kyStrakeContext::ringEdges(kytest::idArray({0, 1, 2, 3}), faces, strip)), rungs);
    EXPECT_EQ(rungEnds(kyStrakeContext::ringEdges(kytest::idArray({4, 5, 6, 7}), faces, strip)), rungs);
    // The last vertex takes the first edge at it in each of its faces, used or not, even one along
    // the row's own side.
    EXPECT_EQ(rungEnds(kyStrakeContext::ringEdges(kytest::idArray({4, 5}), faces, strip)),
              (std::vector<std::pair<int, int>>{{0, 4}, {1, 5}, {5, 6}}));
    // Faces outside the patch give no rungs.
    EXPECT_EQ(kyStrakeContext::ringEdges(kytest::idArray({0, 1}), kytest::idArray({2}), strip).length(), 0u);
}

TEST_F(RingBevel, StoresItsSplitRingTextAndRunsNothing) {
    ASSERT_TRUE(
        writeShadowIndices(kytest::idArray({0, 1, 2, 3}), kytest::idArray({4, 5, 6, 7}), MIntArray()));
    const kytest::MeshState before = kytest::meshState(strip);
    const size_t entries = mhost::driver::undoJournal().size();
    ASSERT_TRUE(context->bevelRing());
    const std::vector<std::string> journal = mhost::driver::undoJournal();
    ASSERT_EQ(journal.size(), entries + 1) << "one tool command is filed";
    EXPECT_EQ(journal.back().find("polySplitRing"), std::string::npos);
    EXPECT_EQ(kytest::meshState(strip), before) << "the stored text is never run";
    EXPECT_EQ(MFnMesh(strip).numEdges(), 10);
}

TEST_F(RingBevel, RefusesWithoutAStrakeOrWithUnequalRows) {
    ASSERT_TRUE(setNewFaces(MIntArray()));
    const size_t entries = mhost::driver::undoJournal().size();
    EXPECT_EQ(context->bevelRing(), MS::kInvalidParameter) << "no faces and no rows";

    ASSERT_TRUE(setNewFaces(kytest::idArray({0, 1, 2})));
    ASSERT_TRUE(writeShadowIndices(kytest::idArray({0, 1, 2, 3}), kytest::idArray({4, 5, 6}), MIntArray()));
    EXPECT_EQ(context->bevelRing(), MS::kSuccess) << "four rungs each way, the last vertex's two included";
    ASSERT_TRUE(writeShadowIndices(kytest::idArray({0, 1, 2, 3}), kytest::idArray({4, 5}), MIntArray()));
    const size_t afterFirst = mhost::driver::undoJournal().size();
    EXPECT_EQ(context->bevelRing(), MS::kInvalidParameter) << "four rungs against three";
    EXPECT_EQ(mhost::driver::undoJournal().size(), afterFirst);
    EXPECT_EQ(afterFirst, entries + 1);
}

}  // namespace
