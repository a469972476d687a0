#include "runner/fuzz/OffQueueChanges.h"

#include <algorithm>

namespace kystrake {

void OffQueueChanges::afterStep(size_t depthBefore, size_t depthAfter, bool changedUndoState) {
    if (depthAfter > depthBefore) {
        // A command filed: the commands undone before it can no longer be redone.
        followed_.resize(depthAfter + 1);
        std::fill(followed_.begin() + static_cast<std::ptrdiff_t>(depthBefore) + 1, followed_.end(), false);
    } else if (changedUndoState && depthAfter < followed_.size()) {
        followed_[depthAfter] = true;
    }
}

void OffQueueChanges::afterRedo(size_t depthBefore, size_t depthAfter) {
    for (size_t d = depthBefore + 1; d <= depthAfter && d < followed_.size(); ++d) followed_[d] = false;
}

void OffQueueChanges::afterUndo(size_t depthAfter, bool notAsLeft) {
    if (notAsLeft && depthAfter < followed_.size()) followed_[depthAfter] = true;
}

bool OffQueueChanges::anyFollowed(size_t depth, size_t count) const {
    for (size_t d = depth + 1 - std::min(count, depth); d <= depth && d < followed_.size(); ++d)
        if (followed_[d]) return true;
    return false;
}

}  // namespace kystrake
