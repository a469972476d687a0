#pragma once
// Welding of vertices, as Maya's polyMergeVertex does it on the vertices it is given.

#include <vector>

#include "mesh/MeshTopology.h"

namespace mhost {

struct MergeResult {
    MeshTopology mesh;
    // Old vertex id -> new vertex id, one entry per vertex of the input; welded vertices share an id.
    std::vector<int> vertexMap;
};

// Welds those of the listed vertices that lie within `distance` of one another, the bound included and
// transitively (a chain of near vertices becomes one). With alwaysMergeTwoVertices and exactly two
// distinct vertices listed, those two are welded whatever their distance. Each group becomes one vertex
// at its centroid, with the group's lowest id; the ids after a removed vertex move down to close the gap.
// Polygons follow their corners: an edge whose ends weld disappears, a polygon that meets one vertex
// twice is cut there into simple loops, and loops of fewer than 3 corners (collapsed polygons) are
// removed, so face ids after them move down. UVs stay with their corners.
// Throws HostError on an empty list, an id out of range, or a negative or non-finite distance.
// O(listed log listed + pairs within the distance + face-vertices).
MergeResult mergeVertices(const MeshTopology& mesh, const std::vector<int>& vertices, double distance,
                          bool alwaysMergeTwoVertices);

}  // namespace mhost
