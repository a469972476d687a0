#include "runner/fuzz/SceneState.h"

#include <maya/MDagPath.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnMesh.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnVectorArrayData.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MItDag.h>
#include <maya/MPlug.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>
#include <maya/MVectorArray.h>

#include <cstring>

namespace kystrake {
namespace {

// The locator's attributes that hold the artist's work or the tool's display state; its connection
// from the source mesh is the one attribute left out.
const char* const kIntArrays[] = {"playervtx",      "sizes",       "sizesShadow",    "sizesNondestruct",
                                  "newFaces",       "tweakRadius", "shadowIndices1", "shadowIndices2",
                                  "shadowIndices3", "fuseindices"};
const char* const kPointArrays[] = {"strokes",      "freepoints",  "freezeMedian",  "playersLine",
                                    "playerpts",    "pointsDebug", "strokesShadow", "strokesNondestruct",
                                    "fusept",       "magnetPt",    "sublines",      "fusemesh",
                                    "verticestweak"};
// The attributes that hold ids of the retopo mesh.
const char* const kRowAttributes[] = {"shadowIndices1", "shadowIndices2", "shadowIndices3", "playervtx",
                                      "newFaces"};
const char* const kInts[] = {"displayInfo", "mode", "symmetry"};
const char* const kDoubles[] = {"displaySize", "pinch", "radiusMoveInteractive", "radiusRelaxInteractive",
                                "intensityRelaxInteractive"};
const char* const kTriples[] = {"interPoint", "interNormal"};

std::vector<int> toVector(const MIntArray& array) {
    std::vector<int> values(array.length());
    for (unsigned int i = 0; i < array.length(); ++i) values[i] = array[i];
    return values;
}

MeshArrays readMesh(const MDagPath& path) {
    MFnMesh mesh(path);
    MeshArrays arrays;
    arrays.name = path.partialPathName().asChar();
    MPointArray points;
    mesh.getPoints(points, MSpace::kObject);
    for (unsigned int i = 0; i < points.length(); ++i)
        arrays.points.insert(arrays.points.end(), {points[i].x, points[i].y, points[i].z});
    MIntArray counts, connects;
    mesh.getVertices(counts, connects);
    arrays.polygonCounts = toVector(counts);
    arrays.polygonConnects = toVector(connects);
    const MObject upstream = MFnDependencyNode(path.node()).findPlug("inMesh", false).source().node();
    arrays.hasHistory = !upstream.isNull();
    if (!upstream.isNull() && MFnDependencyNode(upstream).typeName() == "kyPatchNode") {
        const MFnDependencyNode patch(upstream);
        arrays.patchBlocked = patch.findPlug("nodeState", false).asInt() != 0;
        arrays.patchRefused = arrays.points.empty() && patch.findPlug("numverts", false).asInt() > 0;
    }
    return arrays;
}

MDagPath firstSelectedMesh() {
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MDagPath path;
    if (!selection.getDagPath(0, path) || !path.extendToShape() || !path.hasFn(MFn::kMesh)) return MDagPath();
    return path;
}

std::vector<double> typedArray(const MPlug& plug, MFn::Type type) {
    std::vector<double> values;
    MObject data;
    if (!plug.getValue(data) || data.isNull()) return values;
    if (type == MFn::kIntArrayData) {
        for (int id : toVector(MFnIntArrayData(data).array())) values.push_back(id);
    } else if (type == MFn::kPointArrayData) {
        const MPointArray points = MFnPointArrayData(data).array();
        for (unsigned int i = 0; i < points.length(); ++i)
            values.insert(values.end(), {points[i].x, points[i].y, points[i].z, points[i].w});
    } else {
        const MVectorArray vectors = MFnVectorArrayData(data).array();
        for (unsigned int i = 0; i < vectors.length(); ++i)
            values.insert(values.end(), {vectors[i].x, vectors[i].y, vectors[i].z});
    }
    return values;
}

std::map<std::string, std::vector<double>> readLocator(const std::string& name) {
    std::map<std::string, std::vector<double>> attributes;
    MSelectionList list;
    MObject node;
    if (!list.add(name.c_str()) || !list.getDependNode(0, node)) return attributes;
    const MFnDependencyNode locator(node);
    for (const char* attribute : kIntArrays)
        attributes[attribute] = typedArray(locator.findPlug(attribute, false), MFn::kIntArrayData);
    for (const char* attribute : kPointArrays)
        attributes[attribute] = typedArray(locator.findPlug(attribute, false), MFn::kPointArrayData);
    attributes["inputNormals"] = typedArray(locator.findPlug("inputNormals", false), MFn::kVectorArrayData);
    for (const char* attribute : kInts)
        attributes[attribute] = {double(locator.findPlug(attribute, false).asInt())};
    for (const char* attribute : kDoubles)
        attributes[attribute] = {locator.findPlug(attribute, false).asDouble()};
    for (const char* attribute : kTriples) {
        const MPlug plug = locator.findPlug(attribute, false);
        for (unsigned int i = 0; i < plug.numChildren(); ++i)
            attributes[attribute].push_back(plug.child(i).asDouble());
    }
    return attributes;
}

template <typename Number>
bool sameBits(const std::vector<Number>& a, const std::vector<Number>& b) {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Number)) == 0);
}

}  // namespace

