#pragma once
// Every callback registered through MEventMessage and MNodeMessage, by id. Ids count up from 1 and
// are never reused within a process. Firing calls the matching callbacks oldest first; a callback may
// add or remove callbacks (itself included) while it runs: one removed before its turn is skipped,
// one added during the firing waits for the next.

#include <maya/MMessage.h>
#include <maya/MNodeMessage.h>

#include <map>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace mhost {

class Node;
struct PlugRef;

class CallbackRegistry {
public:
    MCallbackId addEvent(const std::string& event, MMessage::MBasicFunction function, void* clientData);
    // The node is held weakly: the callback stays registered after the node is deleted, but fires no
    // more for it.
    MCallbackId addAttributeChanged(const std::shared_ptr<Node>& node,
                                    MNodeMessage::MAttr2PlugFunction function, void* clientData);
    // False when no callback has that id.
    bool remove(MCallbackId id);
    // Ids of the attribute-changed callbacks of a node, oldest first.
    std::vector<MCallbackId> idsOnNode(const Node& node) const;
    // The id of the callback running now; 0 outside any.
    MCallbackId running() const { return fRunning; }

    void fireEvent(const std::string& event);
    void fireAttributeChanged(MNodeMessage::AttributeMessage message, const PlugRef& plug);

private:
    struct EventCallback {
        std::string event;
        MMessage::MBasicFunction function;
    };
    struct AttributeCallback {
        std::weak_ptr<Node> node;
        MNodeMessage::MAttr2PlugFunction function;
    };
    struct Entry {
        std::variant<EventCallback, AttributeCallback> callback;
        void* clientData;
    };
    // Calls `invoke` on each entry registered now that `matches` accepts, skipping entries removed
    // meanwhile.
    template <class Matches, class Invoke>
    void fire(Matches matches, Invoke invoke);

    std::map<MCallbackId, Entry> fEntries;
    MCallbackId fNextId = 1;
    MCallbackId fRunning = 0;
};

CallbackRegistry& callbackRegistry();

// The event names the host sends.
const std::vector<std::string>& knownEventNames();

}  // namespace mhost
