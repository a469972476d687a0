#pragma once
// MItGeometry: walks the points of a geometry, for meshes its vertices: all of them, or those a component
// names (an edge or polygon component stands for the vertices it touches, in order of first appearance).
// It works on a shape through its DAG path, or on the mesh data of a data handle, where positions are
// read and written in the data itself and world space uses the data's matrix.

#include <maya/MObject.h>

#include <memory>

class MDagPath;
class MDataHandle;
class MPoint;
class MPointArray;
class MVector;

namespace mhost {
class MeshWalk;
}

class OPENMAYA_EXPORT MItGeometry {
public:
    MItGeometry(const MDagPath& dagPath, MStatus* ReturnStatus = NULL);
    MItGeometry(const MDagPath& dagPath, MObject& component, MStatus* ReturnStatus = NULL);
    // Over a mesh shape node (its one path) or a mesh data object.
    MItGeometry(MObject& dagObject, MStatus* ReturnStatus = NULL);
    // Over the mesh data a handle holds; groupId 0 is the whole geometry. A read-only iterator refuses
    // setPosition and setAllPositions with kFailure.
    MItGeometry(MDataHandle& dataHandle, unsigned int groupId, bool readOnly = true,
                MStatus* ReturnStatus = NULL);
    MItGeometry(MDataHandle& dataHandle, bool readOnly = true, MStatus* ReturnStatus = NULL);
    MItGeometry(MDataHandle& dataHandle, MObject& component, bool readOnly = true,
                MStatus* ReturnStatus = NULL);
    virtual ~MItGeometry();

    bool isDone(MStatus* ReturnStatus = NULL) const;
    MStatus next();
    MPoint position(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    // The vertex's angle-weighted normal.
    MVector normal(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL) const;
    MStatus setPosition(const MPoint& point, MSpace::Space space = MSpace::kObject);
    // The current vertex id.
    int index(MStatus* ReturnStatus = NULL) const;
    // A vertex component holding the current vertex.
    MObject currentItem(MStatus* ReturnStatus = NULL) const;
    // Points the walk visits; exactCount is the same number.
    int count(MStatus* ReturnStatus = NULL) const;
    int exactCount(MStatus* ReturnStatus = NULL);
    MStatus reset();
    // The positions of every point of the walk, in its order.
    MStatus allPositions(MPointArray& points, MSpace::Space space = MSpace::kObject) const;
    // One position per point of the walk; another length gives kInvalidParameter and moves nothing.
    MStatus setAllPositions(const MPointArray& points, MSpace::Space space = MSpace::kObject);

    static const char* className();

private:
    std::shared_ptr<mhost::MeshWalk> fWalk;
    bool fReadOnly = false;
};
