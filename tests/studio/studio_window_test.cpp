// The studio used as a person uses it: real Qt mouse and key events into the window, the tool
// answering, the retopo mesh checked, and the recording replayed by `kystrake run`.

#include <gtest/gtest.h>
#include <maya/MGlobal.h>
#include <mhost/Driver.h>
#include <mhost/Interaction.h>

#include <QtCore/QProcess>
#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "runner/ObjFile.h"
#include "runner/SourceMeshes.h"
#include "runner/SessionWriter.h"
#include "studio/StudioWindow.h"
#include "studio/ViewportWidget.h"

namespace {

using namespace kystrake;

std::string readText(const std::string& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

// A limb seen from the front, as the slice session sees it: two SHIFT strokes across it ring it.
Session limbStart() {
    Session start;
    start.source = {"", "limb", 40000};
    start.viewWidth = 960;
    start.viewHeight = 640;
    start.camera = CameraPlacement{{1.5, 4, 16}, {1.5, 4, 0}, 45.0};
    return start;
}

class StudioWindowTest : public testing::Test {
protected:
    void SetUp() override {
        outDir = std::string(KY_TEST_OUTPUT_DIR) + "/" +
                 testing::UnitTest::GetInstance()->current_test_info()->name();
        std::filesystem::create_directories(outDir);
        window = std::make_unique<StudioWindow>(limbStart(), KY_PLUGIN_MODULE_PATH);
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        viewport = &window->viewport();
    }
    void TearDown() override { window.reset(); }

    // The widget point of a view pixel (origin at the bottom left).
    QPoint at(int x, int y) const { return {x, viewport->height() - 1 - y}; }

    void moveWithButtons(QPoint point, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers) {
        QMouseEvent move(QEvent::MouseMove, point, viewport->mapToGlobal(point), Qt::NoButton, buttons,
                         modifiers);
        QApplication::sendEvent(viewport, &move);
    }

    // A horizontal drag from (x0, y) to (x1, y) in 4-pixel steps, with the button and modifiers held.
    void drag(int x0, int x1, int y, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
        QTest::mousePress(viewport, button, modifiers, at(x0, y));
        const int step = x1 > x0 ? 4 : -4;
        for (int x = x0 + step; step > 0 ? x <= x1 : x >= x1; x += step)
            moveWithButtons(at(x, y), button, modifiers);
        QTest::mouseRelease(viewport, button, modifiers, at(x1, y));
    }

    void ringTheLimbAndConfirm() {
        window->findChild<QSpinBox*>("uSpanSpin")->setValue(8);
        window->findChild<QSpinBox*>("vSpanSpin")->setValue(3);
        drag(380, 480, 362, Qt::LeftButton, Qt::ShiftModifier);
        drag(380, 480, 302, Qt::LeftButton, Qt::ShiftModifier);
        // The rings are drawn as yellow feedback strokes before ENTER turns them into the tube.
        window->grab().save(QString::fromStdString(outDir + "/studio.png"));
        ringFeedbackPixels = countPixels(viewport->grabFramebuffer(), [](const QColor& c) {
            return c.red() > 150 && c.green() > 150 && c.blue() < 80;
        });
        QTest::keyClick(viewport, Qt::Key_Return);
    }

    template <typename Test>
    static int countPixels(const QImage& image, Test test) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += test(image.pixelColor(x, y));
        return count;
    }

    // The retopo mesh as the studio exports it; empty when there is none.
    PolygonMesh retopo(const std::string& name) {
        const std::string path = outDir + "/" + name;
        return window->exportRetopo(path) ? readObj(path) : PolygonMesh();
    }

    std::string outDir;
    int ringFeedbackPixels = 0;
    std::unique_ptr<StudioWindow> window;
    ViewportWidget* viewport = nullptr;
};

TEST_F(StudioWindowTest, SlicedRingsAndEnterMakeATubeAndKeysReachTheUndoQueue) {
    ringTheLimbAndConfirm();
    const PolygonMesh tube = retopo("tube.obj");
    // 8 spans round each ring, 3 between them.
    ASSERT_EQ(tube.polygonCounts.size(), 24u);
    EXPECT_TRUE(
        std::all_of(tube.polygonCounts.begin(), tube.polygonCounts.end(), [](int n) { return n == 4; }));

    // The picture shows the shaded limb in the middle over the grey background, and the wireframe.
    const QImage view = viewport->grabFramebuffer();
    EXPECT_NE(view.pixelColor(480, 320), view.pixelColor(5, 5));
    EXPECT_GT(countPixels(view, [](const QColor& c) { return c.blue() > c.red() + 60; }), 100);
    EXPECT_GT(ringFeedbackPixels, 50);

    // The keys reach the host's undo queue: the tube goes, and the redo is asked for in turn.
    QTest::keyClick(viewport, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(retopo("undone.obj").polygonCounts.size(), 24u);
    QTest::keyClick(viewport, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    const auto& steps = window->session().session().steps;
    ASSERT_GE(steps.size(), 2u);
    EXPECT_TRUE(std::holds_alternative<Undo>(steps[steps.size() - 2]));
    EXPECT_TRUE(std::holds_alternative<Redo>(steps.back()));
}

// An Alt-drag moves the camera before the strokes; the recording must hold where it came to rest, or
// the replayed strokes would land elsewhere on the limb.
// The pinch lock is off, so the tool reads the slider here, while the replay, which has no such
// slider, reads the locator's pinch: both must agree.
TEST_F(StudioWindowTest, RecordedSessionReplaysToTheSameRetopo) {
    window->findChild<QCheckBox*>("lockedPinchChk")->setChecked(false);
    window->findChild<QSlider*>("pinchSlid")->setValue(30);
    drag(480, 492, 200, Qt::LeftButton, Qt::AltModifier);
    drag(480, 496, 100, Qt::RightButton, Qt::AltModifier);
    ringTheLimbAndConfirm();
    const Session& recorded = window->session().session();
    EXPECT_TRUE(std::any_of(recorded.steps.begin(), recorded.steps.end(),
                            [](const Step& s) { return std::holds_alternative<CameraPlacement>(s); }));
    ASSERT_TRUE(window->exportRetopo(outDir + "/studio-retopo.obj"));
    ASSERT_EQ(readObj(outDir + "/studio-retopo.obj").polygonCounts.size(), 24u);
    saveSession(recorded, outDir + "/session.json");

    QProcess replay;
    replay.start(KY_RUNNER_PATH, {"run", QString::fromStdString(outDir + "/session.json"), "--out",
                                  QString::fromStdString(outDir + "/replay")});
    ASSERT_TRUE(replay.waitForFinished(120000));
    ASSERT_EQ(replay.exitCode(), 0) << replay.readAllStandardError().toStdString();
    EXPECT_EQ(readText(outDir + "/replay/retopo.obj"), readText(outDir + "/studio-retopo.obj"));
}

TEST_F(StudioWindowTest, PanelEditsReachTheToolAndTheRecording) {
    auto* launch = window->findChild<QPushButton*>("kyStrakeLaunchBtn");
    ASSERT_TRUE(launch);
    EXPECT_TRUE(launch->isChecked());
    const auto* help = window->findChild<QLabel*>("helpText");
    EXPECT_TRUE(help->text().startsWith("LMB: Drag on the source surface to draw strokes\n"));

    QTest::mouseClick(window->findChild<QPushButton*>("freezeBtn"), Qt::LeftButton);
    EXPECT_TRUE(window->findChild<QLabel*>("statusText")->text().contains("Freeze Border"));
    const auto& steps = window->session().session().steps;
    ASSERT_FALSE(steps.empty());
    EXPECT_EQ(std::get<Command>(steps.back()).text, "kyStrakeContext -e -freeze 1 kyStrakeContext1");

    window->findChild<QSpinBox*>("bridgeSpin")->setValue(4);
    EXPECT_EQ(MGlobal::optionVarIntValue("ky_bdiv"), 4);
    EXPECT_EQ(std::get<SetOptionVar>(steps.back()).name, "ky_bdiv");

    // The slider's value reaches the locator exactly, so a replay without the panel reads the same.
    window->findChild<QSlider*>("pinchSlid")->setValue(-37);
    EXPECT_EQ(mhost::driver::runCommandForWords("getAttr " + window->session().scene().locator + ".pinch"),
              std::vector<std::string>{"-0.37"});

    QTest::mouseClick(launch, Qt::LeftButton);
    EXPECT_EQ(mhost::driver::currentTool(), "selectSuperContext");
    QTest::mouseClick(launch, Qt::LeftButton);
    EXPECT_EQ(mhost::driver::currentTool(), "kyStrakeContext1");
}

// Holding m turns a drag into a change of the move brush radius, not a gesture; letting go of m gives
// the mouse back to the tool.
TEST_F(StudioWindowTest, HeldBrushKeyChangesTheRadiusInsteadOfDrawing) {
    QTest::keyPress(viewport, Qt::Key_M);
    drag(400, 440, 300, Qt::LeftButton, Qt::NoModifier);
    QTest::keyRelease(viewport, Qt::Key_M);
    EXPECT_EQ(MGlobal::optionVarIntValue("ky_strakeTweakR"), 70);
    for (const Step& step : window->session().session().steps) {
        EXPECT_FALSE(std::holds_alternative<Press>(step));
        EXPECT_FALSE(std::holds_alternative<Drag>(step));
    }
    drag(380, 480, 362, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_TRUE(std::holds_alternative<Release>(window->session().session().steps.back()));
}

// Opening an OBJ source starts a new scene and a new recording on it.
TEST_F(StudioWindowTest, OpeningAnObjSourceStartsANewRecording) {
    drag(380, 480, 362, Qt::LeftButton, Qt::ShiftModifier);
    ASSERT_FALSE(window->session().session().steps.empty());
    const std::string path = outDir + "/torus.obj";
    writeObj(proceduralMesh("torus", 2000), path);
    window->openSource(path);
    EXPECT_TRUE(window->session().session().steps.empty());
    EXPECT_EQ(window->session().session().source.objPath, path);
    EXPECT_EQ(window->session().sourcePolygons(), readObj(path).polygonCounts.size());
    EXPECT_EQ(mhost::driver::currentTool(), "kyStrakeContext1");
    EXPECT_FALSE(window->exportRetopo(outDir + "/none.obj"));
}

}  // namespace
