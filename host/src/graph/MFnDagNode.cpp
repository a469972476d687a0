#include <maya/MFnDagNode.h>
#include <maya/MMatrix.h>

#include <algorithm>

#include "core/FunctionSet.h"
#include "core/ReturnStatus.h"
#include "graph/ApiBridge.h"
#include "graph/DataObject.h"
#include "graph/NodeCreation.h"

MHOST_DEFINE_MFN(MFnDagNode, MFn::kDagNode)

using mhost::NodePtr;

namespace {

using mhost::report;

// The copy gets no connections: it keeps the values its inputs give now, and the dirty flags of its
// outputs, so that a mesh's geometry, say, is computed again from those values.
// The node alone, without its children.
NodePtr copyNode(const NodePtr& original, mhost::Node* parent) {
    for (const auto& c : mhost::scene().connectionsOf(*original))
        if (c.destination.node == original) mhost::scene().evaluate(c.destination);
    NodePtr copy = mhost::scene().createNode(original->type, original->name, parent);
    copy->values = original->values;
    copy->dirty = original->dirty;
    for (auto& [key, value] : copy->values)
        if (auto data = mhost::dataOf(value.data)) value.data = mhost::wrapData(data->clone());
    return copy;
}

NodePtr copySubtree(const NodePtr& original, mhost::Node* parent) {
    NodePtr copy = copyNode(original, parent);
    for (const auto& child : original->children) copySubtree(child, copy.get());
    return copy;
}

// As Maya duplicates a shape on its own: a copy of its transform (without the transform's other
// children) holding a copy of the shape. Returns the new transform.
NodePtr copyShapeWithTransform(const NodePtr& shape) {
    NodePtr parent = shape->parent ? shape->parent->self() : NodePtr();
    NodePtr transform = parent
                            ? copyNode(parent, parent->parent)
                            : mhost::scene().createNode(mhost::nodeTypes().find("transform"), "transform1");
    copySubtree(shape, transform.get());
    return transform;
}

}  // namespace

#define MHOST_DAG_OR_RETURN(value)                                     \
    auto node = mhost::liveNodeOf(fObject);                            \
    report(ReturnStatus, node ? MS::kSuccess : MS::kInvalidParameter); \
    if (!node) return value

MFnDagNode::MFnDagNode(const MDagPath& object, MStatus* ret) {
    MStatus status = setObject(object);
    report(ret, status);
}

MStatus MFnDagNode::setObject(const MDagPath& path) {
    MStatus status = MFnBase::setObject(path.node());
    fPath = status ? path : MDagPath();
    return status;
}

MStatus MFnDagNode::setObject(MObject& object) { return setObject(static_cast<const MObject&>(object)); }

MStatus MFnDagNode::setObject(const MObject& object) {
    MStatus status = MFnBase::setObject(object);
    fPath = status ? MDagPath::fromHostNode(mhost::nodeOf(object)) : MDagPath();
    return status;
}

MObject MFnDagNode::create(const MTypeId& typeId, MObject& parent, MStatus* ReturnStatus) {
    return create(typeId, MString(), parent, ReturnStatus);
}

MObject MFnDagNode::create(const MTypeId& typeId, const MString& name, MObject& parent,
                           MStatus* ReturnStatus) {
    auto type = mhost::nodeTypes().findById(typeId.id());
    return create(MString(type ? type->name.c_str() : ""), name, parent, ReturnStatus);
}

MObject MFnDagNode::create(const MString& type, MObject& parent, MStatus* ReturnStatus) {
    return create(type, MString(), parent, ReturnStatus);
}

