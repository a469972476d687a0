#pragma once
// Scenes for the anchor tests: retopo meshes with borders lying on the context scene's source grid
// (a strip with interior vertices, a grid with a square hole, a flat ring whose two borders have the
// same length), optionally moved and tilted, and the anchor gestures aimed at their vertices.

#include <maya/MFnDependencyNode.h>
#include <maya/MFnMesh.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "tests/plugin/contextScene.h"

namespace kytest {

class AnchorScene : public ContextScene {
protected:
    void SetUp() override {
        ContextScene::SetUp();
        makeSourceScene();
        context = makeContext();
    }

    // 4 x 2 unit quads from (3, 0, 4): ids row * 5 + column, so the bottom border is 0 to 4, the top
    // border 10 to 14, and 6, 7, 8 are inside.
    void useStrip(bool transformed = false) { useRetopo(makeQuads(4, 2, {}), transformed); }
    // 4 x 4 unit quads from (3, 0, 4) without the middle 2 x 2: the hole's border runs 6, 7, 8, 13,
    // 18, 17, 16, 11. Vertex 12 belongs to no face.
    void useHoleGrid() { useRetopo(makeQuads(4, 4, {{1, 1}, {1, 2}, {2, 1}, {2, 2}}), false); }
    // A flat ring of 8 quads around (5, 0, 5): inner border 0 to 7, outer border 8 to 15, vertex i
    // of the one beside vertex i + 8 of the other.
    void useRing() {
        MPointArray points;
        for (double radius : {1.5, 3.0}) {
            for (int i = 0; i < 8; ++i) {
                const double angle = i * M_PI / 4.0;
                points.append(MPoint(5.0 + radius * std::cos(angle), 0.0, 5.0 + radius * std::sin(angle)));
            }
        }
        std::vector<std::vector<int>> faces;
        for (int i = 0; i < 8; ++i) faces.push_back({i, i + 8, (i + 1) % 8 + 8, (i + 1) % 8});
        useRetopo(makeMesh(points, faces), false);
    }

    // Quads of the grid from (3, 0, 4) facing the camera, leaving out the (row, column) cells given.
    MDagPath makeQuads(int columns, int rows, const std::set<std::pair<int, int>>& holes) {
        MPointArray points;
        for (int r = 0; r <= rows; ++r) {
            for (int c = 0; c <= columns; ++c) points.append(MPoint(3.0 + c, 0.0, 4.0 + r));
        }
        std::vector<std::vector<int>> faces;
        for (int r = 0; r < rows; ++r) {
            for (int c = 0; c < columns; ++c) {
                if (holes.count({r, c})) continue;
                const int corner = r * (columns + 1) + c;
                faces.push_back({corner, corner + 1, corner + columns + 2, corner + columns + 1});
            }
        }
        return makeMesh(points, faces);
    }

    // Makes `mesh` the retopo mesh (moved and tilted first when `transformed`) and starts the tool.
    void useRetopo(const MDagPath& mesh, bool transformed) {
        retopo = mesh;
        if (transformed) {
            const std::string transform = MFnDependencyNode(retopo.transform()).name().asChar();
            ASSERT_TRUE(mhost::driver::runCommand("setAttr " + transform +
                                                  ".translate 0.4 0.5 -0.3; setAttr " + transform +
                                                  ".rotateX 0.2; setAttr " + transform + ".rotateY 0.1"));
        }
        select(retopo);
        activate(*context);
    }

    MPoint world(int id) const {
        MPoint point;
        MFnMesh(retopo).getPoint(id, point, MSpace::kWorld);
        return point;
    }
    MPointArray worlds(const Ids& ids) const {
        MPointArray points;
        for (int id : ids) points.append(world(id));
        return points;
    }

    // The anchor gestures at vertex `id`: LMB-CTRL-SHIFT, MMB-CTRL and MMB-SHIFT presses.
    void pickAnchor(int id) { press(*context, world(id), kLeft, kShiftCtrl); }
    void pickAnchors(std::initializer_list<int> ids) {
        for (int id : ids) pickAnchor(id);
    }
    void pickOpposite(int id) { press(*context, world(id), kMiddle, kCtrl); }
    void pickMergeRow(int id) { press(*context, world(id), kMiddle, kShift); }

    Ids playerRow() const { return intArray("playervtx", locator); }
    int mode() const {
        MStatus status;
        return getIntAttr("mode", locator, status);
    }

    kyStrakeContext* context = nullptr;
    MDagPath retopo;
};

// Point arrays equal within `tolerance`, point by point.
inline ::testing::AssertionResult samePoints(const MPointArray& actual, const MPointArray& expected,
                                             double tolerance = 1e-9) {
    if (actual.length() != expected.length())
        return ::testing::AssertionFailure() << actual.length() << " points, expected " << expected.length();
    for (unsigned i = 0; i < actual.length(); ++i) {
        if (!actual[i].isEquivalent(expected[i], tolerance))
            return ::testing::AssertionFailure()
                   << "point " << i << " is " << actual[i] << ", expected " << expected[i];
    }
    return ::testing::AssertionSuccess();
}

}  // namespace kytest
