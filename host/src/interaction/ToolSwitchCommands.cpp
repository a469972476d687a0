#include "interaction/ToolSwitchCommands.h"

#include <maya/MArgList.h>

#include "commands/MessageLog.h"
#include "interaction/ToolContexts.h"

namespace mhost {
namespace {

class SetToolToCommand : public CommandInstance {
public:
    MStatus doIt(const MArgList& args) override {
        if (args.length() != 1) {
            messageLog().error("setToolTo: give exactly one context name");
            return MS::kInvalidParameter;
        }
        const std::string name = args.asString(0).asChar();
        const MStatus status = toolContexts().setCurrent(name);
        if (status == MS::kNotFound) messageLog().error("setToolTo: Object '" + name + "' not found.");
        return status;
    }
};

class CurrentCtxCommand : public CommandInstance {
public:
    MStatus doIt(const MArgList&) override {
        result().set(toolContexts().currentName());
        return MS::kSuccess;
    }
};

}  // namespace

void registerToolSwitchCommands(CommandTable& table) {
    table.add("setToolTo", [] { return std::make_unique<SetToolToCommand>(); });
    table.add("currentCtx", [] { return std::make_unique<CurrentCtxCommand>(); });
}

}  // namespace mhost
