#pragma once
// Shared parts of the host's built-in scene commands (createNode, setAttr, connectAttr, ...): error
// reporting, name resolution and a syntax built once per command class.

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include <string>
#include <vector>

#include "commands/CommandInstance.h"
#include "commands/MessageLog.h"
#include "graph/NameLookup.h"

namespace mhost {

class SceneCommand : public CommandInstance {
protected:
    // Logs an error line and returns the failing status.
    static MStatus fail(const std::string& text, MStatus status = MS::kInvalidParameter) {
        messageLog().error(text);
        return status;
    }
    // The node each name names, failing with "No object matches name: x" for the first unknown one.
    static MStatus resolveNodes(const MStringArray& names, std::vector<NodePtr>& nodes);
    // The plug a "node.attr" name names, failing with a clear message when there is none.
    static MStatus resolvePlug(const std::string& name, MPlug& plug);
};

// Puts every built-in scene command in the command table. Called once, when the host starts.
void registerSceneCommands();

}  // namespace mhost
