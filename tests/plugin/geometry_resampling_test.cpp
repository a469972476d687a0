// Resampling a polyline to a number of points evenly spaced by arc length.

#include <gtest/gtest.h>
#include <maya/MPointArray.h>

#include <cmath>
#include <vector>

#include "geometry/functions.h"

namespace {

MPointArray polyline(std::initializer_list<MPoint> points) {
    MPointArray array;
    for (const MPoint& p : points) array.append(p);
    return array;
}

bool finite(const MPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

}  // namespace

TEST(ResamplePolyline, FewerThanTwoPointsComeBackWhateverTheCount) {
    EXPECT_EQ(resamplePolyline(MPointArray(), 5).length(), 0u);
    for (int count : {-1, 0, 1, 7}) {
        const MPointArray result = resamplePolyline(polyline({MPoint(1, 2, 3)}), count);
        ASSERT_EQ(result.length(), 1u) << "count " << count;
        EXPECT_EQ(result[0], MPoint(1, 2, 3));
    }
}

TEST(ResamplePolyline, TwoPointsGiveEvenSpacingAndKeepTheStartsW) {
    const MPointArray result = resamplePolyline(polyline({MPoint(0, 0, 0), MPoint(4, 0, 8, 3)}), 5);
    ASSERT_EQ(result.length(), 5u);
    for (unsigned int k = 0; k < 5; ++k) {
        EXPECT_TRUE(result[k].isEquivalent(MPoint(k, 0, 2.0 * k), 1e-12)) << k;
        EXPECT_EQ(result[k].w, 1.0) << "w of the segment's first point";
    }
}

TEST(ResamplePolyline, OutputLiesOnTheInputAtEvenArcLengths) {
    const MPointArray input =
        polyline({MPoint(0, 0, 0), MPoint(0.3, 0, 0), MPoint(2, 1, 0), MPoint(2, 1, 3), MPoint(5, 5, 5)});
    std::vector<double> along(1, 0.0);
    for (unsigned int i = 1; i < input.length(); ++i)
        along.push_back(along.back() + input[i].distanceTo(input[i - 1]));

    const MPointArray result = resamplePolyline(input, 13);
    ASSERT_EQ(result.length(), 13u);
    EXPECT_TRUE(result[12].isEquivalent(input[4], 1e-9));
    for (unsigned int k = 0; k < result.length(); ++k) {
        bool onInput = false;
        for (unsigned int i = 0; i + 1 < input.length() && !onInput; ++i) {
            const double fromStart = result[k].distanceTo(input[i]);
            onInput = std::fabs(fromStart + result[k].distanceTo(input[i + 1]) -
                                input[i].distanceTo(input[i + 1])) < 1e-9;
            if (onInput) {
                EXPECT_NEAR(along[i] + fromStart, along.back() * k / 12.0, 1e-9) << k;
            }
        }
        EXPECT_TRUE(onInput) << "point " << k << " is off the polyline";
    }
}

TEST(ResamplePolyline, InnerZeroLengthSegmentIsHarmless) {
    const MPointArray result =
        resamplePolyline(polyline({MPoint(0, 0, 0), MPoint(1, 0, 0), MPoint(1, 0, 0), MPoint(2, 0, 0)}), 9);
    ASSERT_EQ(result.length(), 9u);
    for (unsigned int k = 0; k < 9; ++k) EXPECT_NEAR(result[k].x, k * 0.25, 1e-12) << k;
}

TEST(ResamplePolyline, ZeroLengthEndSegmentsAreNotGuarded) {
    const MPointArray first =
        resamplePolyline(polyline({MPoint(0, 0, 0), MPoint(0, 0, 0), MPoint(2, 0, 0)}), 5);
    EXPECT_FALSE(finite(first[0])) << "0 / 0 for the first point";
    for (unsigned int k = 1; k < 5; ++k) EXPECT_NEAR(first[k].x, k * 0.5, 1e-12);
    const MPointArray last =
        resamplePolyline(polyline({MPoint(0, 0, 0), MPoint(2, 0, 0), MPoint(2, 0, 0)}), 5);
    EXPECT_FALSE(finite(last[4]));
    EXPECT_NEAR(last[3].x, 1.5, 1e-12);
    const MPointArray collapsed = resamplePolyline(polyline({MPoint(1, 1, 1), MPoint(1, 1, 1)}), 3);
    for (unsigned int k = 0; k < 3; ++k) EXPECT_FALSE(finite(collapsed[k])) << k;
}

TEST(ResampleStroke, CountsBelowTwoGiveTheTwoEnds) {
    const MPointArray stroke = polyline({MPoint(0, 0, 0), MPoint(1, 1, 0), MPoint(3, 1, 0)});
    for (int count : {-3, 0, 1, 2}) {
        const MPointArray result = resampleStroke(stroke, count);
        ASSERT_EQ(result.length(), 2u) << "count " << count;
        EXPECT_TRUE(result[0].isEquivalent(MPoint(0, 0, 0), 1e-12)) << count;
        EXPECT_TRUE(result[1].isEquivalent(MPoint(3, 1, 0), 1e-12)) << count;
    }
    EXPECT_EQ(resampleStroke(stroke, 6).length(), 6u);
}
