#include <maya/MArgList.h>
#include <maya/MPxToolCommand.h>

#include "commands/PluginCommand.h"
#include "commands/UndoQueue.h"
#include "interaction/IssuedToolCommands.h"

MPxToolCommand::MPxToolCommand() = default;
MPxToolCommand::~MPxToolCommand() = default;
const char* MPxToolCommand::className() { return "MPxToolCommand"; }

MStatus MPxToolCommand::cancel() { return MS::kSuccess; }

MStatus MPxToolCommand::finalize() {
    MArgList noWords;
    return doFinalize(noWords);
}

MStatus MPxToolCommand::doFinalize(MArgList& command) {
    // A command that cannot be undone is not filed; it stays with the host until the call that made
    // it returns, so this instance lives on while its own finalize runs.
    if (!isUndoable()) return MS::kSuccess;
    auto issued = mhost::issuedToolCommands().take(this);
    if (!issued) return MS::kSuccess;
    std::string journal = issued->name;
    for (unsigned int i = 0; i < command.length(); ++i)
        journal += std::string(" ") + command.asString(i).asChar();
    mhost::undoQueue().push(mhost::wrapPluginCommand(std::move(issued->command), issued->syntax), journal);
    return MS::kSuccess;
}
