#pragma once
// MDagPath: the path from the world to a DAG node, through its transforms.

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>
#include <vector>

class MMatrix;

namespace mhost {
class Node;
}

class OPENMAYA_EXPORT MDagPath {
public:
    MDagPath();
    MDagPath(const MDagPath& src);
    virtual ~MDagPath();
    // The path to a DAG node (our DAG has no instancing, so there is exactly one).
    static MStatus getAPathTo(const MObject& node, MDagPath& path);
    bool hasFn(MFn::Type type, MStatus* ReturnStatus = nullptr) const;
    MFn::Type apiType(MStatus* ReturnStatus = nullptr) const;
    // Whether the path names live nodes.
    bool isValid(MStatus* ReturnStatus = nullptr) const;
    // The node at the end of the path.
    MObject node(MStatus* ReturnStatus = nullptr) const;
    // The last transform of the path (the node itself when it is a transform).
    MObject transform(MStatus* ReturnStatus = nullptr) const;
    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    // Extends a path ending at a transform to its one shape (intermediate objects ignored);
    // kInvalidParameter when there is none or more than one.
    MStatus extendToShape();
    MStatus extendToShapeDirectlyBelow(unsigned int);
    MStatus numberOfShapesDirectlyBelow(unsigned int&) const;
    MStatus push(const MObject& child);
    MStatus pop(unsigned int num = 1);
    unsigned int childCount(MStatus* ReturnStatus = nullptr) const;
    MObject child(unsigned int i, MStatus* ReturnStatus = nullptr) const;
    // World matrix of the end of the path (row vectors: p * M), and the same without its own transform.
    MMatrix inclusiveMatrix(MStatus* ReturnStatus = nullptr) const;
    MMatrix exclusiveMatrix(MStatus* ReturnStatus = nullptr) const;
    MMatrix inclusiveMatrixInverse(MStatus* ReturnStatus = nullptr) const;
    MMatrix exclusiveMatrixInverse(MStatus* ReturnStatus = nullptr) const;
    MDagPath& operator=(const MDagPath& src);
    bool operator==(const MDagPath& src) const;
    MStatus set(const MDagPath& src);
    unsigned int pathCount(MStatus* ReturnStatus = nullptr) const;
    MStatus getPath(MDagPath& path, unsigned int i = 0) const;
    // "|transform|shape".
    MString fullPathName(MStatus* ReturnStatus = nullptr) const;
    // The shortest unique name: the node's own name, since the host keeps names unique.
    MString partialPathName(MStatus* ReturnStatus = nullptr) const;
    bool isInstanced(MStatus* ReturnStatus = nullptr) const;
    static const char* className();

    // Host side: the nodes from the top of the hierarchy down to the end of the path.
    const std::vector<std::shared_ptr<mhost::Node>>& hostNodes() const { return fNodes; }
    static MDagPath fromHostNode(const std::shared_ptr<mhost::Node>& node);

private:
    std::vector<std::shared_ptr<mhost::Node>> fNodes;
};
