#include "scenecommands/PolyEdit.h"

#include "commands/MessageLog.h"
#include "graph/ApiBridge.h"
#include "meshnode/MeshShapeNode.h"
#include "meshnode/ShapeGeometry.h"
#include "polymodifiers/PolyModifierNode.h"

namespace mhost {
namespace {

PlugRef inMeshOf(const NodePtr& shape) { return {shape, {meshShapeAttributes().inMesh.get(), -1}}; }

PlugRef plugOf(const NodePtr& node, const char* attributeName) {
    return {node, {node->type->findAttribute(attributeName), -1}};
}

// The mesh a shape without history holds as its own (before its pnts tweaks).
MeshTopology ownMeshOf(const NodePtr& shape) {
    const MeshDataPtr own = meshDataOf(shape->storedValue(inMeshOf(shape).key).data);
    return own ? own->mesh() : MeshTopology();
}

NodePtr createNode(MDGModifier& modifier, const std::string& type) {
    MStatus status;
    const MObject node = modifier.createNode(MString(type.c_str()), &status);
    if (!status) throw HostError("PolyEdit: cannot create a " + type + " node");
    return nodeOf(node);
}

}  // namespace

MStatus PolyEdit::apply(const std::string& command, const NodePtr& shape, const PolyModifierKind& kind,
                        const std::vector<int>& components, const PolyModifierValues& values,
                        std::string& resultName) {
    MeshTopology edited;
    try {
        edited = kind.apply(shapeGeometry(shape)->mesh(), components, values);
    } catch (const HostError& error) {
        messageLog().error(command + ": " + error.what());
        return MS::kInvalidParameter;
    }
    shape_ = shape;
    tweaksBefore_ = StoredTweaks::of(shape);
    tweaksAfter_ = tweaksBefore_.zeroed();
    if (hasHistory(shape)) return insertHistoryNode(kind, components, values, resultName);
    ownBefore_ = ownMeshOf(shape);
    ownAfter_ = std::move(edited);
    resultName = shape->name;
    return redo();
}

MStatus PolyEdit::insertHistoryNode(const PolyModifierKind& kind, const std::vector<int>& components,
                                    const PolyModifierValues& values, std::string& resultName) {
    modifier_ = std::make_unique<MDGModifier>();
    const NodePtr tweak = tweaksBefore_.allZero() ? nullptr : createTweakNode();
    const NodePtr node = createNode(*modifier_, kind.typeName);
    configurePolyModifier(*node, components, values);
    // The new nodes join the scene first: plugs of nodes outside it cannot be named.
    MStatus status = modifier_->doIt();
    if (status && !(status = queueConnections(tweak, node))) modifier_->undoIt();
    if (!status) return status;
    status = redo();
    resultName = node->name;
    return status;
}

// Upstream -> [tweak ->] node -> the shape's inMesh, in place of upstream -> inMesh.
MStatus PolyEdit::queueConnections(const NodePtr& tweak, const NodePtr& node) {
    const PlugRef upstream = *scene().sourceOf(inMeshOf(shape_));
    MStatus status = modifier_->disconnect(makePlug(upstream), makePlug(inMeshOf(shape_)));
    std::vector<PlugRef> chain{upstream};
    if (tweak) chain.insert(chain.end(), {plugOf(tweak, "inputPolymesh"), plugOf(tweak, "output")});
    chain.insert(chain.end(), {plugOf(node, "inputPolymesh"), plugOf(node, "output"), inMeshOf(shape_)});
    for (std::size_t i = 0; status && i + 1 < chain.size(); i += 2)
        status = modifier_->connect(makePlug(chain[i]), makePlug(chain[i + 1]));
    return status;
}

// A polyTweak node holding the shape's stored tweaks, which then leave the shape.
NodePtr PolyEdit::createTweakNode() {
    const NodePtr tweak = createNode(*modifier_, "polyTweak");
    const Attribute* array = tweak->type->findAttribute("tweak");
    for (const auto& [vertex, value] : tweaksBefore_.elements()) tweak->values[{array, vertex}] = value;
    return tweak;
}

MStatus PolyEdit::undo() {
    tweaksBefore_.writeTo(shape_);
    if (modifier_) return modifier_->undoIt();
    setShapeMesh(shape_, *ownBefore_);
    return MS::kSuccess;
}

MStatus PolyEdit::redo() {
    if (modifier_) {
        const MStatus status = modifier_->doIt();
        if (!status) return status;
    } else {
        setShapeMesh(shape_, *ownAfter_);
    }
    tweaksAfter_.writeTo(shape_);
    return MS::kSuccess;
}

}  // namespace mhost
