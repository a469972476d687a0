#include <gtest/gtest.h>
#include <maya/MBoundingBox.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace {

MMatrix translation(double x, double y, double z) {
    MMatrix m;
    m[3][0] = x;
    m[3][1] = y;
    m[3][2] = z;
    return m;
}

// Rotation about z for row vectors: the x axis turns towards y.
MMatrix rotationZ(double angle) {
    const double values[4][4] = {{std::cos(angle), std::sin(angle), 0, 0},
                                 {-std::sin(angle), std::cos(angle), 0, 0},
                                 {0, 0, 1, 0},
                                 {0, 0, 0, 1}};
    return MMatrix(values);
}

MMatrix scaling(double x, double y, double z) {
    const double values[4][4] = {{x, 0, 0, 0}, {0, y, 0, 0}, {0, 0, z, 0}, {0, 0, 0, 1}};
    return MMatrix(values);
}

// A well-conditioned matrix with rotation, non-uniform scale, shear and translation.
MMatrix generalMatrix() {
    const double values[4][4] = {{2, 0.5, 0, 0}, {-1, 3, 0.25, 0}, {0.5, 0, 1.5, 0}, {4, -2, 7, 1}};
    return MMatrix(values) * rotationZ(0.7);
}

void expectNear(const MPoint& expected, const MPoint& actual, double tolerance = 1e-12) {
    for (unsigned int i = 0; i < 4; ++i) EXPECT_NEAR(expected[i], actual[i], tolerance) << "component " << i;
}

}  // namespace

TEST(MMatrixBasics, DefaultsToIdentityAndChecksIndices) {
    EXPECT_EQ(MMatrix::identity, MMatrix());
    EXPECT_EQ(1.0, MMatrix()(2, 2));
    EXPECT_EQ(0.0, MMatrix()(2, 3));
    MMatrix m;
    m(1, 2) = 5;
    EXPECT_EQ(5.0, m[1][2]);
    EXPECT_EQ(5.0, m.matrix[1][2]);
    EXPECT_EQ(5.0, m.transpose()(2, 1));
    EXPECT_THROW(m(4, 0), std::out_of_range);
    EXPECT_THROW(m[0][0] = m[4][0], std::out_of_range);
    double out[4][4] = {};
    EXPECT_EQ(MS::kSuccess, m.get(out));
    EXPECT_EQ(5.0, out[1][2]);
}

TEST(MMatrixRowVectors, TranslationLivesInRowThreeAndMovesPointsOnly) {
    const MMatrix t = translation(1, 2, 3);
    EXPECT_EQ(MPoint(1, 2, 3, 1), MPoint::origin * t);
    EXPECT_EQ(MPoint(2, 2, 3, 1), MPoint(1, 0, 0) * t);
    EXPECT_EQ(MVector(1, 0, 0), MVector(1, 0, 0) * t);
    expectNear(MPoint(0, 1, 0), MPoint(1, 0, 0) * rotationZ(M_PI / 2));
    MPoint p(1, 0, 0);
    p *= t;
    EXPECT_EQ(MPoint(2, 2, 3), p);
}

TEST(MMatrixRowVectors, ProductAppliesLeftFactorFirst) {
    const MMatrix rotate = rotationZ(M_PI / 2), move = translation(1, 0, 0);
    expectNear(MPoint(1, 1, 0), MPoint(1, 0, 0) * (rotate * move));
    expectNear(MPoint(0, 2, 0), MPoint(1, 0, 0) * (move * rotate));
    expectNear(MPoint(1, 0, 0) * rotate * move, MPoint(1, 0, 0) * (rotate * move));
    MMatrix m = rotate;
    m *= move;
    EXPECT_TRUE(m.isEquivalent(rotate * move));
}

