#include "graph/ApiBridge.h"

#include <maya/MPxNode.h>

namespace mhost {

MPlug makePlug(const PlugRef& plug) { return MPlug(plug); }
PlugRef hostPlugOf(const MPlug& plug) { return plug.hostPlug(); }
MDataBlock makeDataBlock(Node& node) { return MDataBlock(&node); }
MObject wrapNode(const NodePtr& node) { return MObject(node); }
void attachBehaviour(MPxNode& behaviour, Node& node) { behaviour.fHostNode = &node; }

}  // namespace mhost
