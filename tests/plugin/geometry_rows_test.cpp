// Rows (vertex ids) and the shadow (positions) on the locator: conversions between the two on a
// grid mesh, closing, twisting, and the row states a patch leaves behind.

#include <gtest/gtest.h>
#include <maya/MSelectionList.h>

#include <stdexcept>
#include <vector>

#include "geometry/functions.h"
#include "tests/plugin/geometryScene.h"

namespace {

using kytest::values;
using Ids = std::vector<int>;

MIntArray ints(std::initializer_list<int> list) {
    MIntArray array;
    for (int v : list) array.append(v);
    return array;
}

MPointArray line(std::initializer_list<MPoint> list) {
    MPointArray array;
    for (const MPoint& p : list) array.append(p);
    return array;
}

// A locator and a selected 6 x 1 grid: vertex id = row * 7 + column, at (column, 0, row).
class Rows : public kytest::GeometryScene {
protected:
    void SetUp() override {
        kytest::GeometryScene::SetUp();
        locator_ = makeLocator();
        grid_ = makeGrid(6, 1);
        select(grid_);
    }
    Ids readIds(const char* name) const {
        MIntArray ids;
        getIntArrayAttr(name, locator_, ids);
        return values(ids);
    }
    MPointArray readPoints(const char* name) const {
        MPointArray points;
        getPointArrayAttr(name, locator_, points);
        return points;
    }
    MObject locator_;
    MDagPath grid_;
};

}  // namespace

TEST_F(Rows, PointsFromIdsTestsOneLooserThanTheRange) {
    MStatus status;
    MPointArray points = pointsFromIds(ints({3, 8}), grid_, status);
    ASSERT_TRUE(status);
    EXPECT_EQ(points[1], MPoint(1, 0, 1));
    points = pointsFromIds(ints({14}), grid_, status);
    ASSERT_EQ(points.length(), 1u) << "an id equal to the count passes the test";
    EXPECT_EQ(points[0], MPoint(0, 0, 0)) << "and reads where the iterator stood: the first vertex";
    EXPECT_EQ(pointsFromIds(ints({5, 14}), grid_)[1], MPoint(5, 0, 0)) << "or the previous id";
    EXPECT_EQ(pointsFromIds(ints({2, 15}), grid_, status).length(), 0u);
    EXPECT_EQ(status, MS::kFailure);
}

TEST_F(Rows, IdsFromPointsScansDownAndNeverReachesVertexZero) {
    MStatus status;
    const MIntArray ids =
        idsFromPoints(grid_, line({MPoint(4.3, 0, 0.1), MPoint(0, 0, 0), MPoint(1e6, 0, 0)}), status);
    ASSERT_TRUE(status);
    EXPECT_EQ(values(ids), Ids({4, 7, -1})) << "on vertex 0: the higher of the tied 1 and 7; too far: -1";
    idsFromPoints(grid_, MPointArray(), status);
    EXPECT_EQ(status, MS::kInvalidParameter);

    ASSERT_TRUE(mhost::driver::runCommand("createNode mesh -n emptyShape"));
    MSelectionList list;
    MDagPath empty;
    list.add("emptyShape");
    list.getDagPath(0, empty);
    EXPECT_EQ(idsFromPoints(empty, line({MPoint(0, 0, 0)}), status).length(), 0u);
    EXPECT_TRUE(status) << "fewer than three vertices: empty, no failure";
}

TEST_F(Rows, ShadowSizesComeFromNonEmptyRowsThenFromThePolylines) {
    ASSERT_TRUE(writeShadowIndices(ints({1, 2, 3, 4}), MIntArray(), ints({8, 9, 10, 11, 12})));
    EXPECT_EQ(readIds("sizesShadow"), Ids({4, 5}));
    ASSERT_TRUE(writeShadowStrokes(line({MPoint(0, 0, 0), MPoint(1, 0, 0)}), MPointArray(), MPointArray()));
    EXPECT_EQ(readIds("sizesShadow"), Ids({2, 0}));
    ASSERT_TRUE(
        writeShadowStrokes(line({MPoint(0, 0, 0)}), line({MPoint(1, 0, 0)}), line({MPoint(5, 0, 0)})));
    EXPECT_EQ(readIds("sizesShadow"), Ids({1})) << "a third row stands alone";
    EXPECT_THROW(getShadowRows()[1], std::out_of_range);
}

TEST_F(Rows, TwistTurnsTheFarRingAndSixTwistsComeBack) {
    const MIntArray ring = ints({7, 8, 9, 10, 11, 12, 7});
    ASSERT_TRUE(writeShadowIndices(ints({0, 1, 2, 3, 4, 5, 0}), ring, MIntArray()));
    ASSERT_TRUE(twistShadow(1));
    EXPECT_EQ(readIds("shadowIndices2"), Ids({8, 9, 10, 11, 12, 7, 8}));
    EXPECT_EQ(readPoints("strokesShadow")[7], MPoint(1, 0, 1)) << "the shadow follows";
    ASSERT_TRUE(twistShadow(-5)) << "only the sign counts";
    EXPECT_EQ(readIds("shadowIndices2"), values(ring));
    for (int i = 0; i < 6; ++i) ASSERT_TRUE(twistShadow(1));
    EXPECT_EQ(readIds("shadowIndices2"), values(ring));

    ASSERT_TRUE(writeShadowIndices(ints({0, 1, 2, 3, 4, 5, 0}), ints({7, 8, 9, 7}), MIntArray()));
    EXPECT_EQ(twistShadow(1), MS::kInvalidParameter);
    EXPECT_EQ(readIds("shadowIndices2"), Ids({7, 8, 9, 7})) << "rows of different lengths stay";
}

