#pragma once
// MEvaluationNode: a node as the evaluator schedules it, with the plugs that made it need evaluation.
// The host hands one to MPxNode::preEvaluation before it draws a node whose plugs are dirty.

#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <memory>

namespace mhost {
class Node;
}

class OPENMAYA_EXPORT MEvaluationNode {
public:
    ~MEvaluationNode();
    MEvaluationNode(const MEvaluationNode& evalNode);
    // Whether a plug of the node's `attribute` (the plug itself, one of its elements or an ancestor
    // plug) is dirty. kInvalidParameter and false when the attribute is not the node's. O(dirty plugs).
    bool dirtyPlugExists(const MObject& attribute, MStatus* ReturnStatus = nullptr) const;
    // The node being evaluated.
    MObject dependencyNode(MStatus* ReturnStatus = nullptr) const;
    static const char* className();

    // Host side: the evaluation node of a scene node.
    explicit MEvaluationNode(const std::shared_ptr<mhost::Node>& node);

private:
    std::shared_ptr<mhost::Node> fNode;
};
