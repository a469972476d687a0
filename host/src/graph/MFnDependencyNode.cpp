#include <maya/MFnDependencyNode.h>
#include <maya/MPlugArray.h>

#include <algorithm>
#include <functional>

#include "core/FunctionSet.h"
#include "core/ReturnStatus.h"
#include "graph/ApiBridge.h"
#include "graph/NodeCreation.h"

MHOST_DEFINE_MFN(MFnDependencyNode, MFn::kDependencyNode)

namespace {

using mhost::report;

const mhost::Attribute* attributeAt(const mhost::NodeType& type, unsigned int index) {
    // Flattened in declaration order: each attribute followed by its children.
    std::vector<const mhost::Attribute*> all;
    std::function<void(const mhost::AttributePtr&)> visit = [&](const mhost::AttributePtr& a) {
        all.push_back(a.get());
        for (const auto& child : a->children) visit(child);
    };
    for (const auto& a : type.attributes) visit(a);
    return index < all.size() ? all[index] : nullptr;
}

MObject wrapAttribute(const mhost::Attribute* attribute) {
    if (!attribute) return MObject();
    return MObject(std::const_pointer_cast<mhost::ApiObject>(attribute->shared_from_this()));
}

}  // namespace

#define MHOST_NODE_OR_RETURN(value)                                    \
    auto node = mhost::liveNodeOf(fObject);                            \
    report(ReturnStatus, node ? MS::kSuccess : MS::kInvalidParameter); \
    if (!node) return value

MObject MFnDependencyNode::create(const MTypeId& typeId, MStatus* ReturnStatus) {
    return create(typeId, MString(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MTypeId& typeId, const MString& name, MStatus* ReturnStatus) {
    auto type = mhost::nodeTypes().findById(typeId.id());
    return create(MString(type ? type->name.c_str() : ""), name, ReturnStatus);
}

MObject MFnDependencyNode::create(const MString& type, MStatus* ReturnStatus) {
    return create(type, MString(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MString& type, const MString& name, MStatus* ReturnStatus) {
    MStatus status;
    MObject created = mhost::createNodeWithTransform(type.asChar(), name.asChar(), nullptr, status);
    report(ReturnStatus, status);
    if (status) setObject(created);
    return created;
}

MTypeId MFnDependencyNode::typeId(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MTypeId());
    return MTypeId(node->type->id);
}

MString MFnDependencyNode::typeName(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MString());
    return MString(node->type->name.c_str());
}

MString MFnDependencyNode::name(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MString());
    return MString(node->name.c_str());
}

MString MFnDependencyNode::absoluteName(MStatus* ReturnStatus) const { return ":" + name(ReturnStatus); }

MString MFnDependencyNode::pluginName(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MString());
    return MString(node->type->owner.c_str());
}

MString MFnDependencyNode::setName(const MString& newName, bool, MStatus* ReturnStatus) {
    MHOST_NODE_OR_RETURN(MString());
    if (newName.length() == 0) {
        report(ReturnStatus, MS::kInvalidParameter);
        return MString(node->name.c_str());
    }
    return MString(mhost::scene().rename(node, newName.asChar()).c_str());
}

MUuid MFnDependencyNode::uuid(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MUuid());
    return MUuid(MString(node->uuid.c_str()));
}

MStatus MFnDependencyNode::getConnections(MPlugArray& array) const {
    array.clear();
    auto node = mhost::liveNodeOf(fObject);
    if (!node) return MS::kInvalidParameter;
    std::vector<mhost::PlugRef> seen;
    for (const auto& c : mhost::scene().connectionsOf(*node)) {
        const mhost::PlugRef& mine = c.source.node == node ? c.source : c.destination;
        if (std::find(seen.begin(), seen.end(), mine) != seen.end()) continue;
        seen.push_back(mine);
        array.append(MPlug(mine));
    }
    return MS::kSuccess;
}

unsigned int MFnDependencyNode::attributeCount(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(0);
    unsigned int count = 0;
    while (attributeAt(*node->type, count)) ++count;
    return count;
}

MObject MFnDependencyNode::attribute(unsigned int index, MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MObject());
    const mhost::Attribute* found = attributeAt(*node->type, index);
    report(ReturnStatus, found ? MS::kSuccess : MS::kInvalidParameter);
    return wrapAttribute(found);
}

MObject MFnDependencyNode::attribute(const MString& attrName, MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MObject());
    const mhost::Attribute* found = node->type->findAttribute(attrName.asChar());
    report(ReturnStatus, found ? MS::kSuccess : MS::kInvalidParameter);
    return wrapAttribute(found);
}

MPlug MFnDependencyNode::findPlug(const MObject& attr, bool, MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(MPlug());
    MPlug plug(fObject, attr);
    report(ReturnStatus, plug.isNull() ? MS::kInvalidParameter : MS::kSuccess);
    return plug;
}

MPlug MFnDependencyNode::findPlug(const MString& attrName, bool wantNetworkedPlug,
                                  MStatus* ReturnStatus) const {
    return findPlug(attribute(attrName), wantNetworkedPlug, ReturnStatus);
}

MPxNode* MFnDependencyNode::userNode(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(nullptr);
    if (!node->type->isPlugin) {
        report(ReturnStatus, MS::kInvalidParameter);
        return nullptr;
    }
    return node->behaviour.get();
}

bool MFnDependencyNode::isFromReferencedFile(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(false);
    return false;
}

bool MFnDependencyNode::hasUniqueName(MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(false);
    return true;
}

bool MFnDependencyNode::hasAttribute(const MString& attrName, MStatus* ReturnStatus) const {
    MHOST_NODE_OR_RETURN(false);
    return node->type->findAttribute(attrName.asChar()) != nullptr;
}

MString MFnDependencyNode::classification(const MString& nodeTypeName) {
    auto type = mhost::nodeTypes().find(nodeTypeName.asChar());
    return MString(type ? type->classification.c_str() : "");
}
