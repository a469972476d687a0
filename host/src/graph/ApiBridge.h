#pragma once
// Conversions between the scene's internal objects and the public API objects that stand for them.

#include <maya/MDataBlock.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>

#include "graph/Scene.h"

class MPxNode;

namespace mhost {

MPlug makePlug(const PlugRef& plug);
// The internal plug behind an MPlug; throws HostError for a null plug.
PlugRef hostPlugOf(const MPlug& plug);
MDataBlock makeDataBlock(Node& node);
MObject wrapNode(const NodePtr& node);
// Links a behaviour object to the node it serves, so that thisMObject() answers.
void attachBehaviour(MPxNode& behaviour, Node& node);

}  // namespace mhost
