#pragma once
// Insertion of an edge loop across a ring of quads, as Maya's polySplitRing does it with a relative
// split (-splitType 1).

#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

// Walks the ring of each listed edge: from an edge across each quad it borders to the quad's opposite
// edge, on both sides, until a border, a polygon that is no quad, an edge of three or more polygons,
// or a quad already crossed; a ring that comes back to its first edge is closed. Every ring edge gets a
// new vertex `weight` (in [0, 1]) of the way from its start vertex: a ring's first listed edge starts at
// its first vertex, and across each quad the start passes to the vertex the quad's side joins it to, so
// the loop runs parallel to the ring's start side. Each crossed quad is cut in two through its two new
// vertices; a polygon that merely borders a ring edge (at an open ring's ends) takes the new vertex as
// an extra corner. New vertices are appended ring by ring in walking order; of a cut quad, the half
// holding its first corner keeps the face id and the other half is appended, in face order.
// UVs are interpolated per polygon (a UV seam gives one new UV per side); a split edge's halves keep
// its hardness; a new edge across a quad is soft when its two halves meet at less than
// `smoothingAngleRadians`.
// Throws HostError on an empty list, an id out of range, or a weight outside [0, 1].
// O(face-vertices + ring length).
MeshTopology splitEdgeRing(const MeshTopology& mesh, const std::vector<int>& edges, double weight,
                           double smoothingAngleRadians);

}  // namespace mhost
