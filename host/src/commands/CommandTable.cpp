#include "commands/CommandTable.h"

#include "commands/LanguageCommands.h"

namespace mhost {

bool CommandTable::add(const std::string& name, CommandFactory factory, const std::string& owner) {
    if (name.empty() || !factory) return false;
    return fEntries.emplace(name, Entry{std::move(factory), owner}).second;
}

bool CommandTable::remove(const std::string& name) { return fEntries.erase(name) > 0; }

bool CommandTable::contains(const std::string& name) const { return fEntries.count(name) > 0; }

std::unique_ptr<CommandInstance> CommandTable::create(const std::string& name) const {
    auto found = fEntries.find(name);
    return found == fEntries.end() ? nullptr : found->second.factory();
}

std::vector<std::string> CommandTable::namesOwnedBy(const std::string& owner) const {
    std::vector<std::string> names;
    for (const auto& [name, entry] : fEntries)
        if (entry.owner == owner) names.push_back(name);
    return names;
}

CommandTable& commandTable() {
    static CommandTable table = [] {
        CommandTable languageTable;
        addLanguageCommands(languageTable);
        return languageTable;
    }();
    return table;
}

}  // namespace mhost
