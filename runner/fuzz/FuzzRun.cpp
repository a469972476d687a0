#include "runner/fuzz/FuzzRun.h"

#include <mhost/Driver.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>

#include "runner/RunLog.h"
#include "runner/SceneSetup.h"
#include "runner/SessionPlayer.h"
#include "runner/SourceMeshes.h"
#include "runner/ToolPanel.h"
#include "runner/fuzz/FuzzSources.h"
#include "runner/fuzz/OffQueueChanges.h"
#include "runner/fuzz/SceneState.h"
#include "runner/fuzz/SessionGenerator.h"
#include "runner/SessionWriter.h"
#include "runner/fuzz/Shrinker.h"

namespace kystrake {

const char* const kUndoRedoInvariant = "undo redo";
const char* const kSourceEdited = "source edited";
const char* const kSceneRoundTrip = "scene round trip";

namespace {

struct Counters {
    long stepsFailed = 0;
    long undoPairsCompared = 0;
    long roundTripsCompared = 0;
};

bool isUndoRedoPair(const std::vector<Step>& steps, size_t undo) {
    if (undo + 1 >= steps.size()) return false;
    const Undo* first = std::get_if<Undo>(&steps[undo]);
    const Redo* second = std::get_if<Redo>(&steps[undo + 1]);
    return first && second && first->times == second->times;
}

bool isSaveLoadPair(const std::vector<Step>& steps, size_t save) {
    if (save + 1 >= steps.size()) return false;
    const SaveScene* first = std::get_if<SaveScene>(&steps[save]);
    const LoadScene* second = std::get_if<LoadScene>(&steps[save + 1]);
    return first && second && first->path == second->path;
}

const MeshArrays* findMesh(const SceneState& state, const std::string& name) {
    for (const MeshArrays& mesh : state.meshes)
        if (mesh.name == name) return &mesh;
    return nullptr;
}

// The journal word of the command that changes spans, which the twist gesture files as well.
const char* const kSpansJournalWord = "kyStrake_changeSpans";

// Whether one of the last `count` entries of the undo journal is a command of the journal word: the
// ones an undo of `count` steps is about to take back, or a redo of `count` steps has put back.
bool lastJournalHolds(const std::vector<std::string>& journal, int count, const std::string& word) {
    for (int i = 0; i < count && i < static_cast<int>(journal.size()); ++i)
        if (journal[journal.size() - 1 - i].find(word) != std::string::npos) return true;
    return false;
}

// The commands whose undo and redo do not bring the shadow and the player row's points back but
// write them afresh: the change of spans writes the rows, and sizesShadow from their lengths (see
// KeptCases); the move and relax brushes move the points and then refresh the player row and the
// shadow from the rows over the mesh as it is then.
const char* const kShadowRewriters[] = {kSpansJournalWord, "kyStrake_tweak", "kyStrake_brushRelax"};

bool lastJournalRewritesShadow(const std::vector<std::string>& journal, int count) {
    for (const char* word : kShadowRewriters)
        if (lastJournalHolds(journal, count, word)) return true;
    return false;
}

bool isShadowDifference(const std::string& difference) {
    for (const char* attribute : {"sizesShadow", "strokesShadow", "playersLine", "playerpts"})
        if (difference == std::string("locator ") + attribute) return true;
    return false;
}

bool sameAttribute(const SceneState& a, const SceneState& b, const std::string& name) {
    const auto x = a.locator.find(name), y = b.locator.find(name);
    if (x == a.locator.end() || y == b.locator.end()) return x == a.locator.end() && y == b.locator.end();
    return x->second == y->second;
}

bool rowsCleared(const SceneState& state) {
    for (const char* row : {"shadowIndices1", "shadowIndices2", "shadowIndices3", "playervtx"}) {
        const auto found = state.locator.find(row);
        if (found != state.locator.end() && !found->second.empty()) return false;
    }
    return true;
}

bool polygonsChanged(const SceneState& before, const SceneState& after) {
    if (after.rowsMesh < 0) return false;
    const MeshArrays& now = after.meshes[after.rowsMesh];
    for (const MeshArrays& mesh : before.meshes)
        if (mesh.name == now.name)
            return mesh.polygonCounts != now.polygonCounts || mesh.polygonConnects != now.polygonConnects;
    return true;
}

// An undo or redo starts the kept cases it causes; a later step that writes the arrays concerned
// afresh ends them.
void updateKeptCases(KeptCases& kept, const SceneState& before, const SceneState& after, bool undoOrRedo,
                     bool leavesRowsOutOfStep) {
    if (undoOrRedo) {
        kept.newFacesNotRestored = true;
        kept.rowsOutOfStep = kept.rowsOutOfStep || leavesRowsOutOfStep;
        return;
    }
    if (!sameAttribute(before, after, "newFaces")) kept.newFacesNotRestored = false;
    // Rows come back in step with the mesh when a patch is built (the rows mesh's polygons change
    // and the rows are written from it) or when they are cleared.
    if (rowsCleared(after) ||
        (!sameAttribute(before, after, "shadowIndices1") && polygonsChanged(before, after)))
        kept.rowsOutOfStep = false;
}

// Whether the source mesh, as it was at the start, has been changed (or removed) since.
bool sourceChanged(const MeshArrays& original, const SceneState& state) {
    const MeshArrays* now = findMesh(state, original.name);
    return !now || now->points != original.points || now->polygonCounts != original.polygonCounts ||
           now->polygonConnects != original.polygonConnects;
}

// The differences between two states that `expected` does not excuse, joined; empty when none.
template <class Expected>
std::string unexpectedDifferences(const SceneState& a, const SceneState& b, const Expected& expected) {
    std::string detail;
    for (const std::string& difference : stateDifferences(a, b))
        if (!expected(difference)) detail += (detail.empty() ? "" : ", ") + difference;
    return detail;
}

// The differences an undo-redo pair left, less those of the shadow when the commands undone write
// it afresh; empty when the redo gave back the state before the undo.
std::string undoRedoMismatch(const SceneState& beforeUndo, const SceneState& afterRedo, bool rewritesShadow) {
    return unexpectedDifferences(beforeUndo, afterRedo, [&](const std::string& difference) {
        return rewritesShadow && isShadowDifference(difference);
    });
}

// The differences between the scene saved and the scene opened from its file, less the points of
// shapes with history: points set on such a shape (the brushes' moves on a patch) are not part of
// the file, as its history computes them afresh when the scene opens; empty when nothing was lost.
std::string sceneRoundTripMismatch(const SceneState& saved, const SceneState& opened) {
    return unexpectedDifferences(saved, opened, [&](const std::string& difference) {
        return std::any_of(saved.meshes.begin(), saved.meshes.end(), [&](const MeshArrays& mesh) {
            return mesh.hasHistory && difference == "mesh " + mesh.name + " points";
        });
    });
}

// What the tool's undo states hold: the meshes and the locator's strokes, rows, shadow and player row.
bool isUndoStateDifference(const std::string& difference) {
    if (difference.rfind("mesh", 0) == 0) return true;
    for (const char* attribute :
         {"strokes", "sizes", "strokesShadow", "sizesShadow", "shadowIndices1", "shadowIndices2",
          "shadowIndices3", "playervtx", "playersLine", "playerpts"})
        if (difference == std::string("locator ") + attribute) return true;
    return false;
}

// Whether a mesh shows empty because the host refused its patch node's arrays. A snapshot of the
// mesh then holds nothing, and a redo that writes it back empties the node's arrays: the node gives
// another mesh than the refused one, so an undo-redo pair from such a state is not compared.
bool showsARefusedPatch(const SceneState& state) {
    return std::any_of(state.meshes.begin(), state.meshes.end(),
                       [](const MeshArrays& mesh) { return mesh.patchRefused; });
}

// Whether a step changed what the undo states hold (see OffQueueChanges for when that matters).
bool changedUndoState(const SceneState& before, const SceneState& after) {
    for (const std::string& difference : stateDifferences(before, after))
        if (isUndoStateDifference(difference)) return true;
    return false;
}

// Plays the steps on a fresh scene, with or without the artist's panel; the first broken invariant
// and its one-based step, if any.
std::optional<std::pair<Violation, int>> playChecked(const Session& session, const PolygonMesh& source,
                                                     const std::string& pluginPath, const std::string& outDir,
                                                     bool withPanel, Counters& counters) {
    RunLog log(false);
    // A load finds only what this session saved, so that it replays the same on its own.
    std::filesystem::remove(scenePath(kFuzzSceneFile, outDir));
    const SceneNames scene = setUpScene(session, source, pluginPath);
    std::optional<ToolPanel> panel;
    if (withPanel) panel.emplace();
    PlaybackResult playback;
    SceneState before = captureSceneState(scene);
    const MeshArrays* original = findMesh(before, scene.sourceShape);
    const bool hasSource = original != nullptr;
    const MeshArrays sourceBefore = hasSource ? *original : MeshArrays();
    SceneState beforeUndo;
    bool undoSucceeded = false, pairRewritesShadow = false, savedScene = false;
    OffQueueChanges offQueue;
    KeptCases kept;
    for (size_t i = 0; i < session.steps.size(); ++i) {
        const Step& step = session.steps[i];
        const bool undo = std::holds_alternative<Undo>(step), redo = std::holds_alternative<Redo>(step);
        const std::vector<std::string> journalBefore = mhost::driver::undoJournal();
        const int undoTimes = undo ? std::get<Undo>(step).times : 0;
        const bool undoneSpans = undo && lastJournalHolds(journalBefore, undoTimes, kSpansJournalWord);
        const bool undoneRewritesShadow = undo && lastJournalRewritesShadow(journalBefore, undoTimes);
        const MStatus status = playStep(step, static_cast<int>(i), scene, outDir, playback, log);
        if (!status) ++counters.stepsFailed;
        const std::vector<std::string> journalAfter = mhost::driver::undoJournal();
        const bool leavesRowsOutOfStep =
            ((undo || redo) && !status) || undoneSpans ||
            (redo && lastJournalHolds(journalAfter, std::get<Redo>(step).times, kSpansJournalWord));
        SceneState after = captureSceneState(scene);
        carryRowsMesh(before, after);
        updateKeptCases(kept, before, after, undo || redo, leavesRowsOutOfStep);
        if (hasSource && sourceChanged(sourceBefore, after))
            return std::make_pair(Violation{kSourceEdited, "the tool changed the source mesh"},
                                  static_cast<int>(i + 1));
        const std::vector<Violation> violations = findViolations(after, kept);
        if (!violations.empty()) return std::make_pair(violations.front(), static_cast<int>(i + 1));
        const size_t depthBefore = journalBefore.size(), depthAfter = journalAfter.size();
        if (redo)
            offQueue.afterRedo(depthBefore, depthAfter);
        else if (undo)
            offQueue.afterUndo(depthAfter, !status || undoneSpans);
        else
            offQueue.afterStep(depthBefore, depthAfter,
                               depthAfter == depthBefore && changedUndoState(before, after));
        // An undo that went through, with its redo next: the redo must give back the state before it.
        if (isUndoRedoPair(session.steps, i)) {
            beforeUndo = std::move(before);
            // An undo of more steps than the queue holds undoes what there is and warns; its redo
            // would then redo older steps undone before, so only a full undo makes a pair.
            const size_t times = static_cast<size_t>(undoTimes);
            undoSucceeded = status && depthBefore - depthAfter == times &&
                            !offQueue.anyFollowed(depthBefore, times) && !showsARefusedPatch(beforeUndo);
            pairRewritesShadow = undoneRewritesShadow;
        } else if (i > 0 && isUndoRedoPair(session.steps, i - 1) && undoSucceeded && status) {
            ++counters.undoPairsCompared;
            const std::string detail = undoRedoMismatch(beforeUndo, after, pairRewritesShadow);
            if (!detail.empty())
                return std::make_pair(Violation{kUndoRedoInvariant, "after undo and redo: " + detail},
                                      static_cast<int>(i + 1));
        }
        if (i > 0 && isSaveLoadPair(session.steps, i - 1) && savedScene && status) {
            ++counters.roundTripsCompared;
            const std::string detail = sceneRoundTripMismatch(before, after);
            if (!detail.empty())
                return std::make_pair(Violation{kSceneRoundTrip, "after save and load: " + detail},
                                      static_cast<int>(i + 1));
        }
        savedScene = std::holds_alternative<SaveScene>(step) && status;
        before = std::move(after);
    }
    return std::nullopt;
}

// The host's printed lines kept off the standard streams while it lives, whatever way the pass ends.
struct QuietHost {
    QuietHost() { mhost::driver::setMessageEcho(false); }
    ~QuietHost() { mhost::driver::setMessageEcho(true); }
    QuietHost(const QuietHost&) = delete;
    QuietHost& operator=(const QuietHost&) = delete;
};

std::uint64_t sessionSeed(std::uint64_t seed, long index) {
    FuzzRandom random(seed * 0x100000001b3ULL + static_cast<std::uint64_t>(index));
    return random.next();
}

// The session's source: a procedural kind the runner knows by name, a fuzz source written to an OBJ
// file beside the session files (so that a shrunk session replays on it), or the user's OBJ file.
struct FuzzSource {
    std::string name;
    PolygonMesh mesh;
    SourceMesh reference;
};

FuzzSource loadFuzzSource(const std::string& name, const std::string& outDir) {
    FuzzSource source;
    source.name = name;
    if (name.size() > 4 && name.substr(name.size() - 4) == ".obj") {
        source.reference.objPath = name;
        source.mesh = readObj(name);
        return source;
    }
    source.mesh = fuzzSourceMesh(name);
    for (const char* kind : {"plane", "relief", "sphere", "limb", "torus"})
        if (name == kind) {
            source.reference.procedural = name;
            source.reference.triangles = 2000;
            return source;
        }
    source.reference.objPath = std::filesystem::absolute(outDir + "/source-" + name + ".obj").string();
    writeObj(source.mesh, source.reference.objPath);
    return source;
}

std::string failureFileName(const FuzzFailure& failure) {
    std::string invariant = failure.violation.invariant;
    for (char& c : invariant)
        if (c == ' ') c = '-';
    return "fuzz-" + std::to_string(failure.sessionSeed) + "-" + invariant + ".json";
}

// Shrinks the failing session and writes it beside the fuzz output, naming the file in `failure`.
void shrinkAndWrite(Session session, const FuzzSource& source, const FuzzOptions& options,
                    FuzzFailure& failure) {
    session.steps.resize(failure.step);
    session = shrinkFailingSession(session, source.mesh, options, failure.violation.invariant);
    session.source = source.reference;
    failure.shrunkSteps = static_cast<int>(session.steps.size());
    failure.sessionPath = options.outDir + "/" + failureFileName(failure);
    std::ofstream(failure.sessionPath) << sessionJson(session);
}

}  // namespace

FuzzReport runFuzz(const FuzzOptions& options, std::ostream& progress) {
    std::filesystem::create_directories(options.outDir);
    // Thousands of sessions' undo lines and warnings would bury the pass's own findings; the checks
    // read the scene, not the printed lines.
    const QuietHost quiet;
    const auto start = std::chrono::steady_clock::now();
    FuzzReport report;
    const std::vector<std::string>& names = fuzzSourceNames();
    std::vector<std::string> shrunkInvariants;
    for (long index = 0; report.stepsRun < options.steps; ++index) {
        const std::string name = options.source.empty() ? names[index % names.size()] : options.source;
        const FuzzSource source = loadFuzzSource(name, options.outDir);
        const std::uint64_t seed = sessionSeed(options.seed, index);
        Session session;
        session.camera = framingCamera(source.mesh);
        const FuzzView view{session.viewWidth, session.viewHeight, *session.camera};
        const long length = std::min<long>(options.sessionLength, options.steps - report.stepsRun);
        session.steps = generateSteps(seed, static_cast<int>(length), view);
        Counters counters;
        const auto found =
            playChecked(session, source.mesh, options.pluginPath, options.outDir, options.panel, counters);
        ++report.sessions;
        report.stepsRun += found ? found->second : static_cast<long>(session.steps.size());
        report.stepsFailed += counters.stepsFailed;
        report.undoPairsCompared += counters.undoPairsCompared;
        report.roundTripsCompared += counters.roundTripsCompared;
        if (found && found->first.invariant == kSourceEdited) {
            ++report.sourceEdits;
        } else if (found) {
            FuzzFailure failure;
            failure.violation = found->first;
            failure.sessionSeed = seed;
            failure.source = name;
            failure.step = found->second;
            ++(failure.violation.invariant == kUndoRedoInvariant ? report.undoMismatches
                                                                 : report.invariantFailures);
            progress << "kystrake fuzz: session seed " << seed << " on \"" << name << "\", step "
                     << failure.step << ": " << failure.violation.invariant << ": "
                     << failure.violation.detail << "\n";
            const bool firstOfItsKind = std::find(shrunkInvariants.begin(), shrunkInvariants.end(),
                                                  failure.violation.invariant) == shrunkInvariants.end();
            if (options.shrink && firstOfItsKind) {
                shrunkInvariants.push_back(failure.violation.invariant);
                shrinkAndWrite(session, source, options, failure);
                progress << "  shrunk to " << failure.shrunkSteps << " steps: " << failure.sessionPath
                         << "\n";
            }
            report.failures.push_back(failure);
        }
        if (report.sessions % 50 == 0)
            progress << "kystrake fuzz: " << report.stepsRun << " steps, " << report.sessions
                     << " sessions\n";
    }
    report.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return report;
}

Session shrinkFailingSession(Session session, const PolygonMesh& source, const FuzzOptions& options,
                             const std::string& invariant, int maxTrials) {
    Counters ignored;
    const auto stillFails = [&](const std::vector<Step>& steps) {
        Session trial = session;
        trial.steps = steps;
        const auto found =
            playChecked(trial, source, options.pluginPath, options.outDir, options.panel, ignored);
        return found && found->first.invariant == invariant;
    };
    session.steps = shrinkSteps(session.steps, stillFails, maxTrials);
    return session;
}

std::optional<std::pair<Violation, int>> checkSession(const Session& session, const FuzzOptions& options) {
    std::filesystem::create_directories(options.outDir);
    Counters ignored;
    return playChecked(session, loadSourceMesh(session.source), options.pluginPath, options.outDir,
                       options.panel, ignored);
}

}  // namespace kystrake
