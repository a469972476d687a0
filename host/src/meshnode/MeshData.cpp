#include "meshnode/MeshData.h"

namespace mhost {

MeshData::MeshData() : mesh_(std::make_shared<MeshTopology>()) {}

MeshData::MeshData(MeshTopology mesh) : mesh_(std::make_shared<MeshTopology>(std::move(mesh))) {}

bool MeshData::hasFn(MFn::Type type) const { return type == MFn::kMesh || DataObject::hasFn(type); }

MeshTopology& MeshData::editMesh() {
    if (mesh_.use_count() > 1) mesh_ = std::make_shared<MeshTopology>(*mesh_);
    return *mesh_;
}

void MeshData::setMesh(MeshTopology mesh) { mesh_ = std::make_shared<MeshTopology>(std::move(mesh)); }

std::shared_ptr<const RayAccelerator> MeshData::sharedAccelerator() const {
    return accelerators_.sharedAcceleratorFor(*mesh_);
}

MeshDataPtr meshDataOf(const MObject& object) { return objectAs<MeshData>(object.hostObject()); }

MObject wrapMesh(MeshTopology mesh) { return wrapData(std::make_shared<MeshData>(std::move(mesh))); }

}  // namespace mhost
