#include <gtest/gtest.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <cmath>
#include <sstream>

namespace {

void expectNear(const MVector& expected, const MVector& actual, double tolerance = 1e-12) {
    EXPECT_TRUE(expected.isEquivalent(actual, tolerance)) << "expected " << expected << ", got " << actual;
}

}  // namespace

TEST(MVectorProducts, CrossIsRightHandedAndDotSumsProducts) {
    EXPECT_EQ(MVector::zAxis, MVector::xAxis ^ MVector::yAxis);
    EXPECT_EQ(MVector::zNegAxis, MVector::yAxis ^ MVector::xAxis);
    EXPECT_EQ(MVector(-3, 6, -3), MVector(1, 2, 3) ^ MVector(4, 5, 6));
    EXPECT_DOUBLE_EQ(12.0, MVector(1, 2, 3) * MVector(4, -5, 6));
    EXPECT_EQ(MVector(2, 4, 6), 2.0 * MVector(1, 2, 3));
    EXPECT_EQ(MVector(0.5, 1, 1.5), MVector(1, 2, 3) / 2);
    EXPECT_EQ(MVector(-1, -2, -3), -MVector(1, 2, 3));
}

TEST(MVectorAngle, KnownAnglesStayAccurateNearZeroAndHalfTurn) {
    EXPECT_DOUBLE_EQ(M_PI / 2, MVector::xAxis.angle(MVector::yAxis));
    EXPECT_DOUBLE_EQ(M_PI, MVector::xAxis.angle(MVector::xNegAxis));
    EXPECT_DOUBLE_EQ(M_PI / 4, MVector(1, 1, 0).angle(MVector(5, 0, 0)));
    // acos of the dot product would round this to 0.
    EXPECT_NEAR(1e-9, MVector(1, 1e-9, 0).angle(MVector::xAxis), 1e-18);
    EXPECT_NEAR(M_PI - 1e-9, MVector(-1, 1e-9, 0).angle(MVector::xAxis), 1e-15);
    EXPECT_EQ(0.0, MVector::zero.angle(MVector::xAxis));
    EXPECT_EQ(0.0, MVector::xAxis.angle(MVector::zero));
}

TEST(MVectorNormal, GivesUnitLengthAndLeavesZeroAlone) {
    EXPECT_DOUBLE_EQ(5.0, MVector(3, 4, 0).length());
    expectNear(MVector(0.6, 0.8, 0), MVector(3, 4, 0).normal());
    EXPECT_EQ(MVector::zero, MVector::zero.normal());
    MVector v;
    EXPECT_EQ(MS::kSuccess, v.normalize());
    EXPECT_EQ(MVector::zero, v);
    v = MVector(0, 0, -7);
    v.normalize();
    EXPECT_EQ(MVector::zNegAxis, v);
}

TEST(MVectorRotate, AxisRotationsAreCounterClockwise) {
    expectNear(MVector::yAxis, MVector::xAxis.rotateBy(MVector::kZaxis, M_PI / 2));
    expectNear(MVector::zAxis, MVector::yAxis.rotateBy(MVector::kXaxis, M_PI / 2));
    expectNear(MVector::xAxis, MVector::zAxis.rotateBy(MVector::kYaxis, M_PI / 2));
    expectNear(MVector(-1, -2, 3), MVector(1, 2, 3).rotateBy(MVector::kZaxis, M_PI));
    EXPECT_EQ(MVector(1, 2, 3), MVector(1, 2, 3).rotateBy(MVector::kWaxis, 1.0));
    const MVector turned = MVector(1, -2, 0.5).rotateBy(MVector::kYaxis, 0.3);
    EXPECT_NEAR(MVector(1, -2, 0.5).length(), turned.length(), 1e-12);
    EXPECT_NEAR(0.3, MVector(1, 0, 0.5).angle(MVector(turned.x, 0, turned.z)), 1e-12);
}

