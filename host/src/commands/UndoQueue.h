#pragma once
// The process's one undo queue. It holds finished undoable command instances, each with its journal
// line, and a position: entries before it are done (undoable), entries after it were undone
// (redoable). Pushing drops the redoable tail. Depth is unlimited.
//
// Design note: an entry owns its instance outright and the queue only ever calls undoIt/redoIt on it
// in strict order, so each command keeps whatever state it needs to flip between its two states.
// While an undo or redo runs, commands that the instance runs in turn are not recorded: they are
// part of the step being replayed, not new steps.

#include <maya/MStatus.h>

#include <memory>
#include <string>
#include <vector>

#include "commands/CommandInstance.h"

namespace mhost {

class UndoQueue {
public:
    // Files a finished command as the newest undoable step; ignored while an undo or redo runs.
    void push(std::unique_ptr<CommandInstance> command, std::string journal);
    // Undoes the newest done step and sends "Undo". kFailure when there is none; a failing undoIt is
    // returned and leaves the position where it was.
    MStatus undo();
    // Redoes the oldest undone step and sends "Redo". kFailure when there is none; a failing redoIt is
    // returned and leaves the position where it was.
    MStatus redo();
    bool canUndo() const { return fDone > 0; }
    bool canRedo() const { return fDone < fEntries.size(); }
    void clear();
    // Journal lines of the steps that are currently done, oldest first.
    std::vector<std::string> journal() const;
    // Journal line of the step that undo (or redo) would replay next; empty when there is none.
    std::string nextUndoLine() const;
    std::string nextRedoLine() const;

private:
    struct Entry {
        std::unique_ptr<CommandInstance> command;
        std::string journal;
    };
    MStatus replay(Entry& entry, bool undoing);

    std::vector<Entry> fEntries;
    size_t fDone = 0;
    bool fReplaying = false;
};

UndoQueue& undoQueue();

// Runs the command's undoIt (or redoIt) with its own result as the current one. An exception is
// logged under the journal line and fails the step.
MStatus replayCommand(CommandInstance& command, bool undoing, const std::string& journal);

}  // namespace mhost
