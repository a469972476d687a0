#pragma once
// Scenes for the patch node, the patch command and the mesh surgery tests: the kyStrake module
// loaded as Maya loads it, procedural meshes (sphere, torus) under moved and turned transforms, and
// a mesh's "look" (what its shape shows) to compare before and after a change of its history.

#include <gtest/gtest.h>
#include <maya/MDagPath.h>
#include <maya/MFloatArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>

#include <cstddef>
#include <string>
#include <vector>

#include "mesh/ProceduralMeshes.h"
#include "tests/host/support/MeshScene.h"
#include "tests/plugin/pluginScene.h"

namespace kytest {

// What a mesh shape shows: its object-space and world-space points, polygons and UVs.
struct MeshLook {
    std::vector<double> points;
    std::vector<double> worldPoints;
    std::vector<int> counts;
    std::vector<int> connects;
    std::vector<float> us;
    std::vector<float> vs;
    std::vector<int> uvCounts;
    std::vector<int> uvIds;

    bool operator==(const MeshLook& other) const {
        return points == other.points && worldPoints == other.worldPoints && counts == other.counts &&
               connects == other.connects && us == other.us && vs == other.vs && uvCounts == other.uvCounts &&
               uvIds == other.uvIds;
    }
};

// The id arrays' toVector is the host tests' own (tests/host/support/MeshScene.h).
using ::toVector;

inline std::vector<float> toVector(const MFloatArray& array) {
    std::vector<float> result;
    for (unsigned int i = 0; i < array.length(); ++i) result.push_back(array[i]);
    return result;
}

inline std::vector<double> toVector(const MPointArray& points) {
    std::vector<double> result;
    for (unsigned int i = 0; i < points.length(); ++i)
        for (double c : {points[i].x, points[i].y, points[i].z}) result.push_back(c);
    return result;
}

inline MeshLook lookOf(const MDagPath& shape) {
    MeshLook look;
    MFnMesh mesh(shape);
    MPointArray points;
    mesh.getPoints(points, MSpace::kObject);
    look.points = toVector(points);
    mesh.getPoints(points, MSpace::kWorld);
    look.worldPoints = toVector(points);
    MIntArray counts, connects;
    mesh.getVertices(counts, connects);
    look.counts = toVector(counts);
    look.connects = toVector(connects);
    MFloatArray us, vs;
    mesh.getUVs(us, vs);
    look.us = toVector(us);
    look.vs = toVector(vs);
    MIntArray uvCounts, uvIds;
    mesh.getAssignedUVs(uvCounts, uvIds);
    look.uvCounts = toVector(uvCounts);
    look.uvIds = toVector(uvIds);
    return look;
}

// Runs script text; fails the test when the command fails. Returns its result as text.
inline std::string run(const std::string& command) {
    std::string result;
    EXPECT_TRUE(mhost::driver::runCommand(command, &result)) << command;
    return result;
}

// The DAG path of a node by name.
inline MDagPath pathNamed(const std::string& name) {
    MSelectionList list;
    MDagPath path;
    EXPECT_TRUE(list.add(name.c_str()) && list.getDagPath(0, path)) << name;
    return path;
}

// The plug "node.attribute".
inline MPlug plugNamed(const std::string& name) {
    MSelectionList list;
    MPlug plug;
    EXPECT_TRUE(list.add(name.c_str()) && list.getPlug(0, plug)) << name;
    return plug;
}

// The name of the plug feeding "node.attribute", empty when nothing does.
inline std::string sourceOf(const std::string& plugName) {
    MPlug source = plugNamed(plugName).source();
    return source.isNull() ? "" : source.name().asChar();
}

// Names of the nodes of a type, in the host's iteration order.
inline std::vector<std::string> nodesOfType(const std::string& type) {
    std::vector<std::string> names;
    for (MItDependencyNodes it; !it.isDone(); it.next()) {
        MFnDependencyNode node(it.thisNode());
        if (node.typeName() == type.c_str()) names.push_back(node.name().asChar());
    }
    return names;
}

class PatchNodeScene : public PluginScene {
protected:
    // The host tests' mesh of `name` (shape `name` + "Shape") with the mesh's UVs, its transform moved,
    // turned and scaled so that object and world space differ. Returns the shape's path.
    MDagPath addMesh(const mhost::MeshTopology& mesh, const std::string& name) {
        MFnMesh fn(::addMesh(mesh, name));
        MIntArray counts;
        for (int count : mesh.polygonCounts()) counts.append(count);
        const mhost::UvSet& uvs = mesh.uvSets().get(mesh.uvSets().currentName());
        MFloatArray us, vs;
        for (std::size_t i = 0; i < uvs.u.size(); ++i) {
            us.append(uvs.u[i]);
            vs.append(uvs.v[i]);
        }
        MIntArray uvIds;
        for (int id : uvs.faceVertexUvIds) uvIds.append(id);
        EXPECT_TRUE(fn.setUVs(us, vs));
        EXPECT_TRUE(fn.assignUVs(counts, uvIds));
        run("setAttr " + name + ".translate 1.5 -2 0.25; setAttr " + name + ".rotate 0.3 0.7 -0.2; setAttr " +
            name + ".scale 1 2 0.5");
        return pathNamed(name + "Shape");
    }

    MDagPath addSphere(const std::string& name = "ball") {
        return addMesh(mhost::makeUvSphere(1.0, 8, 6), name);
    }
    MDagPath addTorus(const std::string& name = "ring") {
        return addMesh(mhost::makeTorus(2.0, 0.5, 8, 6), name);
    }

    // A sphere whose shape is fed by a second shape "feed": a mesh with history.
    MDagPath addSphereWithHistory(const std::string& name = "ball") {
        MDagPath feed = addSphere("feed");
        MDagPath shape = addMesh(mhost::makeUvSphere(1.0, 3, 2), name);
        run("connectAttr feedShape.outMesh " + name + "Shape.inMesh");
        run("setAttr feedShape.intermediateObject true");
        return shape;
    }
};

}  // namespace kytest
