#pragma once
// Runs parsed statements through the command table. Each command gets a fresh instance; its
// arguments are checked against its syntax (when it has one) before doIt. The first failure stops
// the run, leaving earlier commands done; the failure is logged as one error line. Each successful
// undoable command goes to the undo recorder, when there is one, under its text as written.

#include <maya/MStatus.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "commands/ArgValue.h"
#include "commands/CommandInstance.h"
#include "commands/CommandResult.h"
#include "commands/Parser.h"

namespace mhost {

// Takes a finished undoable command and its journal line (the undo queue, or a capture).
using UndoRecorder = std::function<void(std::unique_ptr<CommandInstance>, std::string)>;

class Interpreter {
public:
    // A null recorder records nothing: undoable commands are dropped after doIt.
    explicit Interpreter(UndoRecorder recorder) : fRecorder(std::move(recorder)) {}
    // Runs the script; `result` is the result of the last command run (none for an empty script).
    MStatus run(const Script& script, CommandResult& result);

private:
    MStatus runStatements(const std::vector<Statement>& statements, CommandResult& result);
    MStatus runCommand(const Statement& statement, CommandResult& result);
    MStatus runIf(const Statement& statement, CommandResult& result);
    // Appends the values of an argument: a literal, or each element of a substituted result.
    MStatus expand(const Argument& argument, std::vector<ArgValue>& out);
    MStatus isTrue(const Argument& condition, bool& truth);

    UndoRecorder fRecorder;
};

}  // namespace mhost
