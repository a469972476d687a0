// createNode, delete, rename and objExists.

#include <maya/MDagModifier.h>

#include <set>

#include "graph/ApiBridge.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

class CreateNodeCommand : public SceneCommand {
public:
    const MSyntax* syntax() const override {
        static const MSyntax s = [] {
            MSyntax syntax;
            syntax.addFlag("-n", "-name", MSyntax::kString);
            syntax.addFlag("-p", "-parent", MSyntax::kString);
            syntax.addFlag("-ss", "-skipSelect");
            syntax.addArg(MSyntax::kString);
            return syntax;
        }();
        return &s;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status;
        MArgDatabase db(*syntax(), args, &status);
        if (!status) return status;
        MString type, name, parentName;
        db.getCommandArgument(0, type);
        if (db.isFlagSet("-n")) db.getFlagArgument("-n", 0, name);
        MObject parent;
        if (db.isFlagSet("-p")) {
            db.getFlagArgument("-p", 0, parentName);
            NodePtr parentNode = lookUpNode(parentName.asChar());
            if (!parentNode) return fail(std::string("No object matches name: ") + parentName.asChar());
            parent = wrapNode(parentNode);
        }
        NodeTypePtr typeInfo = nodeTypes().find(type.asChar());
        if (!typeInfo) return fail(std::string("Unknown object type: ") + type.asChar());
        MObject created = typeInfo->isDag ? modifier_.createNode(type, parent, &status)
                                          : modifier_.MDGModifier::createNode(type, &status);
        if (!status) return fail(std::string("createNode: cannot create a node of type ") + type.asChar(), status);
        NodePtr node = nodeOf(created);
        // Without a parent a shape comes with a new transform; the command names and returns the shape.
        if (typeInfo->isShape && parent.isNull()) node = node->children.front();
        if (name.length()) modifier_.renameNode(wrapNode(node), name);
        status = modifier_.doIt();
        if (!status) return status;
        result().set(node->name);
        return MS::kSuccess;
    }

    bool isUndoable() const override { return true; }
    MStatus undoIt() override { return modifier_.undoIt(); }
    MStatus redoIt() override { return modifier_.doIt(); }

private:
    MDagModifier modifier_;
};

class RenameCommand : public SceneCommand {
public:
    MStatus doIt(const MArgList& args) override {
        if (args.length() != 2) return fail("rename: expects the old and the new name");
        NodePtr node = lookUpNode(args.asString(0).asChar());
        if (!node) return fail(std::string("No object matches name: ") + args.asString(0).asChar());
        MStatus status = modifier_.renameNode(wrapNode(node), args.asString(1));
        if (!status) return fail("rename: the new name is empty", status);
        modifier_.doIt();
        result().set(node->name);
        return MS::kSuccess;
    }
    bool isUndoable() const override { return true; }
    MStatus undoIt() override { return modifier_.undoIt(); }
    MStatus redoIt() override { return modifier_.doIt(); }

private:
    MDGModifier modifier_;
};

class ObjExistsCommand : public SceneCommand {
public:
    MStatus doIt(const MArgList& args) override {
        if (args.length() != 1) return fail("objExists: expects one name");
        result().set(lookUpName(args.asString(0).asChar()).node ? 1 : 0);
        return MS::kSuccess;
    }
};

// delete removes nodes; with -constructionHistory it bakes the named nodes' inputs into their own
// values and deletes the history nodes that fed only them.
class DeleteCommand : public SceneCommand {
public:
    const MSyntax* syntax() const override {
        static const MSyntax s = [] {
            MSyntax syntax;
            syntax.addFlag("-ch", "-constructionHistory");
            syntax.setObjectType(MSyntax::kStringObjects, 1);
            return syntax;
        }();
        return &s;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status;
        MArgDatabase db(*syntax(), args, &status);
        if (!status) return status;
        MStringArray names;
        db.getObjects(names);
        std::vector<NodePtr> nodes;
        status = resolveNodes(names, nodes);
        if (!status) return status;
        if (db.isFlagSet("-ch")) {
            for (const auto& node : nodes) bakeHistory(node);
        } else {
            for (const auto& node : nodes) modifier_.deleteNode(wrapNode(node));
        }
        status = modifier_.doIt();
        applyBakedValues(true);
        return status;
    }

    bool isUndoable() const override { return true; }
    MStatus undoIt() override {
        applyBakedValues(false);
        return modifier_.undoIt();
    }
    MStatus redoIt() override {
        MStatus status = modifier_.doIt();
        applyBakedValues(true);
        return status;
    }

private:
    struct Baked {
        NodePtr node;
        std::map<PlugKey, PlugValue> before, after;
    };

    void bakeHistory(const NodePtr& node) {
        Baked baked{node, node->values, {}};
        std::set<Node*> upstream;
        for (const auto& c : scene().connectionsOf(*node)) {
            if (c.destination.node != node) continue;
            scene().evaluate(c.destination);
            modifier_.disconnect(MPlug(c.source), MPlug(c.destination));
            collectHistory(c.source.node, upstream);
        }
        baked.after = node->values;
        baked_.push_back(baked);
        for (const auto& candidate : scene().nodes())
            if (upstream.count(candidate.get())) modifier_.deleteNode(wrapNode(candidate));
    }

    // Non-DAG nodes upstream of `node` (itself included), following incoming connections.
    void collectHistory(const NodePtr& node, std::set<Node*>& found) {
        if (node->type->isDag || !found.insert(node.get()).second) return;
        for (const auto& c : scene().connectionsOf(*node))
            if (c.destination.node == node) collectHistory(c.source.node, found);
    }

    void applyBakedValues(bool after) {
        for (auto& baked : baked_) baked.node->values = after ? baked.after : baked.before;
    }

    MDGModifier modifier_;
    std::vector<Baked> baked_;
};

}  // namespace

void registerNodeCommands(CommandTable& table) {
    table.add("createNode", [] { return std::make_unique<CreateNodeCommand>(); });
    table.add("rename", [] { return std::make_unique<RenameCommand>(); });
    table.add("objExists", [] { return std::make_unique<ObjExistsCommand>(); });
    table.add("delete", [] { return std::make_unique<DeleteCommand>(); });
}

}  // namespace mhost
