#pragma once
// MItDag: walks the DAG below the world (or below a root), depth first or breadth first, optionally
// only nodes that have a given function set type.

#include <maya/MDagPath.h>
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <vector>

class OPENMAYA_EXPORT MItDag {
public:
    enum TraversalType { kInvalidType = 0, kDepthFirst, kBreadthFirst };

    MItDag(TraversalType = kDepthFirst, MFn::Type = MFn::kInvalid, MStatus* ReturnStatus = NULL);
    virtual ~MItDag();
    MStatus reset();
    MStatus reset(const MObject& object, TraversalType = kDepthFirst, MFn::Type = MFn::kInvalid);
    MStatus reset(const MDagPath& path, TraversalType = kDepthFirst, MFn::Type = MFn::kInvalid);
    MObject item(MStatus* ReturnStatus = NULL);
    MObject currentItem(MStatus* ReturnStatus = NULL);
    MStatus next();
    bool isDone(MStatus* ReturnStatus = NULL) const;
    // The node the walk started from; null when it started at the world.
    MObject root(MStatus* ReturnStatus = NULL);
    // Number of nodes between the current one and the world.
    unsigned int depth(MStatus* ReturnStatus = NULL) const;
    MStatus getPath(MDagPath& path) const;
    MString fullPathName(MStatus* ReturnStatus = NULL) const;
    MString partialPathName(MStatus* ReturnStatus = NULL) const;
    static const char* className();

private:
    void collect(const MObject& root, TraversalType traversal, MFn::Type filter);

    std::vector<MDagPath> fPaths;
    MObject fRoot;
    TraversalType fTraversal = kDepthFirst;
    MFn::Type fFilter = MFn::kInvalid;
    size_t fCurrent = 0;
};
