// Mesh-side helpers: vertex components handed to the tool command, the ray cast under a pixel and
// whole-mesh reads.

#include <gtest/gtest.h>
#include <maya/M3dView.h>
#include <maya/MFnMesh.h>
#include <maya/MFnSingleIndexedComponent.h>
#include <mhost/Interaction.h>

#include <cmath>
#include <string>
#include <vector>

#include "geometry/functions.h"
#include "tests/plugin/geometryScene.h"

namespace {

using Ids = std::vector<int>;

MIntArray ints(std::initializer_list<int> list) {
    MIntArray array;
    for (int v : list) array.append(v);
    return array;
}

Ids elementsOf(const MObject& component) {
    MIntArray ids;
    if (!component.isNull()) MFnSingleIndexedComponent(component).getElements(ids);
    return kytest::values(ids);
}

// A selected 6 x 1 grid: vertex id = row * 7 + column, at (column, 0, row); face id = column.
class MeshHelpers : public kytest::GeometryScene {
protected:
    void SetUp() override {
        kytest::GeometryScene::SetUp();
        grid_ = makeGrid(6, 1);
        select(grid_);
    }
    MDagPath grid_;
};

// The grid seen from above at an angle, face 3 under the view's centre.
class SurfaceRays : public MeshHelpers {
protected:
    void SetUp() override {
        MeshHelpers::SetUp();
        ASSERT_TRUE(mhost::driver::placeCamera(MPoint(3.5, 10, 6), MPoint(3.5, 0, 0.5)));
    }
    bool castAt(const MDagPath& path, short x, short y) {
        M3dView view = M3dView::active3dView();
        MMeshIsectAccelParams params = MFnMesh::autoUniformGridParams();
        return intersectSurface(path, hits_, normal_, view, params, x, y, faces_, true);
    }
    MFloatPointArray hits_;
    MIntArray faces_;
    MVector normal_;
};

}  // namespace

TEST_F(MeshHelpers, VertexRangesDifferByOneOnPurpose) {
    EXPECT_EQ(elementsOf(deltaVertices(3, 6)), Ids({5, 4, 3}));
    EXPECT_EQ(elementsOf(newVertexComponent(3, 6)), Ids({4, 5, 6}));
    EXPECT_EQ(elementsOf(newVertexComponent(0, 2)), Ids({1, 2})) << "id 0 is left out";
    EXPECT_TRUE(deltaVertices(4, 4).isNull());
}

TEST_F(MeshHelpers, StripVerticesLeavesOutBothShadowRows) {
    makeLocator();
    MStatus status;
    stripVertices(0, 14, status);
    EXPECT_EQ(status, MS::kFailure) << "no shadow";
    ASSERT_TRUE(writeShadowStrokesFromIds(ints({1, 2, 3}), ints({8, 9, 10}), MIntArray()));
    EXPECT_EQ(elementsOf(stripVertices(7, 14, status)), Ids({13, 12, 11, 7}));
}

TEST_F(MeshHelpers, VerticesOfFacesPreferTheStoredNewFaces) {
    EXPECT_EQ(elementsOf(verticesOfFaces(grid_, ints({0, 1}))), Ids({0, 1, 8, 7, 2, 9}))
        << "walk order, no repeats";
    makeLocator();
    ASSERT_TRUE(clearNewFaces());
    EXPECT_TRUE(verticesOfFaces(grid_, ints({0, 1})).isNull()) << "a stored empty list wins";
    ASSERT_TRUE(setNewFaces(ints({5})));
    EXPECT_EQ(elementsOf(verticesOfFaces(grid_, ints({0}))), Ids({5, 6, 13, 12}));
}

TEST_F(MeshHelpers, ClearingTweaksDropsVertexOffsets) {
    ASSERT_TRUE(mhost::driver::runCommand("setAttr " + std::string(grid_.partialPathName().asChar()) +
                                          ".pnts[9] 0 3 0"));
    ASSERT_EQ(getMeshPositions()[9], MPoint(2, 3, 1));
    ASSERT_TRUE(clearMeshTweaks());
    EXPECT_EQ(getMeshPositions()[9], MPoint(2, 0, 1));
}

TEST_F(SurfaceRays, HitUnderTheCentreWithItsFaceAndNormal) {
    ASSERT_TRUE(castAt(grid_, 320, 240));
    EXPECT_NEAR(hits_[0].x, 3.5, 1e-3);
    EXPECT_NEAR(hits_[0].z, 0.5, 1e-3);
    EXPECT_EQ(faces_[0], 3);
    EXPECT_NEAR(std::fabs(normal_.y), 1.0, 1e-9);
}

TEST_F(SurfaceRays, GuardsAndMisses) {
    EXPECT_FALSE(castAt(grid_, 0, 240)) << "column 0 is refused by the guard";
    EXPECT_FALSE(castAt(grid_, 639, 479)) << "nothing there";
    EXPECT_FALSE(castAt(MDagPath(), 320, 240));
}
