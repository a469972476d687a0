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

#include "runner/ObjFile.h"
#include "runner/SceneSetup.h"
#include "runner/fuzz/FuzzRun.h"
#include "runner/fuzz/FuzzSources.h"
#include "runner/fuzz/SceneState.h"
#include "runner/fuzz/SessionGenerator.h"
#include "runner/SessionWriter.h"

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

void addStroke(Session& session, Pixel from, Pixel to, Modifiers press = {}, Modifiers drag = {},
               MouseButton button = MouseButton::kLeft) {
    session.steps.push_back(Press{from, button, press});
    session.steps.push_back(Drag{{from, {(from[0] + to[0]) / 2, (from[1] + to[1]) / 2}, to}, button, drag});
    session.steps.push_back(Release{to, button, drag});
}

const std::vector<double>& locatorArray(const SceneState& state, const char* attribute) {
    return state.locator.at(attribute);
}

SceneState sceneNow() { return captureSceneState({"", "kyStrakeShape1", "kyStrakeContext1"}); }

// The tool's own behaviours that leave the locator out of step with the mesh, each replayed: the
// fuzz checks pass over them, and the state shows the behaviour itself.
TEST(FuzzKeptCases, ARedrawWithNoGridLeavesThePatchBlockedAndTheRowsAsTheyWere) {
    Session session = patchSession();
    // SHIFT at the press and CTRL in the drag: a redraw stroke whose points never reached the
    // surface, so the rebuild finds nothing to project and returns with the patch node blocked.
    addStroke(session, {481, 190}, {547, 381}, {true, false}, {false, true});
    addStroke(session, {300, 600}, {400, 610}, {false, true}, {false, true});
    EXPECT_FALSE(checkSession(session, options("blocked", 0)));
    const SceneState state = sceneNow();
    ASSERT_GE(state.activeMesh, 0);
    EXPECT_TRUE(state.meshes[state.activeMesh].patchBlocked);
    EXPECT_EQ(state.meshes[state.activeMesh].vertexCount(), 0);
    EXPECT_FALSE(locatorArray(state, "shadowIndices1").empty());
}

TEST(FuzzKeptCases, QuadsRefusedOnASourceBelowTheMergeThresholdLeaveFaceIdsMinusOne) {
    FuzzOptions fuzz = options("refused", 0);
    std::filesystem::create_directories(fuzz.outDir);
    Session session;
    session.source.objPath = fuzz.outDir + "/tiny.obj";
    writeObj(fuzzSourceMesh("tiny"), session.source.objPath);
    session.camera = framingCamera(fuzzSourceMesh("tiny"));
    addStroke(session, {380, 420}, {580, 420});
    addStroke(session, {380, 300}, {580, 300});
    session.steps.push_back(Key{Key::Name::kEnter});
    EXPECT_FALSE(checkSession(session, fuzz));
    const SceneState state = sceneNow();
    ASSERT_GE(state.activeMesh, 0);
    EXPECT_TRUE(state.meshes[state.activeMesh].polygonCounts.empty());
    const std::vector<double>& faces = locatorArray(state, "newFaces");
    ASSERT_FALSE(faces.empty());
    EXPECT_EQ(std::count(faces.begin(), faces.end(), -1.0), static_cast<long>(faces.size()));
}

TEST(FuzzKeptCases, ClearingTheAnchorsEmptiesTheShadowSizesAndKeepsItsPoints) {
    Session session = patchSession();
    session.steps.push_back(Command{"kyStrakeContext -e -refresh true kyStrakeContext1"});
    EXPECT_FALSE(checkSession(session, options("refresh", 0)));
    const SceneState state = sceneNow();
    EXPECT_TRUE(locatorArray(state, "sizesShadow").empty());
    EXPECT_FALSE(locatorArray(state, "strokesShadow").empty());
}

// With the source selected as the retopo mesh, a patch grows into the source, and projecting the
// next one reads the source's per-face normals past their end; the fuzz loop ends the session there.
TEST(FuzzKeptCases, APatchOnTheSourceItselfEndsTheSession) {
    Session session = patchSession();
    session.steps.insert(session.steps.begin(), Select{{"sourceMesh"}});
    session.steps.push_back(Key{Key::Name::kEnter});
    const auto found = checkSession(session, options("source", 0));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->first.invariant, kSourceEdited);
    EXPECT_EQ(found->second, static_cast<int>(session.steps.size()) - 1);
}

