#include "commands/Interpreter.h"

#include <maya/MArgList.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

#include <exception>

#include "commands/ArgumentParser.h"
#include "commands/CommandTable.h"
#include "commands/MessageLog.h"

namespace mhost {
namespace {

// A substituted result becomes one argument per element, each keeping its type.
void appendResult(const CommandResult& result, std::vector<ArgValue>& out) {
    switch (result.kind()) {
        case CommandResult::Kind::kInt:
        case CommandResult::Kind::kIntArray:
            for (int value : result.asInts()) out.push_back(ArgValue::fromInt(value));
            return;
        case CommandResult::Kind::kDouble:
        case CommandResult::Kind::kDoubleArray:
            for (double value : result.asDoubles()) out.push_back(ArgValue::fromDouble(value));
            return;
        case CommandResult::Kind::kString:
        case CommandResult::Kind::kStringArray:
            for (const std::string& value : result.asStrings()) out.push_back(ArgValue::fromString(value));
            return;
        case CommandResult::Kind::kNone:
            return;
    }
}

// Checks the arguments against the command's syntax, logging the reason when they do not fit.
MStatus checkSyntax(const CommandInstance& command, const MArgList& args) {
    const MSyntax* syntax = command.syntax();
    if (!syntax) return MS::kSuccess;
    ParsedArgs parsed;
    std::string error;
    const MStatus status = parseArguments(*syntax->hostData(), args.hostArgs(), parsed, error);
    if (!status) messageLog().error(error);
    return status;
}

// Runs doIt with the instance's result as the current one. A command that fails without logging an
// error of its own gets the line "<name>: <status text>"; an exception is logged and fails the call.
MStatus callDoIt(CommandInstance& command, const MArgList& args, const std::string& name) {
    const size_t errorsBefore = messageLog().errorsLogged();
    try {
        ResultTarget target(command.result());
        const MStatus status = command.doIt(args);
        if (!status && messageLog().errorsLogged() == errorsBefore)
            messageLog().error(name + ": " + status.errorString().asChar());
        return status;
    } catch (const std::exception& error) {
        messageLog().error(name + ": " + error.what());
    } catch (...) {
        messageLog().error(name + ": unknown failure");
    }
    return MS::kFailure;
}

}  // namespace

MStatus Interpreter::run(const Script& script, CommandResult& result) {
    result.clear();
    return runStatements(script.statements, result);
}

MStatus Interpreter::runStatements(const std::vector<Statement>& statements, CommandResult& result) {
    for (const Statement& statement : statements) {
        const MStatus status =
            statement.kind == Statement::Kind::kIf ? runIf(statement, result) : runCommand(statement, result);
        if (!status) return status;
    }
    return MS::kSuccess;
}

MStatus Interpreter::runCommand(const Statement& statement, CommandResult& result) {
    std::vector<ArgValue> values;
    for (const Argument& argument : statement.arguments) {
        const MStatus status = expand(argument, values);
        if (!status) return status;
    }
    std::unique_ptr<CommandInstance> command = commandTable().create(statement.name);
    if (!command) {
        messageLog().error("Cannot find procedure \"" + statement.name + "\".");
        return MS::kFailure;
    }
    const MArgList args(std::move(values));
    MStatus status = checkSyntax(*command, args);
    if (status) status = callDoIt(*command, args, statement.name);
    if (!status) return status;
    result = command->result();
    if (fRecorder && command->isUndoable()) fRecorder(std::move(command), statement.text);
    return MS::kSuccess;
}

MStatus Interpreter::runIf(const Statement& statement, CommandResult& result) {
    bool truth = false;
    const MStatus status = isTrue(statement.condition, truth);
    if (!status) return status;
    return runStatements(truth ? statement.thenBranch : statement.elseBranch, result);
}

MStatus Interpreter::expand(const Argument& argument, std::vector<ArgValue>& out) {
    if (argument.literal) {
        out.push_back(*argument.literal);
        return MS::kSuccess;
    }
    CommandResult substituted;
    const MStatus status = run(*argument.substitution, substituted);
    if (status) appendResult(substituted, out);
    return status;
}

// A condition is true when its value is a non-zero number or a non-empty string or array.
MStatus Interpreter::isTrue(const Argument& condition, bool& truth) {
    std::vector<ArgValue> values;
    const MStatus status = expand(condition, values);
    if (!status) return status;
    double number = 0;
    switch (values.size()) {
        case 0:
            truth = false;
            break;
        case 1:
            truth = values[0].kind() == ArgValue::Kind::kString ? !values[0].text().empty()
                                                                : values[0].toDouble(number) && number != 0;
            break;
        default:
            truth = true;
    }
    return MS::kSuccess;
}

}  // namespace mhost
