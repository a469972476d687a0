#pragma once
// What the source files of MFnMesh share.

#include <maya/MFnMesh.h>

#include <string>

#include "meshapi/MeshRef.h"

namespace mhost {

// The mesh the set is attached to; throws HostError when it has none.
MeshRef attachedMesh(const MFnMesh& fn);
// The UV set a call names: `uvSet`, or the mesh's current set when it is null.
std::string uvSetName(const MeshTopology& mesh, const MString* uvSet);

}  // namespace mhost
