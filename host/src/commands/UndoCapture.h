#pragma once
// Undoable commands of one script run kept apart from the undo queue, for an owner that undoes and
// redoes them as one step of its own (MDGModifier::commandToExecute).

#include <maya/MStatus.h>

#include <memory>
#include <string>
#include <vector>

#include "commands/CommandInstance.h"

namespace mhost {

class CapturedCommands {
public:
    void add(std::unique_ptr<CommandInstance> command, std::string journal);
    // Undoes the commands, newest first; stops at the first failure and returns it.
    MStatus undoAll();
    // Redoes the commands, oldest first; stops at the first failure and returns it.
    MStatus redoAll();
    void clear() { fSteps.clear(); }
    // Journal lines of the captured commands, oldest first.
    std::vector<std::string> journal() const;

private:
    struct Step {
        std::unique_ptr<CommandInstance> command;
        std::string journal;
    };
    std::vector<Step> fSteps;
};

// Runs `text` as runScript does with undo on, but files its undoable commands in `steps` (emptied
// first) instead of on the undo queue. The command result is dropped.
MStatus runScriptCapturingUndo(const std::string& text, CapturedCommands& steps);

}  // namespace mhost
