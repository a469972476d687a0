#include "meshapi/MFnMeshAccess.h"

#include "meshapi/MeshAttachment.h"

namespace mhost {
namespace {

MeshAttachment& attachmentOf(const MFnMesh& fn) {
    std::shared_ptr<MeshAttachment>& attachment = FunctionSetAccess::attachment(fn);
    if (!attachment) attachment = std::make_shared<MeshAttachment>();
    return *attachment;
}

}  // namespace

const MeshRef& attachedMesh(const MFnMesh& fn) {
    return attachmentOf(fn).mesh(FunctionSetAccess::object(fn), FunctionSetAccess::path(fn));
}

const MeshSpace& attachedSpace(const MFnMesh& fn, MSpace::Space space) {
    attachedMesh(fn);
    return MeshSpace::isWorldSpace(space) ? attachmentOf(fn).worldSpace() : MeshSpace::objectSpace();
}

std::string uvSetName(const MeshTopology& mesh, const MString* uvSet) {
    return uvSet ? std::string(uvSet->asChar()) : mesh.uvSets().currentName();
}

}  // namespace mhost
