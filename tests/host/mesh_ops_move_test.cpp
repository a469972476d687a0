#include <gtest/gtest.h>

#include <limits>

#include "core/ApiObject.h"
#include "mesh/ProceduralMeshes.h"
#include "mesh/ops/MoveVertices.h"
#include "support/MeshOpsChecks.h"

using meshops::expectPointNear;
using mhost::HostError;
using mhost::MeshTopology;
using mhost::moveVertices;
using mhost::Vec3;

TEST(MeshOpsMove, AbsoluteSendsEveryListedVertexToThePointAndRelativeOffsetsThem) {
    const MeshTopology grid = mhost::makePlaneGrid(2, 2, 2, 2);
    const MeshTopology absolute = moveVertices(grid, {0, 4}, {1, 2, 3}, false);
    expectPointNear({1, 2, 3}, absolute.point(0));
    expectPointNear({1, 2, 3}, absolute.point(4));
    EXPECT_EQ(grid.point(1), absolute.point(1));
    EXPECT_EQ(grid.faces().items, absolute.faces().items);
    EXPECT_EQ(grid.uvSets().get("map1").faceVertexUvIds, absolute.uvSets().get("map1").faceVertexUvIds);

    const MeshTopology relative = moveVertices(grid, {0, 4}, {0, 1, 0}, true);
    expectPointNear(Vec3(grid.point(0)) + Vec3(0, 1, 0), relative.point(0));
    expectPointNear(Vec3(grid.point(4)) + Vec3(0, 1, 0), relative.point(4));
}

TEST(MeshOpsMove, BadInputThrows) {
    const MeshTopology grid = mhost::makePlaneGrid(2, 2, 2, 2);
    EXPECT_THROW(moveVertices(grid, {}, {0, 0, 0}, false), HostError);
    EXPECT_THROW(moveVertices(grid, {9}, {0, 0, 0}, false), HostError);
    EXPECT_THROW(moveVertices(grid, {0}, {std::numeric_limits<double>::infinity(), 0, 0}, false), HostError);
    EXPECT_THROW(moveVertices(grid, {0}, {1e300, 0, 0}, true), HostError) << "beyond float range";
}
