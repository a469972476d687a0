#include "drawing/DisplayList.h"

namespace mhost {

std::vector<const DrawRecord*> DisplayList::primitives() const {
    std::vector<const DrawRecord*> result;
    for (const auto& entry : records)
        if (entry.drawsSomething()) result.push_back(&entry);
    return result;
}

}  // namespace mhost
