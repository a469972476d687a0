// The stroke filters that need no scene: the lazy tail filter's window and the walk along a figure.

#include <gtest/gtest.h>
#include <maya/MPointArray.h>

#include <tuple>

#include "tool/strokeFilters.h"

namespace {

// Whether two point arrays hold the same points, exactly.
bool samePoints(const MPointArray& a, const MPointArray& b) {
    if (a.length() != b.length()) return false;
    for (unsigned i = 0; i < a.length(); ++i)
        if (!(a[i] == b[i])) return false;
    return true;
}

// Points (0, 0, 0), (1, h1, 0), (2, h2, 0)...: a zig-zag on x whose heights show the smoothing.
MPointArray zigzag(int count) {
    MPointArray points;
    for (int i = 0; i < count; ++i) points.append(MPoint(i, (i % 2) ? 1.0 : 0.0, 0.0));
    return points;
}

TEST(LazyFilter, WindowAsLongAsTheStrokeSmoothsEveryInnerPointInPlace) {
    MPointArray points = zigzag(4);  // heights 0, 1, 0, 1
    lazySmoothTail(points, 4, 1);
    // The updated P1 feeds P2: P1 = 0.25*0 + 0.5*1 + 0.25*0, then P2 = 0.25*0.5 + 0.5*0 + 0.25*1.
    EXPECT_DOUBLE_EQ(points[1].y, 0.5);
    EXPECT_DOUBLE_EQ(points[2].y, 0.375);
    EXPECT_DOUBLE_EQ(points[0].y, 0.0);
    EXPECT_DOUBLE_EQ(points[3].y, 1.0);  // the tip never moves
    EXPECT_DOUBLE_EQ(points[2].w, 1.0);
}

TEST(LazyFilter, TouchesOnlyTheLastWindowOfPoints) {
    MPointArray points = zigzag(30);
    const MPointArray before = points;
    lazySmoothTail(points, 10, 2);
    for (unsigned i = 0; i <= 20; ++i) EXPECT_EQ(points[i], before[i]) << i;  // i = n - W is read, not moved
    for (unsigned i = 21; i < 29; ++i) EXPECT_NE(points[i], before[i]) << i;
    EXPECT_EQ(points[29], before[29]);
}

TEST(LazyFilter, DoesNothingWhileTheStrokeIsShorterThanItsWindowOrWithoutPasses) {
    for (const auto& [count, window, passes] :
         {std::tuple{9, 10, 3}, std::tuple{2, 0, 1}, std::tuple{5, 0, 1}, std::tuple{5, -10, 1},
          std::tuple{5, 5, 0}, std::tuple{5, 5, -1}}) {
        MPointArray points = zigzag(count);
        const MPointArray before = points;
        lazySmoothTail(points, window, passes);
        EXPECT_TRUE(samePoints(points, before)) << count << " " << window << " " << passes;
    }
}

// A straight run of 11 points one unit apart along x.
MPointArray straightRun() {
    MPointArray points;
    for (int i = 0; i <= 10; ++i) points.append(MPoint(i, 0.0, 0.0));
    return points;
}

TEST(PointsAlongArc, ForwardWalkTakesAPointEveryStep) {
    const MPointArray walk = pointsAlongArc(straightRun(), 4.0, 2, true);
    // Steps of 2: the points at x = 2 and 4, and one more, as the distance covered must exceed 4.
    ASSERT_EQ(walk.length(), 3u);
    EXPECT_EQ(walk[0], MPoint(2.0, 0.0, 0.0));
    EXPECT_EQ(walk[1], MPoint(4.0, 0.0, 0.0));
    EXPECT_EQ(walk[2], MPoint(6.0, 0.0, 0.0));
}

TEST(PointsAlongArc, BackwardWalkStartsOnePastTheEndWithAStepOfNoLength) {
    const MPointArray walk = pointsAlongArc(straightRun(), 4.0, 2, false);
    ASSERT_EQ(walk.length(), 3u);
    EXPECT_EQ(walk[0], MPoint(8.0, 0.0, 0.0));
    EXPECT_EQ(walk[1], MPoint(6.0, 0.0, 0.0));
    EXPECT_EQ(walk[2], MPoint(4.0, 0.0, 0.0));
}

TEST(PointsAlongArc, StopsAtTheEndsAndForNoCount) {
    EXPECT_EQ(pointsAlongArc(straightRun(), 100.0, 2, true).length(), 0u);  // steps longer than the run
    EXPECT_EQ(pointsAlongArc(straightRun(), 4.0, 0, true).length(), 0u);
    EXPECT_EQ(pointsAlongArc(MPointArray(), 4.0, 2, false).length(), 0u);
    // A length of 0 never moves the walk; it stops after as many points as the array holds.
    const MPointArray stalled = pointsAlongArc(straightRun(), 0.0, 3, true);
    ASSERT_EQ(stalled.length(), 11u);
    EXPECT_EQ(stalled[10], MPoint(0.0, 0.0, 0.0));
}

}  // namespace
