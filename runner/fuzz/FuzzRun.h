#pragma once
// The fuzz loop: sessions of random steps, each on a fresh scene, with the invariants checked after
// every step and every undo-redo pair compared with the state before it. The first failure of each
// invariant is shrunk to its shortest session and written as a JSON file for `kystrake run`.

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "runner/ObjFile.h"
#include "runner/Session.h"
#include "runner/fuzz/Invariants.h"

namespace kystrake {

// What a fuzz pass runs, on what, and where its findings go.
struct FuzzOptions {
    std::uint64_t seed = 1;
    long steps = 1000;        // in all, over as many sessions as it takes
    int sessionLength = 200;  // steps a session, before the scene starts afresh
    std::string source;       // a name of `fuzzSourceNames`, an OBJ path, or empty to cycle the names
    std::string pluginPath;
    std::string outDir = "kystrake-fuzz";  // where shrunk sessions (and frames) go
    bool shrink = true;
    bool panel = true;  // the artist's panel present, as in `kystrake run`, or absent
};

// The invariant "undo redo" is the one an undo-redo pair breaks when the redo does not give back the
// state before the undo, bit for bit.
extern const char* const kUndoRedoInvariant;
// The invariant "scene round trip" is the one a save-load pair breaks when the scene opened is not
// the scene saved, bit for bit.
extern const char* const kSceneRoundTrip;
// Not an invariant but the end of a session: the tool has changed the source mesh, which happens
// when the artist selects the source as the retopo mesh. The tool keeps the per-face normals it took
// of the source when it was activated and reads them, unguarded, by the ids of faces hit on the
// source, so once the tool has added faces to the source that read runs past their end. Nothing
// after that is checked.
extern const char* const kSourceEdited;

// A session that broke an invariant, with the shortest session that still breaks it.
struct FuzzFailure {
    Violation violation;
    std::uint64_t sessionSeed = 0;
    std::string source;
    int step = 0;             // one-based, in the session
    int shrunkSteps = 0;      // steps of the shortest reproducing session
    std::string sessionPath;  // that session's JSON file, empty when not shrunk
};

// The figures of a fuzz pass.
struct FuzzReport {
    long stepsRun = 0;
    long stepsFailed = 0;  // steps whose host call failed: expected, not faults
    long sessions = 0;
    long undoPairsCompared = 0;
    long roundTripsCompared = 0;  // save-load pairs whose scenes were compared
    long invariantFailures = 0;  // sessions that broke an invariant other than undo-redo
    long undoMismatches = 0;     // sessions that broke the undo-redo invariant
    long sourceEdits = 0;        // sessions ended early because the tool changed the source
    double seconds = 0;
    std::vector<FuzzFailure> failures;  // the first of each invariant, shrunk
};

// Runs the fuzz pass, printing a line of progress now and then; throws what setting a scene up throws.
FuzzReport runFuzz(const FuzzOptions& options, std::ostream& progress);

// The shortest sub-session of a session that breaks `invariant` (replayed on `source` with the
// checks of the fuzz loop), shrunk with at most `maxTrials` replays.
Session shrinkFailingSession(Session session, const PolygonMesh& source, const FuzzOptions& options,
                             const std::string& invariant, int maxTrials = 400);

// Replays a session with the checks of the fuzz loop (plug-in, output folder and panel as in
// `options`); the first broken invariant and its one-based step, if any.
std::optional<std::pair<Violation, int>> checkSession(const Session& session, const FuzzOptions& options);

}  // namespace kystrake
