// The preview of a bridge or merge between the player row and the opposite row: the opposite
// row's points, both rows as one strip of triangles, and the division lines of the bridge. All of
// it is written to the locator, which the draw override shows on the next frame.

#include <maya/MFn.h>
#include <maya/MItMeshVertex.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/anchorRows.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

}  // namespace

MUintArray quadIndices(int rowLength) {
    MUintArray indices;
    for (int k = rowLength; k - rowLength < rowLength - 1; ++k) {
        const int below = k - rowLength;
        for (int corner : {k, below, below + 1, k, below + 1, k + 1})
            indices.append(static_cast<unsigned>(corner));
    }
    return indices;
}

MStatus kyStrakeContext::rebuildBridgePreview(int mode) {
    MPointArray fusePoints;
    MPointArray meshPoints;
    MUintArray indices;
    const MIntArray playerRow = getPlayerVertices();
    // Without an opposite row the empty arrays below clear the preview.
    if (oppositeEdges.length() > 0) {
        MObject component = makeComponent(oppositeVertices, MFn::kMeshVertComponent);
        if (component.isNull()) return MS::kUnknownParameter;
        const MDagPath retopo = getActiveMeshPath();
        MStatus status;
        MItMeshVertex vertices(retopo, component, &status);
        KY_RETURN_ON_FAILURE(status);
        for (; !vertices.isDone(); vertices.next()) fusePoints.append(vertices.position(MSpace::kWorld));
        for (unsigned i = 0; i < playerRow.length(); ++i)
            meshPoints.append(vertexPosition(retopo, playerRow[i]));
        for (unsigned i = 0; i < oppositeVertices.length(); ++i)
            meshPoints.append(vertexPosition(retopo, oppositeVertices[i]));
        indices = quadIndices(static_cast<int>(meshPoints.length() / 2));
    }
    // A bridge onto the player row itself would fold the row back on itself; -1 marks that.
    if (oppositeVertices.length() > 0 && mode == 1 && rowsShareId(oppositeVertices, playerRow)) mode = -1;
    KY_RETURN_ON_FAILURE(storeFuseData(fusePoints, meshPoints, indices, mode));
    return updateSublines();
}

MStatus kyStrakeContext::updateSublines() {
    const MObject locator = findStrakeLocator();
    MPointArray fusePoints;
    MPointArray meshPoints;
    getPointArrayAttr("fusept", locator, fusePoints);
    getPointArrayAttr("fusemesh", locator, meshPoints);
    // An empty preview leaves the last lines as they are.
    if (fusePoints.length() == 0 || meshPoints.length() == 0) return MS::kSuccess;

    // One run of points per division line, from the opposite row (j = 0) towards the player row,
    // whose points lead "fusemesh".
    const int divisions = optionInt("ky_bdiv", 0);
    const double parts = divisions + 1;
    MPointArray lines;
    for (int j = 0; j <= divisions; ++j) {
        for (unsigned i = 0; i < fusePoints.length() && i < meshPoints.length(); ++i)
            lines.append(fusePoints[i] + (meshPoints[i] - fusePoints[i]) * j / parts);
    }
    return setPointArrayAttr("sublines", locator, lines);
}
