#pragma once
// Scenes for the patch tests: the context scene's source grid, optionally moved and tilted so that
// world and object space differ, with strokes given in the grid's own (u, v) coordinates and
// whole-state captures of the retopo mesh and the locator for comparing undo and redo bit for bit.

#include <maya/MFnMesh.h>
#include <maya/MMatrix.h>

#include <map>
#include <string>
#include <vector>

#include "tests/plugin/contextScene.h"

namespace kytest {

// The retopo mesh as the patch node rebuilds it: positions, corner counts and vertex ids.
struct MeshState {
    std::vector<double> points;
    std::vector<int> counts;
    std::vector<int> connects;
    bool operator==(const MeshState& other) const {
        return points == other.points && counts == other.counts && connects == other.connects;
    }
};

inline MeshState meshState(const MDagPath& path) {
    MeshState state;
    MFnMesh mesh(path);
    MPointArray points;
    mesh.getPoints(points, MSpace::kObject);
    for (unsigned int i = 0; i < points.length(); ++i)
        state.points.insert(state.points.end(), {points[i].x, points[i].y, points[i].z});
    MIntArray counts, connects;
    mesh.getVertices(counts, connects);
    state.counts = asVector(counts);
    state.connects = asVector(connects);
    return state;
}

// Named locator arrays, point arrays flattened to their coordinates.
using LocatorArrays = std::map<std::string, std::vector<double>>;

inline LocatorArrays locatorArrays(const MObject& locator, std::initializer_list<const char*> names) {
    LocatorArrays arrays;
    for (const char* name : names) {
        std::vector<double>& values = arrays[name];
        MIntArray ids;
        MPointArray points;
        if (getIntArrayAttr(name, locator, ids) && ids.length() > 0) {
            for (unsigned int i = 0; i < ids.length(); ++i) values.push_back(ids[i]);
        } else if (getPointArrayAttr(name, locator, points)) {
            for (unsigned int i = 0; i < points.length(); ++i)
                values.insert(values.end(), {points[i].x, points[i].y, points[i].z});
        }
    }
    return arrays;
}

// The locator's memory of the last patch, as undo and redo restore it.
inline LocatorArrays rowArrays(const MObject& locator) {
    return locatorArrays(locator, {"playervtx", "playerpts", "playersLine", "shadowIndices1",
                                   "shadowIndices2", "shadowIndices3", "strokesShadow", "sizesShadow"});
}

// Steps of the tool on the undo queue.
inline int toolSteps() {
    int steps = 0;
    for (const std::string& line : mhost::driver::undoJournal()) steps += line.rfind("kyStrakeCmd", 0) == 0;
    return steps;
}

// Ids and player positions equal exactly. The shadow's positions are read back from the mesh through
// another path, so they agree to single precision only.
inline void expectSameRows(const LocatorArrays& actual, const LocatorArrays& expected) {
    for (const auto& [name, values] : expected) {
        const std::vector<double>& got = actual.at(name);
        if (name != "strokesShadow") {
            EXPECT_EQ(got, values) << name;
            continue;
        }
        ASSERT_EQ(got.size(), values.size());
        for (size_t i = 0; i < got.size(); ++i) EXPECT_NEAR(got[i], values[i], 1e-6) << name << " " << i;
    }
}

class PatchFlowScene : public ContextScene {
protected:
    // The context scene's 10 x 10 grid, moved and tilted when `transformed`, with the tool on.
    void makePatchScene(bool transformed) {
        makeSourceScene();
        if (transformed) {
            const std::string transform = MFnDependencyNode(source.transform()).name().asChar();
            ASSERT_TRUE(mhost::driver::runCommand("setAttr " + transform + ".translateY 1.5; setAttr " +
                                                  transform + ".rotateX 0.3; setAttr " + transform +
                                                  ".rotateZ -0.2"));
        }
        MGlobal::clearSelectionList();
        setOption("ky_uspan", 4);
        setOption("ky_vspan", 3);
        context = makeContext();
        activate(*context);
    }

    // World point of the grid's local point (u, 0, v).
    MPoint onSource(double u, double v) const { return MPoint(u, 0.0, v) * source.inclusiveMatrix(); }

    // An LMB stroke along the grid from (u0, v0) to (u1, v1) through `steps` drag events.
    void strokeOnSource(double u0, double v0, double u1, double v1, int modifiers = kNoKey, int steps = 12) {
        press(*context, onSource(u0, v0), kLeft, modifiers);
        for (int i = 0; i <= steps; ++i) {
            const double t = static_cast<double>(i) / steps;
            drag(*context, onSource(u0 + (u1 - u0) * t, v0 + (v1 - v0) * t), kLeft, modifiers);
        }
        release(*context, onSource(u1, v1), kLeft, modifiers);
    }

    // Two strokes across the grid and ENTER: a 4 x 3 scratch patch between v = 2 and v = 7, with no
    // player row.
    MDagPath buildScratch() {
        strokeOnSource(2.0, 2.0, 8.0, 2.4);
        strokeOnSource(2.0, 7.0, 8.0, 7.0);
        EXPECT_EQ(strokeCount(), 2);
        context->completeAction();
        return getActiveMeshPath();
    }

    // A scratch whose far stroke bows towards +v in its middle, so that its row is not straight.
    // (From a straight, evenly spaced row the bridge's spine would start exactly on the chord's
    // middle, where the sweep has no direction: a case the sweep leaves undefined.)
    MDagPath buildBowedScratch() {
        strokeOnSource(2.0, 2.0, 8.0, 2.4);
        press(*context, onSource(2.0, 7.0), kLeft);
        for (int i = 0; i <= 12; ++i) {
            const double u = 2.0 + 0.5 * i;
            drag(*context, onSource(u, 7.0 + 0.6 * (1.0 - (u - 5.0) * (u - 5.0) / 9.0)), kLeft);
        }
        release(*context, onSource(8.0, 7.0), kLeft);
        context->completeAction();
        return getActiveMeshPath();
    }

    // The far stroke's row of the last patch as the player row, as an anchor pick leaves it.
    MIntArray takeFarRowAsPlayerRow() {
        MIntArray row1, row2, row3;
        getShadowIndices(row1, row2, row3);
        setPlayerVertices(row2);
        setPlayerLineFromIds(row2);
        return row2;
    }

    // Largest distance of a vertex of `path` from the source surface, world space.
    double largestDistanceFromSource(const MDagPath& path) const {
        MFnMesh mesh(path), surface(source);
        MPointArray points;
        mesh.getPoints(points, MSpace::kWorld);
        double largest = 0.0;
        for (unsigned int i = 0; i < points.length(); ++i) {
            MPoint closest;
            surface.getClosestPoint(points[i], closest, MSpace::kWorld);
            largest = std::max(largest, closest.distanceTo(points[i]));
        }
        return largest;
    }

    // Number of polygons of `path` whose normal disagrees with the source's normal under them.
    int facesAgainstSource(const MDagPath& path) const {
        MFnMesh mesh(path), surface(source);
        int against = 0;
        for (int f = 0; f < mesh.numPolygons(); ++f) {
            MVector normal, sourceNormal;
            mesh.getPolygonNormal(f, normal, MSpace::kWorld);
            MIntArray corners;
            mesh.getPolygonVertices(f, corners);
            MPoint corner;
            mesh.getPoint(corners[0], corner, MSpace::kWorld);
            surface.getClosestNormal(corner, sourceNormal, MSpace::kWorld);
            if (normal * sourceNormal <= 0.0) ++against;
        }
        return against;
    }

    kyStrakeContext* context = nullptr;
};

}  // namespace kytest
