#include "commands/ScriptRunner.h"

#include <exception>

#include "commands/Interpreter.h"
#include "commands/MessageLog.h"
#include "commands/OptionVars.h"
#include "commands/Parser.h"
#include "commands/UndoQueue.h"

namespace mhost {

namespace {

void pushOnUndoQueue(std::unique_ptr<CommandInstance> command, std::string journal) {
    undoQueue().push(std::move(command), std::move(journal));
}

}  // namespace

MStatus runScript(const std::string& text, CommandResult& result, bool undoEnabled) {
    return runScriptRecording(text, result, undoEnabled ? UndoRecorder(pushOnUndoQueue) : UndoRecorder());
}

MStatus runScriptRecording(const std::string& text, CommandResult& result, const UndoRecorder& recorder) {
    MStatus status = MS::kFailure;
    try {
        status = Interpreter(recorder).run(parseScript(text), result);
    } catch (const std::exception& error) {
        messageLog().error(error.what());
    } catch (...) {
        messageLog().error("Script failed: unknown failure");
    }
    if (!status) result.clear();
    return status;
}

void resetCommands() {
    undoQueue().clear();
    optionVars().clear();
    messageLog().clear();
}

}  // namespace mhost
