// The fuzzer's own parts on plain data: the invariant checker against planted corruptions, the bit
// comparison of states, the record of changes made off the undo queue, the shrinker, and the
// generator's steps as JSON.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "runner/fuzz/Invariants.h"
#include "runner/fuzz/OffQueueChanges.h"
#include "runner/fuzz/SessionGenerator.h"
#include "runner/SessionWriter.h"
#include "runner/fuzz/Shrinker.h"

namespace {

using namespace kystrake;

std::vector<double> point(double x, double y, double z) { return {x, y, z, 1.0}; }

// Two quads side by side (six vertices), selected as the retopo mesh, with a patch's bookkeeping on
// the locator: two strokes, a two-row shadow, a player row, a bridge preview and the brush cursor.
SceneState patchedState() {
    SceneState state;
    MeshArrays mesh;
    mesh.name = "kyMeshShape1";
    for (int i = 0; i < 6; ++i) mesh.points.insert(mesh.points.end(), {double(i % 3), 0.0, double(i / 3)});
    mesh.polygonCounts = {4, 4};
    mesh.polygonConnects = {0, 1, 4, 3, 1, 2, 5, 4};
    state.meshes = {mesh};
    state.activeMesh = state.rowsMesh = 0;
    auto& locator = state.locator;
    locator["strokes"] = point(0, 0, 0);
    for (const double x : {1.0, 2.0}) {
        const auto p = point(x, 0, 0);
        locator["strokes"].insert(locator["strokes"].end(), p.begin(), p.end());
    }
    locator["sizes"] = {1, 2};
    locator["shadowIndices1"] = {0, 1, 2};
    locator["shadowIndices2"] = {3, 4, 5};
    locator["sizesShadow"] = {3, 3};
    for (int i = 0; i < 6; ++i) {
        const auto p = point(i % 3, 0, i / 3);
        locator["strokesShadow"].insert(locator["strokesShadow"].end(), p.begin(), p.end());
    }
    locator["playervtx"] = {3, 4, 5};
    locator["playerpts"] = locator["playersLine"] = locator["strokesShadow"];
    locator["fusemesh"] = locator["strokesShadow"];
    locator["fuseindices"] = {0, 1, 5};
    locator["tweakRadius"] = {10, 300, 200};
    locator["newFaces"] = {0, 1};
    locator["mode"] = {-1};
    return state;
}

// The names of the invariants the state breaks, each once.
std::vector<std::string> invariantsBroken(const SceneState& state) {
    std::vector<std::string> names;
    for (const Violation& violation : findViolations(state))
        if (names.empty() || names.back() != violation.invariant) names.push_back(violation.invariant);
    return names;
}

TEST(FuzzInvariants, AConsistentPatchStateBreaksNothing) {
    EXPECT_TRUE(findViolations(patchedState()).empty());
    EXPECT_TRUE(findViolations(SceneState{}).empty());
    // The face id -1 of a quad the host refused stays among the new faces.
    SceneState refused = patchedState();
    refused.locator["newFaces"] = {-1, 1, -1};
    EXPECT_TRUE(findViolations(refused).empty());
    // So does the id -1 of a row point that no vertex lies near, in the rows and the player row.
    SceneState lost = patchedState();
    lost.locator["shadowIndices1"] = {-1, 1, 2};
    lost.locator["playervtx"] = {-1, 4, 5};
    EXPECT_TRUE(findViolations(lost).empty());
    // And a shadow whose sizes went with the preview's clear while its points stayed.
    SceneState cleared = patchedState();
    cleared.locator["sizesShadow"].clear();
    EXPECT_TRUE(findViolations(cleared).empty());
    // And a player row whose line BACKSPACE cleared while its points stayed.
    SceneState backspaced = patchedState();
    backspaced.locator["playersLine"].clear();
    EXPECT_TRUE(findViolations(backspaced).empty());
}

// Each corruption is planted at the first value out of bounds, so that a check that lets the bound
// itself through fails here.
TEST(FuzzInvariants, EachPlantedCorruptionIsCaughtByItsInvariant) {
    struct Corruption {
        const char* what;
        std::function<void(SceneState&)> plant;
        const char* invariant;
    };
    const Corruption corruptions[] = {
        {"face id at the vertex count", [](SceneState& s) { s.meshes[0].polygonConnects[5] = 6; },
         "mesh vertex id"},
        {"negative face id", [](SceneState& s) { s.meshes[0].polygonConnects[0] = -1; }, "mesh vertex id"},
        {"face through one vertex twice", [](SceneState& s) { s.meshes[0].polygonConnects[7] = 1; },
         "mesh repeated vertex"},
        {"two-corner face",
         [](SceneState& s) {
             s.meshes[0].polygonCounts = {4, 2, 2};
         },
         "mesh polygon"},
        {"connects past the counts", [](SceneState& s) { s.meshes[0].polygonConnects.push_back(0); },
         "mesh polygon"},
        {"counts past the connects",
         [](SceneState& s) {
             s.meshes[0].polygonCounts = {4, 5};
         },
         "mesh polygon"},
        {"stroke sizes one short",
         [](SceneState& s) {
             s.locator["sizes"] = {1, 1};
         },
         "stroke set"},
        {"negative stroke size",
         [](SceneState& s) {
             s.locator["sizes"] = {4, -1};
         },
         "stroke set"},
        {"shadow sizes one over",
         [](SceneState& s) {
             s.locator["sizesShadow"] = {3, 4};
         },
         "stroke set"},
        {"nondestructive sizes without points", [](SceneState& s) { s.locator["sizesNondestruct"] = {2}; },
         "stroke set"},
        {"row id at the vertex count", [](SceneState& s) { s.locator["shadowIndices2"][2] = 6; },
         "row vertex id"},
        {"row id -2",
         [](SceneState& s) {
             s.locator["shadowIndices3"] = {-2, 0};
         },
         "row vertex id"},
        {"player id at the vertex count", [](SceneState& s) { s.locator["playervtx"][0] = 6; },
         "row vertex id"},
        {"player positions apart", [](SceneState& s) { s.locator["playerpts"][0] = 0.5; }, "player row"},
        {"player points cleared apart from the line", [](SceneState& s) { s.locator["playerpts"].clear(); },
         "player row"},
        {"preview triangle cut short", [](SceneState& s) { s.locator["fuseindices"].pop_back(); },
         "fuse preview"},
        {"preview point at the point count", [](SceneState& s) { s.locator["fuseindices"][2] = 6; },
         "fuse preview"},
        {"brush cursor of two numbers", [](SceneState& s) { s.locator["tweakRadius"].pop_back(); },
         "brush cursor"},
        {"new face at the face count", [](SceneState& s) { s.locator["newFaces"] = {2}; }, "new faces"},
        {"new face -2",
         [](SceneState& s) {
             s.locator["newFaces"] = {0, -2};
         },
         "new faces"},
        {"preview mode 2", [](SceneState& s) { s.locator["mode"] = {2}; }, "preview mode"},
        {"preview mode -2", [](SceneState& s) { s.locator["mode"] = {-2}; }, "preview mode"},
    };
    for (const Corruption& corruption : corruptions) {
        SceneState state = patchedState();
        corruption.plant(state);
        const std::vector<std::string> broken = invariantsBroken(state);
        EXPECT_EQ(broken, std::vector<std::string>{corruption.invariant}) << corruption.what;
    }
}

// Rows are ids of the mesh they were written on; where that mesh is not known there is nothing to
// hold them to.
TEST(FuzzInvariants, RowsAreHeldToTheMeshTheyWereWrittenOn) {
    SceneState state = patchedState();
    state.locator["shadowIndices1"] = {40};
    state.rowsMesh = -1;
    EXPECT_TRUE(findViolations(state).empty());
    MeshArrays bigger = state.meshes[0];
    bigger.name = "sourceMesh";
    for (int i = 0; i < 40; ++i) bigger.points.insert(bigger.points.end(), {0.0, 1.0, double(i)});
    state.meshes.push_back(bigger);
    state.rowsMesh = 1;
    EXPECT_TRUE(findViolations(state).empty());
    state.rowsMesh = 0;
    EXPECT_EQ(invariantsBroken(state), std::vector<std::string>{"row vertex id"});
}

// Selecting another mesh leaves the rows with the mesh they were written on; rows written anew
// belong to the mesh selected then.
TEST(FuzzInvariants, RowsStayWithTheirMeshAcrossSelectionChanges) {
    SceneState before = patchedState();
    MeshArrays source = before.meshes[0];
    source.name = "sourceMesh";
    before.meshes.insert(before.meshes.begin(), source);
    before.rowsMesh = before.activeMesh = 1;

    SceneState selected = before;
    selected.meshes.erase(selected.meshes.begin());  // a mesh gone from in front moves the index
    selected.meshes.push_back(source);
    selected.rowsMesh = selected.activeMesh = 1;
    carryRowsMesh(before, selected);
    EXPECT_EQ(selected.rowsMesh, 0);

    SceneState rewritten = selected;
    rewritten.locator["newFaces"] = {1};
    rewritten.rowsMesh = rewritten.activeMesh;  // as captured
    carryRowsMesh(selected, rewritten);
    EXPECT_EQ(rewritten.rowsMesh, 1);

    SceneState gone = selected;
    gone.meshes.erase(gone.meshes.begin());
    gone.activeMesh = gone.rowsMesh = 0;
    carryRowsMesh(selected, gone);
    EXPECT_EQ(gone.rowsMesh, -1);
}

TEST(FuzzStateDifferences, NameEveryArrayThatDiffersInOneBit) {
    const SceneState before = patchedState();
    EXPECT_TRUE(stateDifferences(before, before).empty());

    SceneState after = before;
    after.meshes[0].points[4] = std::nextafter(after.meshes[0].points[4], 1.0);
    after.locator["strokesShadow"][0] = -0.0;  // equal as a number, not as bits
    after.locator["playervtx"] = {3, 4};
    EXPECT_EQ(
        stateDifferences(before, after),
        (std::vector<std::string>{"mesh kyMeshShape1 points", "locator playervtx", "locator strokesShadow"}));

    SceneState moreMeshes = before;
    moreMeshes.meshes.push_back(before.meshes[0]);
    moreMeshes.meshes[0].polygonConnects = {0, 1, 4, 3, 1, 2, 5, 4, 0, 1, 2};
    moreMeshes.meshes[0].polygonCounts = {4, 4, 3};
    EXPECT_EQ(stateDifferences(before, moreMeshes),
              (std::vector<std::string>{"mesh count 1 became 2", "mesh kyMeshShape1 polygon counts",
                                        "mesh kyMeshShape1 polygon connects"}));
}

// Steps told apart by their undo count, so that a test can name the ones that must stay.
std::vector<Step> numberedSteps(int count) {
    std::vector<Step> steps;
    for (int i = 0; i < count; ++i) steps.push_back(Undo{i});
    return steps;
}

std::vector<int> numbers(const std::vector<Step>& steps) {
    std::vector<int> values;
    for (const Step& step : steps) values.push_back(std::get<Undo>(step).times);
    return values;
}

bool holds(const std::vector<Step>& steps, int number) {
    for (const Step& step : steps)
        if (std::get<Undo>(step).times == number) return true;
    return false;
}

// Commands A, B, C filed at depths 1 to 3, with the rows cleared by ESC between A and B.
OffQueueChanges escapeAfterTheFirstOfThree() {
    OffQueueChanges changes;
    changes.afterStep(0, 1, false);
    changes.afterStep(1, 1, true);
    changes.afterStep(1, 2, false);
    changes.afterStep(2, 3, false);
    return changes;
}

TEST(FuzzOffQueueChanges, AnUndoRunOverAChangeOffTheQueueComparesNothing) {
    const OffQueueChanges changes = escapeAfterTheFirstOfThree();
    EXPECT_FALSE(changes.anyFollowed(3, 1));  // C alone
    EXPECT_FALSE(changes.anyFollowed(3, 2));  // C and B
    EXPECT_TRUE(changes.anyFollowed(3, 3));   // down to A, which the ESC followed
    EXPECT_TRUE(changes.anyFollowed(1, 1));   // A on top, once B and C are undone
    EXPECT_TRUE(changes.anyFollowed(3, 9));   // more than the queue holds
}

TEST(FuzzOffQueueChanges, ARedoOrANewCommandPutsTheCommandBackAsItLeftTheScene) {
    OffQueueChanges redone = escapeAfterTheFirstOfThree();
    redone.afterRedo(0, 3);  // A, B and C undone, then redone
    EXPECT_FALSE(redone.anyFollowed(3, 3));

    OffQueueChanges refiled = escapeAfterTheFirstOfThree();
    refiled.afterStep(0, 1, false);  // everything undone, then a new command filed
    EXPECT_FALSE(refiled.anyFollowed(1, 1));
    refiled.afterStep(1, 3, false);  // a script filing two commands at once
    EXPECT_FALSE(refiled.anyFollowed(3, 3));
}

TEST(FuzzOffQueueChanges, AnUndoThatLeavesAnotherStateMarksTheCommandBelow) {
    OffQueueChanges changes;
    changes.afterStep(0, 1, false);
    changes.afterStep(1, 2, false);
    changes.afterStep(2, 3, false);
    changes.afterUndo(2, false);
    EXPECT_FALSE(changes.anyFollowed(2, 2));
    changes.afterUndo(1, true);
    EXPECT_TRUE(changes.anyFollowed(1, 1));
    EXPECT_FALSE(changes.anyFollowed(0, 1));
}

TEST(FuzzShrinker, KeepsOnlyTheStepsTheFailureNeeds) {
    const auto twoFar = [](const std::vector<Step>& steps) { return holds(steps, 7) && holds(steps, 61); };
    EXPECT_EQ(numbers(shrinkSteps(numberedSteps(80), twoFar)), (std::vector<int>{7, 61}));

    const auto lastOnly = [](const std::vector<Step>& steps) { return holds(steps, 79); };
    EXPECT_EQ(numbers(shrinkSteps(numberedSteps(80), lastOnly)), std::vector<int>{79});

    // A failure that needs a run of three steps in a row keeps the run whole.
    const auto run = [](const std::vector<Step>& steps) {
        for (size_t i = 0; i + 2 < steps.size(); ++i)
            if (std::get<Undo>(steps[i]).times == 30 && std::get<Undo>(steps[i + 2]).times == 32) return true;
        return false;
    };
    EXPECT_EQ(numbers(shrinkSteps(numberedSteps(50), run)), (std::vector<int>{30, 31, 32}));
}

TEST(FuzzShrinker, StopsAtItsBoundOfReplays) {
    int replays = 0;
    const auto counted = [&](const std::vector<Step>& steps) {
        ++replays;
        return holds(steps, 3) && holds(steps, 97);
    };
    const std::vector<Step> shrunk = shrinkSteps(numberedSteps(100), counted, 5);
    EXPECT_EQ(replays, 5);
    EXPECT_TRUE(holds(shrunk, 3) && holds(shrunk, 97));
}

FuzzView view() { return {960, 640, {{0, 2, 20}, {0, 0, 0}, 45.0}}; }

std::string sessionText(std::uint64_t seed, int count) {
    Session session;
    session.camera = view().home;
    session.steps = generateSteps(seed, count, view());
    return sessionJson(session);
}

TEST(FuzzGenerator, ASeedAlwaysGivesTheSameSteps) {
    EXPECT_EQ(sessionText(17, 300), sessionText(17, 300));
    EXPECT_NE(sessionText(17, 300), sessionText(18, 300));
    const std::vector<Step> steps = generateSteps(5, 300, view());
    EXPECT_GE(steps.size(), 300u);
    EXPECT_LE(steps.size(), 302u);  // a gesture of three steps may run over by two
}

// Every kind of step the generator makes survives writing and reading back unchanged, so a shrunk
// failure replays as it ran.
TEST(FuzzGenerator, GeneratedSessionsReadBackAsWritten) {
    Session session;
    session.camera = view().home;
    session.steps = generateSteps(99, 3000, view());
    bool seen[std::variant_size_v<Step>] = {};
    for (const Step& step : session.steps) seen[step.index()] = true;
    for (size_t kind = 0; kind < std::variant_size_v<Step>; ++kind)
        EXPECT_TRUE(seen[kind]) << "step kind " << kind;

    const std::string text = sessionJson(session);
    const Session read = parseSession(text);
    EXPECT_EQ(read.steps.size(), session.steps.size());
    EXPECT_EQ(sessionJson(read), text);
}

}  // namespace
