// listHistory, constructionHistory and dgdirty.

#include <set>

#include "graph/ApiBridge.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

// listHistory: the node itself, then every node upstream of it through incoming connections,
// nearest first. -allConnections is accepted; the host follows all connections either way.
class ListHistoryCommand : public SyntaxCommand<ListHistoryCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-ac", "-allConnections");
        syntax.setObjectType(MSyntax::kStringObjects, 1);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        std::vector<NodePtr> nodes;
        if (!status || !(status = objectNodes(nodes))) return status;
        std::vector<std::string> history;
        std::set<Node*> seen;
        std::vector<NodePtr> frontier = nodes;
        while (!frontier.empty()) {
            std::vector<NodePtr> next;
            for (const auto& node : frontier) {
                if (!seen.insert(node.get()).second) continue;
                history.push_back(node->name);
                for (const auto& c : scene().connectionsOf(*node))
                    if (c.destination.node == node) next.push_back(c.source.node);
            }
            frontier = next;
        }
        result().set(history);
        return MS::kSuccess;
    }
};

class ConstructionHistoryCommand : public SyntaxCommand<ConstructionHistoryCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-tgl", "-toggle", MSyntax::kBoolean);
        syntax.enableQuery();
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        bool& enabled = scene().settings.constructionHistory;
        if (flags().isQuery()) {
            result().set(enabled ? 1 : 0);
            return MS::kSuccess;
        }
        if (!flags().isFlagSet("-tgl")) return fail("constructionHistory: use -toggle, or -query -toggle");
        bool on = true;
        flags().getFlagArgument("-tgl", 0, on);
        enabled = on;
        return MS::kSuccess;
    }
};

// dgdirty: flags every plug of the named nodes (or of all nodes with -a) dirty.
class DgDirtyCommand : public SyntaxCommand<DgDirtyCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-a", "-allPlugs");
        syntax.setObjectType(MSyntax::kStringObjects);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        std::vector<NodePtr> nodes;
        if (!status || !(status = objectNodes(nodes))) return status;
        if (flags().isFlagSet("-a")) nodes = scene().nodes();
        for (const auto& node : nodes)
            for (const auto& attribute : node->type->attributes)
                scene().markDirty({node, {attribute.get(), -1}});
        return MS::kSuccess;
    }
};

}  // namespace

void registerHistoryCommands(CommandTable& table) {
    table.add("listHistory", [] { return std::make_unique<ListHistoryCommand>(); });
    table.add("constructionHistory", [] { return std::make_unique<ConstructionHistoryCommand>(); });
    table.add("dgdirty", [] { return std::make_unique<DgDirtyCommand>(); });
}

}  // namespace mhost
