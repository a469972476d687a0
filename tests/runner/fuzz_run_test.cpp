// The fuzz loop on the host with the loaded plug-in: the scene read back as it is, corruption planted
// in a real scene caught, a seed that replays the same, a clean short pass on every source kind, and
// a failing session shrunk to the step at fault and written for `kystrake run`.

#include <gtest/gtest.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "runner/SceneSetup.h"
#include "runner/fuzz/FuzzRun.h"
#include "runner/fuzz/FuzzSources.h"
#include "runner/fuzz/SceneState.h"
#include "runner/fuzz/SessionGenerator.h"
#include "runner/fuzz/SessionWriter.h"

namespace {

using namespace kystrake;

FuzzOptions options(const std::string& name, long steps, const std::string& source = "plane") {
    FuzzOptions fuzz;
    fuzz.steps = steps;
    fuzz.sessionLength = 60;
    fuzz.source = source;
    fuzz.pluginPath = KY_PLUGIN_MODULE_PATH;
    fuzz.outDir = testing::TempDir() + "kystrake-fuzz-" + name;
    std::filesystem::remove_all(fuzz.outDir);
    return fuzz;
}

void setIntArray(const char* attribute, const MIntArray& values) {
    MSelectionList list;
    MObject node;
    ASSERT_TRUE(list.add("kyStrakeShape1") && list.getDependNode(0, node));
    MFnIntArrayData data;
    MObject array = data.create(values);
    ASSERT_TRUE(MFnDependencyNode(node).findPlug(attribute, false).setValue(array));
}

// Three strokes and ENTER build a patch on the plane seen from the front and above.
Session patchSession() {
    Session session;
    session.source.procedural = "plane";
    session.source.triangles = 2000;
    session.camera = framingCamera(fuzzSourceMesh("plane"));
    for (int row : {420, 360, 300}) {
        session.steps.push_back(Press{Pixel{330, row}, MouseButton::kLeft, {}});
        session.steps.push_back(
            Drag{{{400, row}, {480, row}, {560, row}, {630, row}}, MouseButton::kLeft, {}});
        session.steps.push_back(Release{Pixel{630, row}, MouseButton::kLeft, {}});
    }
    session.steps.push_back(Key{Key::Name::kEnter});
    return session;
}

// A real scene with a patch: clean as built; then a row planted one past the retopo mesh's vertices
// and a size planted without its points are read back and caught, and a vertex moved by a thousandth
// shows as a difference.
TEST(FuzzScene, CorruptionPlantedInTheSceneIsCaught) {
    const FuzzOptions fuzz = options("planted", 0);
    const Session session = patchSession();
    ASSERT_FALSE(checkSession(session, fuzz));
    const SceneNames scene{"sourceMeshShape", "kyStrakeShape1", "kyStrakeContext1"};
    const SceneState built = captureSceneState(scene);
    ASSERT_GE(built.activeMesh, 0) << "the patch made no retopo mesh";
    const MeshArrays& retopo = built.meshes[built.activeMesh];
    ASSERT_GT(retopo.polygonCounts.size(), 0u);
    EXPECT_TRUE(findViolations(built).empty());
    EXPECT_FALSE(built.locator.at("strokesShadow").empty());

    MIntArray row;
    row.append(0);
    row.append(retopo.vertexCount());
    setIntArray("shadowIndices2", row);
    MIntArray sizes;
    sizes.append(5);
    setIntArray("sizes", sizes);
    const std::vector<Violation> found = findViolations(captureSceneState(scene));
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].invariant, "stroke set");
    EXPECT_EQ(found[1].invariant, "row vertex id");

    ASSERT_TRUE(mhost::driver::runCommand("move -r 0 0 0.001 kyMeshShape1.vtx[2]"));
    SceneState moved = captureSceneState(scene);
    const std::vector<std::string> differences = stateDifferences(built, moved);
    EXPECT_NE(std::find(differences.begin(), differences.end(), "mesh " + retopo.name + " points"),
              differences.end());
}

TEST(FuzzRun, ASeedReplaysTheSamePass) {
    const FuzzReport first = runFuzz(options("seed-a", 120), std::cout);
    const FuzzReport second = runFuzz(options("seed-b", 120), std::cout);
    EXPECT_EQ(first.stepsRun, 120);
    EXPECT_EQ(first.sessions, 2);
    EXPECT_EQ(first.stepsFailed, second.stepsFailed);
    EXPECT_EQ(first.undoPairsCompared, second.undoPairsCompared);
    EXPECT_GT(first.undoPairsCompared, 0);
}

// A short pass on each source kind, with and without the panel, breaks no invariant.
TEST(FuzzRun, AShortPassOnEverySourceIsClean) {
    for (const std::string& source : fuzzSourceNames()) {
        FuzzOptions fuzz = options("clean-" + source, 120, source);
        fuzz.panel = source.size() % 2 == 0;
        const FuzzReport report = runFuzz(fuzz, std::cout);
        EXPECT_EQ(report.stepsRun, 120) << source;
        for (const FuzzFailure& failure : report.failures)
            ADD_FAILURE() << source << " step " << failure.step << ": " << failure.violation.invariant << ": "
                          << failure.violation.detail << " (" << failure.sessionPath << ")";
    }
}

// A mode value no preview has, set by script in the middle of random steps, is caught at its step and
// shrunk to that one step; the session file written replays to the same failure.
TEST(FuzzRun, AFailingSessionShrinksToTheStepAtFault) {
    FuzzOptions fuzz = options("shrink", 0);
    Session session = patchSession();
    const FuzzView view{session.viewWidth, session.viewHeight, *session.camera};
    session.steps = generateSteps(3, 30, view);
    const int planted = static_cast<int>(session.steps.size()) + 1;
    session.steps.push_back(Command{"setAttr kyStrakeShape1.mode 7"});
    const std::vector<Step> after = generateSteps(4, 10, view);
    session.steps.insert(session.steps.end(), after.begin(), after.end());

    const auto found = checkSession(session, fuzz);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->first.invariant, "preview mode");
    EXPECT_EQ(found->second, planted);

    const Session shrunk = shrinkFailingSession(session, fuzzSourceMesh("plane"), fuzz, "preview mode");
    ASSERT_EQ(shrunk.steps.size(), 1u);
    EXPECT_EQ(std::get<Command>(shrunk.steps[0]).text, "setAttr kyStrakeShape1.mode 7");
    const auto replayed = checkSession(parseSession(sessionToJson(shrunk)), fuzz);
    ASSERT_TRUE(replayed);
    EXPECT_EQ(replayed->second, 1);
}

}  // namespace
