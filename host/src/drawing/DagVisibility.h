#pragma once
// Which DAG nodes a viewport draws.

#include "graph/Node.h"

namespace mhost {

// Whether a viewport draws the node: a live DAG node, no intermediate object, visible along with every
// node above it (connections to the flags honoured).
bool isDrawn(const NodePtr& node);

}  // namespace mhost
