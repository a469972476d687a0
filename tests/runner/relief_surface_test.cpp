#include <gtest/gtest.h>

#include <cmath>

#include "runner/DemoSession.h"
#include "runner/ReliefSurface.h"
#include "runner/SourceMeshes.h"

namespace {

using namespace kystrake;

using Point = std::array<double, 3>;

Point minus(const Point& a, const Point& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }

// The Z component of the triangle's (unnormalised) normal by its winding.
double normalZ(const PolygonMesh& mesh, size_t triangle) {
    const int* corners = &mesh.polygonConnects[3 * triangle];
    const Point u = minus(mesh.points[corners[1]], mesh.points[corners[0]]);
    const Point v = minus(mesh.points[corners[2]], mesh.points[corners[0]]);
    return u[0] * v[1] - u[1] * v[0];
}

TEST(ReliefSurface, IsADenseDeterministicTriangleSheetFacingTheFrontCamera) {
    const Session demo = demoSession();
    ASSERT_EQ("relief", demo.source.procedural);
    const PolygonMesh mesh = proceduralMesh("relief", demo.source.triangles);
    EXPECT_GE(mesh.polygonCounts.size(), 200000u);
    for (int corners : mesh.polygonCounts) ASSERT_EQ(3, corners);
    for (size_t t = 0; t < mesh.polygonCounts.size(); ++t) ASSERT_GT(normalZ(mesh, t), 0.0) << t;
    for (const Point& p : mesh.points) {
        ASSERT_LE(std::abs(p[0]), kReliefWidth / 2 + 1e-9);
        ASSERT_LE(std::abs(p[1]), kReliefHeight / 2 + 1e-9);
        ASSERT_DOUBLE_EQ(reliefHeight(p[0], p[1]), p[2]);
    }
    const PolygonMesh again = proceduralMesh("relief", demo.source.triangles);
    EXPECT_EQ(mesh.points, again.points);
    EXPECT_EQ(mesh.polygonConnects, again.polygonConnects);
}

TEST(ReliefSurface, SmallCountsGiveAboutThatManyTriangles) {
    EXPECT_EQ(8u, reliefSurface(8).polygonCounts.size());
    const size_t count = reliefSurface(30000).polygonCounts.size();
    EXPECT_GT(count, 28000u);
    EXPECT_LT(count, 32000u);
}

// Slopes stay gentle, so a ray from the front meets the relief once: nothing overhangs.
TEST(ReliefSurface, HasNoOverhangs) {
    const double step = 0.01;
    double steepest = 0;
    for (double y = -kReliefHeight / 2; y <= kReliefHeight / 2; y += 0.02)
        for (double x = -kReliefWidth / 2; x <= kReliefWidth / 2; x += 0.02) {
            const double dx = (reliefHeight(x + step, y) - reliefHeight(x - step, y)) / (2 * step);
            const double dy = (reliefHeight(x, y + step) - reliefHeight(x, y - step)) / (2 * step);
            steepest = std::max(steepest, std::hypot(dx, dy));
        }
    EXPECT_LT(steepest, 2.4);
}

TEST(ReliefSurface, ReadsAsAFace) {
    const double noseTip = reliefHeight(0, -0.9), cheek = reliefHeight(2.0, -0.5);
    const double brow = reliefHeight(1.5, 1.85), eyeSocket = reliefHeight(1.5, 0.8);
    EXPECT_GT(noseTip, cheek + 0.3);
    EXPECT_GT(brow, eyeSocket + 0.2);
    EXPECT_NEAR(reliefHeight(-1.3, 0.4), reliefHeight(1.3, 0.4), 1e-12);  // left and right mirror
    EXPECT_LT(reliefHeight(4.9, -5.9), 0.2 * noseTip);                    // it falls off at the border
}

}  // namespace
