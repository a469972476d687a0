#include "graph/NodeType.h"

#include <algorithm>

#include "graph/BuiltinNodeTypes.h"

namespace mhost {
namespace {

const Attribute* findIn(const std::vector<AttributePtr>& attributes, const std::string& name) {
    for (const auto& a : attributes) {
        if (a->longName == name || a->shortName == name) return a.get();
        if (const Attribute* child = findIn(a->children, name)) return child;
    }
    return nullptr;
}

}  // namespace

const Attribute* NodeType::findAttribute(const std::string& name) const { return findIn(attributes, name); }

bool NodeType::isComputed(const Attribute* attribute) const {
    for (const auto& [source, targets] : affects)
        if (std::find(targets.begin(), targets.end(), attribute) != targets.end()) return true;
    return false;
}

bool NodeType::addAttribute(const AttributePtr& attribute) {
    if (!attribute || findAttribute(attribute->longName) || findAttribute(attribute->shortName)) return false;
    for (const auto& child : attribute->children)
        if (findAttribute(child->longName) || findAttribute(child->shortName)) return false;
    attributes.push_back(attribute);
    return true;
}

bool NodeTypeRegistry::add(const NodeTypePtr& type) {
    if (find(type->name) || (type->id != 0 && findById(type->id))) return false;
    types_.push_back(type);
    return true;
}

bool NodeTypeRegistry::remove(const std::string& name) {
    auto it =
        std::find_if(types_.begin(), types_.end(), [&](const NodeTypePtr& t) { return t->name == name; });
    if (it == types_.end()) return false;
    types_.erase(it);
    return true;
}

NodeTypePtr NodeTypeRegistry::find(const std::string& name) const {
    for (const auto& t : types_)
        if (t->name == name) return t;
    return nullptr;
}

NodeTypePtr NodeTypeRegistry::findById(unsigned int id) const {
    for (const auto& t : types_)
        if (t->id == id) return t;
    return nullptr;
}

NodeTypeRegistry& nodeTypes() {
    static NodeTypeRegistry registry = [] {
        NodeTypeRegistry r;
        registerBuiltinNodeTypes(r);
        return r;
    }();
    return registry;
}

}  // namespace mhost
