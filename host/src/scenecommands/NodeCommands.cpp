// createNode, delete, rename and objExists.

#include <map>
#include <set>

#include "graph/ApiBridge.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

class CreateNodeCommand : public ModifierCommand<CreateNodeCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-n", "-name", MSyntax::kString);
        syntax.addFlag("-p", "-parent", MSyntax::kString);
        syntax.addFlag("-ss", "-skipSelect");
        syntax.addArg(MSyntax::kString);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        MString type, name, parentName;
        flags().getCommandArgument(0, type);
        if (flags().isFlagSet("-n")) flags().getFlagArgument("-n", 0, name);
        NodePtr parentNode;
        if (flags().isFlagSet("-p")) {
            flags().getFlagArgument("-p", 0, parentName);
            if (!(status = resolveNode(parentName.asChar(), parentNode))) return status;
        }
        NodeTypePtr typeInfo = nodeTypes().find(type.asChar());
        if (!typeInfo) return fail(std::string("Unknown object type: ") + type.asChar());
        MObject parent = parentNode ? wrapNode(parentNode) : MObject();
        MObject created = typeInfo->isDag ? modifier_.createNode(type, parent, &status)
                                          : modifier_.MDGModifier::createNode(type, &status);
        if (!status)
            return fail(std::string("createNode: cannot create a node of type ") + type.asChar(), status);
        NodePtr node = nodeOf(created);
        // Without a parent a shape comes with a new transform; the command names and returns the shape.
        if (typeInfo->isShape && !parentNode) node = node->children.front();
        if (name.length()) modifier_.renameNode(wrapNode(node), name);
        if (!(status = modifier_.doIt())) return status;
        result().set(node->name);
        return MS::kSuccess;
    }
};

class RenameCommand : public ModifierCommand<RenameCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addArg(MSyntax::kString);
        syntax.addArg(MSyntax::kString);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        MString oldName, newName;
        flags().getCommandArgument(0, oldName);
        flags().getCommandArgument(1, newName);
        NodePtr node;
        if (!(status = resolveNode(oldName.asChar(), node))) return status;
        if (!(status = modifier_.renameNode(wrapNode(node), newName)))
            return fail("rename: the new name is empty", status);
        modifier_.doIt();
        result().set(node->name);
        return MS::kSuccess;
    }
};

class ObjExistsCommand : public SyntaxCommand<ObjExistsCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addArg(MSyntax::kString);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        MString name;
        flags().getCommandArgument(0, name);
        result().set(lookUpName(name.asChar()).node ? 1 : 0);
        return MS::kSuccess;
    }
};

// delete removes nodes, and with a DAG node the history nodes upstream of it that feed nothing else;
// with -constructionHistory it bakes the named nodes' inputs into their own values and deletes the
// history nodes upstream of them.
class DeleteCommand : public ModifierCommand<DeleteCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-ch", "-constructionHistory");
        syntax.setObjectType(MSyntax::kStringObjects, 1);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        std::vector<NodePtr> nodes;
        if (!status || !(status = objectNodes(nodes))) return status;
        for (const auto& node : nodes) {
            if (flags().isFlagSet("-ch"))
                bakeHistory(node);
            else
                deleteWithHistory(node);
        }
        return redoIt();
    }

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

    // An object goes with its construction history: the non-DAG nodes upstream of it and of its
    // descendants that feed nothing outside what is deleted.
    void deleteWithHistory(const NodePtr& node) {
        modifier_.deleteNode(wrapNode(node));
        if (!node->type->isDag) return;
        std::set<Node*> subtree;
        collectSubtree(node.get(), subtree);
        std::set<Node*> history;
        for (Node* member : subtree)
            for (const auto& c : scene().connectionsOf(*member))
                if (c.destination.node.get() == member) collectHistory(c.source.node, history);
        // An intermediate shape under the deleted transform goes with it already.
        for (Node* member : subtree) history.erase(member);
        std::set<Node*> doomed = subtree;
        doomed.insert(history.begin(), history.end());
        // A history node that feeds a survivor survives, and so then does its own history.
        for (bool changed = true; changed;) {
            changed = false;
            for (Node* candidate : history) {
                if (!doomed.count(candidate) || !feedsOutside(*candidate, doomed)) continue;
                doomed.erase(candidate);
                changed = true;
            }
        }
        for (const auto& candidate : scene().nodes())
            if (history.count(candidate.get()) && doomed.count(candidate.get()))
                modifier_.deleteNode(wrapNode(candidate));
    }

    static void collectSubtree(Node* node, std::set<Node*>& found) {
        found.insert(node);
        for (const auto& child : node->children) collectSubtree(child.get(), found);
    }

    static bool feedsOutside(const Node& node, const std::set<Node*>& doomed) {
        for (const auto& c : scene().connectionsOf(node))
            if (c.source.node.get() == &node && !doomed.count(c.destination.node.get())) return true;
        return false;
    }

    // History nodes upstream of `node` (itself included), following incoming connections: non-DAG
    // nodes and intermediate shapes (an "Orig" shape that fed the history), as Maya deletes them too.
    static void collectHistory(const NodePtr& node, std::set<Node*>& found) {
        if ((node->type->isDag && !isIntermediateShape(*node)) || !found.insert(node.get()).second) return;
        for (const auto& c : scene().connectionsOf(*node))
            if (c.destination.node == node) collectHistory(c.source.node, found);
    }

    static bool isIntermediateShape(const Node& node) {
        const Attribute* flag = node.type->findAttribute("intermediateObject");
        return node.type->isShape && flag && node.storedValue({flag, -1}).numbers[0] != 0;
    }

    void applyBakedValues(bool after) {
        for (auto& baked : baked_) {
            baked.node->values = after ? baked.after : baked.before;
            noteValuesEdited(*baked.node);
        }
    }

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
