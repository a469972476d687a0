#pragma once
// What the source files of MFnMesh share.

#include <maya/MFnMesh.h>

#include <string>

#include "meshapi/MeshRef.h"
#include "meshapi/MeshSpace.h"

namespace mhost {

// The host's way into the private state of function sets.
struct FunctionSetAccess {
    static const MDagPath& path(const MFnDagNode& fn) { return fn.fPath; }
    static const MObject& object(const MFnMesh& fn) { return fn.fObject; }
    static std::shared_ptr<MeshAttachment>& attachment(const MFnMesh& fn) { return fn.fAttachment; }
};

// The mesh the set is attached to; throws HostError when it has none. Resolved at the set's first
// call and kept while the set stays attached to the same nodes.
const MeshRef& attachedMesh(const MFnMesh& fn);
// The frame of `space` for the set's mesh, valid until the set's next call; throws as attachedMesh
// does.
const MeshSpace& attachedSpace(const MFnMesh& fn, MSpace::Space space);
// The UV set a call names: `uvSet`, or the mesh's current set when it is null.
std::string uvSetName(const MeshTopology& mesh, const MString* uvSet);

}  // namespace mhost
