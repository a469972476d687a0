#include "runner/SessionRun.h"

#include <mhost/SceneFile.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "runner/RunLog.h"
#include "runner/SceneSetup.h"
#include "runner/SourceMeshes.h"
#include "runner/ToolPanel.h"

namespace kystrake {
namespace {

// Checks every scene file the session loads that none of its earlier steps saves, so that a corrupt
// one stops the run before anything is written. Throws SessionError naming the step and the file.
void checkLoadedSceneFiles(const Session& session, const std::string& outDir) {
    std::set<std::string> saved;
    for (size_t i = 0; i < session.steps.size(); ++i) {
        if (const auto* save = std::get_if<SaveScene>(&session.steps[i]))
            saved.insert(scenePath(save->path, outDir));
        const auto* load = std::get_if<LoadScene>(&session.steps[i]);
        if (!load || saved.count(scenePath(load->path, outDir))) continue;
        std::string error;
        if (!mhost::driver::checkSceneFile(scenePath(load->path, outDir), &error))
            throw SessionError("step " + std::to_string(i + 1) + " (load): " + error);
    }
}

}  // namespace

RunSummary runSession(const Session& session, const std::string& outDir, const std::string& pluginPath,
                      bool echoErrors) {
    const PolygonMesh source = loadSourceMesh(session.source);
    RunSummary summary;
    summary.sourcePolygons = source.polygonCounts.size();
    RunLog log(echoErrors);
    const SceneNames scene = setUpScene(session, source, pluginPath);
    // Scene files are checked once the plug-in is loaded, as their node types come from it; the output
    // folder is made only when every input has passed.
    checkLoadedSceneFiles(session, outDir);
    std::filesystem::create_directories(outDir);
    const ToolPanel panel;
    summary.playback = playSession(session, scene, outDir, log);
    const std::string meshPath = outDir + "/retopo.obj";
    if (writeRetopoMesh(scene, meshPath)) summary.meshPath = meshPath;
    summary.logPath = outDir + "/run.log";
    std::ofstream logFile(summary.logPath);
    log.write(logFile);
    if (!logFile) throw SetupError("cannot write \"" + summary.logPath + "\"");
    summary.errorLines = log.errorCount();
    return summary;
}

}  // namespace kystrake
