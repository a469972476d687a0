#include "messages/CallbackRegistry.h"

#include <maya/MPlug.h>

#include <exception>

#include "commands/MessageLog.h"
#include "graph/ApiBridge.h"

namespace mhost {
namespace {

// Makes `id` the running callback for the scope, restoring the outer one afterwards (callbacks may
// fire others).
class RunningCallback {
public:
    RunningCallback(MCallbackId& running, MCallbackId id) : fRunning(running), fOuter(running) {
        running = id;
    }
    ~RunningCallback() { fRunning = fOuter; }
    RunningCallback(const RunningCallback&) = delete;
    RunningCallback& operator=(const RunningCallback&) = delete;

private:
    MCallbackId& fRunning;
    MCallbackId fOuter;
};

}  // namespace

MCallbackId CallbackRegistry::addEvent(const std::string& event, MMessage::MBasicFunction function,
                                       void* clientData) {
    fEntries.emplace(fNextId, Entry{EventCallback{event, function}, clientData});
    return fNextId++;
}

MCallbackId CallbackRegistry::addAttributeChanged(const std::shared_ptr<Node>& node,
                                                  MNodeMessage::MAttr2PlugFunction function,
                                                  void* clientData) {
    fEntries.emplace(fNextId, Entry{AttributeCallback{node, function}, clientData});
    return fNextId++;
}

bool CallbackRegistry::remove(MCallbackId id) { return fEntries.erase(id) > 0; }

std::vector<MCallbackId> CallbackRegistry::idsOnNode(const Node& node) const {
    std::vector<MCallbackId> ids;
    for (const auto& [id, entry] : fEntries) {
        const auto* callback = std::get_if<AttributeCallback>(&entry.callback);
        if (callback && callback->node.lock().get() == &node) ids.push_back(id);
    }
    return ids;
}

template <class Matches, class Invoke>
void CallbackRegistry::fire(Matches matches, Invoke invoke) {
    std::vector<MCallbackId> due;
    for (const auto& [id, entry] : fEntries)
        if (matches(entry)) due.push_back(id);
    for (MCallbackId id : due) {
        auto found = fEntries.find(id);
        if (found == fEntries.end()) continue;
        const Entry entry = found->second;
        RunningCallback running(fRunning, id);
        try {
            invoke(entry);
        } catch (const std::exception& error) {
            messageLog().error("Callback " + std::to_string(id) + " failed: " + error.what());
        } catch (...) {
            messageLog().error("Callback " + std::to_string(id) + " failed");
        }
    }
}

void CallbackRegistry::fireEvent(const std::string& event) {
    fire(
        [&](const Entry& entry) {
            const auto* callback = std::get_if<EventCallback>(&entry.callback);
            return callback && callback->event == event;
        },
        [](const Entry& entry) { std::get<EventCallback>(entry.callback).function(entry.clientData); });
}

void CallbackRegistry::fireAttributeChanged(MNodeMessage::AttributeMessage message, const PlugRef& plug) {
    fire(
        [&](const Entry& entry) {
            const auto* callback = std::get_if<AttributeCallback>(&entry.callback);
            return callback && callback->node.lock() == plug.node;
        },
        [&](const Entry& entry) {
            MPlug changed = makePlug(plug);
            MPlug other;
            std::get<AttributeCallback>(entry.callback).function(message, changed, other, entry.clientData);
        });
}

CallbackRegistry& callbackRegistry() {
    static CallbackRegistry registry;
    return registry;
}

const std::vector<std::string>& knownEventNames() {
    static const std::vector<std::string> names{"Undo", "Redo", "SelectionChanged", "ToolChanged",
                                                "modelEditorChanged"};
    return names;
}

}  // namespace mhost
