#include "meshnode/MeshNodeTypes.h"

#include "graph/NodeType.h"
#include "meshnode/MeshShapeNode.h"
#include "meshnode/PolyTweakNode.h"

namespace mhost {

void registerMeshNodeTypes(NodeTypeRegistry& registry) {
    registry.add(makeMeshShapeType());
    registry.add(makePolyTweakType());
}

}  // namespace mhost
