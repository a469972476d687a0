#define MNoVersionString
#include <maya/MFnPlugin.h>
#include <maya/MSyntax.h>

#include <algorithm>

#include "commands/CommandTable.h"
#include "commands/PluginCommand.h"
#include "core/ReturnStatus.h"
#include "graph/BuiltinNodeTypes.h"
#include "graph/LocatorAttributes.h"
#include "graph/Scene.h"
#include "interaction/ContextCommands.h"
#include "plugins/ContextCommandRegistry.h"
#include "plugins/PluginRecord.h"

namespace {

std::shared_ptr<mhost::PluginRecord> recordOf(const MObject& object) {
    return std::dynamic_pointer_cast<mhost::PluginRecord>(object.hostObject());
}

using mhost::report;

// The MFn type, DAG-ness and shape-ness of a plug-in node of the given kind; false for kinds the
// host does not provide.
bool describeKind(MPxNode::Type kind, mhost::NodeType& type) {
    switch (kind) {
        case MPxNode::kDependNode:
            type.apiType = MFn::kPluginDependNode;
            return true;
        case MPxNode::kLocatorNode:
            type.apiType = MFn::kPluginLocatorNode;
            type.isDag = type.isShape = true;
            return true;
        case MPxNode::kConstraintNode:
            type.apiType = MFn::kPluginConstraintNode;
            type.isDag = true;
            return true;
        default:
            return false;
    }
}

bool hasLiveNodes(const mhost::NodeType& type) {
    for (const auto& node : mhost::scene().nodes())
        if (node->type.get() == &type) return true;
    return false;
}

}  // namespace

MFnPlugin::MFnPlugin() = default;
MFnPlugin::~MFnPlugin() = default;
MFn::Type MFnPlugin::type() const { return MFn::kPlugin; }
const char* MFnPlugin::className() { return "MFnPlugin"; }

MFnPlugin::MFnPlugin(MObject& object, const char* vendor, const char* version, const char*,
                     MStatus* ReturnStatus) {
    MStatus status = setObject(object);
    report(ReturnStatus, status);
    if (!status) return;
    auto record = recordOf(object);
    record->vendor = vendor ? vendor : "Unknown";
    record->version = version ? version : "Unknown";
}

#define MHOST_RECORD_OR_RETURN(value)                                    \
    auto record = recordOf(fObject);                                     \
    report(ReturnStatus, record ? MS::kSuccess : MS::kInvalidParameter); \
    if (!record) return value

MString MFnPlugin::vendor(MStatus* ReturnStatus) const {
    MHOST_RECORD_OR_RETURN(MString());
    return MString(record->vendor.c_str());
}

MString MFnPlugin::version(MStatus* ReturnStatus) const {
    MHOST_RECORD_OR_RETURN(MString());
    return MString(record->version.c_str());
}

MString MFnPlugin::apiVersion(MStatus* ReturnStatus) const {
    MHOST_RECORD_OR_RETURN(MString());
    return MString(record->apiVersion.c_str());
}

MString MFnPlugin::name(MStatus* ReturnStatus) const {
    MHOST_RECORD_OR_RETURN(MString());
    return MString(record->name.c_str());
}

MString MFnPlugin::loadPath(MStatus* ReturnStatus) const {
    MHOST_RECORD_OR_RETURN(MString());
    const size_t slash = record->path.rfind('/');
    return MString(slash == std::string::npos ? "." : record->path.substr(0, slash).c_str());
}

MStatus MFnPlugin::setName(const MString& newName, bool) {
    auto record = recordOf(fObject);
    if (!record || newName.length() == 0) return MS::kInvalidParameter;
    record->name = newName.asChar();
    return MS::kSuccess;
}

MStatus MFnPlugin::setVersion(const MString& newVersion) {
    auto record = recordOf(fObject);
    if (!record) return MS::kInvalidParameter;
    record->version = newVersion.asChar();
    return MS::kSuccess;
}

