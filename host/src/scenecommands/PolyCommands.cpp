// polyMergeVertex, polyBridgeEdge and polySplitRing: each names mesh elements and makes one PolyEdit.

#include "polymodifiers/PolyModifierKind.h"
#include "scenecommands/MeshElements.h"
#include "scenecommands/PolyEdit.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"

namespace mhost {
namespace {

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180;

// A modelling command: its objects name the elements, its flags the parameters of one PolyEdit, and
// its result is the name of the history node made (the shape's name when it has no history).
template <class Command>
class PolyModifierCommand : public SyntaxCommand<Command> {
public:
    bool isUndoable() const override { return true; }
    MStatus undoIt() override { return edit_.undo(); }
    MStatus redoIt() override { return edit_.redo(); }

protected:
    MStatus run(const std::string& name, MFn::Type elementType, bool wholeMeshAllowed,
                const PolyModifierKind& kind, const PolyModifierValues& values) {
        MStringArray objects;
        this->flags().getObjects(objects);
        try {
            MeshElements elements;
            MStatus status = resolveMeshElements(name, objects, elementType, wholeMeshAllowed, elements);
            if (!status) return status;
            std::string node;
            status = edit_.apply(name, elements.shape, kind, elements.ids, kind.withDefaults(values), node);
            if (status) this->result().set(node);
            return status;
        } catch (const std::exception& error) {
            return SceneCommand::fail(name + ": " + error.what(), MS::kFailure);
        }
    }

    // The flag's value when it was given, as a number.
    template <class Value>
    void readFlag(const char* flag, const char* parameter, PolyModifierValues& values,
                  double scale = 1) const {
        if (!this->flags().isFlagSet(flag)) return;
        Value value{};
        this->flags().getFlagArgument(flag, 0, value);
        values[parameter] = static_cast<double>(value) * scale;
    }

private:
    PolyEdit edit_;
};

class PolyMergeVertexCommand : public PolyModifierCommand<PolyMergeVertexCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-d", "-distance", MSyntax::kDouble);
        syntax.addFlag("-am", "-alwaysMergeTwoVertices", MSyntax::kBoolean);
        syntax.setObjectType(MSyntax::kStringObjects, 1);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        PolyModifierValues values;
        readFlag<double>("-d", "distance", values);
        readFlag<bool>("-am", "alwaysMergeTwoVertices", values);
        return run("polyMergeVertex", MFn::kMeshVertComponent, true, polyMergeVertKind(), values);
    }
};

// -direction is accepted for Maya's sake: it steers only the curved bridges, and the host's are straight.
class PolyBridgeEdgeCommand : public PolyModifierCommand<PolyBridgeEdgeCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-dv", "-divisions", MSyntax::kLong);
        syntax.addFlag("-d", "-direction", MSyntax::kLong);
        syntax.addFlag("-sma", "-smoothingAngle", MSyntax::kDouble);
        syntax.setObjectType(MSyntax::kStringObjects, 1);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        PolyModifierValues values;
        readFlag<int>("-dv", "divisions", values);
        readFlag<double>("-sma", "smoothingAngle", values, kRadiansPerDegree);
        return run("polyBridgeEdge", MFn::kMeshEdgeComponent, false, polyBridgeEdgeKind(), values);
    }
};

// Only the relative split (-splitType 1) without edge flow is made. -fixQuads is accepted: the ring
// crosses each quad through opposite edges, which never leaves the 5- and 3-sided pair it repairs.
class PolySplitRingCommand : public PolyModifierCommand<PolySplitRingCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-stp", "-splitType", MSyntax::kLong);
        syntax.addFlag("-wt", "-weight", MSyntax::kDouble);
        syntax.addFlag("-sma", "-smoothingAngle", MSyntax::kDouble);
        syntax.addFlag("-fq", "-fixQuads", MSyntax::kBoolean);
        syntax.addFlag("-ief", "-insertWithEdgeFlow", MSyntax::kBoolean);
        syntax.setObjectType(MSyntax::kStringObjects, 1);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        if (!(status = checkSupported())) return status;
        PolyModifierValues values;
        readFlag<double>("-wt", "weight", values);
        readFlag<double>("-sma", "smoothingAngle", values, kRadiansPerDegree);
        return run("polySplitRing", MFn::kMeshEdgeComponent, false, polySplitRingKind(), values);
    }

private:
    MStatus checkSupported() const {
        int splitType = 1;
        bool edgeFlow = false;
        if (flags().isFlagSet("-stp")) flags().getFlagArgument("-stp", 0, splitType);
        if (flags().isFlagSet("-ief")) flags().getFlagArgument("-ief", 0, edgeFlow);
        if (splitType != 1)
            return fail("polySplitRing: only -splitType 1 (relative) is supported", MS::kNotImplemented);
        if (edgeFlow) return fail("polySplitRing: -insertWithEdgeFlow is not supported", MS::kNotImplemented);
        return MS::kSuccess;
    }
};

}  // namespace

void registerPolyCommands(CommandTable& table) {
    table.add("polyMergeVertex", [] { return std::make_unique<PolyMergeVertexCommand>(); });
    table.add("polyBridgeEdge", [] { return std::make_unique<PolyBridgeEdgeCommand>(); });
    table.add("polySplitRing", [] { return std::make_unique<PolySplitRingCommand>(); });
}

}  // namespace mhost
