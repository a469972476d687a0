#include "commands/PluginCommand.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MSyntax.h>

#include "commands/MessageLog.h"

namespace mhost {
namespace {

class PluginCommandInstance : public CommandInstance {
public:
    PluginCommandInstance(std::unique_ptr<MPxCommand> command, std::shared_ptr<SyntaxData> syntax)
        : fCommand(std::move(command)), fHasSyntax(syntax != nullptr), fSyntax(syntax) {
        if (fCommand) CommandAccess::setSyntax(*fCommand, std::move(syntax));
    }

    MStatus doIt(const MArgList& args) override {
        if (!fCommand) {
            messageLog().error("The plug-in's creator made no command");
            return MS::kFailure;
        }
        return fCommand->doIt(args);
    }

    bool isUndoable() const override { return fCommand && fCommand->isUndoable(); }
    MStatus undoIt() override { return fCommand->undoIt(); }
    MStatus redoIt() override { return fCommand->redoIt(); }

    const MSyntax* syntax() const override {
        return fHasSyntax && fCommand && fCommand->hasSyntax() ? &fSyntax : nullptr;
    }

private:
    std::unique_ptr<MPxCommand> fCommand;
    bool fHasSyntax;
    MSyntax fSyntax;  // a view on the registered syntax
};

}  // namespace

void CommandAccess::setSyntax(MPxCommand& command, std::shared_ptr<SyntaxData> syntax) {
    command.fSyntax = std::move(syntax);
}

std::unique_ptr<CommandInstance> wrapPluginCommand(std::unique_ptr<MPxCommand> command,
                                                   std::shared_ptr<SyntaxData> syntax) {
    return std::make_unique<PluginCommandInstance>(std::move(command), std::move(syntax));
}

CommandFactory pluginCommandFactory(MCreatorFunction creator, MCreateSyntaxFunction createSyntax) {
    std::shared_ptr<SyntaxData> syntax = createSyntax ? createSyntax().hostData() : nullptr;
    return [creator, syntax]() -> std::unique_ptr<CommandInstance> {
        // A plug-in's creator returns its command class as void*, which Maya reads as MPxCommand*.
        auto* command = static_cast<MPxCommand*>(creator ? creator() : nullptr);
        return wrapPluginCommand(std::unique_ptr<MPxCommand>(command), syntax);
    };
}

}  // namespace mhost
