#include "scenefile/SceneReader.h"

#include <maya/MSelectionList.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "commands/OptionVars.h"
#include "commands/UndoQueue.h"
#include "graph/Scene.h"
#include "interaction/ActiveView.h"
#include "interaction/CameraNode.h"
#include "scenefile/DataSerializers.h"
#include "scenefile/SceneFormat.h"

namespace mhost {
namespace {

using json = nlohmann::json;

// The document, checked and resolved against the registered types, ready to be built.
struct PlannedValue {
    PlugKey key;
    PlugValue value;
};

struct PlannedNode {
    std::string name;
    std::string uuid;
    std::string parent;
    NodeTypePtr type;
    std::vector<PlannedValue> values;
};

struct PlannedPlug {
    std::string node;
    PlugKey key;
};

struct ScenePlan {
    std::vector<PlannedNode> nodes;
    std::vector<std::pair<PlannedPlug, PlannedPlug>> connections;
    std::vector<std::string> selection;
    std::map<std::string, CommandResult> optionVars;
    std::string viewCamera;  // empty: the view keeps no camera
};

[[noreturn]] void fail(const std::string& what) { throw HostError("scene file: " + what); }

const Attribute* attributeOf(const NodeType& type, const std::string& nodeName, const std::string& name) {
    const Attribute* attribute = type.findAttribute(name);
    if (!attribute)
        fail("node '" + nodeName + "' of type '" + type.name + "' has no attribute '" + name + "'");
    return attribute;
}

// The entries under `key`, which must be a list (iterating anything else would walk its members).
const json& listAt(const json& document, const char* key, const std::string& where) {
    const json& list = document.at(key);
    if (!list.is_array()) fail(where + "\"" + key + "\" must be a list");
    return list;
}

DataPtr dataFromJson(const json& entry, const Attribute& attribute, const std::string& plugName) {
    const std::string typeName = entry.at("type").get<std::string>();
    const DataSerializer* serializer = dataSerializers().findByName(typeName);
    if (!serializer) fail("unknown data type '" + typeName + "'");
    if (!attribute.acceptsData(serializer->type))
        fail(plugName + " does not take data of type '" + typeName + "'");
    return serializer->read(entry.at("value"));
}

// An element index, where given, must be a logical index of an array attribute (or of a child of one).
PlugKey keyOf(const NodeType& type, const std::string& nodeName, const json& entry) {
    PlugKey key;
    key.attribute = attributeOf(type, nodeName, entry.at("attribute").get<std::string>());
    key.index = entry.value("index", -1);
    if (entry.contains("index") && (key.index < 0 || !key.attribute->arrayAncestor()))
        fail(nodeName + "." + key.attribute->longName + " has an index but is not an array element");
    return key;
}

PlannedValue planValue(const NodeType& type, const std::string& nodeName, const json& entry) {
    PlannedValue planned;
    planned.key = keyOf(type, nodeName, entry);
    const std::string plugName = nodeName + "." + planned.key.attribute->longName;
    if (entry.contains("numbers")) {
        const auto numbers = entry.at("numbers").get<std::vector<double>>();
        if (numbers.size() > planned.value.numbers.size()) fail("too many numbers for " + plugName);
        std::copy(numbers.begin(), numbers.end(), planned.value.numbers.begin());
    }
    if (entry.contains("data"))
        planned.value.data = wrapData(dataFromJson(entry.at("data"), *planned.key.attribute, plugName));
    return planned;
}

PlannedNode planNode(const json& entry, const std::set<std::string>& earlier) {
    PlannedNode planned;
    planned.name = entry.at("name").get<std::string>();
    planned.uuid = entry.value("uuid", std::string());
    planned.parent = entry.value("parent", std::string());
    const std::string typeName = entry.at("type").get<std::string>();
    planned.type = nodeTypes().find(typeName);
    if (!planned.type)
        fail("node '" + planned.name + "' is of the unknown type '" + typeName +
             "'; load the plug-in that provides it first");
    if (planned.name.empty() || earlier.count(planned.name))
        fail("the node name '" + planned.name + "' is not unique");
    if (!planned.parent.empty() && !earlier.count(planned.parent))
        fail("the parent '" + planned.parent + "' of '" + planned.name + "' does not come before it");
    for (const auto& value : listAt(entry, "values", "node '" + planned.name + "': "))
        planned.values.push_back(planValue(*planned.type, planned.name, value));
    return planned;
}

// Reads one entry of a list, naming the entry in any fault of its own (a missing key, a wrong type, a
// value the data serializer refuses).
template <typename Read>
auto planEntry(const char* list, size_t index, Read read) {
    try {
        return read();
    } catch (const HostError&) {
        throw;
    } catch (const std::exception& e) {
        fail(std::string(list) + "[" + std::to_string(index) + "]: " + e.what());
    }
}

PlannedPlug planPlug(const json& entry, const std::map<std::string, NodeTypePtr>& types) {
    PlannedPlug planned;
    planned.node = entry.at("node").get<std::string>();
    auto type = types.find(planned.node);
    if (type == types.end()) fail("a connection names the unknown node '" + planned.node + "'");
    planned.key = keyOf(*type->second, planned.node, entry);
    return planned;
}

CommandResult optionVarFromJson(const json& entry) {
    const std::string kind = entry.at("kind").get<std::string>();
    CommandResult value;
    if (kind == "int")
        value.set(entry.at("value").get<int>());
    else if (kind == "double")
        value.set(entry.at("value").get<double>());
    else if (kind == "string")
        value.set(entry.at("value").get<std::string>());
    else if (kind == "intArray")
        value.set(entry.at("value").get<std::vector<int>>());
    else if (kind == "doubleArray")
        value.set(entry.at("value").get<std::vector<double>>());
    else if (kind == "stringArray")
        value.set(entry.at("value").get<std::vector<std::string>>());
    else if (kind != "none")
        fail("unknown option variable kind '" + kind + "'");
    return value;
}

ScenePlan planScene(const json& document) {
    if (document.value("format", std::string()) != scenefile::kFormatName ||
        document.value("version", 0) != scenefile::kFormatVersion)
        fail("not a scene file of this host (format " + std::string(scenefile::kFormatName) + " version " +
             std::to_string(scenefile::kFormatVersion) + ")");
    ScenePlan plan;
    std::set<std::string> names;
    std::map<std::string, NodeTypePtr> types;
    const json& nodes = listAt(document, "nodes", "");
    for (size_t i = 0; i < nodes.size(); ++i) {
        plan.nodes.push_back(planEntry("nodes", i, [&] { return planNode(nodes[i], names); }));
        names.insert(plan.nodes.back().name);
        types[plan.nodes.back().name] = plan.nodes.back().type;
    }
    const json& connections = listAt(document, "connections", "");
    for (size_t i = 0; i < connections.size(); ++i)
        plan.connections.push_back(planEntry("connections", i, [&] {
            return std::make_pair(planPlug(connections[i].at("source"), types),
                                  planPlug(connections[i].at("destination"), types));
        }));
    plan.selection = document.at("selection").get<std::vector<std::string>>();
    if (!document.at("optionVars").is_object()) fail("\"optionVars\" must be an object");
    for (const auto& item : document.at("optionVars").items()) {
        try {
            plan.optionVars[item.key()] = optionVarFromJson(item.value());
        } catch (const json::exception& e) {
            fail("option variable '" + item.key() + "': " + e.what());
        }
    }
    plan.viewCamera = document.value("viewCamera", std::string());
    if (!plan.viewCamera.empty() &&
        (!types.count(plan.viewCamera) || types.at(plan.viewCamera)->apiType != MFn::kCamera))
        fail("the view's camera '" + plan.viewCamera + "' is not a camera of the file");
    return plan;
}

PlugRef plugOf(const PlannedPlug& plug, const std::map<std::string, NodePtr>& made) {
    return {made.at(plug.node), plug.key};
}

void buildNodes(const ScenePlan& plan, std::map<std::string, NodePtr>& made) {
    for (const auto& planned : plan.nodes) {
        Node* parent = planned.parent.empty() ? nullptr : made.at(planned.parent).get();
        NodePtr node = scene().createNode(planned.type, planned.name, parent);
        if (!planned.uuid.empty()) node->uuid = planned.uuid;
        made[planned.name] = node;
        for (const auto& value : planned.values) scene().setValue({node, value.key}, value.value);
    }
}

void buildConnections(const ScenePlan& plan, const std::map<std::string, NodePtr>& made) {
    for (const auto& [source, destination] : plan.connections) {
        std::string why;
        if (!scene().connect(plugOf(source, made), plugOf(destination, made), false, &why))
            fail("cannot connect " + source.node + "." + source.key.attribute->longName + " to " +
                 destination.node + "." + destination.key.attribute->longName + ": " + why);
    }
}

void buildSelection(const ScenePlan& plan) {
    MSelectionList selection;
    for (const auto& name : plan.selection)
        if (!selection.add(MString(name.c_str()))) fail("cannot select '" + name + "'");
    scene().setActiveSelection(selection);
}

ScenePlan checkedPlan(const json& document) {
    try {
        return planScene(document);
    } catch (const json::exception& e) {
        fail(std::string("malformed document: ") + e.what());
    }
}

}  // namespace

void checkSceneJson(const json& document) { checkedPlan(document); }

void loadSceneFromJson(const json& document) {
    const ScenePlan plan = checkedPlan(document);
    undoQueue().clear();
    scene().clear();
    std::map<std::string, NodePtr> made;
    buildNodes(plan, made);
    buildConnections(plan, made);
    buildSelection(plan);
    optionVars().clear();
    for (const auto& [name, value] : plan.optionVars) optionVars().set(name, value);
    if (!plan.viewCamera.empty()) activeView().setCamera(made.at(plan.viewCamera));
}

}  // namespace mhost
