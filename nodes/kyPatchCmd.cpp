#include "nodes/kyPatchCmd.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnNumericData.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>

#include "nodes/kyPatchNode.h"

namespace {

const char* const kMeshFlag = "-m";
const char* const kMeshFlagLong = "-mesh";
const char* const kOutNameFlag = "-o";
const char* const kOutNameFlagLong = "-outname";
const char* const kDefaultNodeName = "kyPatch";

// The three float components of a "pnts" element, read as one numeric data object. False when the
// element gives no value.
bool readTweak(const MPlug& element, float& x, float& y, float& z) {
    MObject data;
    if (!element.getValue(data)) return false;
    MFnNumericData numeric(data);
    return static_cast<bool>(numeric.getData(x, y, z));
}

// Queues the move of every connection of `from` onto `to`: its destinations, then its source
// when it has exactly one.
void moveConnections(const MPlug& from, const MPlug& to, MDagModifier& modifier) {
    MPlugArray destinations;
    from.connectedTo(destinations, false, true);
    for (unsigned int i = 0; i < destinations.length(); ++i) {
        modifier.disconnect(from, destinations[i]);
        modifier.connect(to, destinations[i]);
    }
    MPlugArray sources;
    from.connectedTo(sources, true, false);
    if (sources.length() == 1) {
        modifier.disconnect(sources[0], from);
        modifier.connect(sources[0], to);
    }
}

// The mesh data the shape holds before the change: before its tweaks when it has any.
const char* keptMeshPlugName(bool hasTweaks) { return hasTweaks ? "cachedInMesh" : "outMesh"; }

}  // namespace

kyPatchNodeCmd::kyPatchNodeCmd() = default;

kyPatchNodeCmd::~kyPatchNodeCmd() = default;

bool kyPatchNodeCmd::isUndoable() const { return false; }

void kyPatchNodeCmd::surveyShape() {
    MFnDagNode shape(meshPath);
    hasHistory = shape.findPlug("inMesh", true).isConnected();
    hasTweaks = false;

    MStatus status;
    MPlug tweaks = shape.findPlug("pnts", true, &status);
    if (status) {
        for (unsigned int i = 0; i < tweaks.numElements() && !hasTweaks; ++i) {
            MPlug element = tweaks.elementByPhysicalIndex(i, &status);
            float x = 0, y = 0, z = 0;
            if (!status || element.isNull() || !readTweak(element, x, y, z)) continue;
            // Exact test, no tolerance; a NaN counts as a tweak.
            hasTweaks = x != 0.0f || y != 0.0f || z != 0.0f;
        }
    }

    int toggle = 0;
    MGlobal::executeCommand("constructionHistory -query -toggle", toggle);
    recordsHistory = toggle != 0;

    if (!hasHistory) shape.findPlug(keptMeshPlugName(hasTweaks), true).getValue(cachedMeshData);
}

void kyPatchNodeCmd::modifyMesh(MStatus& status, const MDagPath& path, const MString& name,
                                const MTypeId& typeId) {
    meshPath = path;
    modifierTypeId = typeId;
    if (!meshPath.isValid()) {
        displayError("Invalid mesh shape path: " + meshPath.fullPathName());
        status = MS::kFailure;
        return;
    }
    surveyShape();

    // The statuses of the modifier calls from here on are collected and not tested: only the two
    // failures displayed below stop the insertion.
    MStatus stepStatus;
    // The tweak node is made in every case and stays unconnected when the shape has no tweaks.
    MObject modifierNode = modifiers[0].MDGModifier::createNode(modifierTypeId, &stepStatus);
    MObject tweakNode = modifiers[0].MDGModifier::createNode("polyTweak", &stepStatus);
    stepStatus = modifiers[0].doIt();

    MFnDependencyNode modifierFn(modifierNode);
    MObject inAttribute = modifierFn.attribute("inMesh");
    MObject outAttribute = modifierFn.attribute("outMesh");
    if (inAttribute.isNull() || outAttribute.isNull()) {
        displayError("Invalid modifier node. It doesn't have inMesh and/or outMesh attributes");
        status = MS::kFailure;
        return;
    }
    stepStatus = initModifierNode(modifierNode, modifiers[1]);

    // Stage 1: detach the upstream and move the tweaks.
    MFnDagNode shape(meshPath);
    MPlug shapeInPlug = shape.findPlug("inMesh", true);
    MPlug modifierInPlug(modifierNode, inAttribute);
    MPlug upstreamPlug;
    MPlugArray sources;
    shapeInPlug.connectedTo(sources, true, false);
    if (sources.length() > 0) {
        upstreamPlug = sources[0];
        stepStatus = modifiers[1].disconnect(upstreamPlug, shapeInPlug);
    }
    MPlug destinationPlug = modifierInPlug;
    if (hasTweaks) {
        processTweaks(stepStatus, meshPath, tweakNode, modifiers[1]);
        MFnDependencyNode tweakFn(tweakNode);
        destinationPlug = tweakFn.findPlug("inputPolymesh", true);
        stepStatus = modifiers[1].connect(tweakFn.findPlug("output", true), modifierInPlug);
    }
    stepStatus = modifiers[1].doIt();

    // Stage 2: a shape without history keeps its geometry as an intermediate "Orig" shape beside
    // it, made from a duplicate whose own transform is then deleted.
    duplicateTransform = MObject::kNullObj;
    if (!hasHistory) {
        duplicateTransform = shape.duplicate(false, false, &stepStatus);
        MFnDagNode duplicateTransformFn(duplicateTransform);
        MObject duplicateShape = duplicateTransformFn.child(0);
        MFnDagNode duplicateShapeFn(duplicateShape);
        stepStatus = modifiers[2].commandToExecute("setAttr " + duplicateShapeFn.fullPathName() +
                                                   ".intermediateObject true");
        upstreamPlug = duplicateShapeFn.findPlug("outMesh", true);
        stepStatus = modifiers[2].renameNode(duplicateShape, duplicateShapeFn.name() + "Orig");
        stepStatus = modifiers[2].reparentNode(duplicateShape, meshPath.transform());
        stepStatus = modifiers[2].commandToExecute("delete \"" + duplicateTransformFn.fullPathName() + "\"");
    }
    if (!upstreamPlug.isNull()) stepStatus = modifiers[2].connect(upstreamPlug, destinationPlug);
    stepStatus = modifiers[2].connect(MPlug(modifierNode, outAttribute), shapeInPlug);
    // With history off, the result is baked as a user with history off expects.
    if (!hasHistory && !recordsHistory)
        stepStatus = modifiers[2].commandToExecute("delete -constructionHistory " + meshPath.fullPathName());
    stepStatus = modifiers[2].doIt();

    if (name.length() > 0) modifierFn.setName(name);
    setResult(modifierFn.name());
    status = MS::kSuccess;
}

