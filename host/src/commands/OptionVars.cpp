#include "commands/OptionVars.h"

namespace mhost {

const CommandResult* OptionVars::find(const std::string& name) const {
    auto found = fValues.find(name);
    return found == fValues.end() ? nullptr : &found->second;
}

OptionVars& optionVars() {
    static OptionVars vars;
    return vars;
}

}  // namespace mhost
