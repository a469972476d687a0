#pragma once
// Shared parts of the host's built-in scene commands (createNode, setAttr, connectAttr, ...): error
// reporting, name resolution, a syntax built once per command class, and undo through a modifier.

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MDagModifier.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>

#include <memory>
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
    // The node a name names, failing with "No object matches name: x" when there is none.
    static MStatus resolveNode(const std::string& name, NodePtr& node);
    // The plug a "node.attr" name names, failing with a clear message when there is none.
    static MStatus resolvePlug(const std::string& name, MPlug& plug);
};

// A scene command whose flags follow a syntax: `Command::makeSyntax()` is called once, and doIt
// reads its arguments through parse().
template <class Command>
class SyntaxCommand : public SceneCommand {
public:
    const MSyntax* syntax() const override {
        static const MSyntax shared = Command::makeSyntax();
        return &shared;
    }

protected:
    // Reads the line against the syntax; afterwards `flags()` answers for it.
    MStatus parse(const MArgList& args) {
        MStatus status;
        parsed_ = std::make_unique<MArgDatabase>(*syntax(), args, &status);
        return status;
    }
    const MArgDatabase& flags() const { return *parsed_; }
    // The nodes the line's objects name.
    MStatus objectNodes(std::vector<NodePtr>& nodes) const {
        MStringArray names;
        parsed_->getObjects(names);
        return resolveNodes(names, nodes);
    }

private:
    std::unique_ptr<MArgDatabase> parsed_;
};

// A syntax command whose scene edits go through a modifier, which is also its undo and redo.
template <class Command>
class ModifierCommand : public SyntaxCommand<Command> {
public:
    bool isUndoable() const override { return true; }
    MStatus undoIt() override { return modifier_.undoIt(); }
    MStatus redoIt() override { return modifier_.doIt(); }

protected:
    MDagModifier modifier_;
};

// Puts every built-in scene command in the command table. Called once, when the host starts.
void registerSceneCommands();

}  // namespace mhost
