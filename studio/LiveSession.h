#pragma once
// The studio's scene and its recording: the source mesh set up as the runner sets it up, and every
// step the artist makes run through the runner's player and appended to a session, so that the saved
// session replays with `kystrake run` to the same retopo mesh.

#include <memory>
#include <string>

#include "runner/RunLog.h"
#include "runner/SceneSetup.h"
#include "runner/Session.h"

namespace kystrake {

class LiveSession {
public:
    // Loads the session's source and sets the scene up with the plug-in at `pluginPath`; a session
    // without a camera gets the framing camera, written into the recording. The session's steps are
    // not run: the recording starts empty. Throws what loading and setting up throw.
    LiveSession(const Session& start, const std::string& pluginPath);

    // Starts again on a new source, view and camera, as the constructor does; the recording starts
    // empty again. When the source cannot be loaded this throws and the scene stays as it was.
    void restart(const Session& start);

    // Runs one step on the scene and records it; a drag that continues the recorded drag of the same
    // button and modifiers joins its path. Returns false when the step's host call failed (the step
    // stays recorded, as a replay would run it too).
    bool perform(const Step& step);

    // Replaces the scene with a saved one. What follows can no longer be replayed from the source
    // alone, so recording stops. On failure `error` says why and the scene stays.
    bool loadScene(const std::string& path, std::string& error);
    // Whether a step is being run; changes the tool makes to the panel then are not the artist's.
    bool isPerforming() const { return performing_; }

    const Session& session() const { return session_; }
    const SceneNames& scene() const { return scene_; }
    size_t sourcePolygons() const { return sourcePolygons_; }

private:
    void record(const Step& step);

    std::string pluginPath_;
    Session session_;
    SceneNames scene_;
    size_t sourcePolygons_ = 0;
    std::unique_ptr<RunLog> log_;
    bool recording_ = true;
    bool performing_ = false;
};

// The tool's status line and help line ("kyStrake_info1", "kyStrake_info2"), each split at its
// commas into the lines the viewport shows.
std::string statusText();
std::string helpText();

}  // namespace kystrake
