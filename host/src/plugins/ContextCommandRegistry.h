#pragma once
// Context commands registered by plug-ins: the command that makes a tool context, and the tool
// command its contexts hand out.

#include <maya/MTypes.h>

#include <memory>
#include <string>
#include <vector>

namespace mhost {

struct SyntaxData;

struct ContextCommandEntry {
    std::string name;
    MCreatorFunction creator = nullptr;
    std::string toolCommandName;  // empty when the context has no tool command
    std::string owner;
    // How the contexts' newToolCommand makes the tool command: its creator and registered syntax
    // (null when it has none).
    MCreatorFunction toolCommandCreator = nullptr;
    std::shared_ptr<SyntaxData> toolCommandSyntax;
};

class ContextCommandRegistry {
public:
    bool add(const ContextCommandEntry& entry);
    bool remove(const std::string& name);
    const ContextCommandEntry* find(const std::string& name) const;
    std::vector<std::string> namesOwnedBy(const std::string& owner) const;

private:
    std::vector<ContextCommandEntry> fEntries;
};

ContextCommandRegistry& contextCommands();

}  // namespace mhost
