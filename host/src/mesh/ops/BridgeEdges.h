#pragma once
// Bridging of two border chains by rows of quads, as Maya's polyBridgeEdge does it with a linear path.

#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

// Joins two sides made of border edges, listed in any order: two open chains, or two closed loops, of
// the same number of edges. Side A is the one holding edges[0], walked the way its polygons run along
// it; side B is walked so that its vertices pair with A's nearest overall (a chain by its two ends, a
// loop by the start and direction of least summed distance). `divisions` (>= 0) rows of new vertices
// are interpolated evenly between paired vertices, appended row by row from side A; the quads, appended
// after the existing polygons in the same order, are wound like side A's polygons. A new edge is soft
// when its faces meet at less than `smoothingAngleRadians`. New polygons get no UVs.
// Throws HostError, building nothing, on an empty list, an id out of range, an edge that is not on a
// border, edges that branch, that do not form exactly two sides, or sides that differ in kind or length.
// O(face-vertices + new polygons), plus O(n^2) to pair two loops of n edges.
MeshTopology bridgeEdges(const MeshTopology& mesh, const std::vector<int>& edges, int divisions,
                         double smoothingAngleRadians);

}  // namespace mhost
