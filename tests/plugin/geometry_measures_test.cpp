// Measures, straight-line subdivision and the ring marker.

#include <gtest/gtest.h>
#include <maya/MColor.h>
#include <maya/MFloatArray.h>
#include <maya/MUIDrawManager.h>
#include <mhost/Interaction.h>

#include <vector>

#include "drawing/DisplayList.h"
#include "drawing/DrawRecorder.h"
#include "geometry/functions.h"
#include "tests/plugin/geometryScene.h"

namespace {

MPointArray pair(const MPoint& a, const MPoint& b) {
    MPointArray array;
    array.append(a);
    array.append(b);
    return array;
}

// A view looking down -Z at the origin from 10 units away.
class ViewMeasures : public kytest::GeometryScene {
protected:
    void SetUp() override {
        kytest::GeometryScene::SetUp();
        ASSERT_TRUE(mhost::driver::placeCamera(MPoint(0, 0, 10), MPoint(0, 0, 0)));
    }
    std::vector<const mhost::DrawRecord*> circles() const {
        std::vector<const mhost::DrawRecord*> found;
        for (const mhost::DrawRecord* record : list_.primitives())
            if (record->call == mhost::DrawCall::kCircle) found.push_back(record);
        return found;
    }
    mhost::DisplayList list_;
};

}  // namespace

TEST(Measures, NearestHitIndexAndPointFallback) {
    MFloatArray params;
    for (float v : {5.0f, -2.0f, 2.0f}) params.append(v);
    EXPECT_EQ(nearestHitIndex(params), 1) << "smallest magnitude, the first of equals";
    EXPECT_EQ(nearestHitIndex(MFloatArray()), 0);

    MPoint onPlane(2, 0.00005, 3), real(0.5, -0.5, 0.25);
    EXPECT_EQ(keepOrLastPoint(real, pair(MPoint(1, 1, 1), MPoint(7, 8, 9))), MPoint(0.5, -0.5, 0.25));
    EXPECT_EQ(keepOrLastPoint(onPlane, pair(MPoint(1, 1, 1), MPoint(7, 8, 9))), MPoint(7, 8, 9));
    EXPECT_EQ(onPlane, MPoint(7, 8, 9))
        << "a coordinate near 0 counts as no point; the argument is overwritten";
}

TEST(Subdivision, ByDensityLeavesTheEndOut) {
    const MPointArray run = subdivideByDensity(pair(MPoint(0, 0, 0), MPoint(0, 0, 1)), 10);
    ASSERT_EQ(run.length(), 10u);
    EXPECT_NEAR(run[9].z, 0.9, 1e-12);
    EXPECT_EQ(subdivideByDensity(pair(MPoint(1, 1, 1), MPoint(1, 1, 1)), 10).length(), 2u)
        << "equal: unchanged";
    EXPECT_EQ(subdivideByDensity(pair(MPoint(0, 0, 0), MPoint(0.05, 0, 0)), 10).length(), 0u);
    EXPECT_EQ(subdivideByDensity(pair(MPoint(0, 0, 0, 1), MPoint(0, 0, 0, 2)), 10).length(), 0u) << "w only";
}

TEST_F(ViewMeasures, ScreenStepsAndClosedOutline) {
    const MPoint p0(0, 0, 0), p1(1, 0, 0), p2(1, 1, 0), p3(0, 1, 0);
    const int side = screenDistance(p0, p1) / 10;
    ASSERT_GT(side, 1);
    const MPointArray outline = subdivideOutline(p0, p1, p2, p3, 10);
    ASSERT_EQ(outline.length(), static_cast<unsigned int>(4 * side + 1));
    EXPECT_EQ(outline[side], p1);
    EXPECT_EQ(outline[outline.length() - 1], p0);

    ASSERT_LT(screenDistance(p0, MPoint(0.1, 0, 0)), 10);
    EXPECT_EQ(subdivideByScreen(p0, MPoint(0.1, 0, 0), 10).length(), 0u);
    EXPECT_EQ(
        subdivideOutline(p0, MPoint(0.01, 0, 0), MPoint(0.01, 0.01, 0), MPoint(0, 0.01, 0), 10).length(), 1u);
}

TEST_F(ViewMeasures, MarkerRingWithADarkEdge) {
    mhost::DrawRecorder recorder(list_);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    const MColor red(1.0f, 0.0f, 0.0f);
    drawMarker(manager, MPoint(100, 50, 0), red, 7.0, false);
    const auto rings = circles();
    ASSERT_EQ(rings.size(), 4u);
    EXPECT_EQ(rings[0]->points[0], MPoint(100, 50, 0)) << "z = 0: already pixels";
    EXPECT_EQ(rings[0]->state.color, red);
    EXPECT_EQ(rings[1]->radius, 3.5);
    EXPECT_TRUE(rings[1]->filled);
    EXPECT_EQ(rings[2]->radius, 9.0);
    EXPECT_EQ(rings[3]->state.color, MColor(0.01f, 0.01f, 0.01f, 0.98f));
    EXPECT_EQ(list_.state.color, red) << "the marker's colour is set again at the end";
}

TEST_F(ViewMeasures, PlainBlackMarkerKeepsTheColourAndConvertsWorldPoints) {
    mhost::DrawRecorder recorder(list_);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    const MColor blue(0.0f, 0.0f, 1.0f);
    manager.setColor(blue);
    drawMarker(manager, MPoint(0, 0, 1), MColor(0.0f, 0.0f, 0.0f, 1.0f), 4.0, true);
    const auto rings = circles();
    ASSERT_EQ(rings.size(), 2u);
    EXPECT_EQ(rings[0]->state.color, blue) << "black leaves the manager's colour";
    EXPECT_EQ(rings[0]->state.lineWidth, 1.5f);
    EXPECT_EQ(rings[0]->points[0], worldToScreen(MPoint(0, 0, 1)));
}

TEST(Trace, LinesAreComposedNotPrinted) {
    MIntArray ids;
    EXPECT_EQ(traceIds(ids, "row"), "row (len: 0) o-o empty o-o");
    ids.append(4);
    ids.append(9);
    EXPECT_EQ(traceIds(ids, "row"), "row (len: 2) 4 9");
    EXPECT_EQ(tracePoints(pair(MPoint(1, 2, 3), MPoint(0.5, 0, 0)), "pts"),
              "pts (len: 2) [ (1, 2, 3),  (0.5, 0, 0), ");
    MStatus status;
    EXPECT_EQ(failWith(status, "has no shadow"), MS::kInvalidParameter);
    EXPECT_EQ(status, MS::kInvalidParameter);
}
