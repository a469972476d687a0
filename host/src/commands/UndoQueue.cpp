#include "commands/UndoQueue.h"

#include <exception>

#include "commands/MessageLog.h"
#include "messages/Notifications.h"

namespace mhost {

void UndoQueue::push(std::unique_ptr<CommandInstance> command, std::string journal) {
    if (fReplaying || !command) return;
    fEntries.resize(fDone);
    fEntries.push_back({std::move(command), std::move(journal)});
    fDone = fEntries.size();
}

MStatus replayCommand(CommandInstance& command, bool undoing, const std::string& journal) {
    try {
        ResultTarget target(command.result());
        return undoing ? command.undoIt() : command.redoIt();
    } catch (const std::exception& error) {
        messageLog().error(journal + ": " + error.what());
    } catch (...) {
        messageLog().error(journal + ": unknown failure");
    }
    return MS::kFailure;
}

MStatus UndoQueue::replay(Entry& entry, bool undoing) {
    const bool wasReplaying = fReplaying;
    fReplaying = true;
    const MStatus status = replayCommand(*entry.command, undoing, entry.journal);
    fReplaying = wasReplaying;
    return status;
}

MStatus UndoQueue::undo() {
    if (!canUndo()) return MS::kFailure;
    // A failing undoIt has still done what it could: the queue moves on and the failure is returned.
    MStatus status = replay(fEntries[fDone - 1], true);
    --fDone;
    notifyEvent("Undo");
    return status;
}

MStatus UndoQueue::redo() {
    if (!canRedo()) return MS::kFailure;
    MStatus status = replay(fEntries[fDone], false);
    ++fDone;
    notifyEvent("Redo");
    return status;
}

void UndoQueue::clear() {
    fEntries.clear();
    fDone = 0;
}

std::vector<std::string> UndoQueue::journal() const {
    std::vector<std::string> lines;
    for (size_t i = 0; i < fDone; ++i) lines.push_back(fEntries[i].journal);
    return lines;
}

std::string UndoQueue::nextUndoLine() const { return canUndo() ? fEntries[fDone - 1].journal : ""; }
std::string UndoQueue::nextRedoLine() const { return canRedo() ? fEntries[fDone].journal : ""; }

UndoQueue& undoQueue() {
    static UndoQueue queue;
    return queue;
}

}  // namespace mhost
