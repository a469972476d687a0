#pragma once
// Inserting a modifier node into the history of a mesh shape without changing the mesh's look.
// A mesh arrives in one of three states (with history, without history, with vertex tweaks);
// kyPatchNodeCmd copes with all three for any node type with "inMesh" and "outMesh", and kyPatchCmd
// is the script command "kyPatchCmd" that inserts a kyPatchNode.

#include <maya/MArgList.h>
#include <maya/MDagModifier.h>
#include <maya/MDagPath.h>
#include <maya/MObject.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>
#include <maya/MTypeId.h>

class kyPatchNodeCmd : public MPxCommand {
public:
    kyPatchNodeCmd();
    ~kyPatchNodeCmd() override;

    MStatus doIt(const MArgList& args) override = 0;
    // Undoes the three stages, the last first; see the definition for how the stages chain.
    MStatus undoIt() override;
    // Runs the stages again, duplicating the shape anew when it had no history.
    MStatus redoIt() override;
    // False: the host never files the command; the tool's own undo takes the node out again.
    bool isUndoable() const override;

protected:
    // Sets the new modifier node up before it is connected; `modifier` is the detaching stage.
    virtual MStatus initModifierNode(MObject modifierNode, MDagModifier& modifier) = 0;

    // Inserts a new node of type `typeId` between the shape at `path` and what fed it, renames it
    // `name` (when not empty) and sets the command's result to its final name. Failures are shown
    // with displayError and returned in `status` as kFailure.
    void modifyMesh(MStatus& status, const MDagPath& path, const MString& name, const MTypeId& typeId);
    // Queues on `modifier` the move of every tweak of the shape's "pnts" onto the polyTweak node's
    // "tweak" array, connections included, and the zeroing of the shape's own tweaks.
    void processTweaks(MStatus& status, const MDagPath& meshPath, const MObject& tweakNode,
                       MDagModifier& modifier);

private:
    // Reads whether the shape has history and tweaks, whether the host records history, and keeps
    // the mesh data of a shape without history.
    void surveyShape();

    MDagPath meshPath;
    MTypeId modifierTypeId;
    bool hasHistory = false;
    bool hasTweaks = false;
    bool recordsHistory = false;
    // Stage 0 creates the nodes, stage 1 detaches the upstream and moves tweaks, stage 2 connects
    // and finishes.
    MDagModifier modifiers[3];
    MObject duplicateTransform;
    MObject cachedMeshData;
};

class kyPatchCmd : public kyPatchNodeCmd {
public:
    kyPatchCmd();
    ~kyPatchCmd() override;

    // "-m"/"-mesh" names the mesh, "-o"/"-outname" the new node (default "kyPatch"). Returns
    // success whatever the insertion reported: callers test whether the node exists.
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    static MSyntax newSyntax();

protected:
    // The patch node needs nothing at creation: its arrays start empty, so it is transparent.
    MStatus initModifierNode(MObject modifierNode, MDagModifier& modifier) override;

private:
    MDagPath targetPath;
    MObject targetTransform;
    MString meshName;
    MString outName;
};
