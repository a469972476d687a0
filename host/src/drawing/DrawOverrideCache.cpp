#include "drawing/DrawOverrideCache.h"

#include "graph/ApiBridge.h"
#include "graph/Scene.h"

namespace mhost {

CachedOverride& DrawOverrideCache::overrideFor(const NodePtr& node, DrawOverrideCreator creator) {
    CachedOverride& entry = entries_[node.get()];
    if (entry.drawOverride && entry.creator == creator && entry.node.lock() == node) return entry;
    entry.data.reset();
    entry.drawOverride.reset();
    std::unique_ptr<MHWRender::MPxDrawOverride> made(creator(wrapNode(node)));
    if (!made)
        throw HostError("DrawOverrideCache: the draw override creator returned null for " + node->name);
    entry.node = node;
    entry.creator = creator;
    entry.drawOverride = std::move(made);
    return entry;
}

void DrawOverrideCache::dropDeadNodes() {
    for (auto it = entries_.begin(); it != entries_.end();) {
        NodePtr node = it->second.node.lock();
        it = node && node->alive ? std::next(it) : entries_.erase(it);
    }
}

void DrawOverrideCache::dropMadeBy(DrawOverrideCreator creator) {
    for (auto it = entries_.begin(); it != entries_.end();)
        it = it->second.creator == creator ? entries_.erase(it) : std::next(it);
}

DrawOverrideCache& drawOverrideCache() {
    static auto* cache = [] {
        auto* made = new DrawOverrideCache;
        // An override goes with its node, so that no callback it registered outlives the node.
        scene().addRemovalListener([made] { made->dropDeadNodes(); });
        return made;
    }();
    return *cache;
}

}  // namespace mhost
