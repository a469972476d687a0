#pragma once
// The smoothing-angle rule of Maya's modelling operations for the edges they create: a new edge is
// soft when its faces meet at less than the angle, hard otherwise.

#include <utility>
#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

// Makes each listed edge (by its end vertices) hard when the normals of its two faces are at least
// `angleRadians` apart, smooth otherwise. Border and non-manifold edges, and pairs that are no edge of
// the mesh, are left as they are; a face without area counts as meeting its neighbour at a right angle.
// O(edges listed x valence).
void applySmoothingAngle(MeshTopology& mesh, const std::vector<std::pair<int, int>>& edges,
                         double angleRadians);

}  // namespace mhost
