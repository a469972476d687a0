#pragma once
// Scenes for the tests of the patch operations' geometry: a locator, meshes built from point and
// face lists (optionally moved by their transform), and the options these operations read reset
// before and after each test.

#include <gtest/gtest.h>
#include <maya/MDagPath.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnMesh.h>
#include <maya/MGlobal.h>
#include <maya/MIntArray.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>
#include <mhost/Driver.h>

#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/plugin/geometryScene.h"

namespace kytest {

// A point array from a list of points.
inline MPointArray pointsOf(std::initializer_list<MPoint> points) {
    MPointArray array;
    for (const MPoint& point : points) array.append(point);
    return array;
}

class PatchGeometryScene : public GeometryScene {
protected:
    void SetUp() override {
        GeometryScene::SetUp();
        clearOptions();
    }
    void TearDown() override {
        clearOptions();
        GeometryScene::TearDown();
    }

    static void clearOptions() {
        for (const char* name : {"ky_mergThreshold", "ky_distancesnap"}) MGlobal::removeOptionVar(name);
    }

    // A closed UV sphere of `radius` about the origin: `rings` bands of `segments` faces, capped by
    // triangle fans. Faces wind so that normals point outwards.
    MDagPath makeSphere(double radius, int rings, int segments) {
        const double pi = 3.14159265358979323846;
        MPointArray points;
        points.append(MPoint(0.0, radius, 0.0));
        for (int r = 1; r < rings; ++r) {
            const double polar = pi * r / rings;
            for (int s = 0; s < segments; ++s) {
                const double azimuth = 2.0 * pi * s / segments;
                points.append(MPoint(radius * std::sin(polar) * std::cos(azimuth), radius * std::cos(polar),
                                     radius * std::sin(polar) * std::sin(azimuth)));
            }
        }
        const int bottom = static_cast<int>(points.length());
        points.append(MPoint(0.0, -radius, 0.0));
        auto ringVertex = [segments](int ring, int s) { return 1 + (ring - 1) * segments + (s % segments); };
        std::vector<std::vector<int>> faces;
        for (int s = 0; s < segments; ++s) faces.push_back({0, ringVertex(1, s + 1), ringVertex(1, s)});
        for (int r = 1; r + 1 < rings; ++r) {
            for (int s = 0; s < segments; ++s)
                faces.push_back(
                    {ringVertex(r, s), ringVertex(r, s + 1), ringVertex(r + 1, s + 1), ringVertex(r + 1, s)});
        }
        for (int s = 0; s < segments; ++s)
            faces.push_back({bottom, ringVertex(rings - 1, s), ringVertex(rings - 1, s + 1)});
        return makeMesh(points, faces);
    }

    // Sets a transform attribute ("translateY", "rotateX", ...) of the mesh's transform.
    static void setTransformValue(const MDagPath& shape, const std::string& attribute, double value) {
        MDagPath transform = shape;
        transform.pop();
        const std::string command = "setAttr " + std::string(transform.partialPathName().asChar()) + "." +
                                    attribute + " " + std::to_string(value);
        ASSERT_TRUE(mhost::driver::runCommand(command)) << command;
    }

    // World positions of every vertex of `path`.
    static MPointArray worldPoints(const MDagPath& path) {
        MPointArray points;
        EXPECT_TRUE(MFnMesh(path).getPoints(points, MSpace::kWorld));
        return points;
    }
};

}  // namespace kytest
