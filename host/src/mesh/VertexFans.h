#pragma once
// The polygons around each vertex (its fan) and whether they hang together through shared edges. A
// vertex whose fan falls apart (a pinched fan) or meets a hard edge has more than one corner normal;
// a scan seldom has any, and telling so needs no edge table.

#include "mesh/MeshTopology.h"

namespace mhost {

// True when no vertex can have more than one corner normal: every edge is smooth and the polygons
// around each vertex connect through edges they share. False otherwise, and then the full corner
// grouping must decide.
bool everyVertexFanIsWhole(const MeshTopology& mesh);

}  // namespace mhost
