#pragma once
// MItDependencyNodes: walks every node of the scene in creation order, optionally only those that
// have a given function set type.

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <vector>

class OPENMAYA_EXPORT MItDependencyNodes {
public:
    MItDependencyNodes(MFn::Type filter = MFn::kInvalid, MStatus* ReturnStatus = NULL);
    virtual ~MItDependencyNodes();
    // Restarts over the scene as it is now.
    MStatus reset(MFn::Type filter = MFn::kInvalid);
    MObject thisNode(MStatus* ReturnStatus = NULL) const;
    MStatus next();
    bool isDone(MStatus* ReturnStatus = NULL) const;
    MObject item(MStatus* ReturnStatus = NULL) const;
    static const char* className();

private:
    std::vector<MObject> fNodes;
    size_t fCurrent = 0;
};
