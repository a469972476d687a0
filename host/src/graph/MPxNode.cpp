#include <maya/MPxNode.h>

#include "graph/ApiBridge.h"
#include "graph/BuiltinNodeTypes.h"

namespace {

// Applies an initialiser call to the node type being registered; kFailure outside an initialiser.
mhost::NodeTypePtr initializingType() { return mhost::nodeTypes().initializing; }

}  // namespace

MObject MPxNode::message(mhost::baseAttributes().message);
MObject MPxNode::isHistoricallyInteresting(mhost::baseAttributes().isHistoricallyInteresting);
MObject MPxNode::caching(mhost::baseAttributes().caching);
MObject MPxNode::state(mhost::baseAttributes().state);
MObject MPxNode::frozen(mhost::baseAttributes().frozen);

MPxNode::MPxNode() = default;
MPxNode::~MPxNode() = default;
void MPxNode::postConstructor() {}
MStatus MPxNode::compute(const MPlug&, MDataBlock&) { return MS::kUnknownParameter; }
MStatus MPxNode::setDependentsDirty(const MPlug&, MPlugArray&) { return MS::kSuccess; }
MStatus MPxNode::preEvaluation(const MDGContext&, const MEvaluationNode&) { return MS::kSuccess; }
MStatus MPxNode::connectionMade(const MPlug&, const MPlug&, bool) { return MS::kUnknownParameter; }
MStatus MPxNode::connectionBroken(const MPlug&, const MPlug&, bool) { return MS::kUnknownParameter; }
MPxNode::Type MPxNode::type() const { return kDependNode; }
bool MPxNode::isAbstractClass() const { return false; }

MObject MPxNode::thisMObject() const { return fHostNode ? mhost::wrapNode(fHostNode->self()) : MObject(); }
MString MPxNode::name() const { return fHostNode ? MString(fHostNode->name.c_str()) : MString(); }
MTypeId MPxNode::typeId() const { return MTypeId(fHostNode ? fHostNode->type->id : 0); }
MString MPxNode::typeName() const { return fHostNode ? MString(fHostNode->type->name.c_str()) : MString(); }

MStatus MPxNode::addAttribute(const MObject& attr) {
    auto type = initializingType();
    auto attribute = mhost::attributeOf(attr);
    if (!type || !attribute || attribute->parent) return MS::kFailure;
    return type->addAttribute(attribute) ? MS::kSuccess : MS::kFailure;
}

MStatus MPxNode::attributeAffects(const MObject& whenChanges, const MObject& isAffected) {
    auto type = initializingType();
    auto source = mhost::attributeOf(whenChanges);
    auto target = mhost::attributeOf(isAffected);
    if (!type || !source || !target) return MS::kFailure;
    if (type->findAttribute(source->longName) != source.get() ||
        type->findAttribute(target->longName) != target.get())
        return MS::kInvalidParameter;
    type->affects[source.get()].push_back(target.get());
    return MS::kSuccess;
}

MStatus MPxNode::attributeAffects(const MObject& whenChanges, const MObject& isAffected, bool) {
    return attributeAffects(whenChanges, isAffected);
}
