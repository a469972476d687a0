#include <gtest/gtest.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MIntArray.h>
#include <maya/MUIDrawManager.h>
#include <mhost/Driver.h>
#include <mhost/Frames.h>
#include <mhost/Interaction.h>

#include <QColor>

#include "drawing/DrawRecorder.h"
#include "drawing/FramePicture.h"
#include "interaction/ActiveView.h"
#include "mesh/ProceduralMeshes.h"
#include "support/TestPlugin.h"

namespace {

using namespace mhost;
using MHWRender::MUIDrawManager;

// A camera above and in front of a unit sphere at the origin, a plane below it, and a display list
// with one primitive of each kind that shows: the picture is written to the test build folder for a
// person to look at, and a few of its pixels are checked.
class FramePicture : public ::testing::Test {
protected:
    void SetUp() override {
        driver::resetScene();
        ASSERT_TRUE(driver::setViewSize(480, 360));
        ASSERT_TRUE(driver::placeCamera(MPoint(0, 1.5, 6), MPoint(0, 0, 0)));
        meshes_.source = makeMeshView(makeUvSphere(1.0, 32, 20), MMatrix());
        MMatrix below;
        below[3][1] = -1.2;
        meshes_.wireframes.push_back(makeMeshView(makePlaneGrid(4.0, 4.0, 8, 8), below));
    }
    void TearDown() override { driver::resetScene(); }

    Frame frameWith(const DisplayList& list) const {
        Frame frame{activeView().cameraPath(), activeView().projection(), {}};
        frame.layers.push_back(
            {driver::FrameDrawing::Drawer::kDrawOverride, "", std::make_shared<DisplayList>(list)});
        return frame;
    }
    QColor pixelAt(const QImage& image, const MPoint& world) const {
        const PortPoint port = activeView().projection().toPort(world);
        return image.pixelColor(static_cast<int>(port.x), image.height() - 1 - static_cast<int>(port.y));
    }
    static QColor viewPixel(const QImage& image, int x, int y) {
        return image.pixelColor(x, image.height() - 1 - y);
    }

