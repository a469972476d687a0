#include <maya/MDataBlock.h>
#include <maya/MPlug.h>

#include "graph/HandleSlot.h"
#include "graph/Scene.h"

namespace {

using mhost::PlugRef;

// The plug of this block's node that an MPlug or attribute names; null node when it is not ours.
PlugRef refFor(mhost::Node* node, const MPlug& plug) {
    PlugRef ref = plug.isNull() ? PlugRef{} : plug.hostPlug();
    return ref.node.get() == node ? ref : PlugRef{};
}

PlugRef refFor(mhost::Node* node, const MObject& attribute) {
    auto attr = mhost::attributeOf(attribute);
    if (!node || !attr || node->type->findAttribute(attr->longName) != attr.get()) return {};
    return {node->self(), {attr.get(), -1}};
}

MDataHandle inputHandle(const PlugRef& ref, MStatus* status) {
    if (status) *status = ref.node ? MS::kSuccess : MS::kInvalidParameter;
    if (!ref.node) return MDataHandle();
    return MDataHandle(
        std::make_shared<mhost::HandleSlot>(ref.key.attribute, mhost::scene().evaluate(ref), nullptr));
}

MDataHandle outputHandle(const PlugRef& ref, MStatus* status) {
    if (status) *status = ref.node ? MS::kSuccess : MS::kInvalidParameter;
    if (!ref.node) return MDataHandle();
    mhost::Node& node = *ref.node;
    mhost::noteValuesEdited(node);
    if (!node.values.count(ref.key)) node.values[ref.key] = node.storedValue(ref.key);
    auto& stored = node.values[ref.key];
    return MDataHandle(std::make_shared<mhost::HandleSlot>(ref.key.attribute, stored, &stored));
}

}  // namespace

MDataBlock::MDataBlock(mhost::Node* node) : fNode(node) {}
MDataBlock::~MDataBlock() = default;
const char* MDataBlock::className() { return "MDataBlock"; }

MDataHandle MDataBlock::inputValue(const MPlug& plug, MStatus* s) {
    return inputHandle(refFor(fNode, plug), s);
}
MDataHandle MDataBlock::inputValue(const MObject& a, MStatus* s) { return inputHandle(refFor(fNode, a), s); }
MDataHandle MDataBlock::outputValue(const MPlug& plug, MStatus* s) {
    return outputHandle(refFor(fNode, plug), s);
}
MDataHandle MDataBlock::outputValue(const MObject& a, MStatus* s) {
    return outputHandle(refFor(fNode, a), s);
}

MStatus MDataBlock::setClean(const MPlug& plug) {
    PlugRef ref = refFor(fNode, plug);
    if (!ref.node) return MS::kInvalidParameter;
    fNode->setClean(ref.key);
    return MS::kSuccess;
}

MStatus MDataBlock::setClean(const MObject& attribute) {
    PlugRef ref = refFor(fNode, attribute);
    if (!ref.node) return MS::kInvalidParameter;
    fNode->setClean(ref.key);
    return MS::kSuccess;
}

bool MDataBlock::isClean(const MPlug& plug) {
    PlugRef ref = refFor(fNode, plug);
    return ref.node && !fNode->isDirty(ref.key);
}

bool MDataBlock::isClean(const MObject& attribute, MStatus* ReturnStatus) {
    PlugRef ref = refFor(fNode, attribute);
    if (ReturnStatus) *ReturnStatus = ref.node ? MS::kSuccess : MS::kInvalidParameter;
    return ref.node && !fNode->isDirty(ref.key);
}
