#pragma once
// A polygon mesh as a frame's picture draws it: world-space points and each polygon's vertex ids.

#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

struct MeshView {
    std::vector<MPoint> points;
    std::vector<std::vector<int>> polygons;
};

// The view of a mesh placed in the world by `toWorld` (row vectors, as MMatrix). O(face-vertices).
MeshView makeMeshView(const MeshTopology& mesh, const MMatrix& toWorld);

}  // namespace mhost
