#pragma once
// Scene set-up shared by the mesh API tests: a fresh scene for each test and meshes put in it through
// MFnMesh, named so that scripts and selection strings can reach them.

#include <gtest/gtest.h>
#include <maya/MDagPath.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MSelectionList.h>
#include <mhost/Driver.h>

#include <initializer_list>
#include <string>

#include "mesh/ProceduralMeshes.h"

class MeshSceneTest : public ::testing::Test {
protected:
    void SetUp() override { mhost::driver::resetScene(); }
    void TearDown() override { mhost::driver::resetScene(); }
};

inline MIntArray intArray(std::initializer_list<int> values) {
    MIntArray array;
    for (int v : values) array.append(v);
    return array;
}

inline MPointArray pointArray(std::initializer_list<MPoint> points) {
    MPointArray array;
    for (const MPoint& p : points) array.append(p);
    return array;
}

inline std::vector<int> toVector(const MIntArray& array) {
    std::vector<int> values;
    for (int v : array) values.push_back(v);
    return values;
}

inline MDagPath pathTo(const std::string& name) {
    MSelectionList list;
    MDagPath path;
    EXPECT_TRUE(list.add(name.c_str())) << name;
    EXPECT_TRUE(list.getDagPath(0, path)) << name;
    return path;
}

// A shape holding `mesh` under a new transform called `name`; the shape is `name` + "Shape". Returns the
// shape's path.
inline MDagPath addMesh(const mhost::MeshTopology& mesh, const std::string& name) {
    MFloatPointArray points;
    for (int v = 0; v < mesh.numVertices(); ++v) {
        const mhost::Vec3f p = mesh.point(v);
        points.append(p.x, p.y, p.z);
    }
    MIntArray counts, connects;
    for (int count : mesh.polygonCounts()) counts.append(count);
    for (int id : mesh.faces().items) connects.append(id);
    MFnMesh fn;
    MStatus status;
    MObject transform =
        fn.create(mesh.numVertices(), mesh.numFaces(), points, counts, connects, MObject::kNullObj, &status);
    EXPECT_TRUE(status);
    MFnDependencyNode(transform).setName(name.c_str());
    MFnDependencyNode(fn.object()).setName((name + "Shape").c_str());
    return fn.dagPath();
}

// A unit cube from (0, 0, 0) to (1, 1, 1), six outward-facing quads: 8 vertices, 12 edges, closed.
inline mhost::MeshTopology unitCube() {
    std::vector<mhost::Vec3f> points;
    for (int v = 0; v < 8; ++v) points.emplace_back(float(v & 1), float((v >> 1) & 1), float((v >> 2) & 1));
    return mhost::MeshTopology(points, {4, 4, 4, 4, 4, 4},
                               {0, 2, 3, 1, 4, 5, 7, 6, 0, 1, 5, 4, 2, 6, 7, 3, 0, 4, 6, 2, 1, 3, 7, 5});
}
