#pragma once
// Which meshes of the scene a frame's picture shows, and how: the source mesh shaded, every other
// mesh as a wireframe.

#include <optional>
#include <vector>

#include "drawing/MeshView.h"

namespace mhost {

struct PictureMeshes {
    std::optional<MeshView> source;
    std::vector<MeshView> wireframes;
};

// The source is the mesh connected into a plug named "kyStrakeMesh" of any node (a transform stands
// for its mesh shape); with none, the mesh of most polygons. Intermediate objects and hidden shapes
// are left out. O(nodes + connections) plus the cost of reading each mesh.
PictureMeshes pictureMeshes();

}  // namespace mhost
