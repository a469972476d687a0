#pragma once
// The attributes every plug-in locator type has besides the DAG ones: "localPosition" ("lp") and
// "localScale" ("los"), both k3Double, scale defaulting to 1. One attribute object of each serves
// every locator type, as MPxLocatorNode's static attribute objects are shared.

#include "graph/Attribute.h"

namespace mhost {

struct NodeType;

struct LocatorAttributes {
    AttributePtr localPosition, localScale;
};
const LocatorAttributes& locatorAttributes();

// Adds them to a locator type being registered.
void addLocatorAttributes(NodeType& type);

}  // namespace mhost
