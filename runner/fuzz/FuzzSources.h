#pragma once
// The source meshes the fuzzer throws at the tool: the runner's procedural shapes, open and closed,
// and the awkward ones a studio sends along: non-manifold, degenerate, very small and very large.

#include <string>
#include <vector>

#include "runner/ObjFile.h"

namespace kystrake {

// The names `fuzzSourceMesh` knows, in the order a fuzz pass without a chosen source cycles them.
const std::vector<std::string>& fuzzSourceNames();

// The named source mesh, kept small so that a step stays cheap; throws std::invalid_argument for an
// unknown name. "plane" and "relief" are open, "sphere", "limb" and "torus" closed; "nonmanifold"
// has three faces on one edge and two cones meeting at a vertex; "degenerate" has zero-area faces,
// duplicate points and isolated vertices; "tiny" and "huge" are a sphere scaled by 1e-4 and 1e4.
PolygonMesh fuzzSourceMesh(const std::string& name);

}  // namespace kystrake
