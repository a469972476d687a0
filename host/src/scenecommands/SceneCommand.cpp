#include "scenecommands/SceneCommand.h"

#include "scenecommands/SceneCommands.h"

namespace mhost {

MStatus SceneCommand::resolveNodes(const MStringArray& names, std::vector<NodePtr>& nodes) {
    nodes.clear();
    for (unsigned int i = 0; i < names.length(); ++i) {
        NodePtr node = lookUpNode(names[i].asChar());
        if (!node) return fail(std::string("No object matches name: ") + names[i].asChar());
        nodes.push_back(node);
    }
    return MS::kSuccess;
}

MStatus SceneCommand::resolveNode(const std::string& name, NodePtr& node) {
    node = lookUpNode(name);
    return node ? MStatus(MS::kSuccess) : fail("No object matches name: " + name);
}

MStatus SceneCommand::resolvePlug(const std::string& name, MPlug& plug) {
    NameMatch match = lookUpName(name);
    if (!lookUpNode(name.substr(0, name.find('.')))) return fail("No object matches name: " + name);
    if (match.plug.isNull()) return fail("No attribute matches name: " + name);
    plug = match.plug;
    return MS::kSuccess;
}

}  // namespace mhost

namespace mhost {

void registerSceneCommands() {
    CommandTable& table = commandTable();
    registerNodeCommands(table);
    registerConnectionCommands(table);
    registerAttributeCommands(table);
    registerHistoryCommands(table);
    registerSelectionCommands(table);
    registerPluginCommands(table);
    registerPolyCommands(table);
    registerMoveCommand(table);
}

}  // namespace mhost
