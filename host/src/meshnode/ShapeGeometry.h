#pragma once
// Reading and editing the geometry of a mesh shape node, for MFnMesh, the mesh iterators and the
// modelling commands.
//
// Edits follow Maya's rules for API edits of a shape:
// - with history (inMesh connected) they change the shape's output in place and last until the history
//   next evaluates, which replaces them with what comes from upstream;
// - without history they change the mesh the shape holds, so they are kept. Its pnts tweaks still apply
//   on top: the edit is made on the mesh as shown and the tweaks are taken away again.
// Either way the nodes downstream of outMesh and worldMesh are dirtied.

#include <functional>

#include "graph/Node.h"
#include "meshnode/MeshData.h"

namespace mhost {

// The data object of the shape's outMesh as the graph gives it now (evaluating history when dirty). It
// stays the shape's: read it, do not change it.
MeshDataPtr shapeGeometry(const NodePtr& shape);

// Whether the shape's inMesh is connected.
bool hasHistory(const NodePtr& shape);

// Applies `edit` to the mesh the shape shows, and keeps the result as told above. When `edit` throws,
// the shape is left as it was and the exception goes on.
void editShapeGeometry(const NodePtr& shape, const std::function<void(MeshTopology&)>& edit);

// Makes `mesh` the mesh a shape without history holds, as MFnMesh::create into the shape does. Throws
// HostError for a shape with history, which would only overwrite it.
void setShapeMesh(const NodePtr& shape, MeshTopology mesh);

}  // namespace mhost
