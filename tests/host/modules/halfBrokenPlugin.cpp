// A plug-in module whose initializePlugin fails halfway: its command is registered, then the node
// type is refused because its initialiser fails.

#include <maya/MFnPlugin.h>
#include <maya/MPxCommand.h>
#include <maya/MPxNode.h>

namespace {

class NothingCommand : public MPxCommand {
public:
    static void* creator() { return new NothingCommand; }
    MStatus doIt(const MArgList&) override { return MS::kSuccess; }
};

class BrokenNode : public MPxNode {
public:
    static void* creator() { return new BrokenNode; }
    static MStatus initialize() { return MS::kFailure; }
};

}  // namespace

MStatus initializePlugin(MObject obj) {
    MFnPlugin plugin(obj, "Tests", "1.0", "Any");
    MStatus status = plugin.registerCommand("nothingAtAll", NothingCommand::creator);
    if (!status) return status;
    return plugin.registerNode("brokenNode", MTypeId(0x7102), BrokenNode::creator, BrokenNode::initialize);
}

MStatus uninitializePlugin(MObject obj) {
    MFnPlugin plugin(obj);
    return plugin.deregisterCommand("nothingAtAll");
}
