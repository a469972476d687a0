#pragma once
// The tool contexts the host owns, each with the context command object that made it, and the
// current tool. One tool is current at a time; at start, and after its context is removed, it is
// Maya's selection tool "selectSuperContext", which has no context object: events then reach no
// plug-in code. Contexts are UI objects: they outlive scene resets, as in Maya.

#include <maya/MPxContext.h>
#include <maya/MPxContextCommand.h>
#include <maya/MStatus.h>

#include <memory>
#include <string>
#include <vector>

namespace mhost {

struct ContextRecord {
    std::string name;
    std::string commandName;  // the context command that made it
    std::unique_ptr<MPxContextCommand> command;
    std::unique_ptr<MPxContext> context;
};

class ToolContexts {
public:
    static constexpr const char* kSelectTool = "selectSuperContext";

    // Takes a new context; throws HostError when its name is taken.
    ContextRecord& add(ContextRecord record);
    // The context of that name; null when there is none.
    ContextRecord* find(const std::string& name);
    // `stem` with the lowest number from 1 up that no context has.
    std::string freeName(const std::string& stem) const;
    // Deletes the contexts a context command made; a current one is switched off first (its
    // toolOffCleanup runs and the selection tool becomes current).
    void removeMadeBy(const std::string& commandName);
    // Deletes the context of that name the same way; kNotFound when there is none.
    MStatus remove(const std::string& name);

    // Makes the named tool current: toolOffCleanup of the old context, the gesture under way (if any)
    // ends, the new tool becomes current, "ToolChanged" is sent, then toolOnSetup of the new context.
    // Choosing the current tool again goes through the same steps. kNotFound for an unknown name.
    MStatus setCurrent(const std::string& name);
    const std::string& currentName() const { return fCurrentName; }
    // The current context; null while the selection tool is current.
    MPxContext* current() const { return fCurrent ? fCurrent->context.get() : nullptr; }

private:
    void switchOff();
    template <class Predicate>
    void removeWhere(Predicate chosen);

    std::vector<std::unique_ptr<ContextRecord>> fRecords;
    std::string fCurrentName = kSelectTool;
    ContextRecord* fCurrent = nullptr;
};

ToolContexts& toolContexts();

}  // namespace mhost
