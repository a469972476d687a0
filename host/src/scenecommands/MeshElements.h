#pragma once
// The mesh elements a modelling command's objects name: "|t|shape.vtx[3]", "shape.e[2:5]" (through the
// transform as well), or, where the command allows it, a mesh shape or its transform for all its vertices.

#include <maya/MFn.h>
#include <maya/MStringArray.h>

#include <string>
#include <vector>

#include "graph/Node.h"

namespace mhost {

struct MeshElements {
    NodePtr shape;
    // Element ids in the order named, repeats kept.
    std::vector<int> ids;
};

// Resolves `names` to elements of `type` (kMeshVertComponent or kMeshEdgeComponent) of one mesh shape.
// With `wholeMeshAllowed`, a name without a component stands for every vertex of its mesh. An unknown
// name logs "No object matches name: x"; a name of no such elements, or elements of several shapes,
// log "<command>: ..."; all fail with kInvalidParameter.
MStatus resolveMeshElements(const std::string& command, const MStringArray& names, MFn::Type type,
                            bool wholeMeshAllowed, MeshElements& elements);

}  // namespace mhost
