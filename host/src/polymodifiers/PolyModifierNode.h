#pragma once
// The modelling history node types: inputPolymesh (ip) in, output (out) the mesh the kind's operation
// makes of it, inputComponents (ics) the ids the operation works on, as an int array (Maya keeps a
// component list there), and the kind's numeric parameters. When the operation no longer fits its input
// (ids out of range after an upstream change, say), the node passes the input on unchanged.

#include <vector>

#include "graph/Node.h"
#include "graph/NodeType.h"
#include "polymodifiers/PolyModifierKind.h"

namespace mhost {

struct PolyModifierAttributes {
    AttributePtr inputPolymesh, output, inputComponents;
};
// Shared by every modelling history node type.
const PolyModifierAttributes& polyModifierAttributes();

NodeTypePtr makePolyModifierType(const PolyModifierKind& kind);

// Gives a node of the kind's type its component ids and parameter values (a value for each parameter).
// For a new node, before it joins the graph: nothing is dirtied.
void configurePolyModifier(Node& node, const std::vector<int>& components, const PolyModifierValues& values);

// Adds polyMergeVert, polyBridgeEdge and polySplitRing.
void registerPolyModifierTypes(NodeTypeRegistry& registry);

}  // namespace mhost
