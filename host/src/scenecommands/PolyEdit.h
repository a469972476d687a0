#pragma once
// One modelling edit (merge, bridge, split) of a mesh shape, made and undone as a whole.
//
// Design note. A shape with history gets a history node of the edit's kind between its upstream
// node and its inMesh, as Maya inserts one; stored pnts tweaks first move onto a new polyTweak node
// above it, since the edit may renumber the vertices they belong to. The nodes and connections go
// through a modifier, and the shape's pnts values are kept before and after: undo and redo flip the
// graph between two whole states, and the meshes follow by evaluation. A shape without history has its
// own mesh replaced by the edited mesh it shows, tweaks baked in, whatever the construction history
// toggle says; undo and redo write the whole meshes and pnts values of before and after back.

#include <maya/MDGModifier.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "graph/Node.h"
#include "mesh/MeshTopology.h"
#include "polymodifiers/PolyModifierKind.h"
#include "scenecommands/StoredTweaks.h"

namespace mhost {

class PolyEdit {
public:
    // Checks the edit against the mesh the shape shows, then makes it. `resultName` receives the new
    // history node's name, or the shape's name when the shape has no history. When the edit does not
    // fit the mesh, logs "<command>: <reason>", fails with kInvalidParameter and changes nothing.
    MStatus apply(const std::string& command, const NodePtr& shape, const PolyModifierKind& kind,
                  const std::vector<int>& components, const PolyModifierValues& values,
                  std::string& resultName);
    MStatus undo();
    MStatus redo();

private:
    MStatus insertHistoryNode(const PolyModifierKind& kind, const std::vector<int>& components,
                              const PolyModifierValues& values, std::string& resultName);
    MStatus queueConnections(const NodePtr& tweak, const NodePtr& node);
    NodePtr createTweakNode();

    NodePtr shape_;
    StoredTweaks tweaksBefore_;
    StoredTweaks tweaksAfter_;
    // A shape with history: the graph edits.
    std::unique_ptr<MDGModifier> modifier_;
    // A shape without history: its own mesh before and after.
    std::optional<MeshTopology> ownBefore_;
    std::optional<MeshTopology> ownAfter_;
};

}  // namespace mhost
