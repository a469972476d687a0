// select, changeSelectMode and sets.

#include <maya/MIntArray.h>
#include <maya/MPlugArray.h>

#include <algorithm>

#include "graph/ApiBridge.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

class SelectCommand : public SyntaxCommand<SelectCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-r", "-replace");
        syntax.addFlag("-add", "-add");
        syntax.addFlag("-af", "-addFirst");
        syntax.addFlag("-d", "-deselect");
        syntax.addFlag("-tgl", "-toggle");
        syntax.addFlag("-cl", "-clear");
        syntax.addFlag("-ne", "-noExpand");
        syntax.setObjectType(MSyntax::kStringObjects);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        MStringArray names;
        flags().getObjects(names);
        MSelectionList named;
        for (unsigned int i = 0; i < names.length(); ++i)
            if (!named.add(names[i]))
                return fail(std::string("No object matches name: ") + names[i].asChar());
        before_ = scene().settings.activeSelection;
        after_ = flags().isFlagSet("-cl") ? MSelectionList() : combine(flags(), before_, named);
        scene().setActiveSelection(after_);
        return MS::kSuccess;
    }

    bool isUndoable() const override { return true; }
    MStatus undoIt() override {
        scene().setActiveSelection(before_);
        return MS::kSuccess;
    }
    MStatus redoIt() override {
        scene().setActiveSelection(after_);
        return MS::kSuccess;
    }

private:
    static MSelectionList combine(const MArgDatabase& db, const MSelectionList& current,
                                  const MSelectionList& named) {
        MSelectionList result = current;
        if (db.isFlagSet("-add"))
            result.merge(named);
        else if (db.isFlagSet("-af")) {
            result = named;
            result.merge(current);
        } else if (db.isFlagSet("-d"))
            result.merge(named, MSelectionList::kRemoveFromList);
        else if (db.isFlagSet("-tgl"))
            result.merge(named, MSelectionList::kXORWithList);
        else
            result = named;
        return result;
    }

    MSelectionList before_, after_;
};

class ChangeSelectModeCommand : public SyntaxCommand<ChangeSelectModeCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-o", "-object");
        syntax.addFlag("-co", "-component");
        syntax.enableQuery();
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        const MArgDatabase& db = flags();
        std::string& mode = scene().settings.selectMode;
        if (db.isQuery()) {
            result().set(db.isFlagSet("-co") ? int(mode == "component") : int(mode == "object"));
            return MS::kSuccess;
        }
        if (db.isFlagSet("-o") == db.isFlagSet("-co"))
            return fail("changeSelectMode: use -object or -component");
        mode = db.isFlagSet("-o") ? "object" : "component";
        return MS::kSuccess;
    }
};

// sets -edit -forceElement SET members: makes each member belong to SET, taking it out of any other
// shading group first, as Maya keeps a shape in one shading group at a time.
class SetsCommand : public ModifierCommand<SetsCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-fe", "-forceElement", MSyntax::kString);
        syntax.enableEdit();
        syntax.setObjectType(MSyntax::kStringObjects, 1);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        if (!flags().isEdit() || !flags().isFlagSet("-fe"))
            return fail("sets: only -edit -forceElement is supported");
        MString setName;
        flags().getFlagArgument("-fe", 0, setName);
        NodePtr set = lookUpNode(setName.asChar());
        if (!set || !set->hasFn(MFn::kSet))
            return fail(std::string("sets: no set named ") + setName.asChar());
        std::vector<NodePtr> members;
        if (!(status = objectNodes(members))) return status;
        for (const auto& member : members) {
            if (!member->type->isDag) return fail("sets: " + member->name + " is not a DAG object");
            join(member, set);
        }
        return modifier_.doIt();
    }

private:
    void join(const NodePtr& member, const NodePtr& set) {
        MPlug groups = lookUpPlug(member, "instObjGroups");
        MPlug first = groups.elementByLogicalIndex(0);
        MPlugArray current;
        first.destinations(current);
        for (unsigned int i = 0; i < current.length(); ++i) modifier_.disconnect(first, current[i]);
        MPlug setMembers = lookUpPlug(set, "dagSetMembers");
        modifier_.connect(first, setMembers.elementByLogicalIndex(nextFreeIndex(setMembers)));
    }

    // The first logical index past those in use, counting the elements this command joins already.
    unsigned int nextFreeIndex(MPlug& setMembers) {
        MIntArray used;
        setMembers.getExistingArrayAttributeIndices(used);
        unsigned int next = used.length() ? static_cast<unsigned int>(used[used.length() - 1]) + 1 : 0;
        next = std::max(next, reserved_);
        reserved_ = next + 1;
        return next;
    }

    unsigned int reserved_ = 0;
};

}  // namespace

void registerSelectionCommands(CommandTable& table) {
    table.add("select", [] { return std::make_unique<SelectCommand>(); });
    table.add("changeSelectMode", [] { return std::make_unique<ChangeSelectModeCommand>(); });
    table.add("sets", [] { return std::make_unique<SetsCommand>(); });
}

}  // namespace mhost
