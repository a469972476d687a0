#include "meshnode/ShapeGeometry.h"

#include <algorithm>
#include <array>

#include "graph/Scene.h"
#include "meshnode/MeshShapeNode.h"
#include "meshnode/VertexTweaks.h"
#include "messages/Notifications.h"

namespace mhost {
namespace {

PlugRef plugOf(const NodePtr& shape, const AttributePtr& attribute) { return {shape, {attribute.get(), -1}}; }

// The mesh data stored in a plug of the shape, put in place first when the plug holds none, so that
// edits made to it stay in the node.
MeshDataPtr storedMesh(const NodePtr& shape, const AttributePtr& attribute) {
    PlugValue& value = shape->values[{attribute.get(), -1}];
    MeshDataPtr data = meshDataOf(value.data);
    if (!data) {
        data = std::make_shared<MeshData>();
        value.data = wrapData(data);
        noteValuesEdited(*shape);
    }
    return data;
}

// What reads the shape's output learns that it changed; the output itself stays clean.
void dirtyConsumers(const NodePtr& shape) {
    const MeshShapeAttributes& a = meshShapeAttributes();
    for (const PlugRef& destination : scene().destinationsOf(plugOf(shape, a.outMesh)))
        scene().markDirty(destination);
    scene().markDirty(plugOf(shape, a.worldMesh));
}

// Stores the shape's own mesh back in inMesh, which dirties every output and their consumers.
void ownMeshChanged(const NodePtr& shape) {
    const PlugRef input = plugOf(shape, meshShapeAttributes().inMesh);
    scene().setValue(input, shape->storedValue(input.key));
}

// The shape's computed values (outMesh, cachedInMesh, worldMesh) share its own mesh until they are
// computed again. An edit of the own mesh dirties them all, so they let go of it first: the edit
// then happens in place, where it would otherwise copy the whole mesh, once per vertex moved.
void releaseComputedShares(const NodePtr& shape, const MeshData& own) {
    const MeshShapeAttributes& a = meshShapeAttributes();
    for (auto& [key, value] : shape->values) {
        if (key.attribute == a.inMesh.get()) continue;
        const MeshDataPtr data = meshDataOf(value.data);
        if (data && data->sharesMeshWith(own)) data->releaseMesh();
    }
}

// Whether the shape's own values are all that hold its own mesh. Without tweaks they all show that
// mesh as it is, so an edit made to it in place leaves them right: nothing of the shape needs to be
// computed again, which matters to a brush that moves thousands of vertices one at a time.
// Each data object counts once, however many of the shape's plugs hold it; a shape has only a few.
bool onlyTheShapeHolds(const NodePtr& shape, const MeshData& own) {
    std::array<const MeshData*, 8> holders{};
    std::size_t count = 0;
    for (const auto& entry : shape->values) {
        const auto* data = dynamic_cast<const MeshData*>(entry.second.data.hostObject().get());
        if (!data || !data->sharesMeshWith(own)) continue;
        if (std::find(holders.begin(), holders.begin() + count, data) != holders.begin() + count) continue;
        if (count == holders.size()) return false;
        holders[count++] = data;
    }
    return own.meshShareCount() == static_cast<long>(count);
}

// The shape's outputs already show the mesh being changed: only what reads them needs telling, and
// whoever listens to inMesh, as a new inMesh value would tell them.
void editInPlace(const NodePtr& shape, MeshData& own, const std::function<void(MeshTopology&)>& edit) {
    const auto tell = [&shape] {
        dirtyConsumers(shape);
        notifyPlugSet(plugOf(shape, meshShapeAttributes().inMesh));
    };
    try {
        edit(own.editSharedMesh());
    } catch (...) {
        tell();
        throw;
    }
    tell();
}

void editOwnMesh(const NodePtr& shape, const std::function<void(MeshTopology&)>& edit) {
    const MeshShapeAttributes& a = meshShapeAttributes();
    const MeshDataPtr own = storedMesh(shape, a.inMesh);
    const VertexTweaks tweaks = VertexTweaks::read(shape, *a.pnts);
    if (tweaks.empty() && onlyTheShapeHolds(shape, *own)) return editInPlace(shape, *own, edit);
    if (tweaks.empty()) {
        releaseComputedShares(shape, *own);
        try {
            edit(own->editMesh());
        } catch (...) {
            // The outputs let go of the mesh: a refused edit must still have them computed again.
            ownMeshChanged(shape);
            throw;
        }
    } else {
        MeshTopology shown = shapeGeometry(shape)->mesh();
        edit(shown);
        tweaks.subtractFrom(shown);
        own->setMesh(std::move(shown));
    }
    ownMeshChanged(shape);
}

}  // namespace

MeshDataPtr shapeGeometry(const NodePtr& shape) {
    const MeshShapeAttributes& a = meshShapeAttributes();
    scene().evaluate(plugOf(shape, a.outMesh));
    return storedMesh(shape, a.outMesh);
}

bool hasHistory(const NodePtr& shape) {
    return scene().sourceOf(plugOf(shape, meshShapeAttributes().inMesh)).has_value();
}

void editShapeGeometry(const NodePtr& shape, const std::function<void(MeshTopology&)>& edit) {
    if (!hasHistory(shape)) return editOwnMesh(shape, edit);
    edit(shapeGeometry(shape)->editMesh());
    dirtyConsumers(shape);
}

void setShapeMesh(const NodePtr& shape, MeshTopology mesh) {
    if (hasHistory(shape))
        throw HostError("mesh: shape '" + shape->name + "' has history; its input would overwrite the mesh");
    storedMesh(shape, meshShapeAttributes().inMesh)->setMesh(std::move(mesh));
    ownMeshChanged(shape);
}

}  // namespace mhost
