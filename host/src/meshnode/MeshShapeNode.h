#pragma once
// The "mesh" node type: Maya's polygon shape (MFn::kMesh), a DAG shape with these attributes:
//   inMesh (i)        the geometry coming in; connected, it is the shape's history
//   outMesh (o)       inMesh's mesh plus the pnts tweaks
//   cachedInMesh (ci) inMesh's mesh before the tweaks
//   worldMesh (w)     array: outMesh carrying the shape's world matrix of the moment it is evaluated
//   pnts (pt)         array of float3 vertex tweaks, children pntx/px, pnty/py, pntz/pz
// A shape with history re-evaluates from inMesh whenever inMesh is dirty. A shape without history
// holds its own mesh as the unconnected value of inMesh, so a disconnection or "delete -ch" keeps the
// last mesh that came in. How MFnMesh edits are kept is told in ShapeGeometry.h.
//
// Moving the shape's transforms does not dirty worldMesh; it picks up the matrix when next evaluated.

#include "graph/NodeType.h"

namespace mhost {

struct MeshShapeAttributes {
    AttributePtr inMesh, outMesh, worldMesh, cachedInMesh, pnts;
};
const MeshShapeAttributes& meshShapeAttributes();

// The type, with its bounds (the object-space box of outMesh) and its components ("vtx[3]", "e[2:5]",
// "f[*]").
NodeTypePtr makeMeshShapeType();

}  // namespace mhost
