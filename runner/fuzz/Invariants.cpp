#include "runner/fuzz/Invariants.h"

#include <algorithm>
#include <numeric>

namespace kystrake {
namespace {

const std::vector<double> kNone;

const std::vector<double>& attribute(const SceneState& state, const std::string& name) {
    const auto found = state.locator.find(name);
    return found == state.locator.end() ? kNone : found->second;
}

std::string text(double value) { return std::to_string(static_cast<long long>(value)); }

// Polygons of at least three corners, corners that add up to the connects, ids in range, and no
// polygon that passes through one vertex twice.
void checkMesh(const MeshArrays& mesh, std::vector<Violation>& found) {
    const std::string where = "mesh " + mesh.name + ": ";
    size_t corner = 0;
    for (size_t face = 0; face < mesh.polygonCounts.size(); ++face) {
        const int count = mesh.polygonCounts[face];
        if (count < 3)
            found.push_back({"mesh polygon", where + "face " + std::to_string(face) + " has " +
                                                 std::to_string(count) + " corners"});
        if (count < 0 || corner + count > mesh.polygonConnects.size()) {
            found.push_back({"mesh polygon", where + "polygon counts run past the connects"});
            return;
        }
        std::vector<int> ids(mesh.polygonConnects.begin() + corner,
                             mesh.polygonConnects.begin() + corner + count);
        corner += count;
        for (int id : ids)
            if (id < 0 || id >= mesh.vertexCount())
                found.push_back({"mesh vertex id", where + "face " + std::to_string(face) + " uses vertex " +
                                                       std::to_string(id) + " of " +
                                                       std::to_string(mesh.vertexCount())});
        std::sort(ids.begin(), ids.end());
        if (std::adjacent_find(ids.begin(), ids.end()) != ids.end())
            found.push_back(
                {"mesh repeated vertex", where + "face " + std::to_string(face) + " repeats a vertex"});
    }
    if (corner != mesh.polygonConnects.size())
        found.push_back({"mesh polygon", where + "polygon counts cover " + std::to_string(corner) + " of " +
                                             std::to_string(mesh.polygonConnects.size()) + " connects"});
}

// A stroke set's sizes are not negative and add up to its point count (four numbers a point).
void checkStrokeSet(const SceneState& state, const std::string& points, const std::string& sizes,
                    std::vector<Violation>& found) {
    const std::vector<double>& counts = attribute(state, sizes);
    double total = 0;
    for (double count : counts) {
        if (count < 0) found.push_back({"stroke set", sizes + " holds a negative size " + text(count)});
        total += count;
    }
    const double pointCount = attribute(state, points).size() / 4.0;
    if (total != pointCount)
        found.push_back({"stroke set", sizes + " adds up to " + text(total) + " but " + points + " holds " +
                                           text(pointCount) + " points"});
}

// The ids of a row index vertices of the retopo mesh they were written on. A row found again from
// the shadow's points takes, for a point with no vertex nearer than 9999 (a point that is not a
// number among them), the id -1: the tool keeps that id, and it can pass on to the player row.
void checkRow(const SceneState& state, const std::string& row, int vertexCount,
              std::vector<Violation>& found) {
    for (double id : attribute(state, row))
        if (id < -1 || id >= vertexCount)
            found.push_back(
                {"row vertex id", row + " holds vertex " + text(id) + " of " + std::to_string(vertexCount)});
}

void checkLocator(const SceneState& state, const KeptCases& kept, std::vector<Violation>& found) {
    checkStrokeSet(state, "strokes", "sizes", found);
    // Clearing the bridge or merge preview empties sizesShadow with it, on purpose, and leaves
    // strokesShadow as it is: a shadow with points and no sizes is kept as the tool makes it.
    const bool shadowSizesCleared = attribute(state, "sizesShadow").empty();
    if (!kept.rowsOutOfStep && !shadowSizesCleared)
        checkStrokeSet(state, "strokesShadow", "sizesShadow", found);
    checkStrokeSet(state, "strokesNondestruct", "sizesNondestruct", found);

    // The two position forms of the player row are written together with the same value. BACKSPACE
    // on the anchors clears the line alone and leaves the points as the anchors left them.
    const std::vector<double>& playerLine = attribute(state, "playersLine");
    if (!playerLine.empty() && attribute(state, "playerpts") != playerLine)
        found.push_back({"player row", "playerpts and playersLine differ"});

    const size_t fusePoints = attribute(state, "fusemesh").size() / 4;
    const std::vector<double>& triangles = attribute(state, "fuseindices");
    if (triangles.size() % 3 != 0)
        found.push_back({"fuse preview", "fuseindices holds " + std::to_string(triangles.size()) + " ids"});
    for (double id : triangles)
        if (id < 0 || id >= fusePoints)
            found.push_back({"fuse preview",
                             "fuseindices holds point " + text(id) + " of " + std::to_string(fusePoints)});

    // The preview's kind: 1 bridge, 0 merge, -1 a bridge whose opposite row shares a vertex.
    const double mode = attribute(state, "mode").empty() ? 0 : attribute(state, "mode")[0];
    if (mode < -1 || mode > 1) found.push_back({"preview mode", "mode is " + text(mode)});

    const size_t cursor = attribute(state, "tweakRadius").size();
    if (cursor != 0 && cursor != 3)
        found.push_back({"brush cursor", "tweakRadius holds " + std::to_string(cursor) + " numbers"});

    if (state.rowsMesh < 0) return;
    const MeshArrays& retopo = state.meshes[state.rowsMesh];
    // A rebuild of a scratch patch that fails after it blocked the patch node returns at once and
    // leaves the node blocked, as the tool is meant to: the shape then shows the mesh without the
    // patch while the rows and new faces still name the patch's vertices and faces. Kept as it is.
    // When the host refuses the arrays a patch wrote into its node (quads merged under a large
    // ky_mergThreshold can leave them so), the node's rebuild fails and gives an empty mesh, as the
    // tool's patch node does; the rows and new faces still name what it held.
    if (retopo.patchRefused) return;
    if (retopo.patchBlocked || kept.rowsOutOfStep) return;
    for (const char* row : {"shadowIndices1", "shadowIndices2", "shadowIndices3", "playervtx"})
        checkRow(state, row, retopo.vertexCount(), found);
    if (kept.newFacesNotRestored) return;
    // A quad the host refused to add (all its corners merged, on a source smaller than the merge
    // threshold) still has its face id, -1, among the new faces: kept as the tool is meant to.
    for (double face : attribute(state, "newFaces"))
        if (face < -1 || face >= retopo.polygonCounts.size())
            found.push_back({"new faces", "newFaces holds face " + text(face) + " of " +
                                              std::to_string(retopo.polygonCounts.size())});
}

}  // namespace

std::vector<Violation> findViolations(const SceneState& state, const KeptCases& kept) {
    std::vector<Violation> found;
    for (const MeshArrays& mesh : state.meshes) checkMesh(mesh, found);
    checkLocator(state, kept, found);
    return found;
}

}  // namespace kystrake
