#pragma once
// Node creation as MFnDependencyNode::create, MFnDagNode::create, MDGModifier and the createNode
// command all do it: by type name, with a transform made above a shape that has no parent.

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <string>

#include "graph/Node.h"

namespace mhost {

// Creates a node of the named type. A DAG node goes under `parent` (null: the world); a shape with
// no parent gets a new transform above it. Returns the new node (the shape, not the transform) or a
// null object with kInvalidParameter for an unknown type.
MObject createNodeWithTransform(const std::string& typeName, const std::string& name, Node* parent,
                                MStatus& status);

}  // namespace mhost
