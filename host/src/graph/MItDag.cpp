#include <maya/MItDag.h>

#include <deque>

#include "graph/ApiBridge.h"

using mhost::NodePtr;

namespace {

std::vector<NodePtr> topLevelNodes() {
    std::vector<NodePtr> top;
    for (const auto& node : mhost::scene().nodes())
        if (node->type->isDag && !node->parent) top.push_back(node);
    return top;
}

void depthFirst(const NodePtr& node, std::vector<NodePtr>& out) {
    out.push_back(node);
    for (const auto& child : node->children) depthFirst(child, out);
}

}  // namespace

MItDag::MItDag(TraversalType traversal, MFn::Type filter, MStatus* ReturnStatus)
    : fTraversal(traversal), fFilter(filter) {
    collect(MObject(), traversal, filter);
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
}

MItDag::~MItDag() = default;
const char* MItDag::className() { return "MItDag"; }

void MItDag::collect(const MObject& root, TraversalType traversal, MFn::Type filter) {
    fRoot = root;
    fTraversal = traversal;
    fFilter = filter;
    fCurrent = 0;
    fPaths.clear();
    NodePtr rootNode = mhost::liveNodeOf(root);
    std::vector<NodePtr> starts = rootNode ? std::vector<NodePtr>{rootNode} : topLevelNodes();
    std::vector<NodePtr> order;
    if (traversal == kBreadthFirst) {
        std::deque<NodePtr> queue(starts.begin(), starts.end());
        while (!queue.empty()) {
            order.push_back(queue.front());
            queue.insert(queue.end(), queue.front()->children.begin(), queue.front()->children.end());
            queue.pop_front();
        }
    } else {
        for (const auto& start : starts) depthFirst(start, order);
    }
    for (const auto& node : order)
        if (filter == MFn::kInvalid || node->hasFn(filter)) fPaths.push_back(MDagPath::fromHostNode(node));
}

MStatus MItDag::reset() {
    collect(fRoot, fTraversal, fFilter);
    return MS::kSuccess;
}

MStatus MItDag::reset(const MObject& object, TraversalType traversal, MFn::Type filter) {
    NodePtr node = mhost::liveNodeOf(object);
    if (!object.isNull() && (!node || !node->type->isDag)) return MS::kInvalidParameter;
    collect(object, traversal, filter);
    return MS::kSuccess;
}

MStatus MItDag::reset(const MDagPath& path, TraversalType traversal, MFn::Type filter) {
    if (!path.isValid()) return MS::kInvalidParameter;
    collect(path.node(), traversal, filter);
    return MS::kSuccess;
}

MObject MItDag::currentItem(MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = isDone() ? MS::kFailure : MS::kSuccess;
    return isDone() ? MObject() : fPaths[fCurrent].node();
}

MObject MItDag::item(MStatus* ReturnStatus) { return currentItem(ReturnStatus); }

MStatus MItDag::next() {
    if (isDone()) return MS::kFailure;
    ++fCurrent;
    return MS::kSuccess;
}

bool MItDag::isDone(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return fCurrent >= fPaths.size();
}

MObject MItDag::root(MStatus* ReturnStatus) {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return fRoot;
}

unsigned int MItDag::depth(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = isDone() ? MS::kFailure : MS::kSuccess;
    return isDone() ? 0 : fPaths[fCurrent].length();
}

MStatus MItDag::getPath(MDagPath& path) const {
    if (isDone()) return MS::kFailure;
    path = fPaths[fCurrent];
    return MS::kSuccess;
}

MString MItDag::fullPathName(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = isDone() ? MS::kFailure : MS::kSuccess;
    return isDone() ? MString() : fPaths[fCurrent].fullPathName();
}

MString MItDag::partialPathName(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = isDone() ? MS::kFailure : MS::kSuccess;
    return isDone() ? MString() : fPaths[fCurrent].partialPathName();
}