void kyPatchNodeCmd::processTweaks(MStatus& status, const MDagPath& meshPath, const MObject& tweakNode,
                                   MDagModifier& modifier) {
    MFnDependencyNode tweakFn(tweakNode);
    MPlug tweakArray = tweakFn.findPlug("tweak", true, &status);
    MPlug tweaks = MFnDagNode(meshPath).findPlug("pnts", true, &status);
    if (!status) return;

    for (unsigned int i = 0; i < tweaks.numElements(); ++i) {
        MStatus elementStatus;
        MPlug element = tweaks.elementByPhysicalIndex(i, &elementStatus);
        if (!elementStatus || element.isNull()) continue;
        const unsigned int logical = element.logicalIndex();
        float x = 0, y = 0, z = 0;
        readTweak(element, x, y, z);
        status = modifier.commandToExecute("setAttr " + tweakFn.name() + ".tweak[" + logical + "] " + x +
                                           " " + y + " " + z);

        MPlug tweakElement = tweakArray.elementByLogicalIndex(logical);
        if (element.isConnected()) {
            moveConnections(element, tweakElement, modifier);
        } else {
            for (unsigned int c = 0; c < element.numChildren(); ++c) {
                MPlug child = element.child(c);
                if (child.isConnected()) moveConnections(child, tweakElement.child(c), modifier);
            }
        }
        // The tweak now lives on the tweak node; zero it here so it is not applied twice.
        status =
            modifier.commandToExecute("setAttr " + meshPath.fullPathName() + ".pnts[" + logical + "] 0 0 0");
    }
}

MStatus kyPatchNodeCmd::redoIt() {
    modifiers[0].doIt();
    modifiers[1].doIt();
    if (!hasHistory && meshPath.isValid()) duplicateTransform = MFnDagNode(meshPath).duplicate(false, false);
    // A shape with history never reruns stage 2 here, an asymmetry that is kept.
    if (!duplicateTransform.isNull()) modifiers[2].doIt();
    return MS::kSuccess;
}

// The stages are undone last first, but each earlier stage only when the later one failed to undo:
// a successful undo of stage 1 ends here. The host never calls this (the command is not undoable),
// and the order is kept as it is.
MStatus kyPatchNodeCmd::undoIt() {
    modifiers[2].undoIt();
    if (!duplicateTransform.isNull()) MGlobal::deleteNode(duplicateTransform);
    if (modifiers[1].undoIt()) return MS::kSuccess;
    if (modifiers[0].undoIt()) return MS::kSuccess;
    if (!hasHistory && !cachedMeshData.isNull()) {
        MStatus status;
        MPlug kept = MFnDagNode(meshPath).findPlug(keptMeshPlugName(hasTweaks), true, &status);
        if (status) kept.setValue(cachedMeshData);
    }
    return MS::kSuccess;
}

kyPatchCmd::kyPatchCmd() : outName(kDefaultNodeName) {}

kyPatchCmd::~kyPatchCmd() = default;

void* kyPatchCmd::creator() { return new kyPatchCmd(); }

MSyntax kyPatchCmd::newSyntax() {
    MSyntax syntax;
    syntax.addFlag(kMeshFlag, kMeshFlagLong, MSyntax::kString);
    syntax.addFlag(kOutNameFlag, kOutNameFlagLong, MSyntax::kString);
    return syntax;
}

MStatus kyPatchCmd::doIt(const MArgList& args) {
    MStatus status;
    MArgDatabase flags(syntax(), args, &status);
    if (flags.isFlagSet(kMeshFlag) || flags.isFlagSet(kMeshFlagLong))
        flags.getFlagArgument(kMeshFlag, 0, meshName);
    if (flags.isFlagSet(kOutNameFlag) || flags.isFlagSet(kOutNameFlagLong))
        flags.getFlagArgument(kOutNameFlag, 0, outName);

    MSelectionList list;
    list.add(meshName);
    list.getDagPath(0, targetPath);
    targetTransform = targetPath.node();
    targetPath.extendToShape();
    modifyMesh(status, targetPath, outName, kyPatchNode::id);
    // Success whatever the insertion reported: the error text has been displayed, and a caller
    // that needs to know looks for the node.
    return MS::kSuccess;
}

MStatus kyPatchCmd::initModifierNode(MObject modifierNode, MDagModifier&) {
    // The seam where a modifier would set its own attributes: the name is taken and not used.
    MFnDependencyNode(modifierNode).name();
    return MS::kSuccess;
}
