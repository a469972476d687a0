// connectAttr and disconnectAttr.

#include "graph/ApiBridge.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

// Both plug commands take a source and a destination plug name.
MSyntax twoPlugSyntax(bool withForce) {
    MSyntax syntax;
    if (withForce) syntax.addFlag("-f", "-force");
    syntax.addArg(MSyntax::kString);
    syntax.addArg(MSyntax::kString);
    return syntax;
}

class ConnectAttrCommand : public SyntaxCommand<ConnectAttrCommand> {
public:
    static MSyntax makeSyntax() { return twoPlugSyntax(true); }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        const MArgDatabase& db = flags();
        MString sourceName, destinationName;
        db.getCommandArgument(0, sourceName);
        db.getCommandArgument(1, destinationName);
        MPlug source, destination;
        if (!(status = resolvePlug(sourceName.asChar(), source))) return status;
        if (!(status = resolvePlug(destinationName.asChar(), destination))) return status;
        source_ = source.hostPlug();
        destination_ = destination.hostPlug();
        replaced_ = scene().sourceOf(destination_);
        std::string why;
        status = scene().connect(source_, destination_, db.isFlagSet("-f"), &why);
        if (!status)
            return fail("connectAttr: cannot connect " + std::string(sourceName.asChar()) + " to " +
                            destinationName.asChar() + ": " + why,
                        status);
        result().set(std::string(source.name().asChar()) + " " + destination.name().asChar());
        return MS::kSuccess;
    }

    bool isUndoable() const override { return true; }
    MStatus undoIt() override {
        scene().disconnect(source_, destination_);
        if (replaced_) scene().connect(*replaced_, destination_, false);
        return MS::kSuccess;
    }
    MStatus redoIt() override { return scene().connect(source_, destination_, true); }

private:
    PlugRef source_, destination_;
    std::optional<PlugRef> replaced_;
};

class DisconnectAttrCommand : public SyntaxCommand<DisconnectAttrCommand> {
public:
    static MSyntax makeSyntax() { return twoPlugSyntax(false); }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        MString sourceName, destinationName;
        flags().getCommandArgument(0, sourceName);
        flags().getCommandArgument(1, destinationName);
        MPlug source, destination;
        if (!(status = resolvePlug(sourceName.asChar(), source))) return status;
        if (!(status = resolvePlug(destinationName.asChar(), destination))) return status;
        source_ = source.hostPlug();
        destination_ = destination.hostPlug();
        if (!scene().disconnect(source_, destination_))
            return fail(std::string("disconnectAttr: ") + source.name().asChar() + " is not connected to " +
                        destination.name().asChar());
        return MS::kSuccess;
    }
    bool isUndoable() const override { return true; }
    MStatus undoIt() override { return scene().connect(source_, destination_, false); }
    MStatus redoIt() override { return scene().disconnect(source_, destination_); }

private:
    PlugRef source_, destination_;
};

}  // namespace

void registerConnectionCommands(CommandTable& table) {
    table.add("connectAttr", [] { return std::make_unique<ConnectAttrCommand>(); });
    table.add("disconnectAttr", [] { return std::make_unique<DisconnectAttrCommand>(); });
}

}  // namespace mhost
