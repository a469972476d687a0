#pragma once
// Writes a session as the JSON document that `kystrake run` reads, so that a session made in code
// (a shrunk fuzz failure) can be replayed, read and edited like a hand-written one.

#include <string>

#include "runner/Session.h"

namespace kystrake {

// The session as JSON text, one step a line.
std::string sessionToJson(const Session& session);

}  // namespace kystrake
