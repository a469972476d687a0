#pragma once
// What a mesh function set or iterator works on: a mesh shape (a DAG node has one path, so the shape
// alone places it) or a mesh data object. Reads see the mesh as it is now. A shape's data object is looked up
// again only when something was stored in the shape or flagged dirty there since the last look, so a
// step of an iterator over a big mesh costs a comparison, not a lookup or an evaluation.

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>

#include <cstdint>
#include <functional>
#include <optional>

#include "graph/Node.h"
#include "meshapi/MeshSpace.h"
#include "meshnode/MeshData.h"

namespace mhost {

class MeshRef {
public:
    MeshRef() = default;
    explicit MeshRef(MeshDataPtr data) : data_(std::move(data)) {}
    // A mesh shape node or mesh data; throws HostError for anything else.
    static MeshRef of(const MObject& object);
    // The mesh shape at the end of the path, or the one mesh shape below the transform it ends at;
    // throws HostError for any other path.
    static MeshRef of(const MDagPath& path);

    bool isNull() const { return !shape_ && !data_; }
    bool isShape() const { return shape_ != nullptr; }
    const NodePtr& shape() const { return shape_; }
    // The shape node or the data object, as an MObject.
    MObject object() const;

    // Throw HostError when nothing is attached or the shape has been deleted. The data is looked up
    // again only when the shape's output changed; the reference stays valid until the next call.
    const MeshDataPtr& data() const;
    const MeshTopology& mesh() const { return data()->mesh(); }
    // Object to world: the path's inclusive matrix for a shape, the data's own matrix for data.
    MMatrix worldMatrix() const;
    // The world frame of worldMatrix(). A shape's is kept from one call to the next while no transform
    // changes, so that iterators made vertex by vertex do not each invert the same matrix.
    MeshSpace worldSpace() const;
    // Changes the mesh: in place for data, by the rules of editShapeGeometry for a shape.
    void edit(const std::function<void(MeshTopology&)>& edit) const;

private:
    NodePtr shape_;
    mutable MeshDataPtr data_;
    // The shape's count of value edits when data_ was looked up.
    mutable std::uint64_t resolvedAtEdit_ = 0;
};

// A mesh's world frame kept from one call to the next until any transform in the scene moves.
class KeptWorldSpace {
public:
    // The frame of `mesh`, worked out again when a transform moved since the last call or when
    // `stale` says the kept one belongs to another mesh (or to data, whose matrix no edit announces).
    const MeshSpace& of(const MeshRef& mesh, bool stale);
    void forget() { space_.reset(); }

private:
    std::optional<MeshSpace> space_;
    std::uint64_t transformEdits_ = 0;
};

}  // namespace mhost
