// The view and its camera: projection round trips, where the view's origin lies, how the film gate
// fits the port, the camera function set, and what the view does without a camera.

#include <gtest/gtest.h>
#include <maya/M3dView.h>
#include <maya/MDagModifier.h>
#include <maya/MDagPath.h>
#include <maya/MEventMessage.h>
#include <maya/MFnCamera.h>
#include <maya/MPoint.h>
#include <maya/MSelectionList.h>
#include <maya/MVector.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>

#include <cmath>

namespace {

constexpr double kTolerance = 1e-9;

struct Placement {
    MPoint eye, target;
};

class ViewTest : public testing::Test {
protected:
    void SetUp() override {
        mhost::driver::resetScene();
        look({MPoint(0, 0, 10), MPoint(0, 0, 0)}, 640, 480);
    }
    void look(const Placement& placement, int width, int height) {
        ASSERT_TRUE(mhost::driver::setViewSize(width, height));
        ASSERT_TRUE(mhost::driver::placeCamera(placement.eye, placement.target, "cam"));
    }
    MFnCamera& camera() {
        MDagPath path;
        EXPECT_TRUE(M3dView::active3dView().getCamera(path));
        fCamera.setObject(path);
        return fCamera;
    }

private:
    MFnCamera fCamera;
};

void expectNear(const MVector& actual, const MVector& expected) {
    EXPECT_NEAR(actual.x, expected.x, kTolerance);
    EXPECT_NEAR(actual.y, expected.y, kTolerance);
    EXPECT_NEAR(actual.z, expected.z, kTolerance);
}

void countCall(void* clientData) { ++*static_cast<int*>(clientData); }

}  // namespace

TEST_F(ViewTest, WorldToViewOfViewToWorldGivesThePixelBack) {
    const Placement placements[] = {{MPoint(0, 0, 10), MPoint(0, 0, 0)},
                                    {MPoint(3, 4, -6), MPoint(1, -1, 2)},
                                    {MPoint(0, 12, 0), MPoint(0, 0, 0)}};  // straight down: up is parallel
    const short pixels[][2] = {{0, 0}, {639, 479}, {320, 240}, {17, 400}, {640, 480}};
    M3dView view = M3dView::active3dView();
    for (const Placement& placement : placements) {
        look(placement, 640, 480);
        for (const auto& pixel : pixels) {
            MPoint nearPoint, farPoint, rayPoint;
            MVector direction;
            ASSERT_TRUE(view.viewToWorld(pixel[0], pixel[1], nearPoint, farPoint));
            ASSERT_TRUE(view.viewToWorld(pixel[0], pixel[1], rayPoint, direction));
            EXPECT_TRUE(rayPoint.isEquivalent(nearPoint));
            EXPECT_NEAR(direction.length(), 1.0, kTolerance);
            expectNear(direction, (farPoint - nearPoint).normal());
            const MPoint middle = nearPoint + (farPoint - nearPoint) * 0.5;
            for (const MPoint& onRay : {nearPoint, middle, farPoint}) {
                short x = -1, y = -1;
                view.worldToView(onRay, x, y);
                EXPECT_EQ(x, pixel[0]);
                EXPECT_EQ(y, pixel[1]);
            }
            short x = 0, y = 0;
            EXPECT_TRUE(view.worldToView(middle, x, y)) << "a point inside the port between the clip planes";
        }
    }
}

TEST_F(ViewTest, OriginIsAtTheBottomLeftAndTheCentreLooksAtTheTarget) {
    M3dView view = M3dView::active3dView();
    short x = 0, y = 0;
    EXPECT_TRUE(view.worldToView(MPoint(0, 0, 0), x, y));
    EXPECT_EQ(x, 320);
    EXPECT_EQ(y, 240);
    view.worldToView(MPoint(1, 1, 0), x, y);
    EXPECT_GT(x, 320) << "world +X is to the right";
    EXPECT_GT(y, 240) << "world +Y is up, away from the bottom edge";
    EXPECT_FALSE(view.worldToView(MPoint(0, 0, 20), x, y)) << "behind the eye";
    EXPECT_FALSE(view.worldToView(MPoint(100, 0, 0), x, y)) << "beside the port";
    EXPECT_EQ(view.portWidth(), 640);
    EXPECT_EQ(view.portHeight(), 480);
}

TEST_F(ViewTest, FilmGateFillsWideAndTallPorts) {
    const double depth = 10.0;
    const double tanHalfWidth = 0.5 * 1.41732 * 25.4 / 35.0;  // Maya's default 35 mm lens on 36 mm film
    const double tanHalfHeight = 0.5 * 0.94488 * 25.4 / 35.0;
    M3dView view = M3dView::active3dView();
    short x = 0, y = 0;
    look({MPoint(0, 0, depth), MPoint(0, 0, 0)}, 1000, 400);
    view.worldToView(MPoint(depth * tanHalfWidth, 0, 0), x, y);
    EXPECT_EQ(x, 1000) << "a port wider than the film: the film's width spans the port's";
    look({MPoint(0, 0, depth), MPoint(0, 0, 0)}, 400, 1000);
    view.worldToView(MPoint(0, depth * tanHalfHeight, 0), x, y);
    EXPECT_EQ(y, 1000) << "a port taller than the film: the film's height spans the port's";
}

