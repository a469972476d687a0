#include "scenefile/SceneReader.h"

#include <maya/MSelectionList.h>

#include <map>
#include <nlohmann/json.hpp>
#include <set>

#include "commands/OptionVars.h"
#include "commands/UndoQueue.h"
#include "graph/Scene.h"
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
};

[[noreturn]] void fail(const std::string& what) { throw HostError("scene file: " + what); }

const Attribute* attributeOf(const NodeType& type, const std::string& nodeName, const std::string& name) {
    const Attribute* attribute = type.findAttribute(name);
    if (!attribute)
        fail("node '" + nodeName + "' of type '" + type.name + "' has no attribute '" + name + "'");
    return attribute;
}

DataPtr dataFromJson(const json& entry) {
    const std::string typeName = entry.at("type").get<std::string>();
    const DataSerializer* serializer = dataSerializers().findByName(typeName);
    if (!serializer) fail("unknown data type '" + typeName + "'");
    return serializer->read(entry.at("value"));
}

PlannedValue planValue(const NodeType& type, const std::string& nodeName, const json& entry) {
    PlannedValue planned;
    planned.key.attribute = attributeOf(type, nodeName, entry.at("attribute").get<std::string>());
    planned.key.index = entry.value("index", -1);
    if (entry.contains("numbers")) {
        const auto numbers = entry.at("numbers").get<std::vector<double>>();
        if (numbers.size() > planned.value.numbers.size()) fail("too many numbers for " + nodeName);
        std::copy(numbers.begin(), numbers.end(), planned.value.numbers.begin());
    }
    if (entry.contains("data")) planned.value.data = wrapData(dataFromJson(entry.at("data")));
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
    for (const auto& value : entry.at("values"))
        planned.values.push_back(planValue(*planned.type, planned.name, value));
    return planned;
}

PlannedPlug planPlug(const json& entry, const std::map<std::string, NodeTypePtr>& types) {
    PlannedPlug planned;
    planned.node = entry.at("node").get<std::string>();
    auto type = types.find(planned.node);
    if (type == types.end()) fail("a connection names the unknown node '" + planned.node + "'");
    planned.key.attribute =
        attributeOf(*type->second, planned.node, entry.at("attribute").get<std::string>());
    planned.key.index = entry.value("index", -1);
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
    for (const auto& entry : document.at("nodes")) {
        plan.nodes.push_back(planNode(entry, names));
        names.insert(plan.nodes.back().name);
        types[plan.nodes.back().name] = plan.nodes.back().type;
    }
    for (const auto& entry : document.at("connections"))
        plan.connections.emplace_back(planPlug(entry.at("source"), types),
                                      planPlug(entry.at("destination"), types));
    plan.selection = document.at("selection").get<std::vector<std::string>>();
    for (const auto& [name, entry] : document.at("optionVars").items())
        plan.optionVars[name] = optionVarFromJson(entry);
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

}  // namespace

void loadSceneFromJson(const json& document) {
    ScenePlan plan;
    try {
        plan = planScene(document);
    } catch (const json::exception& e) {
        fail(std::string("malformed document: ") + e.what());
    }
    undoQueue().clear();
    scene().clear();
    std::map<std::string, NodePtr> made;
    buildNodes(plan, made);
    buildConnections(plan, made);
    buildSelection(plan);
    optionVars().clear();
    for (const auto& [name, value] : plan.optionVars) optionVars().set(name, value);
}

}  // namespace mhost