TEST(MMatrixRowVectors, PointProductKeepsWForTheCallerToDivide) {
    MMatrix projective;
    projective[2][3] = 1;  // w' = z
    projective[3][3] = 0;
    MPoint p = MPoint(1, 2, 4) * projective;
    EXPECT_EQ(MPoint(1, 2, 4, 4), p);
    EXPECT_EQ(MPoint(0.25, 0.5, 1, 1), p.cartesianize());
    EXPECT_EQ(MPoint(3, 4, 5, 2), MPoint(1, 2, 3, 2) * translation(1, 1, 1) * MMatrix());
}

TEST(MMatrixInverse, RoundTripsGeneralAndPivotingMatrices) {
    const MMatrix m = generalMatrix();
    EXPECT_TRUE((m * m.inverse()).isEquivalent(MMatrix::identity, 1e-12));
    EXPECT_TRUE((m.inverse() * m).isEquivalent(MMatrix::identity, 1e-12));
    EXPECT_TRUE(m.inverse().inverse().isEquivalent(m, 1e-12));
    expectNear(MPoint(3, -1, 2), MPoint(3, -1, 2) * m * m.inverse());
    EXPECT_TRUE(translation(1, 2, 3).inverse().isEquivalent(translation(-1, -2, -3), 0));
    // A zero on the diagonal needs a row swap.
    const double swapXY[4][4] = {{0, 1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_EQ(MMatrix(swapXY), MMatrix(swapXY).inverse());
    EXPECT_FALSE(m.isSingular());
}

TEST(MMatrixInverse, SingularMatrixGivesIdentity) {
    const MMatrix flat = scaling(1, 1, 0);
    EXPECT_TRUE(flat.isSingular());
    EXPECT_EQ(MMatrix::identity, flat.inverse());
    EXPECT_EQ(0.0, flat.det4x4());
    EXPECT_TRUE((MMatrix() * 0.0).isSingular());
    EXPECT_TRUE(scaling(1e-20, 1, 1).isSingular());
    EXPECT_FALSE(scaling(1e-3, 1e-3, 1e-3).isSingular());
}

TEST(MMatrixDeterminant, KnownValuesAndSignOfRowSwap) {
    EXPECT_DOUBLE_EQ(24.0, scaling(2, 3, 4).det4x4());
    EXPECT_DOUBLE_EQ(24.0, scaling(2, 3, 4).det3x3());
    const double swapXY[4][4] = {{0, 1, 0, 0}, {1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_DOUBLE_EQ(-1.0, MMatrix(swapXY).det4x4());
    EXPECT_NEAR(1.0, rotationZ(0.4).det4x4(), 1e-15);
    const MMatrix m = generalMatrix();
    EXPECT_NEAR(1.0, m.det4x4() * m.inverse().det4x4(), 1e-12);
    EXPECT_NEAR(m.det4x4(), m.transpose().det4x4(), 1e-12);
}

TEST(MMatrixArithmetic, ElementWiseOperationsAndComparison) {
    const MMatrix m = generalMatrix();
    EXPECT_EQ(m * 2.0, m + m);
    EXPECT_EQ(m * 2.0, 2.0 * m);
    EXPECT_EQ(MMatrix() * 0.0, m - m);
    MMatrix nudged = m;
    nudged(3, 0) += 1e-11;
    EXPECT_NE(m, nudged);
    EXPECT_TRUE(m.isEquivalent(nudged));
    EXPECT_FALSE(m.isEquivalent(nudged, 1e-12));
    std::ostringstream text;
    text << translation(1, 2, 3);
    EXPECT_EQ("[[1, 0, 0, 0], [0, 1, 0, 0], [0, 0, 1, 0], [1, 2, 3, 1]]", text.str());
}

TEST(MBoundingBoxEmpty, MeasuresNothingAndContainsNothing) {
    MBoundingBox box;
    EXPECT_EQ(0.0, box.width());
    EXPECT_EQ(0.0, box.depth());
    EXPECT_EQ(MPoint::origin, box.center());
    EXPECT_EQ(MPoint::origin, box.min());
    EXPECT_FALSE(box.contains(MPoint::origin));
    EXPECT_FALSE(box.intersects(MBoundingBox(MPoint(-1, -1, -1), MPoint(1, 1, 1)), 10));
    box.transformUsing(translation(5, 5, 5));
    EXPECT_FALSE(box.contains(MPoint(5, 5, 5)));
}

TEST(MBoundingBoxExpand, FirstPointIsTheWholeBox) {
    MBoundingBox box;
    box.expand(MPoint(1, 2, 3));
    EXPECT_EQ(MPoint(1, 2, 3), box.min());
    EXPECT_EQ(MPoint(1, 2, 3), box.max());
    EXPECT_EQ(0.0, box.width());
    EXPECT_TRUE(box.contains(MPoint(1, 2, 3)));
    EXPECT_FALSE(box.contains(MPoint::origin));
    box.expand(MPoint(-1, 4, 3));
    box.expand(MPoint(6, 8, 12, 2));  // cartesian (3, 4, 6)
    EXPECT_EQ(MPoint(-1, 2, 3), box.min());
    EXPECT_EQ(MPoint(3, 4, 6), box.max());
    EXPECT_EQ(MPoint(1, 3, 4.5), box.center());
    EXPECT_EQ(4.0, box.width());
    EXPECT_EQ(2.0, box.height());
    EXPECT_EQ(3.0, box.depth());
    box.clear();
    EXPECT_FALSE(box.contains(MPoint(1, 2, 3)));
}

TEST(MBoundingBoxExpand, BoxesMergeAndEmptyBoxesAddNothing) {
    MBoundingBox box(MPoint(1, 1, 1), MPoint(0, 0, 0));
    EXPECT_EQ(MPoint(0, 0, 0), box.min());
    EXPECT_EQ(MPoint(1, 1, 1), box.max());
    box.expand(MBoundingBox());
    EXPECT_EQ(MPoint(0, 0, 0), box.min());
    box.expand(MBoundingBox(MPoint(2, -1, 0), MPoint(3, 0, 0.5)));
    EXPECT_EQ(MPoint(0, -1, 0), box.min());
    EXPECT_EQ(MPoint(3, 1, 1), box.max());
    MBoundingBox empty;
    empty.expand(box);
    EXPECT_EQ(box.min(), empty.min());
    EXPECT_EQ(box.max(), empty.max());
}

TEST(MBoundingBoxQueries, BoundaryCountsAsInsideAndToleranceBridgesGaps) {
    const MBoundingBox unit(MPoint(0, 0, 0), MPoint(1, 1, 1));
    EXPECT_TRUE(unit.contains(MPoint(1, 0, 0.5)));
    EXPECT_FALSE(unit.contains(MPoint(1.0000001, 0, 0.5)));
    EXPECT_FALSE(unit.contains(MPoint(std::numeric_limits<double>::quiet_NaN(), 0.5, 0.5)));
    EXPECT_TRUE(unit.intersects(MBoundingBox(MPoint(1, 1, 1), MPoint(2, 2, 2))));
    const MBoundingBox apart(MPoint(1.5, 0, 0), MPoint(2, 1, 1));
    EXPECT_FALSE(unit.intersects(apart));
    EXPECT_FALSE(unit.intersects(apart, 0.4));
    EXPECT_TRUE(unit.intersects(apart, 0.6));
    EXPECT_TRUE(apart.intersects(unit, 0.6));
}

TEST(MBoundingBoxTransform, BoxesTheTransformedCorners) {
    MBoundingBox box(MPoint(-1, -1, 0), MPoint(1, 1, 2));
    box.transformUsing(rotationZ(M_PI / 4) * translation(10, 0, 0));
    EXPECT_NEAR(2 * std::sqrt(2.0), box.width(), 1e-12);
    EXPECT_NEAR(2 * std::sqrt(2.0), box.height(), 1e-12);
    EXPECT_NEAR(2.0, box.depth(), 1e-12);
    expectNear(MPoint(10, 0, 1), box.center());
}
