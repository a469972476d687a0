#include "interaction/ToolContexts.h"

#include <maya/MEvent.h>

#include <algorithm>

#include "core/ApiObject.h"
#include "interaction/ContextCall.h"
#include "interaction/EventDispatch.h"
#include "messages/Notifications.h"

namespace mhost {

ContextRecord& ToolContexts::add(ContextRecord record) {
    if (find(record.name)) throw HostError("tool contexts: the name '" + record.name + "' is taken");
    fRecords.push_back(std::make_unique<ContextRecord>(std::move(record)));
    return *fRecords.back();
}

ContextRecord* ToolContexts::find(const std::string& name) {
    for (const auto& record : fRecords)
        if (record->name == name) return record.get();
    return nullptr;
}

std::string ToolContexts::freeName(const std::string& stem) const {
    for (int n = 1;; ++n) {
        std::string candidate = stem + std::to_string(n);
        if (std::none_of(fRecords.begin(), fRecords.end(),
                         [&](const auto& r) { return r->name == candidate; }))
            return candidate;
    }
}

template <class Predicate>
void ToolContexts::removeWhere(Predicate chosen) {
    if (fCurrent && chosen(*fCurrent)) {
        switchOff();
        endGesture();
        fCurrentName = kSelectTool;
    }
    fRecords.erase(
        std::remove_if(fRecords.begin(), fRecords.end(), [&](const auto& record) { return chosen(*record); }),
        fRecords.end());
}

void ToolContexts::removeMadeBy(const std::string& commandName) {
    removeWhere([&](const ContextRecord& record) { return record.commandName == commandName; });
}

MStatus ToolContexts::remove(const std::string& name) {
    if (!find(name)) return MS::kNotFound;
    removeWhere([&](const ContextRecord& record) { return record.name == name; });
    return MS::kSuccess;
}

void ToolContexts::switchOff() {
    if (!fCurrent) return;
    MPxContext* leaving = fCurrent->context.get();
    fCurrent = nullptr;
    callContext(fCurrentName + " toolOffCleanup", [&] {
        leaving->toolOffCleanup();
        return MStatus(MS::kSuccess);
    });
}

MStatus ToolContexts::setCurrent(const std::string& name) {
    ContextRecord* next = find(name);
    if (!next && name != kSelectTool) return MS::kNotFound;
    switchOff();
    endGesture();
    fCurrent = next;
    fCurrentName = name;
    notifyEvent("ToolChanged");
    if (!next) return MS::kSuccess;
    return callContext(name + " toolOnSetup", [&] {
        MEvent setup;
        next->context->toolOnSetup(setup);
        return MStatus(MS::kSuccess);
    });
}

ToolContexts& toolContexts() {
    // Never destroyed: contexts are plug-in objects whose destructors may call back into the host,
    // whose other singletons may be gone by the time static objects are destroyed at exit.
    static ToolContexts* contexts = new ToolContexts;
    return *contexts;
}

}  // namespace mhost
