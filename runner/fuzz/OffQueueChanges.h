#pragma once
// Which commands of the undo queue were followed by a change that files no command of its own (ESC
// clearing the rows, a stroke drawn) before the next command was filed, or were uncovered by an undo
// that did not give back the state they left. Undoing back to such a command finds the state with
// that change in it, while its redo writes back the state the command itself left, and the undo of a
// later command need not take the change away (a brush's undo puts back points, not rows): an
// undo-redo pair over such a command has nothing to be compared with.

#include <cstddef>
#include <vector>

namespace kystrake {

class OffQueueChanges {
public:
    // After a step that is neither an undo nor a redo, with the queue's depth before and after it and
    // whether it changed what the undo states hold.
    void afterStep(size_t depthBefore, size_t depthAfter, bool changedUndoState);
    // After a redo: the commands redone stand as they left the scene.
    void afterRedo(size_t depthBefore, size_t depthAfter);
    // After an undo; `notAsLeft` when the scene it leaves is not the one the command now on top left:
    // a failed undo takes its command off the queue but leaves its work in the scene, and the undo of
    // a change of spans writes back the mesh of the last spans or twist snapshot, which a MMB-CTRL
    // click without a twist does not take.
    void afterUndo(size_t depthAfter, bool notAsLeft);
    // Whether any of the `count` commands on top of a queue of `depth` was followed by such a change.
    bool anyFollowed(size_t depth, size_t count) const;

private:
    // By depth: entry d is the command that made the queue d deep; entry 0 stands for the start.
    std::vector<bool> followed_ = std::vector<bool>(1, false);
};

}  // namespace kystrake