// Two scratch patches on the relief, the second under a merge threshold of 1.6: the host refuses the
// arrays the patch wrote, and the retopo mesh shows empty while newFaces still names faces.
TEST(FuzzKeptCases, ArraysTheHostRefusesLeaveThePatchEmpty) {
    const Session session = loadSession(std::string(KY_SESSIONS_DIR) + "/refused_patch_arrays.json");
    EXPECT_FALSE(checkSession(session, options("refused-arrays", 0)));
    const SceneState state = sceneNow();
    ASSERT_GE(state.activeMesh, 0);
    EXPECT_TRUE(state.meshes[state.activeMesh].patchRefused);
    EXPECT_FALSE(locatorArray(state, "newFaces").empty());
}

void click(Session& session, Pixel at, MouseButton button, Modifiers modifiers) {
    session.steps.push_back(Press{at, button, modifiers});
    session.steps.push_back(Release{at, button, modifiers});
}

// Plays `session` less its last undo-redo pair with the fuzz checks, then that pair by hand; the
// scene before the undo and after the redo.
std::pair<SceneState, SceneState> statesAroundTheLastPair(Session session, const FuzzOptions& fuzz) {
    const int times = std::get<Undo>(session.steps[session.steps.size() - 2]).times;
    session.steps.resize(session.steps.size() - 2);
    EXPECT_FALSE(checkSession(session, fuzz));
    const SceneState beforeUndo = sceneNow();
    for (int i = 0; i < times; ++i) EXPECT_TRUE(mhost::driver::undo());
    for (int i = 0; i < times; ++i) EXPECT_TRUE(mhost::driver::redo());
    return {beforeUndo, sceneNow()};
}

// A saved session of the runner's replayed with the checks, which hold, then its last undo-redo pair
// by hand: the scene before the undo and after the redo.
std::pair<SceneState, SceneState> replayedKeptPair(const std::string& file, const std::string& name) {
    const Session session = loadSession(std::string(KY_SESSIONS_DIR) + "/" + file);
    const FuzzOptions fuzz = options(name, 0);
    EXPECT_FALSE(checkSession(session, fuzz));
    return statesAroundTheLastPair(session, fuzz);
}

// A change of spans files the rows handed over at its gesture; ESC then clears the rows without
// filing anything, and a brush stroke files a command whose undo puts back points, not rows. Undoing
// back to the change of spans finds the rows cleared, its redo writes back the rows of its gesture,
// so the pair is not compared.
TEST(FuzzKeptCases, AnUndoRunOverAnEscapeRedoesTheRowsOfTheGesture) {
    Session session = patchSession();
    click(session, {480, 360}, MouseButton::kMiddle, {true, false});  // a change of spans, no drag
    session.steps.push_back(Key{Key::Name::kEscape});
    click(session, {480, 360}, MouseButton::kMiddle, {});  // a move-brush stroke
    session.steps.push_back(Undo{1});
    session.steps.push_back(Undo{1});
    session.steps.push_back(Redo{1});
    const FuzzOptions fuzz = options("escape", 0);
    EXPECT_FALSE(checkSession(session, fuzz));
    const auto [beforeUndo, afterRedo] = statesAroundTheLastPair(session, fuzz);
    EXPECT_TRUE(locatorArray(beforeUndo, "shadowIndices1").empty());
    EXPECT_FALSE(locatorArray(afterRedo, "shadowIndices1").empty());
}

// The undo of a scratch patch fails (it saved no locator state) and leaves the patch's rows while
// the queue moves below it; undoing two changes of spans and redoing them then writes back the rows
// of their gestures, not the patch's.
TEST(FuzzKeptCases, AnUndoRunAfterAFailedUndoRedoesTheRowsOfItsCommands) {
    const auto [beforeUndo, afterRedo] = replayedKeptPair("undo_run_after_failed_undo.json", "failed-undo");
    EXPECT_NE(locatorArray(beforeUndo, "shadowIndices1"), locatorArray(afterRedo, "shadowIndices1"));
}

