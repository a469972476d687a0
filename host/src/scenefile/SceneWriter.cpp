#include "scenefile/SceneWriter.h"

#include <maya/MStringArray.h>

#include <algorithm>
#include <nlohmann/json.hpp>

#include "commands/OptionVars.h"
#include "graph/DataObject.h"
#include "graph/Scene.h"
#include "interaction/ActiveView.h"
#include "scenefile/DataSerializers.h"
#include "scenefile/SceneFormat.h"

namespace mhost {
namespace {

using json = nlohmann::json;

bool isStorable(const Attribute* attribute) {
    for (const Attribute* a = attribute; a; a = a->parent)
        if (!a->storable) return false;
    return attribute->kind != AttributeKind::kMessage;
}

bool isFedByConnection(const PlugRef& plug) {
    for (const auto& c : scene().connectionsOf(*plug.node))
        if (plugsOverlap(c.destination, plug)) return true;
    return false;
}

json dataToJson(const DataObject& data, const std::string& plugName) {
    const DataSerializer* serializer = dataSerializers().find(data.dataType());
    if (!serializer)
        throw HostError("scene file: " + plugName + " holds data of type " + std::to_string(data.dataType()) +
                        ", which has no serializer");
    return {{"type", serializer->name}, {"value", serializer->write(data)}};
}

json valueToJson(const Node& node, const PlugKey& key, const PlugValue& value) {
    json entry = {{"attribute", key.attribute->longName}};
    if (key.index >= 0) entry["index"] = key.index;
    if (key.attribute->kind == AttributeKind::kNumeric) {
        const int count = std::max(1, key.attribute->componentCount());
        entry["numbers"] = std::vector<double>(value.numbers.begin(), value.numbers.begin() + count);
    }
    if (DataPtr data = dataOf(value.data))
        entry["data"] = dataToJson(*data, node.name + "." + key.attribute->longName);
    return entry;
}

json valuesToJson(const NodePtr& node) {
    std::vector<std::pair<PlugKey, PlugValue>> stored;
    for (const auto& [key, value] : node->values)
        if (isStorable(key.attribute) && !isFedByConnection({node, key})) stored.emplace_back(key, value);
    // By attribute name, then index, so that the same scene always gives the same file.
    std::sort(stored.begin(), stored.end(), [](const auto& a, const auto& b) {
        return std::make_pair(a.first.attribute->longName, a.first.index) <
               std::make_pair(b.first.attribute->longName, b.first.index);
    });
    json values = json::array();
    for (const auto& [key, value] : stored) values.push_back(valueToJson(*node, key, value));
    return values;
}

json nodeToJson(const NodePtr& node) {
    json entry = {{"name", node->name}, {"type", node->type->name}, {"uuid", node->uuid}};
    if (node->parent) entry["parent"] = node->parent->name;
    entry["values"] = valuesToJson(node);
    return entry;
}

// A node, then its DAG children in their order, depth first.
void appendWithChildren(const NodePtr& node, json& nodes) {
    nodes.push_back(nodeToJson(node));
    for (const auto& child : node->children) appendWithChildren(child, nodes);
}

json plugToJson(const PlugRef& plug) {
    json entry = {{"node", plug.node->name}, {"attribute", plug.key.attribute->longName}};
    if (plug.key.index >= 0) entry["index"] = plug.key.index;
    return entry;
}

json connectionsToJson() {
    json connections = json::array();
    for (const auto& node : scene().nodes())
        for (const auto& c : scene().connectionsOf(*node))
            if (c.destination.node == node)
                connections.push_back(
                    {{"source", plugToJson(c.source)}, {"destination", plugToJson(c.destination)}});
    return connections;
}

json selectionToJson() {
    MStringArray names;
    scene().settings.activeSelection.getSelectionStrings(names);
    json selection = json::array();
    for (unsigned int i = 0; i < names.length(); ++i) selection.push_back(names[i].asChar());
    return selection;
}

json optionVarToJson(const CommandResult& value) {
    switch (value.kind()) {
        case CommandResult::Kind::kInt:
            return {{"kind", "int"}, {"value", value.asInts().front()}};
        case CommandResult::Kind::kDouble:
            return {{"kind", "double"}, {"value", value.asDoubles().front()}};
        case CommandResult::Kind::kString:
            return {{"kind", "string"}, {"value", value.asStrings().front()}};
        case CommandResult::Kind::kIntArray:
            return {{"kind", "intArray"}, {"value", value.asInts()}};
        case CommandResult::Kind::kDoubleArray:
            return {{"kind", "doubleArray"}, {"value", value.asDoubles()}};
        case CommandResult::Kind::kStringArray:
            return {{"kind", "stringArray"}, {"value", value.asStrings()}};
        case CommandResult::Kind::kNone:
            break;
    }
    return {{"kind", "none"}};
}

json optionVarsToJson() {
    json vars = json::object();
    for (const auto& [name, value] : optionVars().all()) vars[name] = optionVarToJson(value);
    return vars;
}

}  // namespace

json sceneToJson() {
    json nodes = json::array();
    for (const auto& node : scene().nodes())
        if (!node->parent) appendWithChildren(node, nodes);
    json document = {{"format", scenefile::kFormatName},
                     {"version", scenefile::kFormatVersion},
                     {"nodes", nodes},
                     {"connections", connectionsToJson()},
                     {"selection", selectionToJson()},
                     {"optionVars", optionVarsToJson()}};
    // The view outlives the scene, but which camera it looks through belongs with the scene, as a
    // Maya file keeps its panels' cameras.
    if (NodePtr camera = activeView().camera()) document["viewCamera"] = camera->name;
    return document;
}

}  // namespace mhost
