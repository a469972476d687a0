#include <maya/MDagModifier.h>

#include "graph/ApiBridge.h"

MDagModifier::MDagModifier() = default;
MDagModifier::~MDagModifier() = default;
const char* MDagModifier::className() { return "MDagModifier"; }

MObject MDagModifier::createNode(const MTypeId& typeId, const MObject& parent, MStatus* ReturnStatus) {
    auto type = mhost::nodeTypes().findById(typeId.id());
    return createNode(MString(type ? type->name.c_str() : ""), parent, ReturnStatus);
}

MObject MDagModifier::createNode(const MString& type, const MObject& parent, MStatus* ReturnStatus) {
    auto typeInfo = mhost::nodeTypes().find(type.asChar());
    if (!typeInfo || !typeInfo->isDag) {
        if (ReturnStatus) *ReturnStatus = MS::kInvalidParameter;
        return MObject();
    }
    return queueCreation(type, parent, ReturnStatus);
}

MStatus MDagModifier::reparentNode(const MObject& node, const MObject& newParent) {
    mhost::NodePtr host = mhost::nodeOf(node);
    mhost::NodePtr parent = mhost::nodeOf(newParent);
    if (!host || !host->type->isDag || (!newParent.isNull() && (!parent || !parent->type->isDag)))
        return MS::kInvalidParameter;
    auto oldParent = std::make_shared<mhost::Node*>(nullptr);
    return queue({[host, parent, oldParent] {
                      *oldParent = host->parent;
                      return mhost::scene().reparent(host, parent.get());
                  },
                  [host, oldParent] { return mhost::scene().reparent(host, *oldParent); }});
}
