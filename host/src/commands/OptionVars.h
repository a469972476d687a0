#pragma once
// The option variables: named int, real or string values that outlive scenes (Maya keeps them with
// the preferences). Setting a name replaces its value whatever its earlier type; reads convert
// between types as CommandResult does.

#include <map>
#include <string>

#include "commands/CommandResult.h"

namespace mhost {

class OptionVars {
public:
    void set(const std::string& name, CommandResult value) { fValues[name] = std::move(value); }
    // The stored value, or null when the name is not set.
    const CommandResult* find(const std::string& name) const;
    bool exists(const std::string& name) const { return fValues.count(name) > 0; }
    // False when the name was not set.
    bool remove(const std::string& name) { return fValues.erase(name) > 0; }
    void clear() { fValues.clear(); }
    // Every variable by name (scene files save them).
    const std::map<std::string, CommandResult>& all() const { return fValues; }

private:
    std::map<std::string, CommandResult> fValues;
};

OptionVars& optionVars();

}  // namespace mhost
