// Finding the tool's nodes and meshes in the scene. Nothing is cached: every call looks again.

#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MItDag.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MSelectionList.h>
#include <maya/MStringArray.h>

#include <set>
#include <string>

#include "geometry/functionsInternal.h"

namespace {

const char* const kPatchNodeType = "kyPatchNode";

// Names of every "kyPatchNode" node in the scene.
std::set<std::string> patchNodeNames() {
    std::set<std::string> names;
    for (MItDependencyNodes it(MFn::kPluginDependNode); !it.isDone(); it.next()) {
        MFnDependencyNode node(it.thisNode());
        if (node.typeName() == kPatchNodeType) names.insert(node.name().asChar());
    }
    return names;
}

}  // namespace

MObject findStrakeLocator() {
    for (MItDependencyNodes it(MFn::kPluginDependNode); !it.isDone(); it.next()) {
        MObject node = it.thisNode();
        if (MFnDependencyNode(node).hasAttribute("kyStrakeMesh")) return node;
    }
    return MObject::kNullObj;
}

MDagPath getActiveMeshPath() {
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MDagPath path;
    if (!selection.getDagPath(0, path) || !path.extendToShape() || !path.hasFn(MFn::kMesh)) {
        // Nothing selected, or no mesh first: there is no retopo mesh, which is no error here.
        return MDagPath();
    }
    return path;
}

MDagPath getSourceMeshPath(MStatus& status) {
    MDagPath path;
    MObject locator = findStrakeLocator();
    if (locator.isNull()) {
        status = MS::kInvalidParameter;
        return path;
    }
    MPlug meshPlug = MFnDependencyNode(locator).findPlug("kyStrakeMesh", false, &status);
    if (KY_REPORT_FAILURE(status)) return path;
    MPlugArray sources;
    meshPlug.connectedTo(sources, true, false, &status);
    if (KY_REPORT_FAILURE(status) || sources.length() == 0) return path;

    MObject meshNode = sources[0].node();
    MFnMesh mesh(meshNode, &status);
    if (KY_REPORT_FAILURE(status)) return path;
    status = MDagPath::getAPathTo(meshNode, path);
    KY_REPORT_FAILURE(status);
    return path;
}

MDagPath getSourceMeshPath() {
    MStatus status;
    return getSourceMeshPath(status);
}

MDagPath findMeshByName(const MString& name, MStatus& status) {
    status = MS::kSuccess;
    MSelectionList list;
    MDagPath path;
    if (list.add(name) && list.getDagPath(0, path) && path.isValid()) return path;

    MDagPath active = getActiveMeshPath();
    if (active.partialPathName() == name) return active;
    for (MItDag it; !it.isDone(); it.next()) {
        it.getPath(path);
        if (path.partialPathName() == name) return path;
    }
    status = MS::kInvalidParameter;
    return MDagPath();
}

bool findPatchNodeByName(const MString& name, MObject& outNode) {
    for (MItDependencyNodes it(MFn::kPluginDependNode); !it.isDone(); it.next()) {
        MFnDependencyNode node(it.thisNode());
        if (node.typeName() == kPatchNodeType && node.name() == name) {
            outNode = it.thisNode();
            return true;
        }
    }
    return false;
}

bool getUpstreamPatchNode(MObject& outNode, MStatus& status) {
    MFnDependencyNode mesh(getActiveMeshPath().node(), &status);
    if (KY_REPORT_FAILURE(status)) return false;
    MPlug inMesh = mesh.findPlug("inMesh", false, &status);
    if (KY_REPORT_FAILURE(status)) return false;

    MObject upstream = inMesh.source().node();
    if (upstream.isNull() || MFnDependencyNode(upstream).typeName() != kPatchNodeType) {
        status = MS::kFailure;
        return false;
    }
    outNode = upstream;
    status = MS::kSuccess;
    return true;
}

MString nextPatchNodeName(const MString& stem) {
    const std::set<std::string> taken = patchNodeNames();
    // The counter is appended as its low eight bits read as a signed value: stem127 is followed by
    // stem-128, and the names repeat every 256 counts. The counter formally runs to 999999, but
    // since the names repeat, no count past the first 256 can find a free name that those missed.
    const int lastCount = 999999;
    const int distinctNames = 256;
    for (int count = 1; count <= lastCount && count <= distinctNames; ++count) {
        int suffix = count & 0xFF;
        if (suffix > 127) suffix -= 256;
        MString candidate = stem;
        candidate += suffix;
        if (taken.count(candidate.asChar()) == 0) return candidate;
    }
    return stem;
}

MObject getObjectByName(const MString& name) {
    MSelectionList list;
    MObject node;
    if (list.add(name)) list.getDependNode(0, node);
    return node;
}

int meshVertexCount(const MDagPath& path) {
    if (!path.isValid()) return 0;
    MStatus status;
    MFnMesh mesh(path, &status);
    if (!status) return 0;
    const int count = mesh.numVertices(&status);
    return status ? count : 0;
}

int countHistoryNodes() {
    MDagPath path = getActiveMeshPath();
    if (!path.isValid()) return 0;
    MStringArray history;
    if (!MGlobal::executeCommand("listHistory -ac " + path.fullPathName(), history)) return 0;
    return static_cast<int>(history.length());
}
