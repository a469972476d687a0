#include "interaction/ContextCommands.h"

#include <maya/MArgList.h>
#include <maya/MPxContextCommand.h>

#include "commands/ArgumentParser.h"
#include "commands/CommandTable.h"
#include "commands/MessageLog.h"
#include "interaction/ContextCall.h"
#include "interaction/ContextCommandAccess.h"
#include "interaction/ContextState.h"
#include "interaction/ToolContexts.h"

namespace mhost {
namespace {

// The host's own flags, read here rather than by the plug-in.
const char* const kExistsFlag = "ex";
const char* const kImageFlags[] = {"i1", "i2", "i3"};

// One run of a context command's script line: makes a context, or edits or queries one.
class ContextCommandRun : public CommandInstance {
public:
    explicit ContextCommandRun(std::string name) : fName(std::move(name)) {}

    MStatus doIt(const MArgList& args) override {
        const ContextCommandEntry* entry = contextCommands().find(fName);
        if (!entry) return fail("is no longer registered");
        std::unique_ptr<MPxContextCommand> command(static_cast<MPxContextCommand*>(entry->creator()));
        if (!command) return fail("the plug-in's creator made no command");
        MStatus status = ContextCommandAccess::prepare(*command, fName);
        if (!status) return status;
        ParsedArgs line;
        std::string error;
        status = parseArguments(ContextCommandAccess::syntaxData(*command), args.hostArgs(), line, error);
        if (!status) return fail(error, status);
        if (!line.usesOf(kExistsFlag).empty()) return answerExists(line);
        if (line.edit || line.query) return editOrQuery(line, args);
        return makeContext(std::move(command), line, args);
    }

private:
    MStatus fail(const std::string& text, MStatus status = MS::kFailure) {
        messageLog().error(fName + ": " + text);
        return status;
    }

    std::string objectName(const ParsedArgs& line) const {
        return line.objects.empty() ? "" : line.objects[0];
    }

    ContextRecord* madeHere(const std::string& name) {
        ContextRecord* record = toolContexts().find(name);
        return record && record->commandName == fName ? record : nullptr;
    }

    MStatus answerExists(const ParsedArgs& line) {
        result().set(madeHere(objectName(line)) ? 1 : 0);
        return MS::kSuccess;
    }

    MStatus editOrQuery(const ParsedArgs& line, const MArgList& args) {
        const std::string name = objectName(line);
        if (name.empty())
            return fail("the -edit and -query forms need a context name", MS::kInvalidParameter);
        ContextRecord* record = madeHere(name);
        if (!record) return fail("Object '" + name + "' not found.", MS::kNotFound);
        if (line.query) return query(*record, line, args);
        setImages(*record, line);
        return ContextCommandAccess::runFlags(*record->command, fName, args, false);
    }

    MStatus query(ContextRecord& record, const ParsedArgs& line, const MArgList& args) {
        for (int i = 0; i < 3; ++i) {
            if (line.usesOf(kImageFlags[i]).empty()) continue;
            result().set(std::string(ContextState::of(*record.context).images[i].asChar()));
            return MS::kSuccess;
        }
        return ContextCommandAccess::runFlags(*record.command, fName, args, true);
    }

    MStatus makeContext(std::unique_ptr<MPxContextCommand> command, const ParsedArgs& line,
                        const MArgList& args) {
        std::string name = objectName(line);
        if (name.empty()) name = toolContexts().freeName(fName);
        if (toolContexts().find(name))
            return fail("Object's name '" + name + "' is not unique.", MS::kInvalidParameter);
        MPxContext* made = nullptr;
        MStatus status = callContext(fName + " makeObj", [&] {
            made = command->makeObj();
            return MStatus(made ? MS::kSuccess : MS::kFailure);
        });
        if (!made) return status ? fail("makeObj made no context") : status;
        ContextState::of(*made).contextCommand = fName;
        ContextRecord& record =
            toolContexts().add({name, fName, std::move(command), std::unique_ptr<MPxContext>(made)});
        setImages(record, line);
        // Flags given with the name are settings of the new context, as with -edit.
        if (line.uses.size() > imageFlagsUsed(line))
            status = ContextCommandAccess::runFlags(*record.command, fName, args, false);
        result().set(name);
        return status;
    }

    static size_t imageFlagsUsed(const ParsedArgs& line) {
        size_t count = 0;
        for (const char* flag : kImageFlags) count += line.usesOf(flag).size();
        return count;
    }

    static void setImages(ContextRecord& record, const ParsedArgs& line) {
        for (int i = 0; i < 3; ++i)
            for (const FlagUse* use : line.usesOf(kImageFlags[i]))
                ContextState::of(*record.context).images[i] = use->values.at(0).text().c_str();
    }

    std::string fName;
};

}  // namespace

bool addContextCommand(const ContextCommandEntry& entry) {
    if (commandTable().contains(entry.name) || !contextCommands().add(entry)) return false;
    const std::string name = entry.name;
    commandTable().add(
        name, [name] { return std::make_unique<ContextCommandRun>(name); }, entry.owner);
    return true;
}

bool removeContextCommand(const std::string& name) {
    if (!contextCommands().find(name)) return false;
    toolContexts().removeMadeBy(name);
    commandTable().remove(name);
    return contextCommands().remove(name);
}

}  // namespace mhost
