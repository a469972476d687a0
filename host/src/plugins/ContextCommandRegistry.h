#pragma once
// Context commands registered by plug-ins: the command that makes a tool context, and the tool
// command its contexts hand out.

#include <maya/MTypes.h>

#include <string>
#include <vector>

namespace mhost {

struct ContextCommandEntry {
    std::string name;
    MCreatorFunction creator = nullptr;
    std::string toolCommandName;  // empty when the context has no tool command
    std::string owner;
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
