#pragma once
// One invocation of a command: created fresh for each call, given its arguments in doIt, and kept
// by the undo queue afterwards when it is undoable and undo recording is on.

#include <maya/MStatus.h>

#include <functional>
#include <memory>

#include "commands/CommandResult.h"

class MArgList;
class MSyntax;

namespace mhost {

class CommandInstance {
public:
    virtual ~CommandInstance() = default;
    virtual MStatus doIt(const MArgList& args) = 0;
    // Asked once, right after a successful doIt: true keeps the instance for undo and redo.
    virtual bool isUndoable() const { return false; }
    virtual MStatus undoIt() { return MS::kSuccess; }
    virtual MStatus redoIt() { return MS::kSuccess; }
    // The syntax that the arguments are checked against before doIt; null means no check.
    virtual const MSyntax* syntax() const { return nullptr; }
    // The value the command leaves behind; the current result while doIt, undoIt or redoIt runs.
    CommandResult& result() { return fResult; }

private:
    CommandResult fResult;
};

// Makes a new instance of one command for each call.
using CommandFactory = std::function<std::unique_ptr<CommandInstance>()>;

}  // namespace mhost
