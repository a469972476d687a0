#include <maya/MEvaluationNode.h>

#include "graph/ApiBridge.h"
#include "graph/Node.h"

namespace {

bool isWithin(const mhost::Attribute* attribute, const mhost::Attribute* ancestor) {
    for (const mhost::Attribute* a = attribute; a; a = a->parent)
        if (a == ancestor) return true;
    return false;
}

}  // namespace

MEvaluationNode::MEvaluationNode(const std::shared_ptr<mhost::Node>& node) : fNode(node) {}
MEvaluationNode::MEvaluationNode(const MEvaluationNode&) = default;
MEvaluationNode::~MEvaluationNode() = default;
const char* MEvaluationNode::className() { return "MEvaluationNode"; }

bool MEvaluationNode::dirtyPlugExists(const MObject& attribute, MStatus* ReturnStatus) const {
    auto wanted = mhost::attributeOf(attribute);
    const bool owned = wanted && fNode && fNode->type->findAttribute(wanted->longName) == wanted.get();
    if (ReturnStatus) *ReturnStatus = owned ? MS::kSuccess : MS::kInvalidParameter;
    if (!owned) return false;
    for (const auto& key : fNode->dirty)
        if (isWithin(key.attribute, wanted.get()) || isWithin(wanted.get(), key.attribute)) return true;
    return false;
}

MObject MEvaluationNode::dependencyNode(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = fNode ? MS::kSuccess : MS::kFailure;
    return fNode ? mhost::wrapNode(fNode) : MObject();
}
