#pragma once
// The host's side of context commands (MFnPlugin::registerContextCommand): running them from
// scripts and removing them again.

#include <string>

#include "plugins/ContextCommandRegistry.h"

namespace mhost {

// Registers a context command and makes it a script command. False when the name is taken by a
// command or a context command.
bool addContextCommand(const ContextCommandEntry& entry);
// Deletes the contexts the command made (switching the current one off first) and unregisters it.
// False when there is no context command of that name.
bool removeContextCommand(const std::string& name);

}  // namespace mhost
