#pragma once
// Resolution of the names scripts and MSelectionList use: "node", "|parent|node", "node.attr",
// "node.array[3].child" and component names such as "shape.vtx[3]" (also through the transform).

#include <maya/MObject.h>
#include <maya/MPlug.h>

#include <string>

#include "graph/Node.h"

namespace mhost {

struct NameMatch {
    NodePtr node;       // null when nothing matches
    MPlug plug;         // set for plug names
    MObject component;  // set for component names; `node` is then the shape
};

NameMatch lookUpName(const std::string& text);
// The node a plain name or DAG path names; null when none.
NodePtr lookUpNode(const std::string& name);
// The plug an attribute path such as "pnts[3].pntx" names on the node; a null plug when none.
MPlug lookUpPlug(const NodePtr& node, const std::string& attributePath);
// The selection-string suffix of a component object; empty for a null or unknown object.
std::string componentSuffix(const MObject& component);

}  // namespace mhost
