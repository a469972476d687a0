#pragma once
// A node type: its name, id, MFn type, static attributes and attribute dependencies, and how to make
// the behaviour object (an MPxNode) of a new node. Built-in types and plug-in types share this form.

#include <maya/MBoundingBox.h>
#include <maya/MFn.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "graph/Attribute.h"

class MPxNode;

namespace mhost {

struct NodeType {
    std::string name;
    unsigned int id = 0;
    MFn::Type apiType = MFn::kDependencyNode;
    bool isDag = false;
    bool isShape = false;
    bool isPlugin = false;
    std::string classification;
    // Name of the plug-in that registered the type; empty for built-in types.
    std::string owner;
    // Makes the behaviour object of a new node; may return null for nodes that compute nothing.
    std::function<MPxNode*()> create;
    // Object-space bounds of a node of this type; unset for types without geometry.
    std::function<MBoundingBox(const std::shared_ptr<class Node>&)> bounds;
    // Parses a component name such as "vtx[3]" or "e[0:4]" of a node of this type into a component
    // object; unset (or a null result) when the type has no such components.
    std::function<MObject(const std::shared_ptr<class Node>&, const std::string&)> component;

    // Static attributes in the order they were added (top-level ones; children hang below them).
    std::vector<AttributePtr> attributes;
    // attributeAffects: for each attribute, the attributes it dirties, in the order declared.
    std::map<const Attribute*, std::vector<const Attribute*>> affects;

    // Finds an attribute by long or short name, children included; null when absent.
    const Attribute* findAttribute(const std::string& name) const;
    // Whether some attribute affects this one, i.e. whether it is computed.
    bool isComputed(const Attribute* attribute) const;
    // Adds a top-level attribute; fails (false) when its long or short name is taken.
    bool addAttribute(const AttributePtr& attribute);
};

using NodeTypePtr = std::shared_ptr<NodeType>;

// All known node types, by name and by id.
class NodeTypeRegistry {
public:
    // False when the name or a non-zero id is taken.
    bool add(const NodeTypePtr& type);
    bool remove(const std::string& name);
    NodeTypePtr find(const std::string& name) const;
    NodeTypePtr findById(unsigned int id) const;
    std::vector<NodeTypePtr> all() const { return types_; }

    // The type whose static initialiser is running: MPxNode::addAttribute and attributeAffects
    // apply to it.
    NodeTypePtr initializing;

private:
    std::vector<NodeTypePtr> types_;
};

NodeTypeRegistry& nodeTypes();

}  // namespace mhost
