#pragma once
// MDataBlock: the storage of one node's plug values as compute sees it. inputValue evaluates the
// plug (pulling through connections); outputValue gives a writable handle on the stored value.

#include <maya/MDataHandle.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

class MPlug;

namespace mhost {
class Node;
}

class OPENMAYA_EXPORT MDataBlock {
public:
    virtual ~MDataBlock();
    MDataHandle inputValue(const MPlug& plug, MStatus* ReturnStatus = NULL);
    MDataHandle inputValue(const MObject& attribute, MStatus* ReturnStatus = NULL);
    MDataHandle outputValue(const MPlug& plug, MStatus* ReturnStatus = NULL);
    MDataHandle outputValue(const MObject& attribute, MStatus* ReturnStatus = NULL);
    // Clears the dirty flag of a plug or attribute of this node.
    MStatus setClean(const MPlug& plug);
    MStatus setClean(const MObject& attribute);
    bool isClean(const MPlug& plug);
    bool isClean(const MObject& attribute, MStatus* ReturnStatus = NULL);
    static const char* className();

    // Host side: the data block of a node.
    explicit MDataBlock(mhost::Node* node);

private:
    mhost::Node* fNode;
};
