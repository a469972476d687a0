#pragma once
// A node of the scene: its type, name and identity, stored plug values and dirty flags, its
// behaviour object (the MPxNode of plug-in nodes, or a built-in one), and for DAG nodes its place
// in the hierarchy.

#include <maya/MMatrix.h>

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "graph/NodeType.h"
#include "graph/PlugValue.h"

class MPxNode;

namespace mhost {

class Node : public ApiObject {
public:
    Node(NodeTypePtr type, std::string name);
    ~Node() override;

    MFn::Type apiType() const override { return type->apiType; }
    // Plug-in nodes of every kind also answer to kPluginDependNode, as in Maya.
    bool hasFn(MFn::Type fn) const override;

    NodeTypePtr type;
    std::string name;
    std::string uuid;
    bool alive = true;
    std::unique_ptr<MPxNode> behaviour;

    std::map<PlugKey, PlugValue> values;
    std::set<PlugKey> dirty;
    std::set<PlugKey> locked;

    // DAG hierarchy: a null parent means the node sits under the world.
    Node* parent = nullptr;
    std::vector<std::shared_ptr<Node>> children;

    // A transform's own matrix, and the identity times it (what a path starting at this transform
    // begins with), kept from the last time they were composed while no transform's values have
    // changed since (see transformEditCount).
    MMatrix cachedLocalMatrix, cachedIdentityTimesLocal;
    std::uint64_t cachedLocalMatrixEdit = 0;

    // Counts the changes to this node's values and dirty flags (see noteValuesEdited): what is derived
    // from them is current while the count stays where it was.
    std::uint64_t valueEdits = 0;

    // The stored value of a plug, or the attribute's default when nothing was stored.
    PlugValue storedValue(const PlugKey& key) const;
    // Whether the plug, its whole array or an ancestor plug is flagged dirty.
    bool isDirty(const PlugKey& key) const;
    // Clears the dirty flag of the plug (and of every element when it is an array plug).
    void setClean(const PlugKey& key);
    // Logical indices of the elements of an array attribute that hold a value, ascending.
    std::vector<int> existingIndices(const Attribute* attribute) const;
    // The node as an MObject-ready shared pointer.
    std::shared_ptr<Node> self() { return std::static_pointer_cast<Node>(shared_from_this()); }
};

using NodePtr = std::shared_ptr<Node>;

// Counts the changes to values and dirty flags of transform nodes. Anything derived from them (local
// and world matrices) is current while the count stays where it was when it was derived.
std::uint64_t transformEditCount();
// To be called whenever a node's stored values or dirty flags change; counts it for the node, and for
// transforms also in transformEditCount.
void noteValuesEdited(Node& node);

// The node an MObject holds, or null (also for an MObject of another kind).
NodePtr nodeOf(const MObject& object);
// The live node an MObject holds; null for deleted nodes too.
NodePtr liveNodeOf(const MObject& object);
// The default value of an attribute, as a plug reads it before anything is stored.
PlugValue defaultValue(const Attribute& attribute);

}  // namespace mhost
