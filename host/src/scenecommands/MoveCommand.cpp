// move: sets mesh vertices to a point (-absolute, the default) or moves them by an offset (-relative),
// in world space (the default) or object space (-objectSpace). The host moves mesh vertices only.
// Moves are stored as the shape's pnts tweaks, where Maya keeps vertex moves too, so they last over a
// shape with history; an absolute move puts every listed vertex on the point.

#include <maya/MDagPath.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <set>

#include "graph/Scene.h"
#include "meshnode/MeshData.h"
#include "meshnode/MeshShapeNode.h"
#include "meshnode/ShapeGeometry.h"
#include "scenecommands/MeshElements.h"
#include "scenecommands/SceneCommand.h"
#include "scenecommands/SceneCommands.h"
#include "scenecommands/StoredTweaks.h"

namespace mhost {
namespace {

// Where the command sends vertices, in the shape's object space.
struct MoveTarget {
    Vec3 xyz;
    bool relative = false;
    MMatrix toObject;

    Vec3 of(const Vec3& shown) const {
        if (relative) {
            const MVector offset = MVector(xyz.x, xyz.y, xyz.z) * toObject;
            return shown + Vec3(offset.x, offset.y, offset.z);
        }
        const MPoint point = MPoint(xyz.x, xyz.y, xyz.z) * toObject;
        return {point.x, point.y, point.z};
    }
};

class MoveCommand : public SyntaxCommand<MoveCommand> {
public:
    static MSyntax makeSyntax() {
        MSyntax syntax;
        syntax.addFlag("-a", "-absolute");
        syntax.addFlag("-r", "-relative");
        syntax.addFlag("-os", "-objectSpace");
        syntax.addFlag("-ws", "-worldSpace");
        for (int axis = 0; axis < 3; ++axis) syntax.addArg(MSyntax::kDouble);
        syntax.setObjectType(MSyntax::kStringObjects, 1);
        return syntax;
    }

    MStatus doIt(const MArgList& args) override {
        MStatus status = parse(args);
        if (!status) return status;
        MStringArray objects;
        flags().getObjects(objects);
        MeshElements elements;
        if (!(status = resolveMeshElements("move", objects, MFn::kMeshVertComponent, false, elements)))
            return status;
        shape_ = elements.shape;
        MoveTarget target;
        if (!(status = readTarget(target))) return status;
        before_ = StoredTweaks::of(shape_);
        after_ = before_;
        const MeshDataPtr shown = shapeGeometry(shape_);
        const MeshTopology& untweaked = untweakedMesh();
        for (int vertex : std::set<int>(elements.ids.begin(), elements.ids.end())) {
            // Measured from the mesh before tweaks, so that the vertex shows the target itself.
            const Vec3 tweak = target.of(Vec3(shown->mesh().point(vertex))) - Vec3(untweaked.point(vertex));
            if (!isFinite(Vec3f(tweak)))
                return fail("move: vertex " + std::to_string(vertex) + " would not be finite");
            after_.setOffset(vertex, tweak);
        }
        return redoIt();
    }

    bool isUndoable() const override { return true; }
    MStatus undoIt() override {
        before_.writeTo(shape_);
        return MS::kSuccess;
    }
    MStatus redoIt() override {
        after_.writeTo(shape_);
        return MS::kSuccess;
    }

private:
    MStatus readTarget(MoveTarget& target) const {
        double xyz[3] = {0, 0, 0};
        for (unsigned int axis = 0; axis < 3; ++axis) flags().getCommandArgument(axis, xyz[axis]);
        target.xyz = Vec3(xyz[0], xyz[1], xyz[2]);
        target.relative = flags().isFlagSet("-r");
        if (flags().isFlagSet("-os")) return MS::kSuccess;
        const MMatrix toWorld = MDagPath::fromHostNode(shape_).inclusiveMatrix();
        if (toWorld.isSingular())
            return fail("move: the world matrix of " + shape_->name + " has no inverse");
        target.toObject = toWorld.inverse();
        return MS::kSuccess;
    }

    // The shape's mesh before its pnts tweaks (its history's output, or its own mesh).
    const MeshTopology& untweakedMesh() {
        untweaked_ =
            meshDataOf(scene().evaluate({shape_, {meshShapeAttributes().cachedInMesh.get(), -1}}).data);
        if (!untweaked_) untweaked_ = std::make_shared<MeshData>();
        return untweaked_->mesh();
    }

    NodePtr shape_;
    StoredTweaks before_;
    StoredTweaks after_;
    MeshDataPtr untweaked_;
};

}  // namespace

void registerMoveCommand(CommandTable& table) {
    table.add("move", [] { return std::make_unique<MoveCommand>(); });
}

}  // namespace mhost
