#include <maya/MItDependencyNodes.h>

#include "graph/ApiBridge.h"

MItDependencyNodes::MItDependencyNodes(MFn::Type filter, MStatus* ReturnStatus) {
    MStatus status = reset(filter);
    if (ReturnStatus) *ReturnStatus = status;
}

MItDependencyNodes::~MItDependencyNodes() = default;
const char* MItDependencyNodes::className() { return "MItDependencyNodes"; }

MStatus MItDependencyNodes::reset(MFn::Type filter) {
    fNodes.clear();
    fCurrent = 0;
    for (const auto& node : mhost::scene().nodes())
        if (filter == MFn::kInvalid || node->hasFn(filter)) fNodes.push_back(mhost::wrapNode(node));
    return MS::kSuccess;
}

MObject MItDependencyNodes::thisNode(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = isDone() ? MS::kFailure : MS::kSuccess;
    return isDone() ? MObject() : fNodes[fCurrent];
}

MObject MItDependencyNodes::item(MStatus* ReturnStatus) const { return thisNode(ReturnStatus); }

MStatus MItDependencyNodes::next() {
    if (isDone()) return MS::kFailure;
    ++fCurrent;
    return MS::kSuccess;
}

bool MItDependencyNodes::isDone(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return fCurrent >= fNodes.size();
}
