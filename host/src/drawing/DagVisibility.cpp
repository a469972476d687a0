#include "drawing/DagVisibility.h"

#include "graph/Scene.h"

namespace mhost {
namespace {

bool flagIsSet(const NodePtr& node, const char* attributeName) {
    const Attribute* attribute = node->type->findAttribute(attributeName);
    return attribute && scene().evaluate({node, {attribute, -1}}).numbers[0] != 0.0;
}

}  // namespace

bool isDrawn(const NodePtr& node) {
    if (!node->alive || !node->type->isDag || flagIsSet(node, "intermediateObject")) return false;
    for (Node* n = node.get(); n; n = n->parent)
        if (!flagIsSet(n->self(), "visibility")) return false;
    return true;
}

}  // namespace mhost
