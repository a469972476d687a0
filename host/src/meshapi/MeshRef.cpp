#include "meshapi/MeshRef.h"

#include <optional>

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
    return ref;
}

MeshRef MeshRef::of(const MDagPath& path) {
    MeshRef ref;
    // Most paths handed to the mesh classes end at the shape already: no copy to extend.
    if (path.isValid() && path.apiType() == MFn::kMesh) {
        ref.shape_ = path.hostNodes().back();
        return ref;
    }
    MDagPath shapePath(path);
    if (!path.isValid() || !shapePath.extendToShape() || shapePath.apiType() != MFn::kMesh)
        fail("the path '" + std::string(path.fullPathName().asChar()) + "' leads to no mesh shape");
    ref.shape_ = shapePath.hostNodes().back();
    return ref;
}

MObject MeshRef::object() const { return shape_ ? wrapNode(shape_) : wrapData(data_); }

const MeshDataPtr& MeshRef::data() const {
    if (!shape_) {
        if (!data_) fail("no mesh is attached");
        return data_;
    }
    if (!shape_->alive) fail("the shape '" + shape_->name + "' has been deleted");
    // Nothing stored in the shape or flagged dirty since the last look: the mesh is the one found then.
    if (data_ && resolvedAtEdit_ == shape_->valueEdits) return data_;
    const PlugKey output{meshShapeAttributes().outMesh.get(), -1};
    const auto stored = shape_->values.find(output);
    if (stored == shape_->values.end() || shape_->isDirty(output)) {
        data_ = shapeGeometry(shape_);
    } else if (!data_ || stored->second.data.hostObject() != data_) {
        // A clean output holding mesh data is the shape's mesh as it is: no evaluation needed.
        MeshDataPtr held = meshDataOf(stored->second.data);
        data_ = held ? std::move(held) : shapeGeometry(shape_);
    }
    // Taken last: evaluating the output stores it and cleans flags, which counts as edits.
    resolvedAtEdit_ = shape_->valueEdits;
    return data_;
}

// A DAG node has one path, so the shape alone places the mesh.
MMatrix MeshRef::worldMatrix() const {
    return shape_ ? MDagPath::fromHostNode(shape_).inclusiveMatrix() : data()->matrix;
}

MeshSpace MeshRef::worldSpace() const {
    if (!shape_) return MeshSpace(MSpace::kWorld, data()->matrix);
    struct Kept {
        std::weak_ptr<Node> shape;
        KeptWorldSpace space;
    };
    thread_local Kept kept;
    const bool sameShape = !kept.shape.owner_before(shape_) && !shape_.owner_before(kept.shape);
    kept.shape = shape_;
    return kept.space.of(*this, !sameShape);
}

const MeshSpace& KeptWorldSpace::of(const MeshRef& mesh, bool stale) {
    if (!space_ || stale || transformEdits_ != transformEditCount()) {
        space_.emplace(MSpace::kWorld, mesh.worldMatrix());
        // Taken after the matrix: working it out may clean the transforms' dirty flags, which counts.
        transformEdits_ = transformEditCount();
    }
    return *space_;
}

void MeshRef::edit(const std::function<void(MeshTopology&)>& edit) const {
    if (!shape_) return edit(data()->editMesh());
    data();
    editShapeGeometry(shape_, edit);
}

}  // namespace mhost
