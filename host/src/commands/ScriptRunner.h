#pragma once
// The entry point of the command language: runs script text through the command table.

#include <maya/MStatus.h>

#include <string>

#include "commands/CommandResult.h"
#include "commands/Interpreter.h"

namespace mhost {

// Parses and runs `text`. `result` receives the result of the last command run, and is cleared when
// the run fails. A syntax error runs nothing; a failing command stops the run and is logged as one
// error line. With `undoEnabled`, each successful undoable command goes on the undo queue, its text
// as written being its journal line. Never throws.
MStatus runScript(const std::string& text, CommandResult& result, bool undoEnabled);

// runScript with the undoable commands handed to `recorder` (none recorded when it is null).
MStatus runScriptRecording(const std::string& text, CommandResult& result, const UndoRecorder& recorder);

// Empties the undo queue, the option variables and the message log (its listeners stay), as a new
// session starts.
void resetCommands();

}  // namespace mhost