MStatus MFnPlugin::registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                   MCreateSyntaxFunction createSyntaxFunction) {
    auto record = recordOf(fObject);
    if (!record || !creatorFunction) return MS::kInvalidParameter;
    const bool added = mhost::commandTable().add(
        commandName.asChar(), mhost::pluginCommandFactory(creatorFunction, createSyntaxFunction),
        record->name);
    return added ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::deregisterCommand(const MString& commandName) {
    auto record = recordOf(fObject);
    if (!record) return MS::kInvalidParameter;
    const auto owned = mhost::commandTable().namesOwnedBy(record->name);
    if (std::find(owned.begin(), owned.end(), commandName.asChar()) == owned.end()) return MS::kFailure;
    return mhost::commandTable().remove(commandName.asChar()) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::registerContextCommand(const MString& commandName, MCreatorFunction creatorFunction) {
    auto record = recordOf(fObject);
    if (!record || !creatorFunction) return MS::kInvalidParameter;
    mhost::ContextCommandEntry entry{commandName.asChar(), creatorFunction, "",
                                     record->name,         nullptr,         nullptr};
    return mhost::addContextCommand(entry) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::registerContextCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                          const MString& toolCmdName, MCreatorFunction toolCmdCreator,
                                          MCreateSyntaxFunction toolCmdSyntax) {
    auto record = recordOf(fObject);
    if (!record || !creatorFunction || !toolCmdCreator || toolCmdName.length() == 0)
        return MS::kInvalidParameter;
    if (mhost::contextCommands().find(commandName.asChar()) ||
        mhost::commandTable().contains(commandName.asChar()))
        return MS::kFailure;
    MStatus status = registerCommand(toolCmdName, toolCmdCreator, toolCmdSyntax);
    if (!status) return status;
    mhost::ContextCommandEntry entry{
        commandName.asChar(), creatorFunction, toolCmdName.asChar(),
        record->name,         toolCmdCreator,  toolCmdSyntax ? toolCmdSyntax().hostData() : nullptr};
    return mhost::addContextCommand(entry) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::deregisterContextCommand(const MString& commandName) {
    auto record = recordOf(fObject);
    const auto* entry = mhost::contextCommands().find(commandName.asChar());
    if (!record || !entry || entry->owner != record->name) return MS::kFailure;
    return mhost::removeContextCommand(commandName.asChar()) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::deregisterContextCommand(const MString& commandName, const MString& toolCmdName) {
    const auto* entry = mhost::contextCommands().find(commandName.asChar());
    if (!entry || entry->toolCommandName != toolCmdName.asChar()) return MS::kFailure;
    MStatus status = deregisterContextCommand(commandName);
    return status ? deregisterCommand(toolCmdName) : status;
}

MStatus MFnPlugin::registerNode(const MString& typeName, const MTypeId& typeId,
                                MCreatorFunction creatorFunction, MInitializeFunction initFunction,
                                MPxNode::Type kind, const MString* classification) {
    auto record = recordOf(fObject);
    if (!record || !creatorFunction || !initFunction || typeName.length() == 0) return MS::kInvalidParameter;
    auto& registry = mhost::nodeTypes();
    if (registry.find(typeName.asChar()) || registry.findById(typeId.id())) return MS::kFailure;
    auto type = std::make_shared<mhost::NodeType>();
    type->name = typeName.asChar();
    type->id = typeId.id();
    type->isPlugin = true;
    type->owner = record->name;
    type->classification = classification ? classification->asChar() : "";
    if (!describeKind(kind, *type)) return MS::kNotImplemented;
    type->create = [creatorFunction] { return static_cast<MPxNode*>(creatorFunction()); };
    mhost::addInheritedAttributes(*type);
    if (kind == MPxNode::kLocatorNode) mhost::addLocatorAttributes(*type);
    registry.initializing = type;
    MStatus status = initFunction();
    registry.initializing = nullptr;
    if (!status) return status;
    return registry.add(type) ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::deregisterNode(const MTypeId& typeId) {
    auto record = recordOf(fObject);
    auto type = mhost::nodeTypes().findById(typeId.id());
    if (!record || !type || type->owner != record->name) return MS::kFailure;
    if (hasLiveNodes(*type)) return MS::kFailure;
    return mhost::nodeTypes().remove(type->name) ? MS::kSuccess : MS::kFailure;
}
