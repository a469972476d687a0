#include <gtest/gtest.h>

#include <cmath>

#include "studio/OrbitCamera.h"

namespace {

using namespace kystrake;

double distance(const Vec3& a, const Vec3& b) {
    return std::sqrt(std::pow(a[0] - b[0], 2) + std::pow(a[1] - b[1], 2) + std::pow(a[2] - b[2], 2));
}

// Tumbling keeps the eye's distance to the target and stops short of the poles; dollying never
// reaches the target; tracking moves eye and target together.
TEST(OrbitCamera, MovesKeepTheirInvariants) {
    const CameraPlacement start{{2.0, 1.0, 10.0}, {2.0, 1.0, 0.0}, 45.0};
    OrbitCamera tumbled(start);
    tumbled.tumble(225, 0);  // a quarter turn round world Y
    EXPECT_NEAR(distance(tumbled.placement().eye, start.target), 10.0, 1e-9);
    EXPECT_NEAR(tumbled.placement().eye[1], 1.0, 1e-9);
    EXPECT_NEAR(std::abs(tumbled.placement().eye[0] - 2.0), 10.0, 1e-9);
    tumbled.tumble(0, -10000);  // far past the pole
    EXPECT_LT(tumbled.placement().eye[1] - 1.0, 10.0);
    EXPECT_GT(tumbled.placement().eye[1] - 1.0, 9.9);

    OrbitCamera dollied(start);
    dollied.dolly(100000, 0);
    EXPECT_GT(distance(dollied.placement().eye, start.target), 0.0);
    EXPECT_LT(distance(dollied.placement().eye, start.target), 0.01);
    OrbitCamera away(start);
    away.dolly(-100, 0);
    EXPECT_GT(distance(away.placement().eye, start.target), 10.0);

    OrbitCamera tracked(start);
    tracked.track(50, -20, 500);
    const CameraPlacement& moved = tracked.placement();
    EXPECT_LT(moved.eye[0], start.eye[0]);  // the scene follows the pointer to the right
    EXPECT_GT(moved.eye[1], start.eye[1]);
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(moved.eye[i] - start.eye[i], moved.target[i] - start.target[i], 1e-12);
}

}  // namespace
