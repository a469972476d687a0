#pragma once
// The table of commands that scripts can call, by name. The language's own commands (undo, redo,
// optionVar, print) are in it from the start; the scene and the plug-ins add theirs.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "commands/CommandInstance.h"

namespace mhost {

class CommandTable {
public:
    // Adds a command; false when the name is empty or already taken. `owner` names who registered it
    // (a plug-in's name), so that everything it added can be removed when it unloads.
    bool add(const std::string& name, CommandFactory factory, const std::string& owner = "");
    // Removes a command; false when there is none of that name.
    bool remove(const std::string& name);
    bool contains(const std::string& name) const;
    // A new instance of the named command; null when the name is unknown.
    std::unique_ptr<CommandInstance> create(const std::string& name) const;
    // The names registered by `owner`, in name order.
    std::vector<std::string> namesOwnedBy(const std::string& owner) const;

private:
    struct Entry {
        CommandFactory factory;
        std::string owner;
    };
    std::map<std::string, Entry> fEntries;
};

// The process-wide table, created with the language's own commands in it.
CommandTable& commandTable();

}  // namespace mhost
