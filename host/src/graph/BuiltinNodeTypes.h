#pragma once
// The node types the host provides itself, and the attributes every node type starts with.

#include "graph/Attribute.h"

namespace mhost {

class NodeTypeRegistry;
struct NodeType;

// Attributes every dependency node has ("message", "caching", "frozen", "isHistoricallyInteresting",
// "nodeState"); MPxNode's static attribute objects are these.
struct BaseAttributes {
    AttributePtr message, caching, frozen, isHistoricallyInteresting, state;
};
const BaseAttributes& baseAttributes();

// Gives a new node type the attributes every node of its family has: the base attributes, plus the
// DAG ones ("visibility", "intermediateObject", "instObjGroups") for DAG types.
void addInheritedAttributes(NodeType& type);

// Registers "transform", "shadingEngine" and the other built-in types.
void registerBuiltinNodeTypes(NodeTypeRegistry& registry);

// Makes an attribute the way the host's built-in types need them.
AttributePtr makeNumericAttribute(const std::string& longName, const std::string& shortName,
                                  MFnNumericData::Type type, double defaultValue = 0.0);

}  // namespace mhost
