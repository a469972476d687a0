#pragma once
// The draw overrides of drawn nodes: one per node, made on the first frame that draws the node and
// kept, with the user data its prepareForDraw returned, while the node lives and its creator stays
// registered.

#include <maya/MPxDrawOverride.h>
#include <maya/MUserData.h>

#include <map>
#include <memory>

#include "drawing/DrawOverrideRegistry.h"
#include "graph/Node.h"

namespace mhost {

struct CachedOverride {
    std::weak_ptr<Node> node;
    DrawOverrideCreator creator = nullptr;
    std::unique_ptr<MHWRender::MPxDrawOverride> drawOverride;
    // Declared last so it goes first: the data never outlives the override that made it.
    std::unique_ptr<MUserData> data;
};

class DrawOverrideCache {
public:
    // The override of a live node, made with `creator` unless one made by it exists. Throws HostError
    // when the creator returns null.
    CachedOverride& overrideFor(const NodePtr& node, DrawOverrideCreator creator);
    // Destroys the overrides of nodes that no longer live.
    void dropDeadNodes();
    // Destroys the overrides `creator` made (its plug-in may be about to unload).
    void dropMadeBy(DrawOverrideCreator creator);
    // Destroys every override.
    void clear() { entries_.clear(); }

private:
    std::map<const Node*, CachedOverride> entries_;
};

// The process's cache. Never destroyed, so no plug-in destructor runs during static destruction.
DrawOverrideCache& drawOverrideCache();

}  // namespace mhost
