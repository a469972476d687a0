#pragma once
// The values a mesh shape stores in its pnts elements (its vertex tweaks), kept whole so that an
// undoable edit can put them back exactly. Connections into pnts are not followed: the host's modelling
// commands work on stored tweaks only.

#include <map>

#include "graph/Node.h"
#include "graph/PlugValue.h"
#include "mesh/Vec3.h"

namespace mhost {

class StoredTweaks {
public:
    // The shape's stored pnts elements now.
    static StoredTweaks of(const NodePtr& shape);

    bool allZero() const;
    // The offset of one vertex; zero when none is stored.
    Vec3 offset(int vertex) const;
    void setOffset(int vertex, const Vec3& offset);
    // The same elements, every offset zero.
    StoredTweaks zeroed() const;
    // The stored elements by vertex id.
    const std::map<int, PlugValue>& elements() const { return values_; }

    // Makes this the shape's state: every element stored here or in the shape gets its value here (zero
    // when absent), which dirties the shape's outputs.
    void writeTo(const NodePtr& shape) const;

private:
    std::map<int, PlugValue> values_;
};

}  // namespace mhost
