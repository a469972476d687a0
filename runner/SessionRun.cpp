#include "runner/SessionRun.h"

#include <filesystem>
#include <fstream>

#include "runner/RunLog.h"
#include "runner/SceneSetup.h"
#include "runner/SourceMeshes.h"
#include "runner/ToolPanel.h"

namespace kystrake {

RunSummary runSession(const Session& session, const std::string& outDir, const std::string& pluginPath,
                      bool echoErrors) {
    std::filesystem::create_directories(outDir);
    const PolygonMesh source = loadSourceMesh(session.source);
    RunSummary summary;
    summary.sourcePolygons = source.polygonCounts.size();
    RunLog log(echoErrors);
    const SceneNames scene = setUpScene(session, source, pluginPath);
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
