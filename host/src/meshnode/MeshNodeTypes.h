#pragma once
// The host's built-in mesh node types: "mesh" (the polygon shape) and "polyTweak".

namespace mhost {

class NodeTypeRegistry;

void registerMeshNodeTypes(NodeTypeRegistry& registry);

}  // namespace mhost
