#include "commands/UndoCapture.h"

#include "commands/ScriptRunner.h"
#include "commands/UndoQueue.h"

namespace mhost {

void CapturedCommands::add(std::unique_ptr<CommandInstance> command, std::string journal) {
    fSteps.push_back({std::move(command), std::move(journal)});
}

MStatus CapturedCommands::undoAll() {
    for (auto step = fSteps.rbegin(); step != fSteps.rend(); ++step) {
        const MStatus status = replayCommand(*step->command, true, step->journal);
        if (!status) return status;
    }
    return MS::kSuccess;
}

MStatus CapturedCommands::redoAll() {
    for (Step& step : fSteps) {
        const MStatus status = replayCommand(*step.command, false, step.journal);
        if (!status) return status;
    }
    return MS::kSuccess;
}

std::vector<std::string> CapturedCommands::journal() const {
    std::vector<std::string> lines;
    for (const Step& step : fSteps) lines.push_back(step.journal);
    return lines;
}

MStatus runScriptCapturingUndo(const std::string& text, CapturedCommands& steps) {
    steps.clear();
    CommandResult ignored;
    return runScriptRecording(text, ignored,
                              [&steps](std::unique_ptr<CommandInstance> command, std::string journal) {
                                  steps.add(std::move(command), std::move(journal));
                              });
}

}  // namespace mhost
