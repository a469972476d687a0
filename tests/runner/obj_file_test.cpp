#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

#include "runner/ObjFile.h"

namespace {

using namespace kystrake;

TEST(ObjFiles, RoundTripKeepsQuadsAndPositions) {
    PolygonMesh quad{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0.5}}, {4}, {0, 1, 2, 3}};
    const std::string path = testing::TempDir() + "quad.obj";
    writeObj(quad, path);
    PolygonMesh back = readObj(path);
    ASSERT_EQ(4u, back.points.size());
    EXPECT_EQ(std::vector<int>{4}, back.polygonCounts);
    EXPECT_EQ((std::vector<int>{0, 1, 2, 3}), back.polygonConnects);
    EXPECT_DOUBLE_EQ(0.5, back.points[3][2]);
    std::remove(path.c_str());
}

TEST(ObjFiles, MissingOrEmptyFilesAreErrors) {
    EXPECT_THROW(readObj("/nonexistent/mesh.obj"), ObjError);
    const std::string path = testing::TempDir() + "empty.obj";
    std::ofstream(path) << "v 0 0 0\n";
    EXPECT_THROW(readObj(path), ObjError);
    std::remove(path.c_str());
    EXPECT_THROW(writeObj(PolygonMesh{}, "/nonexistent/dir/out.obj"), ObjError);
}

}  // namespace