TEST_F(Rows, RefreshFollowsTheRowsOnTheMesh) {
    ASSERT_TRUE(writeShadowIndices(ints({0, 1, 2}), ints({7, 8, 9}), MIntArray()));
    ASSERT_TRUE(refreshShadowStrokes());
    EXPECT_EQ(readPoints("strokesShadow").length(), 0u) << "no player row and no third row: nothing to do";
    ASSERT_TRUE(setPlayerVertices(ints({7, 8, 9})));
    ASSERT_TRUE(refreshShadowStrokes());
    EXPECT_EQ(readPoints("strokesShadow")[4], MPoint(1, 0, 1));

    ASSERT_TRUE(writeShadowIndices(ints({0, 1, 2}), ints({7, 8}), MIntArray()));
    EXPECT_EQ(refreshShadowStrokes(), MS::kFailure);
    EXPECT_EQ(readPoints("strokesShadow").length(), 6u) << "unchanged";
    ASSERT_TRUE(writeShadowIndices(ints({0, 1, 2}), ints({7, 99}), MIntArray()));
    ASSERT_TRUE(refreshShadowStrokesFromMesh(grid_));
    EXPECT_EQ(readIds("sizesShadow"), Ids({3, 1})) << "ids the mesh lacks are skipped";
}

TEST_F(Rows, RebuildFindsRowsByPositionAndClosesThemWithTheShadow) {
    ASSERT_TRUE(writeShadowStrokes(line({MPoint(1, 0, 0), MPoint(2, 0, 0), MPoint(1, 0, 0)}),
                                   line({MPoint(1, 0, 1), MPoint(2, 0, 1), MPoint(3, 0, 1)}), MPointArray()));
    ASSERT_TRUE(rebuildShadowIndices());
    EXPECT_EQ(readIds("shadowIndices1"), Ids({1, 2, 1}));
    EXPECT_EQ(readIds("shadowIndices2"), Ids({8, 9, 8})) << "a closed shadow closes every row";
}

TEST_F(Rows, SliceAndClosedFinishCloseTheRows) {
    ASSERT_TRUE(writeShadowIndices(ints({0, 1, 2, 3}), ints({7, 8, 9, 10}), MIntArray()));
    ASSERT_TRUE(writeShadowStrokesFromIds(ints({0, 1, 2, 3}), ints({7, 8, 9, 10}), MIntArray()));
    MPointArray outPoints;
    MIntArray outIds;
    ASSERT_TRUE(stackSlice(outPoints, outIds));
    EXPECT_EQ(values(outIds), Ids({7, 8, 9, 10})) << "the row as it was before closing";
    EXPECT_EQ(readIds("shadowIndices2"), Ids({7, 8, 9, 7}));
    EXPECT_EQ(outPoints[3], MPoint(0, 0, 1)) << "the closed polyline";

    ASSERT_TRUE(writeShadowIndices(ints({0, 1, 2}), ints({7, 8, 9, 10}), MIntArray()));
    ASSERT_TRUE(setPlayerVertices(ints({0, 1, 2})));
    finishClosedRows();
    EXPECT_EQ(readIds("shadowIndices1"), Ids({0, 1, 2, 0})) << "row 1 gains its first id";
    EXPECT_EQ(values(getPlayerVertices()), Ids({7, 8, 9, 7})) << "the far row, closed, leads on";
    EXPECT_EQ(getPlayerPoints()[1], MPoint(1, 0, 1));
}

TEST_F(Rows, StrokeTestsKeepTheirOffsetQuirkAndDropTheLastStroke) {
    // Strokes of 2, 3 and 3 points, the third closed; from the third stroke on the test compares the
    // points at sizes[k-1] and sizes[k-1] + sizes[k] - 1.
    ASSERT_TRUE(
        setPointArrayAttr("strokes", locator_,
                          line({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(0, 1, 0), MPoint(1, 1, 0),
                                MPoint(2, 1, 0), MPoint(0, 2, 0), MPoint(1, 2, 0), MPoint(0, 2, 0)})));
    ASSERT_TRUE(setIntArrayAttr("sizes", locator_, ints({2, 3, 3})));
    EXPECT_FALSE(anyStrokeClosed()) << "points 3 and 5 are compared, not 5 and 7";
    EXPECT_TRUE(isStrokeClosed(2));
    EXPECT_THROW(isStrokeClosed(3), std::out_of_range);

    ASSERT_TRUE(dropLastStroke());
    EXPECT_EQ(readIds("sizes"), Ids({2, 3}));
    EXPECT_EQ(readPoints("strokes").length(), 5u);
    ASSERT_TRUE(setIntArrayAttr("sizes", locator_, ints({5})));
    ASSERT_TRUE(dropLastStroke());
    EXPECT_EQ(readPoints("strokes").length(), 0u);
    EXPECT_FALSE(dropLastStroke());
}
