#pragma once
// Scenes for the geometry library's tests: the kyStrake module loaded as Maya loads it, a real
// locator, grid meshes built through MFnMesh, and patch nodes.

#include <gtest/gtest.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
// The plug-in's own pluginMain exports MApiVersion; this file only registers a test type.
#ifndef MNoVersionString
#define MNoVersionString
#endif
#include <maya/MFnPlugin.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MPxNode.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>

#include <memory>
#include <string>
#include <vector>

#include "graph/NodeType.h"
#include "plugins/PluginRecord.h"
#include "tests/plugin/pluginScene.h"

namespace kytest {

// An id array's values, for comparisons in tests (MIntArray has no ==).
inline std::vector<int> values(const MIntArray& array) {
    std::vector<int> result;
    for (unsigned int i = 0; i < array.length(); ++i) result.push_back(array[i]);
    return result;
}

// A node of the tests' own with an id array that starts out never written.
class ProbeNode : public MPxNode {
public:
    static void* creator() { return new ProbeNode; }
    static MStatus initialize() {
        MFnTypedAttribute typed;
        return addAttribute(typed.create("ids", "ids", MFnData::kIntArray));
    }
};

inline void registerTestType(const char* name, unsigned int id, MCreatorFunction creator,
                             MInitializeFunction init) {
    if (mhost::nodeTypes().find(name)) return;
    static auto record = std::make_shared<mhost::PluginRecord>();
    record->name = "geometryTestTypes";
    MObject pluginObject(record);
    MFnPlugin plugin(pluginObject);
    ASSERT_TRUE(plugin.registerNode(name, MTypeId(id), creator, init));
}

class GeometryScene : public PluginScene {
protected:
    void SetUp() override {
        PluginScene::SetUp();
        registerTestType("geometryProbe", 0x7ff27, ProbeNode::creator, ProbeNode::initialize);
    }

    // A new kyStrake locator node.
    MObject makeLocator(const std::string& name = "kyStrakeShape1") { return nodeNamed(createLocator(name)); }

    // A node of the tests' own type "geometryProbe", whose "ids" has never been written.
    MObject makeProbe() {
        std::string created;
        EXPECT_TRUE(mhost::driver::runCommand("createNode geometryProbe", &created));
        return nodeNamed(created);
    }

    // A "kyPatchNode" called `name`.
    MObject makePatchNode(const std::string& name) {
        std::string created;
        EXPECT_TRUE(mhost::driver::runCommand("createNode kyPatchNode -n \"" + name + "\"", &created));
        return nodeNamed(created);
    }

    // A flat grid of columns x rows unit quads in the XZ plane at height `y`, corner at (x0, y, 0).
    // Vertex id = row * (columns + 1) + column. Returns the mesh shape's path.
    MDagPath makeGrid(int columns, int rows, double y = 0.0, double x0 = 0.0) {
        MPointArray points;
        for (int r = 0; r <= rows; ++r) {
            for (int c = 0; c <= columns; ++c) points.append(MPoint(x0 + c, y, r));
        }
        std::vector<std::vector<int>> faces;
        for (int r = 0; r < rows; ++r) {
            for (int c = 0; c < columns; ++c) {
                const int corner = r * (columns + 1) + c;
                faces.push_back({corner, corner + 1, corner + columns + 2, corner + columns + 1});
            }
        }
        return makeMesh(points, faces);
    }

    // A mesh from its points (object space) and faces, each face a list of vertex ids. Returns the
    // shape's path.
    MDagPath makeMesh(const MPointArray& points, const std::vector<std::vector<int>>& faces) {
        MIntArray counts, connects;
        for (const std::vector<int>& face : faces) {
            counts.append(static_cast<int>(face.size()));
            for (int id : face) connects.append(id);
        }
        MFnMesh mesh;
        MStatus status;
        MObject transform = mesh.create(points.length(), counts.length(), points, counts, connects,
                                        MObject::kNullObj, &status);
        EXPECT_TRUE(status);
        MDagPath path;
        MDagPath::getAPathTo(transform, path);
        path.extendToShape();
        return path;
    }

    // Connects the mesh's output into the locator's kyStrakeMesh, as the artist's panel does.
    void connectSource(const MDagPath& mesh, const MObject& locator) {
        const std::string command = "connectAttr " + std::string(mesh.partialPathName().asChar()) +
                                    ".outMesh " + MFnDependencyNode(locator).name().asChar() +
                                    ".kyStrakeMesh";
        ASSERT_TRUE(mhost::driver::runCommand(command)) << command;
    }

    // Makes `path` the first selected object.
    void select(const MDagPath& path) { MGlobal::selectByName(path.fullPathName(), MGlobal::kReplaceList); }
};

}  // namespace kytest
