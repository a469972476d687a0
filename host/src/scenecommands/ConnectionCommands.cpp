// connectAttr and disconnectAttr.

#include "graph/ApiBridge.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

class ConnectAttrCommand : public SceneCommand {
public:
    const MSyntax* syntax() const override {
        static const MSyntax s = [] {
            MSyntax syntax;
            syntax.addFlag("-f", "-force");
            syntax.addArg(MSyntax::kString);
            syntax.addArg(MSyntax::kString);
            return syntax;
        }();
        return &s;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status;
        MArgDatabase db(*syntax(), args, &status);
        if (!status) return status;
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

class DisconnectAttrCommand : public SceneCommand {
public:
    MStatus doIt(const MArgList& args) override {
        if (args.length() != 2) return fail("disconnectAttr: expects a source and a destination plug");
        MPlug source, destination;
        MStatus status;
        if (!(status = resolvePlug(args.asString(0).asChar(), source))) return status;
        if (!(status = resolvePlug(args.asString(1).asChar(), destination))) return status;
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
