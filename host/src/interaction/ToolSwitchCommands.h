#pragma once
// The script commands that choose the current tool:
//   setToolTo name   makes the named context (or "selectSuperContext") the current tool.
//   currentCtx       returns the current tool's name.

#include "commands/CommandTable.h"

namespace mhost {

void registerToolSwitchCommands(CommandTable& table);

}  // namespace mhost
