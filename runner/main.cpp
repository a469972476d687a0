// kystrake: replays gesture sessions of the kyStrake tool on the headless host and writes the retopo
// mesh, pictures of the viewport and a log of the tool's texts and errors.

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "runner/DemoSession.h"
#include "runner/RunLog.h"
#include "runner/SceneSetup.h"
#include "runner/SessionPlayer.h"
#include "runner/SourceMeshes.h"

namespace {

using namespace kystrake;

int runSession(const Session& session, const std::string& outDir, const std::string& pluginPath,
               bool verbose) {
    std::filesystem::create_directories(outDir);
    const PolygonMesh source = loadSourceMesh(session.source);
    RunLog log(verbose);
    const SceneNames scene = setUpScene(session, source, pluginPath);
    const PlaybackResult result = playSession(session, scene, outDir, log);
    const std::string meshPath = outDir + "/retopo.obj";
    const bool wroteMesh = writeRetopoMesh(scene, meshPath);
    std::ofstream(outDir + "/run.log") << [&] {
        std::ostringstream text;
        log.write(text);
        return text.str();
    }();
    std::cout << "kystrake: source mesh " << source.polygonCounts.size() << " polygons; " << result.stepsRun
              << " steps run, " << result.stepsFailed << " failed; " << log.errorCount() << " error lines\n"
              << "  frames: " << result.frames.size() << " PNG in " << outDir << "\n"
              << "  log:    " << outDir << "/run.log\n"
              << "  mesh:   " << (wroteMesh ? meshPath : std::string("no retopo mesh yet")) << "\n";
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app{"kystrake: replay kyStrake retopology sessions on the headless Maya host"};
    app.require_subcommand(1);
    std::string outDir = "kystrake-out", pluginPath = KY_PLUGIN_MODULE_PATH, sessionPath, sourcePath;
    bool verbose = false;
    app.add_flag("-v,--verbose", verbose,
                 "also show the host's and the plug-in's error lines as they happen");

    CLI::App* run = app.add_subcommand("run", "replay a session file");
    run->add_option("session", sessionPath, "session JSON file")->required();
    run->add_option("--source", sourcePath, "source mesh OBJ (overrides the session's source)");
    run->add_option("--out", outDir, "output folder for frames, log and mesh");
    run->add_option("--plugin", pluginPath, "kyStrake plug-in module to load");

    CLI::App* demo = app.add_subcommand("demo", "run the built-in session on a built-in dense limb");
    demo->add_option("--out", outDir, "output folder for frames, log and mesh");
    demo->add_option("--plugin", pluginPath, "kyStrake plug-in module to load");

    CLI11_PARSE(app, argc, argv);
    try {
        Session session = *run ? loadSession(sessionPath) : demoSession();
        if (!sourcePath.empty()) session.source.objPath = sourcePath;
        return runSession(session, outDir, pluginPath, verbose);
    } catch (const SessionError& error) {
        std::cerr << "kystrake: " << error.what() << "\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "kystrake: " << error.what() << "\n";
        return 1;
    }
}