TEST(MVectorRotate, QuaternionIsNormalisedFirst) {
    const double s = std::sin(M_PI / 4), c = std::cos(M_PI / 4);
    expectNear(MVector::yAxis, MVector::xAxis.rotateBy(0, 0, s, c));
    expectNear(MVector::yAxis, MVector::xAxis.rotateBy(0, 0, 3 * s, 3 * c));
    expectNear(MVector(0, 0, 2), MVector(0, 0, 2).rotateBy(0, 0, s, c));
    EXPECT_EQ(MVector(1, 2, 3), MVector(1, 2, 3).rotateBy(0, 0, 0, 0));
}

TEST(MVectorCompare, EquivalenceIsDistanceAndParallelIgnoresLengthAndSense) {
    EXPECT_TRUE(MVector(1, 0, 0).isEquivalent(MVector(1, 1e-11, 0)));
    EXPECT_FALSE(MVector(1, 0, 0).isEquivalent(MVector(1, 1e-9, 0)));
    EXPECT_TRUE(MVector(1, 0, 0).isEquivalent(MVector(1, 0.05, 0), 0.1));
    EXPECT_NE(MVector(1, 0, 0), MVector(1, 1e-15, 0));
    EXPECT_TRUE(MVector(1, 2, 3).isParallel(MVector(-2, -4, -6)));
    EXPECT_FALSE(MVector(1, 0, 0).isParallel(MVector(1, 1e-3, 0)));
    EXPECT_FALSE(MVector::zero.isParallel(MVector::zero));
}

TEST(MVectorComponents, IndexPastZReadsX) {
    MVector v(1, 2, 3);
    EXPECT_EQ(3.0, v[2]);
    EXPECT_EQ(1.0, v[3]);
    EXPECT_EQ(1.0, v(7));
    v[1] = 9;
    EXPECT_EQ(9.0, v.y);
    double out[3] = {};
    EXPECT_EQ(MS::kSuccess, v.get(out));
    EXPECT_EQ(9.0, out[1]);
    EXPECT_EQ(MS::kFailure, v.get(nullptr));
}

TEST(MVectorConversion, FromPointIsCartesian) {
    EXPECT_EQ(MVector(1, 2, 3), MVector(MPoint(2, 4, 6, 2)));
    EXPECT_EQ(MVector(2, 4, 6), MVector(MPoint(2, 4, 6, 0)));
    EXPECT_EQ(MVector(1, 2, 3), MVector(MFloatPoint(1, 2, 3)));
    const double d[3] = {4, 5, 6};
    EXPECT_EQ(MVector(4, 5, 6), MVector(d));
}

TEST(MPointBasics, OriginHasUnitWAndEqualityComparesW) {
    EXPECT_EQ(MPoint(0, 0, 0, 1), MPoint::origin);
    EXPECT_EQ(MPoint::origin, MPoint());
    EXPECT_EQ(MPoint::origin, MPoint(0, 0));
    EXPECT_NE(MPoint::origin, MPoint(0, 0, 0, 2));
    EXPECT_NE(MPoint::origin, MPoint(0, 0, 0, 0));
    EXPECT_EQ(1.0, MPoint(5, 6, 7)[3]);
    EXPECT_EQ(5.0, MPoint(5, 6, 7)[4]);
}

TEST(MPointArithmetic, VectorsMoveTheCartesianPoint) {
    EXPECT_EQ(MVector(1, 1, 1), MPoint(2, 3, 4) - MPoint(1, 2, 3));
    EXPECT_EQ(MVector(1, 1, 1), MPoint(4, 6, 8, 2) - MPoint(1, 2, 3));
    EXPECT_EQ(MPoint(2, 1, 1, 1), MPoint(2, 2, 2, 2) + MVector(1, 0, 0));
    EXPECT_EQ(MPoint(0, 1, 1, 1), MPoint(2, 2, 2, 2) - MVector(1, 0, 0));
    MPoint p(1, 2, 3, 2);
    p += MVector(1, 1, 1);
    EXPECT_EQ(MPoint(2, 3, 4, 2), p);
    p -= MVector(1, 1, 1);
    EXPECT_EQ(MPoint(1, 2, 3, 2), p);
    EXPECT_EQ(MPoint(2, 4, 6, 2), MPoint(1, 2, 3, 2) * 2.0);
    EXPECT_EQ(MPoint(2, 4, 6, 2), 2.0 * MPoint(1, 2, 3, 2));
    EXPECT_EQ(MPoint(0.5, 1, 1.5, 2), MPoint(1, 2, 3, 2) / 2);
}

