#pragma once
// The offsets that a float3 array attribute adds to a mesh's vertices, element i moving vertex i: a mesh
// shape's "pnts" and a polyTweak node's "tweak".

#include <utility>
#include <vector>

#include "graph/Node.h"
#include "mesh/MeshTopology.h"

namespace mhost {

class VertexTweaks {
public:
    // The node's offsets as the graph gives them now: stored elements, and connected elements or
    // children pulled from their sources. O(elements x connections).
    static VertexTweaks read(const NodePtr& node, const Attribute& array);

    bool empty() const { return offsets_.empty(); }
    // Adds each offset to its vertex. Offsets of vertices the mesh lacks, and moves whose result would
    // not be finite, are skipped.
    void addTo(MeshTopology& mesh) const { shift(mesh, 1.0); }
    // Takes each offset away again (the inverse of addTo).
    void subtractFrom(MeshTopology& mesh) const { shift(mesh, -1.0); }

private:
    void shift(MeshTopology& mesh, double sign) const;

    // Non-zero offsets only, by vertex id.
    std::vector<std::pair<int, Vec3>> offsets_;
};

}  // namespace mhost
