#pragma once
// MPxToolCommand: a command that a tool context does its work with. The context gets a fresh instance
// from newToolCommand(), fills it, runs it, and hands it to the host with finalize(); the host's undo
// and redo then call undoIt and redoIt on that same instance. Registered with its context command, it
// also runs as a script command like any MPxCommand.

#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

class OPENMAYAUI_EXPORT MPxToolCommand : public MPxCommand {
public:
    MPxToolCommand();
    ~MPxToolCommand() override;
    MStatus doIt(const MArgList& args) override = 0;
    // Gives up an instance that will not be finalised; the base does nothing and succeeds.
    virtual MStatus cancel();
    // Builds the command's journal words and calls doFinalize; the base journals no words.
    virtual MStatus finalize();
    MStatus _doFinalize(MArgList& command) { return doFinalize(command); }
    static const char* className();

protected:
    // Files this instance on the undo queue when it is undoable, its journal line being the tool
    // command's name and the words of `command` joined by blanks. Only an instance made by
    // newToolCommand and not yet filed is filed; for any other (one run as a script command, which
    // the script run files itself, or one filed already) this does nothing and succeeds.
    MStatus doFinalize(MArgList& command);
};
