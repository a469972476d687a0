#pragma once
// One whole run of a session, as `kystrake run` and `kystrake demo` make it: the source mesh loaded,
// the scene set up, the steps replayed, and the frames, run.log and retopo.obj written to a folder.

#include <string>

#include "runner/SessionPlayer.h"

namespace kystrake {

struct RunSummary {
    size_t sourcePolygons = 0;
    PlaybackResult playback;
    int errorLines = 0;    // error lines of the host and the plug-in, as counted in the log
    std::string logPath;   // run.log in the output folder
    std::string meshPath;  // retopo.obj, or empty when the scene held no retopo mesh
};

// Runs the session with the plug-in module at `pluginPath`, writing into `outDir` (made when
// missing). With `echoErrors` the captured error lines also reach the terminal as they happen.
// Throws what loading the source and setting the scene up throw (ObjError, SetupError), and
// SessionError for a scene file a load step names that cannot be loaded; all three before anything
// is written.
RunSummary runSession(const Session& session, const std::string& outDir, const std::string& pluginPath,
                      bool echoErrors);

}  // namespace kystrake
