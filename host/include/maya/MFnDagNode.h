#pragma once
// MFnDagNode: hierarchy, paths, bounding box and duplication of DAG nodes.

#include <maya/MBoundingBox.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>

class MMatrix;

namespace mhost {
struct FunctionSetAccess;
}

class OPENMAYA_EXPORT MFnDagNode : public MFnDependencyNode {
    MHOST_DECLARE_MFN(MFnDagNode)

    enum { kNextPos = 0xff };

    MFnDagNode(const MDagPath& object, MStatus* ret = NULL);
    // Creates a DAG node under `parent`; a shape without a parent gets a new transform above it,
    // and the transform is returned, as in Maya.
    MObject create(const MTypeId& typeId, MObject& parent = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(const MTypeId& typeId, const MString& name, MObject& parent = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, MObject& parent = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, const MString& name, MObject& parent = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);
    unsigned int parentCount(MStatus* ReturnStatus = NULL) const;
    // The parent; the world node for top-level nodes.
    MObject parent(unsigned int i, MStatus* ReturnStatus = NULL) const;
    MStatus addChild(MObject& child, unsigned int index = kNextPos, bool keepExistingParents = false);
    MStatus removeChild(MObject& child);
    unsigned int childCount(MStatus* ReturnStatus = NULL) const;
    MObject child(unsigned int i, MStatus* ReturnStatus = NULL) const;
    bool hasChild(const MObject& node, MStatus* ReturnStatus = NULL) const;
    bool isChildOf(const MObject& node, MStatus* ReturnStatus = NULL) const;
    bool isParentOf(const MObject& node, MStatus* ReturnStatus = NULL) const;
    bool isInstanced(bool indirect = true, MStatus* ReturnStatus = NULL) const;
    // Copies the node with its plug values and children under the same parent; returns the copy.
    // Connections are not copied: the copy keeps the values its inputs give at that moment.
    MObject duplicate(bool instance = false, bool instanceLeaf = false, MStatus* ReturnStatus = NULL) const;
    MStatus getPath(MDagPath& path) const;
    MDagPath dagPath(MStatus* ReturnStatus = NULL) const;
    MString fullPathName(MStatus* ReturnStatus = NULL) const;
    MString partialPathName(MStatus* ReturnStatus = NULL) const;
    MMatrix transformationMatrix(MStatus* ReturnStatus = NULL) const;
    bool isIntermediateObject(MStatus* ReturnStatus = NULL) const;
    MStatus setIntermediateObject(bool isIntermediate);
    // Object-space bounding box; empty for nodes without geometry.
    MBoundingBox boundingBox(MStatus* ReturnStatus = NULL) const;
    virtual MStatus setObject(const MDagPath& path);
    MStatus setObject(MObject& object) override;
    MStatus setObject(const MObject& object) override;

private:
    friend struct mhost::FunctionSetAccess;
    MDagPath fPath;
};
