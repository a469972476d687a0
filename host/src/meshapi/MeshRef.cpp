#include "meshapi/MeshRef.h"

#include "graph/ApiBridge.h"
#include "meshnode/MeshShapeNode.h"
#include "meshnode/ShapeGeometry.h"

namespace mhost {
namespace {

[[noreturn]] void fail(const std::string& message) { throw HostError("mesh: " + message); }

}  // namespace

MeshRef MeshRef::of(const MObject& object) {
    if (MeshDataPtr data = meshDataOf(object)) return MeshRef(data);
    NodePtr node = liveNodeOf(object);
    if (!node || node->type->apiType != MFn::kMesh) fail("the object is neither a mesh shape nor mesh data");
    MeshRef ref;
    ref.shape_ = node;
    ref.path_ = MDagPath::fromHostNode(node);
    return ref;
}

MeshRef MeshRef::of(const MDagPath& path) {
    MDagPath shapePath(path);
    if (!path.isValid() || !shapePath.extendToShape() || shapePath.apiType() != MFn::kMesh)
        fail("the path '" + std::string(path.fullPathName().asChar()) + "' leads to no mesh shape");
    MeshRef ref;
    ref.shape_ = shapePath.hostNodes().back();
    ref.path_ = shapePath;
    return ref;
}

MObject MeshRef::object() const { return shape_ ? wrapNode(shape_) : wrapData(data_); }

const MeshDataPtr& MeshRef::data() const {
    if (!shape_) {
        if (!data_) fail("no mesh is attached");
        return data_;
    }
    if (!shape_->alive) fail("the shape '" + shape_->name + "' has been deleted");
    const PlugKey output{meshShapeAttributes().outMesh.get(), -1};
    const auto stored = shape_->values.find(output);
    const bool current = data_ && !shape_->isDirty(output) && stored != shape_->values.end() &&
                         stored->second.data.hostObject() == data_;
    if (!current) data_ = shapeGeometry(shape_);
    return data_;
}

MMatrix MeshRef::worldMatrix() const { return shape_ ? path_.inclusiveMatrix() : data()->matrix; }

void MeshRef::edit(const std::function<void(MeshTopology&)>& edit) const {
    if (!shape_) return edit(data()->editMesh());
    data();
    editShapeGeometry(shape_, edit);
}

}  // namespace mhost
