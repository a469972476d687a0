#pragma once
// The scene: every live node in creation order, unique names, the connections between plugs, dirty
// propagation and pull evaluation. One scene per process, as in Maya.

#include <maya/MSelectionList.h>
#include <maya/MStatus.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "graph/Node.h"

namespace mhost {

// A plug of a live node.
struct PlugRef {
    NodePtr node;
    PlugKey key;

    bool operator==(const PlugRef& o) const { return node == o.node && key == o.key; }
};

// Scene-wide state that is not a node: the active selection and the modelling preferences.
struct SceneSettings {
    MSelectionList activeSelection;
    bool constructionHistory = true;    // "constructionHistory -toggle"
    std::string selectMode = "object";  // "changeSelectMode"
};

struct Connection {
    PlugRef source;
    PlugRef destination;
};

class Scene {
public:
    // Creates a node of the type under `parent` (DAG nodes; null = under the world), named after
    // `requestedName` made unique (or after the type when empty). Runs the behaviour's creator and
    // postConstructor. Throws HostError when the type cannot be created.
    NodePtr createNode(const NodeTypePtr& type, const std::string& requestedName, Node* parent = nullptr);
    // Makes a node and its behaviour without putting it in the scene (MDGModifier creates this way
    // and inserts at doIt). The parent link is set but the parent does not list it yet.
    NodePtr makeNode(const NodeTypePtr& type, const std::string& requestedName, Node* parent = nullptr);
    // Removes a node, its DAG children and every connection touching them, then tells the removal
    // listeners.
    void deleteNode(const NodePtr& node);
    // Called after every deleteNode and clear, so that what the host keeps per node (draw
    // overrides) goes with the node rather than at some later frame.
    void addRemovalListener(std::function<void()> listener) {
        removalListeners_.push_back(std::move(listener));
    }
    // Puts a node made by makeNode, or removed by deleteNode (undo), into the scene with its DAG
    // children and the connections given; a name taken meanwhile is made unique.
    void restoreNode(const NodePtr& node, const std::vector<Connection>& connections);
    // Renames a node to the requested name made unique; returns the name given.
    std::string rename(const NodePtr& node, const std::string& requestedName);
    // Moves a DAG node under a new parent (null = the world). Fails on cycles.
    MStatus reparent(const NodePtr& node, Node* newParent);

    // `requested` if no other node has it, else the stem (trailing digits removed) with the lowest
    // free number from 1 up.
    std::string uniqueName(const std::string& requested, const Node* except = nullptr) const;
    NodePtr findNode(const std::string& name) const;
    const std::vector<NodePtr>& nodes() const { return nodes_; }

    // Connects source to destination. Fails when the destination has a source already (unless
    // `force`), when the plugs are the same, or their types cannot be connected. A new connection
    // is told to both nodes' connectionMade, the destination's first.
    MStatus connect(const PlugRef& source, const PlugRef& destination, bool force,
                    std::string* error = nullptr);
    MStatus disconnect(const PlugRef& source, const PlugRef& destination);
    std::optional<PlugRef> sourceOf(const PlugRef& destination) const;
    std::vector<PlugRef> destinationsOf(const PlugRef& source) const;
    // Connections that touch the node, as source or destination.
    std::vector<Connection> connectionsOf(const Node& node) const;

    // Pull evaluation: the value the plug has now, computing or pulling through connections when
    // it is dirty.
    PlugValue evaluate(const PlugRef& plug);
    // Stores a value in the plug, dirties everything downstream and tells the attribute-changed
    // callbacks of the plug's node.
    void setValue(const PlugRef& plug, const PlugValue& value);
    // Replaces settings.activeSelection; sends "SelectionChanged" when its items differ from before.
    void setActiveSelection(const MSelectionList& selection);
    // The plug whose stored value holds this plug's: the parent for a child of a numeric compound
    // (whose values live in the parent's components), the plug itself otherwise.
    static PlugRef storageOf(const PlugRef& plug);
    // The stored value of a plug, without evaluating; a numeric child reads its component.
    PlugValue storedComponent(const PlugRef& plug) const;
    // Flags the plug and everything downstream of it dirty (attributeAffects, setDependentsDirty
    // and connections).
    void markDirty(const PlugRef& plug);

    // Removes every node and connection, and resets the settings; then tells the removal listeners.
    void clear();

    SceneSettings settings;

private:
    void notifyConnectionMade(const PlugRef& source, const PlugRef& destination);
    void propagateDirty(const PlugRef& plug, std::vector<PlugRef>& visited);
    // The destinations of every connection whose source overlaps the plug, in connection order.
    std::vector<PlugRef> destinationsFedBy(const PlugRef& plug) const;
    void dirtyWithinNode(const PlugRef& plug, std::vector<PlugRef>& visited);
    PlugValue pullFrom(const PlugRef& source, const PlugRef& destination);
    // Writes a value where the plug keeps it (see storageOf), without dirtying anything.
    void store(const PlugRef& plug, const PlugValue& value);
    void detach(const NodePtr& node, std::vector<NodePtr>& removed);

    void notifyRemoval() const;

    std::vector<NodePtr> nodes_;
    std::vector<Connection> connections_;
    std::vector<std::function<void()>> removalListeners_;
};

Scene& scene();

// Whether two plugs overlap: the same plug, an array and one of its elements, or a compound and one
// of its children.
bool plugsOverlap(const PlugRef& a, const PlugRef& b);

}  // namespace mhost
