// Whole runs through the host and the loaded plug-in module: the demo, the closed-limb session and
// the run log's command results.

#include <gtest/gtest.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <unistd.h>

#include "runner/DemoSession.h"
#include "runner/ReliefSurface.h"
#include "runner/SessionRun.h"

namespace {

using namespace kystrake;

const char* const kLocator = "kyStrakeShape1";

// A fresh output folder for one test process: CTest runs the tests of a group in processes of
// their own, side by side, and each runs the group's set-up.
std::string outputFolder(const std::string& name) {
    const std::string folder = testing::TempDir() + "kystrake-" + name + "-" + std::to_string(getpid());
    std::filesystem::remove_all(folder);
    return folder;
}

RunSummary run(const Session& session, const std::string& name) {
    return runSession(session, outputFolder(name), KY_PLUGIN_MODULE_PATH, false);
}

std::string fileText(const std::string& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

MObject locatorData(const char* attribute) {
    MSelectionList list;
    MObject node, data;
    if (list.add(kLocator) && list.getDependNode(0, node))
        MFnDependencyNode(node).findPlug(attribute, true).getValue(data);
    return data;
}

MPointArray locatorPoints(const char* attribute) {
    MObject data = locatorData(attribute);
    return data.isNull() ? MPointArray() : MFnPointArrayData(data).array();
}

MIntArray locatorCounts(const char* attribute) {
    MObject data = locatorData(attribute);
    return data.isNull() ? MIntArray() : MFnIntArrayData(data).array();
}

// The demo's steps up to, not including, ENTER: the strokes stay on the locator.
Session demoStrokesOnly(int triangles) {
    Session session = demoSession();
    session.source.triangles = triangles;
    const auto enter = std::find_if(session.steps.begin(), session.steps.end(),
                                    [](const Step& step) { return std::holds_alternative<Key>(step); });
    session.steps.erase(enter, session.steps.end());
    return session;
}

// The demo as `kystrake demo` runs it, on a lighter relief of the same shape; run once for the group.
class DemoRun : public testing::Test {
protected:
    static void SetUpTestSuite() {
        Session session = demoSession();
        session.source.triangles = 30000;
        summary_ = std::make_unique<RunSummary>(run(session, "demo"));
    }
    static void TearDownTestSuite() { summary_.reset(); }
    void SetUp() override { ASSERT_TRUE(summary_) << "the demo run did not finish"; }

    static inline std::unique_ptr<RunSummary> summary_;
};

TEST_F(DemoRun, CommitsItsStrokesAndWritesItsFrames) {
    const RunSummary& summary = *summary_;
    EXPECT_EQ(0, summary.playback.stepsFailed);
    const std::string log = fileText(summary.logPath);
    EXPECT_NE(std::string::npos, log.find("status: 3 stroke(s)")) << log;
    ASSERT_EQ(3u, summary.playback.frames.size());
    for (const std::string& frame : summary.playback.frames) {
        ASSERT_TRUE(std::filesystem::exists(frame)) << frame;
        EXPECT_GT(std::filesystem::file_size(frame), 1000u) << frame;
    }
    EXPECT_NE(std::string::npos, summary.playback.frames.back().find("patch"));
}

// Turns on by itself once ENTER builds the scratch patch from the strokes.
// Three strokes make two bands of ky_uspan 10 by ky_vspan 6 quads.
TEST_F(DemoRun, EnterBuildsAPatchOfTwoBandsOfQuads) {
    ASSERT_FALSE(summary_->meshPath.empty()) << "no retopo mesh after ENTER";
    const PolygonMesh retopo = readObj(summary_->meshPath);
    EXPECT_EQ(120, std::count(retopo.polygonCounts.begin(), retopo.polygonCounts.end(), 4));
    EXPECT_EQ(retopo.polygonCounts.size(), 120u);
}

// The demo's strokes lie on the forehead of the relief, on the surface the camera sees.
TEST(DemoStrokes, LieOnTheForeheadOfTheRelief) {
    run(demoStrokesOnly(30000), "demo-strokes");
    const MIntArray sizes = locatorCounts("sizes");
    ASSERT_EQ(3u, sizes.length());
    for (unsigned i = 0; i < sizes.length(); ++i) EXPECT_GE(sizes[i], 20) << i;
    const MPointArray strokes = locatorPoints("strokes");
    ASSERT_GT(strokes.length(), 60u);
    for (unsigned i = 0; i < strokes.length(); ++i) {
        const MPoint& p = strokes[i];
        ASSERT_NEAR(reliefHeight(p.x, p.y), p.z, 0.05) << i;
        ASSERT_GT(p.y, 1.9) << i;  // above the brows
        ASSERT_LT(p.y, 5.5) << i;
        ASSERT_LT(std::abs(p.x), 3.5) << i;
    }
}

// The closed-limb session draws from a camera in front (+Z) of a limb whose axis lies in the XY
// plane; picking keeps the last hit along each ray, so the strokes land on the back, at negative Z.
TEST(ClosedLimbSession, StrokesLandOnTheFarSideOfTheLimb) {
    Session session = loadSession(std::string(KY_SESSIONS_DIR) + "/closed_limb.json");
    ASSERT_EQ("limb", session.source.procedural);
    ASSERT_TRUE(session.camera.has_value());
    ASSERT_GT(session.camera->eye[2], 5.0);
    session.source.triangles = 40000;
    const RunSummary summary = run(session, "closed-limb");
    EXPECT_EQ(0, summary.playback.stepsFailed);
    EXPECT_EQ(3u, summary.playback.frames.size());
    // The strokes are kept with the patch that ENTER made from them, and both lie on the back.
    const MIntArray sizes = locatorCounts("sizesNondestruct");
    ASSERT_EQ(2u, sizes.length());
    const MPointArray strokes = locatorPoints("strokesNondestruct");
    ASSERT_GT(strokes.length(), 20u);
    for (unsigned i = 0; i < strokes.length(); ++i) EXPECT_LT(strokes[i].z, -0.5) << i;
    ASSERT_FALSE(summary.meshPath.empty());
    const PolygonMesh retopo = readObj(summary.meshPath);
    ASSERT_FALSE(retopo.points.empty());
    for (const auto& point : retopo.points) EXPECT_LT(point[2], -0.5);
}

TEST(RunLogCommands, NoteEachCommandsResultSoQueriesCanBeRead) {
    Session session;
    session.source.procedural = "plane";
    session.source.triangles = 200;
    session.steps = {SetOptionVar{"ky_vspan", 5}, Command{"kyStrakeContext -q -vspan kyStrakeContext1"},
                     Command{"kyStrakeContext -e -figure 2 kyStrakeContext1"},
                     Command{"kyStrakeContext -q -figure kyStrakeContext1"}, Command{"noSuchCommand 1"}};
    const RunSummary summary = run(session, "commands");
    EXPECT_EQ(1, summary.playback.stepsFailed);
    const std::string log = fileText(summary.logPath);
    EXPECT_NE(std::string::npos, log.find("[step 2 command] result: 5\n")) << log;
    EXPECT_NE(std::string::npos, log.find("[step 3 command] result: ")) << log;
    EXPECT_NE(std::string::npos, log.find("[step 4 command] result: 2\n")) << log;
    EXPECT_NE(std::string::npos, log.find("[step 5 command] failed: ")) << log;
    EXPECT_EQ(std::string::npos, log.find("[step 5 command] result")) << log;
}

}  // namespace

// The whole road of `kystrake demo --full` on a lighter relief: every step succeeds, each flow says
// so in the log, and the merged mesh comes out whole.
TEST(FullRoadRun, WalksEveryFlowAndEndsWithTheMergedMesh) {
    Session session = fullRoadSession();
    session.source.triangles = 30000;
    const RunSummary summary = run(session, "full-road");
    EXPECT_EQ(0, summary.playback.stepsFailed);
    const std::string log = fileText(summary.logPath);
    for (const char* text :
         {"status: 2 anchor point(s) selected,", "status: Strake Patch created",
          "Undo: kyStrakeCmd kyStrake_appendPatch", "status: Changing spans,Pinch value: 0",
          "status: Bridge creagted", "Undo: polyBridgeEdge -divisions 3", "status: Boundary edges merged",
          "Redo: polyMergeVertex", "status: Operation cancelled", "status: Freeze Border",
          "status: Relax brush,Intensity: 50,Radius: 50", "status: Move brush,Radius: 50"})
        EXPECT_NE(std::string::npos, log.find(text)) << text;
    EXPECT_EQ(28u, summary.playback.frames.size());
    ASSERT_FALSE(summary.meshPath.empty());
    // One mesh of quads alone, the merged seam included; the counts are the road's own.
    const PolygonMesh retopo = readObj(summary.meshPath);
    EXPECT_EQ(std::count(retopo.polygonCounts.begin(), retopo.polygonCounts.end(), 4), 524);
    EXPECT_EQ(retopo.points.size(), 598u);
}

// A press on a vertex the retopo mesh does not have fails that step alone, saying why.
TEST(RunLogVertexPlaces, AMissingVertexFailsItsStep) {
    Session session;
    session.source.procedural = "plane";
    session.source.triangles = 200;
    session.steps = {Press{VertexPlace{"", 5, {0, 0}}, MouseButton::kLeft, {}},
                     Press{VertexPlace{"sourceMeshShape", 9999, {0, 0}}, MouseButton::kLeft, {}}};
    const RunSummary summary = run(session, "vertex-places");
    EXPECT_EQ(2, summary.playback.stepsFailed);
    const std::string log = fileText(summary.logPath);
    EXPECT_NE(std::string::npos, log.find("[step 1 press] no vertex 5 on the retopo mesh")) << log;
    EXPECT_NE(std::string::npos, log.find("[step 2 press] no vertex 9999 on sourceMeshShape")) << log;
}

// Two SHIFT strokes across the closed limb each make a ring through it, front hits and back hits;
// ENTER builds the tube between the two rings, all the way round.
TEST(LimbSliceSession, TwoSliceRingsMakeATubeAroundTheLimb) {
    Session session = loadSession(std::string(KY_SESSIONS_DIR) + "/limb_slice.json");
    session.source.triangles = 40000;
    const RunSummary summary = run(session, "limb-slice");
    EXPECT_EQ(0, summary.playback.stepsFailed);
    ASSERT_FALSE(summary.meshPath.empty());
    const PolygonMesh retopo = readObj(summary.meshPath);
    // ky_uspan 8 around each ring, ky_vspan 3 between them.
    EXPECT_EQ(retopo.polygonCounts.size(), 24u);
    // Vertices on the side facing the camera and on the far side alike.
    const auto onSide = [&](double sign) {
        return std::count_if(retopo.points.begin(), retopo.points.end(),
                             [&](const auto& point) { return sign * point[2] > 0.3; });
    };
    EXPECT_GT(onSide(1.0), 4);
    EXPECT_GT(onSide(-1.0), 4);
}
