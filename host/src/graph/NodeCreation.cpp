#include "graph/NodeCreation.h"

#include "graph/ApiBridge.h"

namespace mhost {

MObject createNodeWithTransform(const std::string& typeName, const std::string& name, Node* parent,
                                MStatus& status) {
    NodeTypePtr type = nodeTypes().find(typeName);
    if (!type) {
        status = MS::kInvalidParameter;
        return MObject();
    }
    try {
        if (type->isShape && !parent) {
            NodePtr transform = scene().createNode(nodeTypes().find("transform"), "transform1");
            parent = transform.get();
        }
        NodePtr node = scene().createNode(type, name, type->isDag ? parent : nullptr);
        status = MS::kSuccess;
        return wrapNode(node);
    } catch (const std::exception&) {
        status = MS::kFailure;
        return MObject();
    }
}

}  // namespace mhost