SceneState captureSceneState(const SceneNames& scene) {
    SceneState state;
    const MDagPath active = firstSelectedMesh();
    for (MItDag it(MItDag::kDepthFirst, MFn::kMesh); !it.isDone(); it.next()) {
        MDagPath path;
        it.getPath(path);
        if (MFnMesh(path).isIntermediateObject()) continue;
        if (active.isValid() && path == active) state.activeMesh = static_cast<int>(state.meshes.size());
        state.meshes.push_back(readMesh(path));
    }
    state.rowsMesh = state.activeMesh;
    state.locator = readLocator(scene.locator);
    return state;
}

void carryRowsMesh(const SceneState& previous, SceneState& current) {
    for (const char* attribute : kRowAttributes) {
        const auto before = previous.locator.find(attribute);
        const auto after = current.locator.find(attribute);
        const bool beforeMissing = before == previous.locator.end(),
                   afterMissing = after == current.locator.end();
        if (beforeMissing != afterMissing || (!beforeMissing && before->second != after->second)) return;
    }
    current.rowsMesh = -1;
    if (previous.rowsMesh < 0) return;
    const std::string& name = previous.meshes[previous.rowsMesh].name;
    for (size_t i = 0; i < current.meshes.size(); ++i)
        if (current.meshes[i].name == name) current.rowsMesh = static_cast<int>(i);
}

std::vector<std::string> stateDifferences(const SceneState& before, const SceneState& after) {
    std::vector<std::string> differences;
    if (before.meshes.size() != after.meshes.size())
        differences.push_back("mesh count " + std::to_string(before.meshes.size()) + " became " +
                              std::to_string(after.meshes.size()));
    for (size_t i = 0; i < std::min(before.meshes.size(), after.meshes.size()); ++i) {
        const MeshArrays &a = before.meshes[i], &b = after.meshes[i];
        if (a.name != b.name) differences.push_back("mesh " + a.name + " became " + b.name);
        if (!sameBits(a.points, b.points)) differences.push_back("mesh " + a.name + " points");
        if (!sameBits(a.polygonCounts, b.polygonCounts))
            differences.push_back("mesh " + a.name + " polygon counts");
        if (!sameBits(a.polygonConnects, b.polygonConnects))
            differences.push_back("mesh " + a.name + " polygon connects");
        if (a.patchBlocked != b.patchBlocked) differences.push_back("mesh " + a.name + " patch node state");
    }
    for (const auto& [name, values] : before.locator) {
        const auto found = after.locator.find(name);
        if (found == after.locator.end() || !sameBits(values, found->second))
            differences.push_back("locator " + name);
    }
    return differences;
}

}  // namespace kystrake