TEST(MPointHomogeneous, FormsConvertAndPointsAtInfinityStay) {
    EXPECT_EQ(MPoint(1, 2, 3, 1), MPoint(2, 4, 6, 2).cartesianize());
    EXPECT_EQ(MPoint(1, 2, 3, 2), MPoint(2, 4, 6, 2).rationalize());
    EXPECT_EQ(MPoint(4, 8, 12, 2), MPoint(2, 4, 6, 2).homogenize());
    EXPECT_EQ(MPoint(2, 4, 6, 2), MPoint(2, 4, 6, 2).rationalize().homogenize());
    EXPECT_EQ(MPoint(2, 4, 6, 0), MPoint(2, 4, 6, 0).cartesianize());
    EXPECT_EQ(MPoint(2, 4, 6, 0), MPoint(2, 4, 6, 0).rationalize());
    EXPECT_DOUBLE_EQ(1.0, MPoint(2, 0, 0, 2).distanceTo(MPoint::origin));
    EXPECT_DOUBLE_EQ(5.0, MPoint(3, 4, 0).distanceTo(MPoint::origin));
    EXPECT_TRUE(MPoint(2, 4, 6, 2).isEquivalent(MPoint(1, 2, 3)));
    EXPECT_FALSE(MPoint(1, 2, 3).isEquivalent(MPoint(1, 2, 3.001)));
    EXPECT_TRUE(MPoint(1, 2, 3).isEquivalent(MPoint(1, 2, 3.001), 0.01));
}

TEST(MPointBasics, GetAndStreamWriteAllFourComponents) {
    float out[4] = {};
    EXPECT_EQ(MS::kSuccess, MPoint(1, 2, 3, 4).get(out));
    EXPECT_EQ(4.0f, out[3]);
    EXPECT_EQ(MS::kFailure, MPoint().get(static_cast<double*>(nullptr)));
    std::ostringstream text;
    text << MPoint(1, 2.5, -3) << " " << MVector(1, 2, 3);
    EXPECT_EQ("[1, 2.5, -3, 1] [1, 2, 3]", text.str());
}

TEST(FloatCounterparts, ConvertBothWaysAndUseFloatTolerance) {
    const MPoint precise(0.1, 0.2, 0.3, 1);
    const MFloatPoint rounded(precise);
    EXPECT_EQ(0.1f, rounded.x);
    EXPECT_EQ(MPoint(0.1f, 0.2f, 0.3f), MPoint(rounded));
    EXPECT_EQ(MFloatVector(1, 1, 1), MFloatPoint(2, 3, 4) - MFloatPoint(1, 2, 3));
    EXPECT_EQ(MFloatPoint(1, 2, 3, 1), MFloatPoint(2, 4, 6, 2).cartesianize());
    EXPECT_TRUE(MFloatVector(1, 0, 0).isEquivalent(MFloatVector(1, 1e-6f, 0)));
    EXPECT_FALSE(MFloatVector(1, 0, 0).isEquivalent(MFloatVector(1, 1e-4f, 0)));
    EXPECT_EQ(MFloatVector::zAxis, MFloatVector::xAxis ^ MFloatVector::yAxis);
    EXPECT_FLOAT_EQ(static_cast<float>(M_PI / 2), MFloatVector::xAxis.angle(MFloatVector::yAxis));
    EXPECT_EQ(MFloatVector(0.6f, 0.8f, 0), MFloatVector(3, 4, 0).normal());
    EXPECT_EQ(MVector(1, 2, 3), MVector(MFloatVector(1, 2, 3)));
}