    PictureMeshes meshes_;
};

void drawSampler(MUIDrawManager& manager) {
    manager.beginDrawInXray();
    manager.setColor(MColor(1.69417f, 1.69417f, 0.26403f, 2.20022f));  // over-bright yellow: clamped
    manager.setLineWidth(3.0f);
    manager.circle(MPoint(0, 0, 0), MVector(0, 1, 0), 1.1);
    manager.endDrawInXray();

    manager.beginDrawable();
    manager.setColor(MColor(0.2f, 0.4f, 1.0f));
    manager.setLineWidth(4.0f);
    manager.line(MPoint(-0.6, 0.2, -1.5), MPoint(0.6, 0.2, -1.5));  // behind the sphere: hidden
    manager.setColor(MColor(1.0f, 0.2f, 0.2f));
    manager.circle2d(MPoint(60, 60), 20.0, true);
    manager.setColor(MColor::kOpaqueBlack);
    manager.setLineWidth(1.0f);
    manager.circle2d(MPoint(60, 60), 22.0);
    manager.setColor(MColor(0.3f, 0.9f, 0.3f));
    manager.setLineWidth(2.0f);
    manager.setLineStyle(1, 0xFF00);
    manager.line2d(MPoint(120, 40), MPoint(300, 40));
    manager.setLineStyle(MUIDrawManager::kSolid);
    manager.arc2d(MPoint(420, 60), MVector(1, 0, 0), MVector(0, 1, 0), 30.0, true);
    manager.setFontSize(16);
    manager.setFontName("DejaVu Sans");
    manager.setColor(MColor(0.9f, 0.9f, 0.9f));
    manager.text2d(MPoint(10, 330), "kyStrake frame");
    manager.text(MPoint(1.2, 1.0, 0), "north-east", MUIDrawManager::kLeft);
    manager.endDrawable();
}

TEST_F(FramePicture, ShowsTheSourceShadedUnderTheFramesPrimitives) {
    DisplayList list;
    mhost::DrawRecorder recorder(list);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    drawSampler(manager);
    const QImage image = renderFrame(frameWith(list), meshes_);
    ASSERT_TRUE(image.save(KY_TEST_OUTPUT_DIR "/drawing_picture_test.png", "PNG"));
    ASSERT_EQ(QSize(480, 360), image.size());

    const QColor background = viewPixel(image, 2, 2);
    const QColor sphere = pixelAt(image, MPoint(0, 0.5, 0.86));
    EXPECT_GT(sphere.lightnessF(), background.lightnessF() + 0.2) << "the sphere's lit front is light";
    EXPECT_NEAR(sphere.redF(), sphere.blueF(), 0.05) << "and grey";
    const QColor hidden = pixelAt(image, MPoint(0, 0.2, -1.5));
    EXPECT_NEAR(hidden.redF(), hidden.blueF(), 0.05) << "the blue line behind the sphere is hidden";

    const QColor ring = pixelAt(image, MPoint(0, 0, 1.1));
    EXPECT_GT(ring.redF(), 0.9);
    EXPECT_GT(ring.greenF(), 0.9);
    EXPECT_LT(ring.blueF(), 0.4) << "the X-ray circle shows yellow over the sphere";

    const QColor dot = viewPixel(image, 60, 60);
    EXPECT_GT(dot.redF(), 0.9);
    EXPECT_LT(dot.greenF(), 0.3) << "the filled 2D circle is red at its centre";
    int lit = 0, runs = 0;
    for (int x = 124, was = 0; x < 296; ++x) {
        const int on = viewPixel(image, x, 40).greenF() > 0.8;
        lit += on;
        runs += on && !was;
        was = on;
    }
    EXPECT_EQ(11, runs) << "the 0xFF00 stipple draws 8 pixels in 16";
    EXPECT_NEAR(86, lit, 12);
}

TEST_F(FramePicture, DepthPriorityOrdersPrimitivesAndTiesKeepTheirOrder) {
    DisplayList list;
    mhost::DrawRecorder recorder(list);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    manager.beginDrawable();
    manager.setDepthPriority(10);
    manager.setColor(MColor(1, 0, 0));
    manager.rect2d(MPoint(100, 100), MVector(0, 1, 0), 20, 20, true);
    manager.setDepthPriority(5);
    manager.setColor(MColor(0, 0, 1));
    manager.rect2d(MPoint(100, 100), MVector(0, 1, 0), 30, 30, true);
    manager.setColor(MColor(0, 1, 0));
    manager.rect2d(MPoint(200, 100), MVector(0, 1, 0), 10, 10, true);
    manager.setColor(MColor(1, 1, 1));
    manager.rect2d(MPoint(200, 100), MVector(0, 1, 0), 10, 10, true);
    manager.endDrawable();
    const QImage image = renderFrame(frameWith(list), PictureMeshes());

    EXPECT_EQ(QColor(255, 0, 0), viewPixel(image, 100, 100)) << "priority 10 lies over priority 5";
    EXPECT_EQ(QColor(0, 0, 255), viewPixel(image, 100, 126));
    EXPECT_EQ(QColor(255, 255, 255), viewPixel(image, 200, 100)) << "the later of equals lies on top";
}

// A node with the plug through which the tool names its source mesh.
class SourceWatcher : public MPxNode {
public:
    static void* creator() { return new SourceWatcher; }
    static MStatus initialize() {
        MFnTypedAttribute typed;
        return addAttribute(typed.create("kyStrakeMesh", "ksm", MFnData::kMesh));
    }
};

class ScenePicture : public TestPluginFixture {
protected:
    void SetUp() override {
        ASSERT_TRUE(registerNode("sourceWatcher", 0x7102, SourceWatcher::creator, SourceWatcher::initialize));
        ASSERT_TRUE(driver::setViewSize(320, 240));
        ASSERT_TRUE(driver::placeCamera(MPoint(0, 6, 6), MPoint(0, 0, 0)));
    }
    // A mesh shape of the topology, under a new transform; returns the shape's name.
    static std::string addMesh(const MeshTopology& mesh) {
        MFloatPointArray points;
        for (int v = 0; v < mesh.numVertices(); ++v)
            points.append(mesh.point(v).x, mesh.point(v).y, mesh.point(v).z);
        MIntArray counts, connects;
        for (int count : mesh.polygonCounts()) counts.append(count);
        for (int id : mesh.faces().items) connects.append(id);
        MFnMesh fn;
        MStatus status;
        MObject transform = fn.create(mesh.numVertices(), mesh.numFaces(), points, counts, connects,
                                      MObject::kNullObj, &status);
        EXPECT_TRUE(status);
        return MFnDagNode(MFnDagNode(transform).child(0)).name().asChar();
    }
};

TEST_F(ScenePicture, ShadesTheMeshConnectedAsSourceAndWiresTheOthers) {
    const std::string sphere = addMesh(makeUvSphere(1.0, 16, 10));
    const std::string grid = addMesh(makePlaneGrid(6.0, 6.0, 30, 30));  // more polygons than the sphere
    ASSERT_TRUE(driver::runCommand("createNode sourceWatcher -n watcher"));
    ASSERT_TRUE(driver::runCommand("connectAttr " + sphere + ".outMesh watcher.kyStrakeMesh"));
    ASSERT_TRUE(driver::runFrame());
    const std::string path = KY_TEST_OUTPUT_DIR "/drawing_scene_picture_test.png";
    std::string error;
    ASSERT_TRUE(driver::writeFramePicture(path, &error)) << error;
    QImage image(QString::fromStdString(path));
    ASSERT_EQ(QSize(320, 240), image.size());

    EXPECT_GT(image.pixelColor(160, 120).lightnessF(), 0.5) << "the sphere is shaded";
    int lit = 0;
    for (int y = 100; y < 140; ++y)  // right of the sphere, on the grid
        for (int x = 230; x < 260; ++x) lit += image.pixelColor(x, y).lightnessF() > 0.5;
    EXPECT_GT(lit, 40) << "the grid's lines show";
    EXPECT_LT(lit, 600) << "the grid, though larger, is only a wireframe";
}

}  // namespace
