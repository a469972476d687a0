#pragma once
// The value that mesh attributes hold and connections carry (MFn::kMeshData, MFnData::kMesh): a polygon
// mesh, the matrix that geometry data carries, and the ray accelerator built on the mesh. Copies share
// the mesh until one of them is edited (copy on write), so pulling a mesh through a connection costs
// O(1), and copies of an unchanged mesh share one accelerator.

#include <maya/MMatrix.h>

#include <memory>

#include "graph/DataObject.h"
#include "mesh/MeshTopology.h"
#include "mesh/RayAccelerator.h"

namespace mhost {

class MeshData : public DataObject {
public:
    MeshData();
    explicit MeshData(MeshTopology mesh);

    MFn::Type apiType() const override { return MFn::kMeshData; }
    // Mesh data also answers to kMesh, so that MFnMesh and the mesh iterators accept it, as in Maya.
    bool hasFn(MFn::Type type) const override;
    MFnData::Type dataType() const override { return MFnData::kMesh; }
    DataPtr clone() const override { return std::make_shared<MeshData>(*this); }
    // The accelerator goes; an intersector or a copy that shares it keeps its own hold on it.
    void dropDerived() override { accelerators_.clear(); }

    const MeshTopology& mesh() const { return *mesh_; }
    // The mesh, to be changed in place; first copies it (O(mesh)) when another data object shares it.
    MeshTopology& editMesh();
    void setMesh(MeshTopology mesh);
    // The mesh, to be changed in place for every data object that shares it.
    MeshTopology& editSharedMesh() { return *mesh_; }
    // Whether `other` holds the very same mesh (not an equal copy).
    bool sharesMeshWith(const MeshData& other) const { return mesh_ == other.mesh_; }
    // How many data objects share the mesh, this one included.
    long meshShareCount() const { return mesh_.use_count(); }
    // Lets go of the mesh, holding an empty one: for a value about to be computed again, so that
    // the data it shared its mesh with can be edited in place rather than copied.
    void releaseMesh() { mesh_ = std::make_shared<MeshTopology>(); }
    // The accelerator of the mesh as it is now: built on first use after each change (O(triangles log
    // triangles)), then reused; valid until the mesh changes. Throws HostError when Embree fails.
    const RayAccelerator& accelerator() const { return accelerators_.acceleratorFor(*mesh_); }
    // The same, for callers that keep it beyond the mesh's next change.
    std::shared_ptr<const RayAccelerator> sharedAccelerator() const;
    // Takes over the accelerator `other` keeps; it serves this mesh when both have the same version.
    void shareAcceleratorOf(const MeshData& other) { accelerators_ = other.accelerators_; }

    // Object to world, as MFnGeometryData sets it; identity unless a worldMesh output or a caller set it.
    MMatrix matrix;

private:
    std::shared_ptr<MeshTopology> mesh_;
    mutable RayAcceleratorCache accelerators_;
};

using MeshDataPtr = std::shared_ptr<MeshData>;

// The mesh data an MObject holds; null for anything else.
MeshDataPtr meshDataOf(const MObject& object);
// A new data object holding `mesh`, wrapped for a plug or a data handle.
MObject wrapMesh(MeshTopology mesh);

}  // namespace mhost
