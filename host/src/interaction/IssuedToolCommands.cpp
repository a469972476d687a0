#include "interaction/IssuedToolCommands.h"

#include <algorithm>

namespace mhost {

MPxToolCommand* IssuedToolCommands::issue(Issued issued) {
    fIssued.push_back(std::move(issued));
    return fIssued.back().command.get();
}

std::optional<IssuedToolCommands::Issued> IssuedToolCommands::take(const MPxToolCommand* command) {
    auto found = std::find_if(fIssued.begin(), fIssued.end(),
                              [&](const Issued& issued) { return issued.command.get() == command; });
    if (found == fIssued.end()) return std::nullopt;
    Issued taken = std::move(*found);
    fIssued.erase(found);
    return taken;
}

IssuedToolCommands& issuedToolCommands() {
    static IssuedToolCommands commands;
    return commands;
}

}  // namespace mhost
