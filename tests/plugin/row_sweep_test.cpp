// The row sweep of bridge patches: a chord as long as the start row carried along a spine and
// turned by the angle of travel, and the sampling of each carried chord.

#include <gtest/gtest.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <maya/MVector.h>

#include <string>

#include "patch/kyStrakeToolCmd.h"
#include "tests/plugin/patchGeometryScene.h"

namespace {

using kytest::pointsOf;

constexpr double kTolerance = 1e-5;

// Five points on the x axis from 0 to 4.
MPointArray xAxisProfile() {
    MPointArray profile;
    for (int x = 0; x <= 4; ++x) profile.append(MPoint(x, 0, 0));
    return profile;
}

void expectNear(const MPoint& actual, const MPoint& expected, const std::string& what) {
    EXPECT_NEAR(actual.x, expected.x, kTolerance) << what;
    EXPECT_NEAR(actual.y, expected.y, kTolerance) << what;
    EXPECT_NEAR(actual.z, expected.z, kTolerance) << what;
}

// The two ends of the chord a sampled row stands for: its first point and one step past its last.
MPoint rowEnd(const MPointArray& row) {
    const unsigned int n = row.length();
    return row[0] + (row[1] - row[0]) * static_cast<double>(n);
}

TEST(RowSweep, ChordCrossingTheTravelTiltsSlightlyAndStopsOneStepShort) {
    const PolylineList rows = kyStrakeToolCmd::sweepRows(xAxisProfile(), pointsOf({MPoint(2, 0, 1)}));

    ASSERT_EQ(rows.size(), 2u);
    ASSERT_EQ(rows[0].length(), 5u);
    expectNear(rows[0][4], MPoint(4, 0, 0), "the profile comes first, as it is");
    const MPointArray& row = rows[1];
    ASSERT_EQ(row.length(), 5u);
    // The angle is a quarter turn, but divided by 1.5757 it gives t = 0.99689: a small tilt.
    expectNear(row[0], MPoint(0.00004, 0, 1.01245), "L");
    expectNear(rowEnd(row), MPoint(3.99996, 0, 0.98755), "R");
    const double xs[] = {0.0, 0.8, 1.6, 2.4, 3.2};
    for (int i = 0; i < 5; ++i) EXPECT_NEAR(row[i].x, xs[i], 1e-4) << i;
}

TEST(RowSweep, TravelAlongOrAgainstTheChordTurnsItRound) {
    // Along the chord (t = 0) the far end moves twice as far as the near one and the chord flips.
    const PolylineList along = kyStrakeToolCmd::sweepRows(xAxisProfile(), pointsOf({MPoint(6, 0, 0)}));
    ASSERT_EQ(along.size(), 2u);
    expectNear(along[1][0], MPoint(8, 0, 0), "start along");
    expectNear(along[1][4], MPoint(4.8, 0, 0), "end along");

    // Against it (t about 2) the chord flips as well, centred on the spine point.
    const PolylineList against = kyStrakeToolCmd::sweepRows(xAxisProfile(), pointsOf({MPoint(-2, 0, 0)}));
    ASSERT_EQ(against.size(), 2u);
    expectNear(against[1][0], MPoint(0, 0, 0), "start against");
    expectNear(against[1][4], MPoint(-3.2, 0, 0), "end against");
}

TEST(RowSweep, EveryRowKeepsTheChordLengthCentredOnItsSpinePoint) {
    // A slanted start row of uneven spacing and a winding spine in 3D.
    const MPointArray profile =
        pointsOf({MPoint(1, 2, 0), MPoint(1.5, 2.5, 0.2), MPoint(3, 2.2, 1), MPoint(4, 3, 1)});
    const MPointArray spine = pointsOf(
        {MPoint(2.5, 2.8, 2), MPoint(3, 3.5, 3.5), MPoint(2, 4.5, 4.5), MPoint(1, 4, 6), MPoint(1.2, 3, 7)});
    const PolylineList rows = kyStrakeToolCmd::sweepRows(profile, spine);

    ASSERT_EQ(rows.size(), spine.length() + 1);
    const double chord = profile[0].distanceTo(profile[3]);
    for (unsigned int i = 0; i < spine.length(); ++i) {
        const MPointArray& row = rows[i + 1];
        ASSERT_EQ(row.length(), profile.length());
        const MPoint end = rowEnd(row);
        EXPECT_NEAR(row[0].distanceTo(end), chord, kTolerance) << "row " << i + 1;
        expectNear(row[0] + (end - row[0]) * 0.5, spine[i], "middle of row " + std::to_string(i + 1));
    }
}

TEST(RowSweep, DegenerateProfilesAndSpines) {
    EXPECT_TRUE(kyStrakeToolCmd::sweepRows(MPointArray(), pointsOf({MPoint(1, 1, 1)})).empty());

    const PolylineList profileOnly = kyStrakeToolCmd::sweepRows(xAxisProfile(), MPointArray());
    ASSERT_EQ(profileOnly.size(), 1u);
    EXPECT_EQ(profileOnly[0].length(), 5u);

    // One point: no chord, and every new row is that one point.
    const PolylineList single =
        kyStrakeToolCmd::sweepRows(pointsOf({MPoint(1, 0, 0)}), pointsOf({MPoint(1, 0, 2), MPoint(1, 0, 4)}));
    ASSERT_EQ(single.size(), 3u);
    EXPECT_EQ(single[1].length(), 1u);
    EXPECT_EQ(single[2].length(), 1u);
}

TEST(SampleRow, StepsByOneNthAndStopsShortOfTheEnd) {
    const MPointArray row = kyStrakeToolCmd::sampleRow(MPoint(1, 2, 3), MPoint(5, -2, 3), 4);
    ASSERT_EQ(row.length(), 4u);
    for (int i = 0; i < 4; ++i) expectNear(row[i], MPoint(1 + i, 2 - i, 3), "point " + std::to_string(i));

    EXPECT_EQ(kyStrakeToolCmd::sampleRow(MPoint(0, 0, 0), MPoint(1, 0, 0), 1).length(), 1u);
    EXPECT_EQ(kyStrakeToolCmd::sampleRow(MPoint(0, 0, 0), MPoint(1, 0, 0), 0).length(), 0u);
    EXPECT_EQ(kyStrakeToolCmd::sampleRow(MPoint(0, 0, 0), MPoint(1, 0, 0), -3).length(), 0u);
}

}  // namespace