TEST_F(ViewTest, CameraFunctionSetDescribesThePlacement) {
    const MPoint eye(3, 4, -6), target(1, -1, 2);
    look({eye, target}, 640, 480);
    MFnCamera& fn = camera();
    EXPECT_TRUE(fn.eyePoint(MSpace::kWorld).isEquivalent(eye, kTolerance));
    const MVector view = fn.viewDirection(MSpace::kWorld);
    expectNear(view, (target - eye).normal());
    const MVector up = fn.upDirection(MSpace::kWorld);
    EXPECT_NEAR(view * up, 0.0, kTolerance);
    EXPECT_GT(up.y, 0.0) << "rolled so that world +Y is up";
    expectNear(fn.rightDirection(MSpace::kWorld), view ^ up);
    expectNear(fn.viewDirection(), MVector(0, 0, -1));
    EXPECT_TRUE(fn.eyePoint().isEquivalent(MPoint(0, 0, 0)));

    ASSERT_TRUE(fn.setHorizontalFieldOfView(1.0));
    EXPECT_NEAR(fn.horizontalFieldOfView(), 1.0, kTolerance);
    EXPECT_NEAR(fn.aspectRatio(), 1.41732 / 0.94488, kTolerance);
    EXPECT_EQ(fn.setHorizontalFieldOfView(M_PI), MS::kInvalidParameter);
    fn.setFocalLength(1.0);
    EXPECT_DOUBLE_EQ(fn.focalLength(), 2.5) << "clamped to Maya's shortest focal length";
}

TEST_F(ViewTest, SetPlacesTheCameraLikeTheDriver) {
    MFnCamera& fn = camera();
    ASSERT_TRUE(fn.set(MPoint(5, 0, 0), MVector(-1, 0, 0), MVector(0, 1, 0), M_PI / 2, 2.0));
    EXPECT_TRUE(fn.eyePoint(MSpace::kWorld).isEquivalent(MPoint(5, 0, 0), kTolerance));
    expectNear(fn.viewDirection(MSpace::kWorld), MVector(-1, 0, 0));
    EXPECT_NEAR(fn.horizontalFieldOfView(), M_PI / 2, kTolerance);
    EXPECT_NEAR(fn.aspectRatio(), 2.0, kTolerance);
    EXPECT_EQ(fn.set(MPoint(), MVector(), MVector(0, 1, 0), 1.0, 1.0), MS::kInvalidParameter);
}

TEST_F(ViewTest, WithoutACameraTheViewCannotProject) {
    mhost::driver::resetScene();
    M3dView view = M3dView::active3dView();
    MDagPath path;
    MPoint nearPoint, farPoint;
    short x = 0, y = 0;
    MStatus status;
    EXPECT_EQ(view.getCamera(path), MS::kFailure);
    EXPECT_EQ(view.viewToWorld(1, 1, nearPoint, farPoint), MS::kFailure);
    EXPECT_FALSE(view.worldToView(MPoint(), x, y, &status));
    EXPECT_EQ(status, MS::kFailure);
    EXPECT_EQ(mhost::driver::setViewCamera("nothing"), MS::kInvalidParameter);
    M3dView unattached;
    EXPECT_EQ(unattached.portWidth(&status), 0);
    EXPECT_EQ(status, MS::kFailure);
}

TEST_F(ViewTest, ViewChangesAndRefreshesAreHeard) {
    int changes = 0;
    const MCallbackId id = MEventMessage::addEventCallback("modelEditorChanged", countCall, &changes);
    ASSERT_TRUE(mhost::driver::setViewSize(800, 600));
    ASSERT_TRUE(mhost::driver::setViewCamera("camShape"));
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(mhost::driver::setViewSize(0, 600), MS::kInvalidParameter);
    const int refreshes = mhost::driver::viewRefreshCount();
    M3dView view = M3dView::active3dView();
    view.refresh(true, true);
    view.refresh(false, false, false);
    EXPECT_EQ(mhost::driver::viewRefreshCount(), refreshes + 2);
    MMessage::removeCallback(id);
}

TEST_F(ViewTest, TheKeptProjectionFollowsTheLensTheTransformsAndThePort) {
    M3dView view = M3dView::active3dView();
    const auto viewX = [&view](const MPoint& point) {
        short x = 0, y = 0;
        view.worldToView(point, x, y);
        return x;
    };
    const MPoint aside(1, 0, 0);
    const short first = viewX(aside);
    EXPECT_EQ(first, viewX(aside));
    camera().setFocalLength(70);
    const short zoomed = viewX(aside);
    EXPECT_EQ(zoomed - 320, 2 * (first - 320)) << "twice the focal length, twice as far from the centre";
    ASSERT_TRUE(mhost::driver::runCommand("setAttr cam.translateX 1"));
    EXPECT_EQ(320, viewX(aside)) << "the camera moved over the point";
    ASSERT_TRUE(mhost::driver::runCommand("createNode transform -n rig"));
    MSelectionList nodes;
    nodes.add("cam");
    nodes.add("rig");
    MObject cam, rig;
    nodes.getDependNode(0, cam);
    nodes.getDependNode(1, rig);
    MDagModifier reparent;
    ASSERT_TRUE(reparent.reparentNode(cam, rig));
    ASSERT_TRUE(reparent.doIt());
    ASSERT_TRUE(mhost::driver::runCommand("setAttr rig.translateX -1"));
    EXPECT_EQ(zoomed, viewX(aside)) << "a parent's move is seen";
    ASSERT_TRUE(mhost::driver::setViewSize(1280, 960));
    EXPECT_EQ(2 * zoomed, viewX(aside)) << "the same film over a port twice as wide";
}
