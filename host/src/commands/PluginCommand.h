#pragma once
// Runs a plug-in's MPxCommand through the command language: a fresh instance from the plug-in's
// creator for each call, its arguments checked against the registered syntax, and its static
// setResult/appendToResult calls landing in the call's result.

#include <maya/MTypes.h>

#include <memory>

#include "commands/CommandInstance.h"

class MPxCommand;

namespace mhost {

struct SyntaxData;

// Host-side access to MPxCommand's private state, for the adapters that run command classes
// (plain commands here, tool commands with the plug-in loader).
struct CommandAccess {
    static void setSyntax(MPxCommand& command, std::shared_ptr<SyntaxData> syntax);
};

// Wraps one command object so that scripts and the undo queue can run and own it, e.g. a tool
// command that its context finalises. `syntax` (may be null) is what the command's syntax() returns
// and what its arguments are checked against.
std::unique_ptr<CommandInstance> wrapPluginCommand(std::unique_ptr<MPxCommand> command,
                                                   std::shared_ptr<SyntaxData> syntax);

// A factory for a plug-in command. `createSyntax` is called once, now; null means the command has
// no syntax and its arguments go to doIt unchecked. A creator that returns null fails the call.
CommandFactory pluginCommandFactory(MCreatorFunction creator, MCreateSyntaxFunction createSyntax);

}  // namespace mhost
