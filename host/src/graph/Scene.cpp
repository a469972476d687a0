#include "graph/Scene.h"

#include <maya/MDataBlock.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MPxNode.h>
#include <maya/MStringArray.h>

#include <algorithm>
#include <cctype>
#include <unordered_set>

#include "core/Uuid.h"
#include "graph/ApiBridge.h"
#include "graph/DataObject.h"
#include "messages/Notifications.h"

namespace mhost {
namespace {

bool isAncestorOrSelf(const Attribute* ancestor, const Attribute* attribute) {
    for (const Attribute* a = attribute; a; a = a->parent)
        if (a == ancestor) return true;
    return false;
}

std::string stemOf(const std::string& name) {
    size_t end = name.size();
    while (end > 0 && std::isdigit(static_cast<unsigned char>(name[end - 1]))) --end;
    return name.substr(0, end);
}

bool connectable(const Attribute& source, const Attribute& destination, std::string& why) {
    if (!source.readable || !source.connectable)
        why = "the source attribute cannot be read";
    else if (!destination.writable || !destination.connectable)
        why = "the destination attribute is not writable";
    else if ((source.kind == AttributeKind::kMessage) != (destination.kind == AttributeKind::kMessage))
        why = "a message attribute connects only to a message attribute";
    else if (destination.kind == AttributeKind::kTyped && source.kind == AttributeKind::kTyped &&
             source.dataType != destination.dataType)
        why = "the data types differ";
    else if (destination.kind == AttributeKind::kGeneric && source.kind == AttributeKind::kTyped &&
             !destination.acceptsData(source.dataType))
        why = "the destination does not accept that data type";
    else if ((source.kind == AttributeKind::kNumeric) != (destination.kind == AttributeKind::kNumeric) &&
             destination.kind != AttributeKind::kGeneric)
        why = "numeric and data attributes cannot be connected";
    return why.empty();
}

}  // namespace

bool plugsOverlap(const PlugRef& a, const PlugRef& b) {
    if (a.node != b.node) return false;
    const bool related = isAncestorOrSelf(a.key.attribute, b.key.attribute) ||
                         isAncestorOrSelf(b.key.attribute, a.key.attribute);
    return related && (a.key.index == b.key.index || a.key.index == -1 || b.key.index == -1);
}

NodePtr Scene::makeNode(const NodeTypePtr& type, const std::string& requestedName, Node* parent) {
    auto node =
        std::make_shared<Node>(type, uniqueName(requestedName.empty() ? type->name + "1" : requestedName));
    node->uuid = newUuidText();
    node->alive = false;
    if (type->isDag) node->parent = parent;
    if (type->create) {
        MPxNode* behaviour = type->create();
        if (!behaviour) throw HostError("Scene: the creator of node type '" + type->name + "' returned null");
        node->behaviour.reset(behaviour);
        attachBehaviour(*behaviour, *node);
    }
    return node;
}

NodePtr Scene::createNode(const NodeTypePtr& type, const std::string& requestedName, Node* parent) {
    NodePtr node = makeNode(type, requestedName, parent);
    restoreNode(node, {});
    if (node->behaviour) node->behaviour->postConstructor();
    return node;
}

void Scene::detach(const NodePtr& node, std::vector<NodePtr>& removed) {
    for (const auto& child : std::vector<NodePtr>(node->children)) detach(child, removed);
    removed.push_back(node);
}

void Scene::deleteNode(const NodePtr& node) {
    std::vector<NodePtr> removed;
    detach(node, removed);
    if (node->parent) {
        auto& siblings = node->parent->children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), node), siblings.end());
    }
    for (const auto& gone : removed) {
        connections_.erase(std::remove_if(connections_.begin(), connections_.end(),
                                          [&](const Connection& c) {
                                              return c.source.node == gone || c.destination.node == gone;
                                          }),
                           connections_.end());
        nodes_.erase(std::remove(nodes_.begin(), nodes_.end(), gone), nodes_.end());
        gone->alive = false;
        // A deleted dense mesh would otherwise keep its ray hierarchy, often larger than the mesh,
        // for as long as the undo queue keeps the node.
        for (const auto& [key, value] : gone->values)
            if (const DataPtr data = dataOf(value.data)) data->dropDerived();
    }
    notifyRemoval();
}

void Scene::notifyRemoval() const {
    for (const auto& listener : removalListeners_) listener();
}