MObject MFnDagNode::create(const MString& type, const MString& name, MObject& parent, MStatus* ReturnStatus) {
    auto typeInfo = mhost::nodeTypes().find(type.asChar());
    NodePtr parentNode = mhost::liveNodeOf(parent);
    if (!typeInfo || !typeInfo->isDag || (!parent.isNull() && (!parentNode || !parentNode->type->isDag))) {
        report(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    MStatus status;
    MObject created = mhost::createNodeWithTransform(type.asChar(), name.asChar(), parentNode.get(), status);
    report(ReturnStatus, status);
    if (!status) return MObject();
    // A shape made without a parent lives under a new transform, which is what Maya hands back.
    NodePtr node = mhost::nodeOf(created);
    MObject result = (!parentNode && node->parent) ? mhost::wrapNode(node->parent->self()) : created;
    setObject(result);
    return result;
}

unsigned int MFnDagNode::parentCount(MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(0);
    return 1;
}

MObject MFnDagNode::parent(unsigned int i, MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(MObject());
    if (i != 0 || !node->parent) {
        report(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    return mhost::wrapNode(node->parent->self());
}

MStatus MFnDagNode::addChild(MObject& child, unsigned int, bool) {
    NodePtr node = mhost::liveNodeOf(fObject);
    NodePtr childNode = mhost::liveNodeOf(child);
    if (!node || !childNode || !childNode->type->isDag) return MS::kInvalidParameter;
    return mhost::scene().reparent(childNode, node.get());
}

MStatus MFnDagNode::removeChild(MObject& child) {
    NodePtr node = mhost::liveNodeOf(fObject);
    NodePtr childNode = mhost::liveNodeOf(child);
    if (!node || !childNode || childNode->parent != node.get()) return MS::kInvalidParameter;
    return mhost::scene().reparent(childNode, nullptr);
}

unsigned int MFnDagNode::childCount(MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(0);
    return static_cast<unsigned int>(node->children.size());
}

MObject MFnDagNode::child(unsigned int i, MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(MObject());
    if (i >= node->children.size()) {
        report(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    return mhost::wrapNode(node->children[i]);
}

bool MFnDagNode::hasChild(const MObject& other, MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(false);
    NodePtr childNode = mhost::liveNodeOf(other);
    return childNode && childNode->parent == node.get();
}

bool MFnDagNode::isChildOf(const MObject& other, MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(false);
    NodePtr parentNode = mhost::liveNodeOf(other);
    return parentNode && node->parent == parentNode.get();
}

bool MFnDagNode::isParentOf(const MObject& other, MStatus* ReturnStatus) const {
    return hasChild(other, ReturnStatus);
}

bool MFnDagNode::isInstanced(bool, MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(false);
    return false;
}

MObject MFnDagNode::duplicate(bool, bool, MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(MObject());
    try {
        return mhost::wrapNode(node->type->isShape ? copyShapeWithTransform(node)
                                                   : copySubtree(node, node->parent));
    } catch (const std::exception&) {
        report(ReturnStatus, MS::kFailure);
        return MObject();
    }
}

MStatus MFnDagNode::getPath(MDagPath& path) const {
    path = fPath;
    return fPath.isValid() ? MS::kSuccess : MS::kFailure;
}

MDagPath MFnDagNode::dagPath(MStatus* ReturnStatus) const {
    report(ReturnStatus, fPath.isValid() ? MS::kSuccess : MS::kFailure);
    return fPath;
}

MString MFnDagNode::fullPathName(MStatus* ReturnStatus) const { return fPath.fullPathName(ReturnStatus); }
MString MFnDagNode::partialPathName(MStatus* ReturnStatus) const {
    return fPath.partialPathName(ReturnStatus);
}

MMatrix MFnDagNode::transformationMatrix(MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(MMatrix());
    MDagPath own = MDagPath::fromHostNode(node);
    return own.inclusiveMatrix() * own.exclusiveMatrixInverse();
}

bool MFnDagNode::isIntermediateObject(MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(false);
    return findPlug("intermediateObject", false).asBool();
}

MStatus MFnDagNode::setIntermediateObject(bool isIntermediate) {
    MPlug plug = findPlug("intermediateObject", false);
    return plug.isNull() ? MS::kInvalidParameter : plug.setBool(isIntermediate);
}

MBoundingBox MFnDagNode::boundingBox(MStatus* ReturnStatus) const {
    MHOST_DAG_OR_RETURN(MBoundingBox());
    return node->type->bounds ? node->type->bounds(node) : MBoundingBox();
}