// Two anchors picked on the patch's border, then BACKSPACE: the first anchor stays in the player
// points while the line is cleared on its own.
TEST(FuzzKeptCases, BackspaceOnTwoAnchorsClearsThePlayerLineAlone) {
    Session session = patchSession();
    for (int vertex : {0, 2}) {
        const VertexPlace at{"", vertex, {0, 0}};
        session.steps.push_back(Press{at, MouseButton::kLeft, {true, true}});
        session.steps.push_back(Release{at, MouseButton::kLeft, {true, true}});
    }
    session.steps.push_back(Key{Key::Name::kBackspace});
    EXPECT_FALSE(checkSession(session, options("backspace", 0)));
    const SceneState state = sceneNow();
    EXPECT_EQ(locatorArray(state, "playerpts").size(), 4u);
    EXPECT_TRUE(locatorArray(state, "playersLine").empty());
}

// Three MMB-CTRL clicks on a patch file three twists, none of which twisted and so took no snapshot
// before: undoing the last two writes back an older snapshot (here none), not the mesh the first
// twist left, which its redo writes back.
TEST(FuzzKeptCases, AnUndoOfClickTwistsWritesBackAnOlderSnapshot) {
    const auto [beforeUndo, afterRedo] = replayedKeptPair("undo_over_click_twists.json", "click-twists");
    ASSERT_GE(beforeUndo.activeMesh, 0);
    ASSERT_GE(afterRedo.activeMesh, 0);
    EXPECT_NE(beforeUndo.meshes[beforeUndo.activeMesh].polygonCounts,
              afterRedo.meshes[afterRedo.activeMesh].polygonCounts);
}

// A second scratch patch whose arrays the host refuses leaves the retopo mesh showing empty; a
// MMB-CTRL release then files a twist whose after snapshot holds that empty mesh, so its redo writes
// empty arrays and the patch node passes on another mesh than the refused one.
TEST(FuzzKeptCases, AnUndoFromARefusedPatchRedoesAnEmptySnapshot) {
    const auto [beforeUndo, afterRedo] = replayedKeptPair("undo_over_refused_patch.json", "refused-undo");
    ASSERT_GE(beforeUndo.activeMesh, 0);
    ASSERT_GE(afterRedo.activeMesh, 0);
    EXPECT_TRUE(beforeUndo.meshes[beforeUndo.activeMesh].patchRefused);
    EXPECT_NE(beforeUndo.meshes[beforeUndo.activeMesh].polygonCounts,
              afterRedo.meshes[afterRedo.activeMesh].polygonCounts);
}

// A move-brush stroke on a patch sets the points of a shape whose history computes them: the scene
// file holds the history, not the points, so the scene opened shows the patch as built. Everything
// else comes back as saved.
TEST(FuzzKeptCases, BrushMovesOnAPatchAreNotPartOfTheSceneFile) {
    Session session = patchSession();
    session.steps.push_back(Command{"kyStrakeContext -e -rad 2 kyStrakeContext1"});
    addStroke(session, {480, 360}, {520, 330}, {}, {}, MouseButton::kMiddle);
    const FuzzOptions fuzz = options("save-brush", 0);
    ASSERT_FALSE(checkSession(session, fuzz));
    const SceneState moved = sceneNow();
    session.steps.push_back(SaveScene{kFuzzSceneFile});
    session.steps.push_back(LoadScene{kFuzzSceneFile});
    EXPECT_FALSE(checkSession(session, fuzz));
    const std::vector<std::string> differences = stateDifferences(moved, sceneNow());
    ASSERT_EQ(differences.size(), 1u);
    EXPECT_EQ(differences[0], "mesh " + moved.meshes[moved.activeMesh].name + " points");
}

TEST(FuzzRun, ASeedReplaysTheSamePass) {
    const FuzzReport first = runFuzz(options("seed-a", 120), std::cout);
    const FuzzReport second = runFuzz(options("seed-b", 120), std::cout);
    EXPECT_EQ(first.stepsRun, 120);
    EXPECT_EQ(first.sessions, 2);
    EXPECT_EQ(first.stepsFailed, second.stepsFailed);
    EXPECT_EQ(first.undoPairsCompared, second.undoPairsCompared);
    EXPECT_GT(first.undoPairsCompared, 0);
    EXPECT_EQ(first.roundTripsCompared, second.roundTripsCompared);
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
    const auto replayed = checkSession(parseSession(sessionJson(shrunk)), fuzz);
    ASSERT_TRUE(replayed);
    EXPECT_EQ(replayed->second, 1);
}

}  // namespace
