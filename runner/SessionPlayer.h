#pragma once
// Replays a session's steps on the set-up scene through the host's driver, capturing frames as PNG
// pictures and noting everything in the run log.

#include <maya/MStatus.h>

#include <string>
#include <vector>

#include "runner/RunLog.h"
#include "runner/SceneSetup.h"
#include "runner/Session.h"

namespace kystrake {

struct PlaybackResult {
    int stepsRun = 0;
    int stepsFailed = 0;              // steps whose host call reported a failure (the run goes on)
    std::vector<std::string> frames;  // paths of the pictures written
};

// Runs every step in order; a step that fails is noted in the log and the run goes on, as the
// artist would go on after an error. A command step's result text is noted in the log too. Throws SetupError
// only when the output cannot be written.
PlaybackResult playSession(const Session& session, const SceneNames& scene, const std::string& outDir,
                           RunLog& log);

// Runs one step of the session, the `index`-th, as `playSession` does, and returns the status of its
// host call; a failure is noted in the log but not counted.
MStatus playStep(const Step& step, int index, const SceneNames& scene, const std::string& outDir,
                 PlaybackResult& result, RunLog& log);

// Writes the retopo mesh (the first selected mesh, else the first mesh other than the source) as OBJ.
// Returns false when the scene holds no retopo mesh.
bool writeRetopoMesh(const SceneNames& scene, const std::string& path);

}  // namespace kystrake
