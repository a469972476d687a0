// The pick families of the context: rays on the source, the through pick, reprojection and snap,
// the boundary-vertex pick and the brushes' radius picks, with their tolerances and miss value.

#include <maya/MFnSingleIndexedComponent.h>

#include "tests/plugin/contextScene.h"
#include "tool/contextSupport.h"

namespace kytest {
namespace {

class ContextPicking : public ContextScene {
protected:
    void SetUp() override {
        ContextScene::SetUp();
        context = makeContext();
    }
    // Points the context's current (and press) position at a world point.
    void pointAt(const MPoint& world) {
        M3dView::active3dView().worldToView(world, context->currentX, context->currentY);
        context->pressX = context->currentX;
        context->pressY = context->currentY;
    }
    static Ids elements(const MObject& component) {
        MIntArray ids;
        if (!component.isNull()) MFnSingleIndexedComponent(component).getElements(ids);
        return asVector(ids);
    }
    // A closed box from (3, -1, 3) to (7, 1, 7) with outward faces, connected as the source.
    void makeBoxSource() {
        const double corners[8][3] = {{3, -1, 3}, {7, -1, 3}, {7, 1, 3}, {3, 1, 3},
                                      {3, -1, 7}, {7, -1, 7}, {7, 1, 7}, {3, 1, 7}};
        MPointArray points;
        for (const auto& corner : corners) points.append(MPoint(corner[0], corner[1], corner[2]));
        MIntArray counts = idArray({4, 4, 4, 4, 4, 4}), connects;
        for (int id : {0, 1, 5, 4, 3, 7, 6, 2, 0, 3, 2, 1, 4, 5, 6, 7, 0, 4, 7, 3, 1, 2, 6, 5})
            connects.append(id);
        MFnMesh mesh;
        MObject transform = mesh.create(8, 6, points, counts, connects, MObject::kNullObj);
        MDagPath::getAPathTo(transform, source);
        source.extendToShape();
        locator = makeLocator();
        connectSource(source, locator);
    }

