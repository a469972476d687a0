#include "commands/LanguageCommands.h"

#include <maya/MArgList.h>
#include <maya/MSyntax.h>

#include "commands/ArgumentParser.h"
#include "commands/MessageLog.h"
#include "commands/OptionVars.h"
#include "commands/UndoQueue.h"

namespace mhost {
namespace {

// Replays one step of the undo queue in either direction and reports it as Maya does.
class ReplayCommand : public CommandInstance {
public:
    explicit ReplayCommand(bool undoing) : fUndoing(undoing) {}

    MStatus doIt(const MArgList&) override {
        UndoQueue& queue = undoQueue();
        if (fUndoing ? !queue.canUndo() : !queue.canRedo()) {
            messageLog().warning(fUndoing ? "There are no more commands to undo."
                                          : "There are no more commands to redo.");
            return MS::kSuccess;
        }
        const std::string line = fUndoing ? queue.nextUndoLine() : queue.nextRedoLine();
        const MStatus status = fUndoing ? queue.undo() : queue.redo();
        if (status) messageLog().info((fUndoing ? "Undo: " : "Redo: ") + line);
        return status;
    }

    const MSyntax* syntax() const override { return &fNoArguments; }

private:
    bool fUndoing;
    MSyntax fNoArguments;
};

MSyntax optionVarSyntax() {
    MSyntax syntax;
    syntax.addFlag("-iv", "-intValue", MSyntax::kString, MSyntax::kLong);
    syntax.addFlag("-fv", "-floatValue", MSyntax::kString, MSyntax::kDouble);
    syntax.addFlag("-sv", "-stringValue", MSyntax::kString, MSyntax::kString);
    syntax.addFlag("-rm", "-remove", MSyntax::kString);
    syntax.addFlag("-ex", "-exists", MSyntax::kString);
    for (const char* flag : {"-iv", "-fv", "-sv", "-rm"}) syntax.makeFlagMultiUse(flag);
    syntax.enableQuery();
    syntax.setObjectType(MSyntax::kStringObjects, 0, 1);
    return syntax;
}

class OptionVarCommand : public CommandInstance {
public:
    MStatus doIt(const MArgList& args) override {
        ParsedArgs parsed;
        std::string error;
        const MStatus status = parseArguments(*fSyntax.hostData(), args.hostArgs(), parsed, error);
        if (!status) {
            messageLog().error(error);
            return status;
        }
        if (parsed.query) return query(parsed);
        const std::vector<const FlagUse*> exists = parsed.usesOf("ex");
        if (!exists.empty()) {
            result().set(optionVars().exists(exists.front()->values[0].text()) ? 1 : 0);
            return MS::kSuccess;
        }
        for (const FlagUse& use : parsed.uses) apply(parsed.syntax.flags[use.flag].shortName, use.values);
        return MS::kSuccess;
    }

    const MSyntax* syntax() const override { return &fSyntax; }

private:
    MStatus query(const ParsedArgs& parsed) {
        if (parsed.objects.empty()) {
            messageLog().error("optionVar: -query needs the name of a variable");
            return MS::kInvalidParameter;
        }
        const CommandResult* value = optionVars().find(parsed.objects.front());
        if (value) {
            result() = *value;
        } else {
            result().set(0);
        }
        return MS::kSuccess;
    }

    // One set or remove flag, its values already converted to the declared types by the parse.
    static void apply(const std::string& flag, const std::vector<ArgValue>& values) {
        const std::string& name = values[0].text();
        if (flag == "rm") {
            optionVars().remove(name);
            return;
        }
        optionVars().set(name, storedValue(flag, values[1]));
    }

    static CommandResult storedValue(const std::string& flag, const ArgValue& value) {
        CommandResult stored;
        int integer = 0;
        double real = 0;
        if (flag == "iv" && value.toInt(integer)) {
            stored.set(integer);
        } else if (flag == "fv" && value.toDouble(real)) {
            stored.set(real);
        } else {
            stored.set(value.text());
        }
        return stored;
    }

    MSyntax fSyntax = optionVarSyntax();
};

class PrintCommand : public CommandInstance {
public:
    MStatus doIt(const MArgList& args) override {
        const std::vector<ArgValue>& values = args.hostArgs();
        if (values.size() == 1) {
            messageLog().output(values[0].text());
            return MS::kSuccess;
        }
        for (const ArgValue& value : values) messageLog().output(value.text() + "\n");
        return MS::kSuccess;
    }
};

template <class Command, class... Args>
CommandFactory factoryOf(Args... args) {
    return [args...] { return std::make_unique<Command>(args...); };
}

}  // namespace

void addLanguageCommands(CommandTable& table) {
    table.add("undo", factoryOf<ReplayCommand>(true));
    table.add("redo", factoryOf<ReplayCommand>(false));
    table.add("optionVar", factoryOf<OptionVarCommand>());
    table.add("print", factoryOf<PrintCommand>());
}

}  // namespace mhost
