#pragma once
// Writes a session as the JSON document the runner reads, so that a session made in code (what the
// artist did in the studio, a shrunk fuzz failure) replays with `kystrake run` and reads like a
// hand-written one. Reading the written text back gives the same session.

#include <string>

#include "runner/Session.h"

namespace kystrake {

// The session as JSON text, one step a line.
std::string sessionJson(const Session& session);
// Writes the session to `path`; throws SessionError when the file cannot be written.
void saveSession(const Session& session, const std::string& path);

}  // namespace kystrake
