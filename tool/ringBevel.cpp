// The -bevel step: cuts an edge loop into the last strake next to each of its two long rows, by
// polySplitRing across the rung edges that leave each row inside the patch's faces.

#include <maya/MItMeshEdge.h>
#include <maya/MItMeshVertex.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Where each loop is cut along its rungs, from the row's side.
constexpr double kBevelWeight = 0.1;

// Whether edge `edge` has `vertex` at one of its ends.
bool edgeTouches(MItMeshEdge& edges, int edge, int vertex) {
    int previous = 0;
    edges.setIndex(edge, previous);
    return edges.index(0) == vertex || edges.index(1) == vertex;
}

}  // namespace

// A face is taken once, by the first row vertex that finds a rung in it, except at the row's last
// vertex, which looks at its faces again and takes the first edge at it that does not run back to
// the previous row vertex.
MIntArray kyStrakeContext::ringEdges(const MIntArray& row, const MIntArray& faces, const MDagPath& retopo) {
    MIntArray rungs;
    MStatus status;
    MItMeshVertex vertices(retopo, MObject::kNullObj, &status);
    if (!status) return rungs;
    MItMeshPolygon polygons(retopo, MObject::kNullObj, &status);
    if (!status) return rungs;
    MItMeshEdge edges(retopo, MObject::kNullObj, &status);
    if (!status) return rungs;

    MIntArray used;
    const int count = static_cast<int>(row.length());
    for (int i = 0; i < count; ++i) {
        const bool last = i == count - 1;
        int previous = 0;
        vertices.setIndex(row[i], previous);
        MIntArray around;
        vertices.getConnectedFaces(around);
        for (unsigned f = 0; f < around.length(); ++f) {
            const int face = around[f];
            if (containsId(face, used) && !last) continue;
            if (!containsId(face, faces)) continue;
            polygons.setIndex(face, previous);
            MIntArray faceEdges;
            polygons.getEdges(faceEdges);
            for (unsigned e = 0; e < faceEdges.length(); ++e) {
                const int edge = faceEdges[e];
                if (last) {
                    if (i > 0 && edgeTouches(edges, edge, row[i - 1])) continue;
                    if (edgeTouches(edges, edge, row[i])) {
                        rungs.append(edge);
                        break;
                    }
                }
                // Past the row's end there is no next vertex to test against.
                if (i + 1 < count && edgeTouches(edges, edge, row[i + 1])) continue;
                if (edgeTouches(edges, edge, row[i])) {
                    used.append(face);
                    rungs.append(edge);
                }
            }
        }
    }
    return rungs;
}

// The command only carries the text: its redo has nothing to run for this operation, so the step
// ends with the mesh selected again and unchanged. Kept that way on purpose.
MStatus kyStrakeContext::bevelRing() {
    MStatus status;
    const MDagPath retopo = getActiveMeshPath();
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    const MIntArray faces = getNewFaces();
    if (faces.length() == 0 && row1.length() == 0 && row2.length() == 0)
        return failWith(status, "cannot find any faces and/or row");

    const MIntArray rungs1 = ringEdges(row1, faces, retopo);
    const MIntArray rungs2 = ringEdges(row2, faces, retopo);
    if (rungs1.length() != rungs2.length()) return failWith(status, "bevel edge have not same length");

    kyStrakeToolCmd* cmd = newStrakeCommand();
    if (cmd == nullptr) return MS::kFailure;
    cmd->setBevelText(splitRingCommand(retopo, rungs1, kBevelWeight) +
                      splitRingCommand(retopo, rungs2, kBevelWeight));
    KY_REPORT_FAILURE(cmd->redoIt());
    return cmd->finalize();
}
