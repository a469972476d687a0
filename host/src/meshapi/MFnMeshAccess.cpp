#include "meshapi/MFnMeshAccess.h"

#include "graph/Node.h"

namespace mhost {

MeshRef attachedMesh(const MFnMesh& fn) {
    const MObject object = fn.object();
    if (nodeOf(object)) return MeshRef::of(fn.dagPath());
    return MeshRef::of(object);
}

std::string uvSetName(const MeshTopology& mesh, const MString* uvSet) {
    return uvSet ? std::string(uvSet->asChar()) : mesh.uvSets().currentName();
}

}  // namespace mhost
