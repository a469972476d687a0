#include "graph/NameLookup.h"

#include <cstdlib>

#include "graph/ApiBridge.h"
#include "graph/ComponentObject.h"

namespace mhost {
namespace {

// Splits "name[3]" into "name" and 3; index -1 when there is no bracket. False on a malformed index.
bool splitIndex(const std::string& piece, std::string& name, int& index) {
    const size_t open = piece.find('[');
    index = -1;
    name = piece.substr(0, open);
    if (open == std::string::npos) return true;
    if (piece.back() != ']') return false;
    const std::string digits = piece.substr(open + 1, piece.size() - open - 2);
    char* end = nullptr;
    const long value = std::strtol(digits.c_str(), &end, 10);
    if (digits.empty() || *end || value < 0) return false;
    index = static_cast<int>(value);
    return true;
}

std::vector<std::string> splitDots(const std::string& path) {
    std::vector<std::string> pieces;
    size_t from = 0;
    for (size_t dot; (dot = path.find('.', from)) != std::string::npos; from = dot + 1)
        pieces.push_back(path.substr(from, dot - from));
    pieces.push_back(path.substr(from));
    return pieces;
}

MObject componentOf(const NodePtr& node, const std::string& text) {
    if (node->type->component) return node->type->component(node, text);
    return MObject();
}

// A component named through a transform refers to the transform's one shape.
NameMatch matchComponent(const NodePtr& node, const std::string& rest) {
    MObject component = componentOf(node, rest);
    if (!component.isNull()) return {node, MPlug(), component};
    if (node->type->isDag && !node->type->isShape && node->children.size() == 1) {
        component = componentOf(node->children.front(), rest);
        if (!component.isNull()) return {node->children.front(), MPlug(), component};
    }
    return {};
}

}  // namespace

NodePtr lookUpNode(const std::string& name) {
    if (name.empty() || name[0] != '|') return scene().findNode(name);
    // A full path: each name must be a child of the previous one.
    Node* parent = nullptr;
    NodePtr found;
    size_t from = 1;
    while (from <= name.size()) {
        size_t bar = name.find('|', from);
        std::string piece = name.substr(from, bar == std::string::npos ? std::string::npos : bar - from);
        found = scene().findNode(piece);
        if (!found || found->parent != parent) return nullptr;
        parent = found.get();
        if (bar == std::string::npos) break;
        from = bar + 1;
    }
    return found;
}

MPlug lookUpPlug(const NodePtr& node, const std::string& attributePath) {
    const Attribute* attribute = nullptr;
    int index = -1;
    for (const std::string& piece : splitDots(attributePath)) {
        std::string name;
        int pieceIndex = -1;
        if (!splitIndex(piece, name, pieceIndex)) return MPlug();
        const Attribute* next = node->type->findAttribute(name);
        // A child may be named alone ("node.tx"), since attribute names are unique within a node.
        if (!next || (attribute && next->parent != attribute)) return MPlug();
        if (pieceIndex >= 0 && !next->array) return MPlug();
        if (pieceIndex >= 0) index = pieceIndex;
        attribute = next;
    }
    return attribute ? MPlug(PlugRef{node, {attribute, index}}) : MPlug();
}

NameMatch lookUpName(const std::string& text) {
    const size_t dot = text.find('.');
    NodePtr node = lookUpNode(text.substr(0, dot));
    if (!node) return {};
    if (dot == std::string::npos) return {node, MPlug(), MObject()};
    const std::string rest = text.substr(dot + 1);
    NameMatch component = matchComponent(node, rest);
    if (component.node) return component;
    MPlug plug = lookUpPlug(node, rest);
    if (plug.isNull()) return {};
    return {node, plug, MObject()};
}

std::string componentSuffix(const MObject& component) {
    auto object = std::dynamic_pointer_cast<ComponentObject>(component.hostObject());
    return object ? object->selectionSuffix() : std::string();
}

}  // namespace mhost
