#include "plugins/ContextCommandRegistry.h"

#include <algorithm>

namespace mhost {

bool ContextCommandRegistry::add(const ContextCommandEntry& entry) {
    if (entry.name.empty() || find(entry.name)) return false;
    fEntries.push_back(entry);
    return true;
}

bool ContextCommandRegistry::remove(const std::string& name) {
    auto it = std::find_if(fEntries.begin(), fEntries.end(), [&](const auto& e) { return e.name == name; });
    if (it == fEntries.end()) return false;
    fEntries.erase(it);
    return true;
}

const ContextCommandEntry* ContextCommandRegistry::find(const std::string& name) const {
    for (const auto& e : fEntries)
        if (e.name == name) return &e;
    return nullptr;
}

std::vector<std::string> ContextCommandRegistry::namesOwnedBy(const std::string& owner) const {
    std::vector<std::string> names;
    for (const auto& e : fEntries)
        if (e.owner == owner) names.push_back(e.name);
    return names;
}

ContextCommandRegistry& contextCommands() {
    static ContextCommandRegistry registry;
    return registry;
}

}  // namespace mhost
