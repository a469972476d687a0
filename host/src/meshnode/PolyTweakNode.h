#pragma once
// The "polyTweak" node type (MFn::kPolyTweak): output (out) is the mesh of inputPolymesh (ip) with the
// offsets of its tweak (tk) array added, children tweakX/tx, tweakY/ty, tweakZ/tz. Vertex tweaks move
// here when a shape that has them gets history.

#include "graph/NodeType.h"

namespace mhost {

NodeTypePtr makePolyTweakType();

}  // namespace mhost
