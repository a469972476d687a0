#pragma once
// Where the rest of the host tells the message callbacks that something happened. Each call fires
// the matching MEventMessage or MNodeMessage callbacks at once, on the caller's thread.

#include <string>

namespace mhost {

struct PlugRef;

// A named application event ("Undo", "SelectionChanged", ...).
void notifyEvent(const std::string& event);
// A value was stored into the plug (attribute-changed callbacks of its node).
void notifyPlugSet(const PlugRef& plug);

}  // namespace mhost