void Scene::restoreNode(const NodePtr& node, const std::vector<Connection>& connections) {
    std::vector<NodePtr> subtree;
    detach(node, subtree);
    for (const auto& n : subtree) {
        n->alive = true;
        n->name = uniqueName(n->name, n.get());
        nodes_.push_back(n);
    }
    if (node->parent) node->parent->children.push_back(node);
    for (const auto& c : connections) {
        connections_.push_back(c);
        markDirty(c.destination);
    }
}

std::string Scene::rename(const NodePtr& node, const std::string& requestedName) {
    node->name = uniqueName(requestedName, node.get());
    return node->name;
}

MStatus Scene::reparent(const NodePtr& node, Node* newParent) {
    for (Node* p = newParent; p; p = p->parent)
        if (p == node.get()) return MS::kInvalidParameter;
    if (node->parent) {
        auto& siblings = node->parent->children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), node), siblings.end());
    }
    node->parent = newParent;
    if (newParent) newParent->children.push_back(node);
    return MS::kSuccess;
}

// The names in use are gathered once, so that a scene with many nodes of one stem (loose tweak
// nodes, say) does not scan the whole scene for every number tried.
std::string Scene::uniqueName(const std::string& requested, const Node* except) const {
    std::unordered_set<std::string> taken;
    for (const auto& node : nodes_)
        if (node.get() != except) taken.insert(node->name);
    if (!taken.count(requested)) return requested;
    const std::string stem = stemOf(requested);
    for (int n = 1;; ++n) {
        std::string candidate = stem + std::to_string(n);
        if (!taken.count(candidate)) return candidate;
    }
}

NodePtr Scene::findNode(const std::string& name) const {
    for (const auto& node : nodes_)
        if (node->name == name) return node;
    return nullptr;
}

MStatus Scene::connect(const PlugRef& source, const PlugRef& destination, bool force, std::string* error) {
    std::string why;
    if (plugsOverlap(source, destination))
        why = "a plug cannot be connected to itself";
    else
        connectable(*source.key.attribute, *destination.key.attribute, why);
    auto existing = sourceOf(destination);
    if (why.empty() && existing) {
        if (*existing == source)
            why = "the plugs are already connected";
        else if (!force)
            why = "the destination already has an incoming connection";
        else
            disconnect(*existing, destination);
    }
    if (!why.empty()) {
        if (error) *error = why;
        return MS::kFailure;
    }
    connections_.push_back({source, destination});
    markDirty(destination);
    notifyConnectionMade(source, destination);
    return MS::kSuccess;
}

void Scene::notifyConnectionMade(const PlugRef& source, const PlugRef& destination) {
    // The destination's node hears first; what connectionMade returns changes nothing, the
    // connection stands either way.
    if (destination.node->behaviour)
        destination.node->behaviour->connectionMade(makePlug(destination), makePlug(source), false);
    if (source.node->behaviour)
        source.node->behaviour->connectionMade(makePlug(source), makePlug(destination), true);
}

MStatus Scene::disconnect(const PlugRef& source, const PlugRef& destination) {
    auto it = std::find_if(connections_.begin(), connections_.end(), [&](const Connection& c) {
        return c.source == source && c.destination == destination;
    });
    if (it == connections_.end()) return MS::kFailure;
    connections_.erase(it);
    // The destination keeps the last value it pulled, as Maya keeps it after a disconnection.
    return MS::kSuccess;
}

std::optional<PlugRef> Scene::sourceOf(const PlugRef& destination) const {
    for (const auto& c : connections_)
        if (c.destination == destination) return c.source;
    return std::nullopt;
}

std::vector<PlugRef> Scene::destinationsOf(const PlugRef& source) const {
    std::vector<PlugRef> result;
    for (const auto& c : connections_)
        if (c.source == source) result.push_back(c.destination);
    return result;
}

std::vector<Connection> Scene::connectionsOf(const Node& node) const {
    std::vector<Connection> result;
    for (const auto& c : connections_)
        if (c.source.node.get() == &node || c.destination.node.get() == &node) result.push_back(c);
    return result;
}

PlugValue Scene::pullFrom(const PlugRef& source, const PlugRef& destination) {
    PlugValue pulled = evaluate(source);
    if (DataPtr data = dataOf(pulled.data)) pulled.data = wrapData(data->clone());
    store(destination, pulled);
    destination.node->setClean(destination.key);
    return pulled;
}

PlugRef Scene::storageOf(const PlugRef& plug) {
    const Attribute* attribute = plug.key.attribute;
    return attribute->component >= 0 ? PlugRef{plug.node, {attribute->parent, plug.key.index}} : plug;
}

