// Edits of the retopo mesh made by the host's own modelling commands, composed as script text,
// and the scene-level work around the patch node: creating the retopo mesh, putting a patch node
// into its history and taking it out again.

#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>

#include "geometry/functionsInternal.h"

namespace {

// `path`.e[id] or `path`.vtx[id] as one component name.
MString componentName(const MDagPath& path, const char* kind, int id) {
    MString text = path.fullPathName();
    text += ".";
    text += kind;
    text += "[";
    text += id;
    text += "]";
    return text;
}

// A component name in double quotes, with a blank before it.
MString quotedComponent(const MDagPath& path, const char* kind, int id) {
    return " \"" + componentName(path, kind, id) + "\"";
}

}  // namespace

// The "- insertWithEdgeFlow 0" with its blank is the text the tool has always sent; it stays.
MString splitRingCommand(const MDagPath& path, const MIntArray& edgeIds, double weight) {
    MString text(" polySplitRing -splitType 1 -weight ");
    text += weight;
    text += " -smoothingAngle 30 -fixQuads 1 - insertWithEdgeFlow 0 ";
    for (unsigned int i = 0; i < edgeIds.length(); ++i) text += componentName(path, "e", edgeIds[i]) + " ";
    text += " ;";
    return text;
}

MString bridgeCommand(const MDagPath& path, const MIntArray& edges1, const MIntArray& edges2, int divisions) {
    MString text("polyBridgeEdge ");
    text += "-divisions ";
    text += divisions;
    text += " -direction 0";
    for (unsigned int i = 0; i < edges1.length(); ++i) {
        text += quotedComponent(path, "e", edges1[i]);
        text += quotedComponent(path, "e", edges2[i]);
    }
    return text;
}

// The "- am 1" with its blank is the text the tool has always sent; it stays.
MString mergePairCommand(const MIntArray& vertexIds, const MDagPath& path) {
    MString text("polyMergeVertex -d 9999 - am 1 ");
    text += quotedComponent(path, "vtx", vertexIds[0]);
    text += quotedComponent(path, "vtx", vertexIds[1]);
    return text;
}

MString fuseBordersCommand(const MDagPath& path, const MIntArray& ids1, const MIntArray& ids2,
                           const MPointArray& positions) {
    MString text;
    for (unsigned int i = 0; i < ids1.length(); ++i) {
        for (int id : {ids1[i], ids2[i]}) {
            text += "move -a ";
            text += positions[i].x;
            text += " ";
            text += positions[i].y;
            text += " ";
            text += positions[i].z;
            text += " " + componentName(path, "vtx", id) + ";";
        }
    }
    text += "polyMergeVertex -am 1 -d 0.01 ";
    for (unsigned int i = 0; i < ids1.length(); ++i)
        text += componentName(path, "vtx", ids1[i]) + " " + componentName(path, "vtx", ids2[i]) + " ";
    return text;
}

MString patchCommandText(const MString& name, const MDagPath& path) {
    return "kyPatchCmd -m \"" + path.fullPathName() + "\" -o " + "\"" + name + "\";";
}

MDagPath createRetopoMesh(MStatus& status) {
    const MString name = nextPatchNodeName("kyMeshShape");
    const MString shapeName = MGlobal::executeCommandStringResult("createNode \"mesh\" -n \"" + name + "\";",
                                                                  false, false, &status);
    if (KY_REPORT_FAILURE(status)) return MDagPath();

    MSelectionList list;
    MDagPath shape;
    status = list.add(shapeName);
    if (KY_REPORT_FAILURE(status)) return MDagPath();
    status = list.getDagPath(0, shape);
    if (KY_REPORT_FAILURE(status)) return MDagPath();

    // The default material, so that the new mesh shows.
    KY_REPORT_FAILURE(
        MGlobal::executeCommand("sets -e -forceElement \"initialShadingGroup\" " + shape.fullPathName()));
    MGlobal::selectByName(shape.fullPathName(), MGlobal::kReplaceList);

    MDagPath transform;
    status = MDagPath::getAPathTo(MFnDagNode(shape).parent(0), transform);
    if (KY_REPORT_FAILURE(status)) return MDagPath();
    MGlobal::selectByName(transform.fullPathName(), MGlobal::kReplaceList);
    return transform;
}

MStatus applyPatchCommand(const MString& name, const MDagPath& path, MObject& outNode) {
    const MStatus status = MGlobal::executeCommand(patchCommandText(name, path), false, false);
    if (!status) return status;
    // kyPatchCmd answers success even when it inserted nothing: the node itself is the test.
    return findPatchNodeByName(name, outNode) ? MStatus(MS::kSuccess) : MStatus(MS::kInvalidParameter);
}

MStatus removePatchNode(const MString& name) {
    MObject node;
    if (!findPatchNodeByName(name, node) || !bypassNode(node)) return MS::kInvalidParameter;
    return MGlobal::executeCommand("delete \"" + name + "\";", false, false);
}

bool bypassNode(const MObject& node) {
    MString source, destination;
    if (!readNeighbourPlugs(source, node, destination, "inMesh", "outMesh")) return false;
    return static_cast<bool>(
        MGlobal::executeCommand("connectAttr " + source + " " + destination + " -f;", false, false));
}

bool readNeighbourPlugs(MString& outSource, const MObject& node, MString& outDest, const MString& inName,
                        const MString& outName) {
    MStatus status;
    MFnDependencyNode dependNode(node, &status);
    if (!status) return false;
    MPlug inPlug = dependNode.findPlug(inName, true, &status);
    if (!status || inPlug.isNull()) return false;
    outSource = inPlug.source().name();

    MPlug outPlug = dependNode.findPlug(outName, true, &status);
    if (!status || outPlug.isNull()) return false;
    MPlugArray destinations;
    if (!outPlug.destinations(destinations) || destinations.length() == 0) return false;
    // Every destination is taken in turn, so the last one wins.
    for (unsigned int i = 0; i < destinations.length(); ++i) outDest = destinations[i].name();
    return true;
}
