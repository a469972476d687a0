#pragma once
// Registration of the built-in scene commands, one function per group of commands.

#include "commands/CommandTable.h"

namespace mhost {

void registerNodeCommands(CommandTable& table);
void registerConnectionCommands(CommandTable& table);
void registerAttributeCommands(CommandTable& table);
void registerHistoryCommands(CommandTable& table);
void registerSelectionCommands(CommandTable& table);
void registerPluginCommands(CommandTable& table);
void registerPolyCommands(CommandTable& table);
void registerMoveCommand(CommandTable& table);

}  // namespace mhost
