// kystrake: replays gesture sessions of the kyStrake tool on the headless host and writes the retopo
// mesh, pictures of the viewport and a log of the tool's texts and errors.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "runner/DemoSession.h"
#include "runner/ObjFile.h"
#include "runner/SessionRun.h"
#include "runner/fuzz/FuzzRun.h"

namespace {

using namespace kystrake;

int runAndReport(const Session& session, const std::string& outDir, const std::string& pluginPath,
                 bool verbose) {
    const RunSummary run = runSession(session, outDir, pluginPath, verbose);
    std::cout << "kystrake: source mesh " << run.sourcePolygons << " polygons; " << run.playback.stepsRun
              << " steps run, " << run.playback.stepsFailed << " failed; " << run.errorLines
              << " error lines\n"
              << "  frames: " << run.playback.frames.size() << " PNG in " << outDir << "\n"
              << "  log:    " << run.logPath << "\n"
              << "  mesh:   " << (run.meshPath.empty() ? std::string("no retopo mesh yet") : run.meshPath)
              << "\n";
    return 0;
}

// `kystrake studio ...` is the studio program, kept out of the runner so that replaying sessions needs
// no window system: the arguments after "studio" go to kystrake-studio beside this program.
int runStudio(char** argv) {
    const std::string studio =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "kystrake-studio").string();
    argv[1] = const_cast<char*>(studio.c_str());
    execv(studio.c_str(), argv + 1);
    std::cerr << "kystrake: cannot start " << studio << ": " << std::strerror(errno) << "\n";
    return 1;
}

// Runs the fuzz pass and prints its figures; exit 0 when no invariant broke, 3 when one did.
int fuzzAndReport(const FuzzOptions& options) {
    const FuzzReport report = runFuzz(options, std::cout);
    std::cout << "kystrake fuzz: " << report.stepsRun << " steps in " << report.sessions << " sessions, "
              << report.seconds << " s (" << report.stepsRun / std::max(report.seconds, 1e-9) << " steps/s); "
              << report.stepsFailed << " steps failed as expected, " << report.undoPairsCompared
              << " undo-redo pairs and " << report.roundTripsCompared
              << " scene round trips compared; invariant failures " << report.invariantFailures
              << ", undo mismatches " << report.undoMismatches << "; " << report.sourceEdits
              << " sessions ended when the tool changed the source mesh\n";
    for (const FuzzFailure& failure : report.failures)
        if (!failure.sessionPath.empty())
            std::cout << "  " << failure.violation.invariant << " on \"" << failure.source
                      << "\": " << failure.sessionPath << " ("
                      << failure.shrunkSteps << " steps)\n";
    return report.failures.empty() ? 0 : 3;
}

// Replays a session with the fuzzer's checks after every step.
int checkAndReport(const Session& session, const FuzzOptions& options) {
    const auto found = checkSession(session, options);
    if (!found) {
        std::cout << "kystrake fuzz: " << session.steps.size() << " steps, every invariant holds\n";
        return 0;
    }
    std::cout << "kystrake fuzz: step " << found->second << ": " << found->first.invariant << ": "
              << found->first.detail << "\n";
    return 3;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::string(argv[1]) == "studio") return runStudio(argv);
    CLI::App app{"kystrake: replay kyStrake retopology sessions on the headless Maya host"};
    app.require_subcommand(1);
    std::string outDir = "kystrake-out", pluginPath = KY_PLUGIN_MODULE_PATH, sessionPath, sourcePath;
    bool verbose = false, fullRoad = false;
    app.add_flag("-v,--verbose", verbose,
                 "also show the host's and the plug-in's error lines as they happen");

    CLI::App* run = app.add_subcommand("run", "replay a session file");
    run->add_option("session", sessionPath, "session JSON file")->required();
    run->add_option("--source", sourcePath, "source mesh OBJ (overrides the session's source)");
    run->add_option("--out", outDir, "output folder for frames, log and mesh");
    run->add_option("--plugin", pluginPath, "kyStrake plug-in module to load");

    CLI::App* demo = app.add_subcommand("demo", "run the built-in session on a built-in dense face relief");
    demo->add_flag("--full", fullRoad,
                   "walk the whole road: patches, anchors, a strake, a bridge, a merge, keys, undo and redo");
    demo->add_option("--out", outDir, "output folder for frames, log and mesh");
    demo->add_option("--plugin", pluginPath, "kyStrake plug-in module to load");

    // Listed for --help only: "studio" is handed to kystrake-studio before the parse.
    app.add_subcommand("studio", "the tool live in a window (kystrake-studio; its --help lists its options)");

    FuzzOptions fuzzOptions;
    std::string replayPath;
    bool noPanel = false, noShrink = false;
    CLI::App* fuzz = app.add_subcommand("fuzz", "run random sessions, checking the scene after every step");
    fuzz->add_option("--seed", fuzzOptions.seed, "seed of the random sessions");
    fuzz->add_option("--steps", fuzzOptions.steps, "steps to run in all");
    fuzz->add_option("--session-length", fuzzOptions.sessionLength, "steps a session before a fresh scene")
        ->check(CLI::PositiveNumber);
    fuzz->add_option(
        "--source", fuzzOptions.source,
        "source mesh: plane, relief, sphere, limb, torus, nonmanifold, degenerate, tiny, huge, or "
        "an OBJ file (default: each name in turn)");
    fuzz->add_option("--replay", replayPath, "replay a session file with the checks instead of fuzzing");
    fuzz->add_flag("--no-panel", noPanel, "run without the artist's panel");
    fuzz->add_flag("--no-shrink", noShrink, "report failures without shrinking them");
    fuzz->add_option("--out", fuzzOptions.outDir, "output folder for shrunk sessions");
    fuzz->add_option("--plugin", pluginPath, "kyStrake plug-in module to load");

    CLI11_PARSE(app, argc, argv);
    // Bad input files (the session, the source mesh, a scene file the session loads) end with exit
    // code 2, before anything is written; a failure of the run itself ends with 1.
    try {
        if (*fuzz) {
            fuzzOptions.pluginPath = pluginPath;
            fuzzOptions.panel = !noPanel;
            fuzzOptions.shrink = !noShrink;
            if (!replayPath.empty()) return checkAndReport(loadSession(replayPath), fuzzOptions);
            return fuzzAndReport(fuzzOptions);
        }
        Session session = *run ? loadSession(sessionPath) : fullRoad ? fullRoadSession() : demoSession();
        if (!sourcePath.empty()) session.source.objPath = sourcePath;
        return runAndReport(session, outDir, pluginPath, verbose);
    } catch (const SessionError& error) {
        std::cerr << "kystrake: " << error.what() << "\n";
        return 2;
    } catch (const ObjError& error) {
        std::cerr << "kystrake: " << error.what() << "\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "kystrake: " << error.what() << "\n";
        return 1;
    }
}