    kyStrakeContext* context = nullptr;
};

TEST_F(ContextPicking, SourceHitAtFindsTheSurfaceAndReportsMissesAsTheOrigin) {
    makeSourceScene();
    activate(*context);
    MPoint hit;
    pointAt(MPoint(5, 0, 5));
    ASSERT_TRUE(context->sourceHitAt(context->currentX, context->currentY, hit));
    EXPECT_TRUE(hit.isEquivalent(MPoint(5, 0, 5), 0.05));
    pointAt(MPoint(-20, 0, 5));
    EXPECT_FALSE(context->sourceHitAt(context->currentX, context->currentY, hit));
    EXPECT_EQ(hit, MPoint::origin);
}

TEST_F(ContextPicking, GlueStartsAStrokeOnTheStoredVertexWithoutARay) {
    makeSourceScene();
    activate(*context);
    setOption("ky_glue", 1);
    context->currentHit = MPoint(2, 0, 2);
    MPoint hit;
    EXPECT_TRUE(context->sourceHitAt(1, 1, hit));  // far off the surface
    EXPECT_EQ(hit, MPoint(2, 0, 2));
    context->strokePoints.append(MPoint(2, 0, 2));  // once the stroke has begun, rays decide
    EXPECT_FALSE(context->sourceHitAt(1, 1, hit));
}

TEST_F(ContextPicking, BoundaryPickTakesTheLowestIndexInRangeNotTheNearest) {
    makeSourceScene();
    const MDagPath retopo = makeGrid(3, 3, 0.0, 2.0);  // ids row * 4 + column; 5, 6, 9, 10 inside
    select(retopo);
    activate(*context);
    pointAt(MPoint(3, 0, 1));  // on interior vertex 5
    EXPECT_EQ(context->pickBoundaryVertex(9.0, false), -1);
    // Border vertices 8, 12, 13 and 14 lie within reach; 13 is by far the nearest, 8 the lowest.
    pointAt(MPoint(3, 0, 2.6));
    EXPECT_EQ(context->pickBoundaryVertex(40.0, true), 8);
    pointAt(MPoint(2, 0, 0));
    EXPECT_EQ(context->pickBoundaryVertex(9.0, false), 0);
}

TEST_F(ContextPicking, FacingIsStrictAndTheOptionTurnsItOff) {
    makeSourceScene();
    activate(*context);
    M3dView view = M3dView::active3dView();
    const BackFaceTest backFaces(view);
    const MVector towardEye(0, -1, 0);  // the camera looks up at the grid
    EXPECT_TRUE(backFaces.facesCamera(towardEye));
    EXPECT_FALSE(backFaces.facesCamera(-towardEye));
    EXPECT_FALSE(backFaces.facesCamera(MVector(1, 0, 0)));  // at right angles to the view
    setOption("ky_strakeBackFace", 0);
    EXPECT_TRUE(backFaces.facesCamera(towardEye)) << "the option is read when the test is made";
    EXPECT_TRUE(BackFaceTest(view).facesCamera(-towardEye));
}

TEST_F(ContextPicking, SnapAndReprojectPullPointsOntoTheSource) {
    makeSourceScene();
    activate(*context);
    MPointArray points;
    points.append(MPoint(3, 2, 4));
    ASSERT_TRUE(context->snapToSource(points));
    EXPECT_TRUE(points[0].isEquivalent(MPoint(3, 0, 4), 1e-5));

    MPointArray stroke;
    stroke.append(MPoint(4, 0, 4));
    stroke.append(MPoint(40, 0, 40));  // off the source: no hit, so it leaves the stroke
    stroke.append(MPoint(6, 0, 5));
    context->reprojectStroke(stroke);
    ASSERT_EQ(stroke.length(), 2u);
    EXPECT_TRUE(stroke[1].isEquivalent(MPoint(6, 0, 5), 1e-4));
}

TEST_F(ContextPicking, FrontBackPickSortsTheLayersOfABox) {
    makeBoxSource();
    activate(*context);
    short x = 0, y = 0;
    M3dView::active3dView().worldToView(MPoint(5, 0, 5), x, y);
    const MPoint front = context->pickFrontBack(MPoint(x, y, 0));
    EXPECT_NEAR(front.y, -1.0, 1e-4);  // the face turned to the eye, below
    ASSERT_EQ(context->frontHits.length(), 1u);
    ASSERT_EQ(context->backHits.length(), 1u);
    EXPECT_NEAR(context->backHits[0].y, 1.0, 1e-4);

    context->frontHits.clear();
    context->backHits.clear();
    M3dView::active3dView().worldToView(MPoint(30, 0, 5), x, y);
    EXPECT_EQ(context->pickFrontBack(MPoint(x, y, 0)), MPoint::origin);
    EXPECT_EQ(context->frontHits.length() + context->backHits.length(), 0u);
}

TEST_F(ContextPicking, RelaxPickSkipsFrozenAndFirstRowVertices) {
    makeSourceScene();
    const MDagPath retopo = makeGrid(3, 3, 0.0, 2.0);
    select(retopo);
    activate(*context);
    pointAt(MPoint(3, 0, 1));
    MVector normal;
    EXPECT_EQ(elements(context->pickVerticesAround(1.2, retopo, normal)), Ids({1, 4, 5, 6, 9}));
    EXPECT_EQ(context->brushVertex, 1);
    EXPECT_NEAR(normal.y, -1.0, 1e-9);

    context->freezeBorder = true;
    context->frozenVertices = idArray({1, 4});
    ASSERT_TRUE(writeShadowIndices(idArray({6, 7}), idArray({9, 10}), MIntArray()));
    ASSERT_TRUE(setPlayerVertices(idArray({9, 10})));
    EXPECT_EQ(elements(context->pickVerticesAround(1.2, retopo, normal)), Ids({5, 9}));

    // Off the retopo mesh the pick goes around the source hit.
    pointAt(MPoint(8, 0, 8));
    EXPECT_EQ(elements(context->pickVerticesAround(1.5, retopo, normal)).size(), 0u);
    EXPECT_EQ(context->brushVertex, -1);
    EXPECT_TRUE(context->brushCenter.isEquivalent(MPoint(8, 0, 8), 0.05));
}

TEST_F(ContextPicking, MovePickWeighsByAParabolicFalloff) {
    makeSourceScene();
    const MDagPath retopo = makeGrid(3, 3, 0.0, 2.0);
    select(retopo);
    activate(*context);
    pointAt(MPoint(3, 0, 1));
    const Ids picked = elements(context->pickWeightedAround(1.2, retopo));
    EXPECT_EQ(picked, Ids({1, 4, 5, 6, 9}));
    EXPECT_EQ(context->moveHitState, 1);
    ASSERT_EQ(context->moveWeights.size(), 5u);
    ASSERT_EQ(context->moveAnchors.length(), 5u);
    EXPECT_NEAR(context->moveWeights[2], 1.0, 0.01);                      // vertex 5, under the pointer
    EXPECT_NEAR(context->moveWeights[0], 1.0 - 1.0 / (1.2 * 1.2), 0.06);  // a neighbour one unit away
    EXPECT_EQ(context->moveAnchors[0], MPoint(3, 0, 0));
}

}  // namespace
}  // namespace kytest
