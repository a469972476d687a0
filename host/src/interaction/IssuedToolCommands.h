#pragma once
// Tool commands that contexts made with newToolCommand and have not finalised yet. The host owns
// them: finalising takes one out to file it on the undo queue, and the ones left over are deleted
// when the host call into the plug-in that made them returns (see ContextCall.h), since a context
// may make a command and never use it.

#include <maya/MPxToolCommand.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace mhost {

struct SyntaxData;

class IssuedToolCommands {
public:
    struct Issued {
        std::unique_ptr<MPxToolCommand> command;
        std::string name;  // the tool command's registered name, the first word of its journal line
        std::shared_ptr<SyntaxData> syntax;  // its registered syntax, what its syntax() returns
    };

    // Keeps a new command; returns it for the context to use.
    MPxToolCommand* issue(Issued issued);
    // Hands a command back for filing; nullopt when it was not issued or was taken already.
    std::optional<Issued> take(const MPxToolCommand* command);
    // Deletes every command still held.
    void clear() { fIssued.clear(); }

private:
    std::vector<Issued> fIssued;
};

IssuedToolCommands& issuedToolCommands();

}  // namespace mhost