void Scene::store(const PlugRef& plug, const PlugValue& value) {
    Node& node = *plug.node;
    noteValuesEdited(node);
    const int component = plug.key.attribute->component;
    if (component < 0) {
        node.values[plug.key] = value;
        return;
    }
    const PlugKey parentKey = storageOf(plug).key;
    PlugValue whole = node.storedValue(parentKey);
    whole.numbers[component] = value.numbers[0];
    node.values[parentKey] = whole;
}

PlugValue Scene::evaluate(const PlugRef& plug) {
    Node& node = *plug.node;
    const Attribute* attribute = plug.key.attribute;
    if (auto source = sourceOf(plug)) {
        if (node.isDirty(plug.key)) return pullFrom(*source, plug);
    } else if (attribute->component >= 0) {
        PlugValue whole = evaluate(storageOf(plug));
        PlugValue part;
        part.numbers[0] = whole.numbers[attribute->component];
        return part;
    } else if (node.isDirty(plug.key) && node.type->isComputed(attribute) && node.behaviour) {
        MDataBlock block = makeDataBlock(node);
        // kUnknownParameter means "not mine": the stored value stands, as Maya falls back on it.
        node.behaviour->compute(makePlug(plug), block);
        node.setClean(plug.key);
    }
    return storedComponent(plug);
}

PlugValue Scene::storedComponent(const PlugRef& plug) const {
    const int component = plug.key.attribute->component;
    if (component < 0) return plug.node->storedValue(plug.key);
    PlugValue part;
    part.numbers[0] = plug.node->storedValue(storageOf(plug).key).numbers[component];
    return part;
}

void Scene::setValue(const PlugRef& plug, const PlugValue& value) {
    store(plug, value);
    plug.node->setClean(plug.key);
    std::vector<PlugRef> visited{plug};
    dirtyWithinNode(plug, visited);
    for (const PlugRef& destination : destinationsFedBy(plug)) propagateDirty(destination, visited);
    notifyPlugSet(plug);
}

// Taken before any is dirtied, so that what dirtying runs (plug-in callbacks) cannot change the list
// being walked; only the matching connections are copied.
std::vector<PlugRef> Scene::destinationsFedBy(const PlugRef& plug) const {
    std::vector<PlugRef> destinations;
    for (const Connection& c : connections_)
        if (plugsOverlap(c.source, plug)) destinations.push_back(c.destination);
    return destinations;
}

void Scene::setActiveSelection(const MSelectionList& selection) {
    MStringArray before, after;
    settings.activeSelection.getSelectionStrings(before);
    selection.getSelectionStrings(after);
    settings.activeSelection = selection;
    bool changed = before.length() != after.length();
    for (unsigned int i = 0; !changed && i < after.length(); ++i) changed = before[i] != after[i];
    if (changed) notifyEvent("SelectionChanged");
}

void Scene::markDirty(const PlugRef& plug) {
    std::vector<PlugRef> visited;
    propagateDirty(plug, visited);
}

void Scene::propagateDirty(const PlugRef& plug, std::vector<PlugRef>& visited) {
    if (std::find(visited.begin(), visited.end(), plug) != visited.end()) return;
    visited.push_back(plug);
    plug.node->dirty.insert(plug.key);
    noteValuesEdited(*plug.node);
    dirtyWithinNode(plug, visited);
    for (const PlugRef& destination : destinationsFedBy(plug)) propagateDirty(destination, visited);
}

void Scene::dirtyWithinNode(const PlugRef& plug, std::vector<PlugRef>& visited) {
    const NodeType& type = *plug.node->type;
    std::vector<PlugRef> affected;
    for (const Attribute* a = plug.key.attribute; a; a = a->parent) {
        auto it = type.affects.find(a);
        if (it == type.affects.end()) continue;
        for (const Attribute* target : it->second) affected.push_back({plug.node, {target, -1}});
    }
    if (plug.node->behaviour) {
        MPlugArray extra;
        plug.node->behaviour->setDependentsDirty(makePlug(plug), extra);
        for (unsigned int i = 0; i < extra.length(); ++i) affected.push_back(hostPlugOf(extra[i]));
    }
    for (const auto& target : affected) propagateDirty(target, visited);
}

void Scene::clear() {
    settings = SceneSettings();
    connections_.clear();
    for (const auto& node : nodes_) node->alive = false;
    nodes_.clear();
    notifyRemoval();
}

Scene& scene() {
    static Scene instance;
    return instance;
}

}  // namespace mhost
