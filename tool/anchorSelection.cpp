// The anchor gestures: LMB-CTRL-SHIFT picks the anchors whose border row new patches grow from,
// MMB-CTRL picks the opposite row of a bridge or the first vertex of a magnet merge, MMB-SHIFT the
// opposite row of a merge. Only border vertices of the retopo mesh count; a pick that finds none
// selects nothing and says nothing.

#include <maya/MGlobal.h>
#include <maya/MPointArray.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/anchorRows.h"
#include "tool/helpTexts.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Pixel reach of the anchor picks at the press.
constexpr double kAnchorPickRadius = 9.0;
constexpr int kNoPathLimit = 99999;

// Help once two anchors make a strake. The remove line has no comma of its own, so the line after
// it joins it on screen; that is how the artist has always seen it.
MString strakeSelectedHelp() {
    return MString("A strake is selected,") + helpReselect + helpRemoveLast + helpTraceStroke +
           helpPerpendicular + helpRedrawLast + helpSeparator + helpBridgeOpposite + helpMergeOpposite +
           helpSeparator + helpBrushes + helpSeparator + helpApply;
}

// Help while the first anchor waits for the second.
MString firstAnchorHelp() {
    return MString("Select another anchor point to have a strake selection,") + helpSelectRow +
           helpSeparator + helpBrushes;
}

// Takes `vertex` as the first anchor, or as the second, replacing any second one; shows the help
// and the anchor count and draws the anchors as the player line.
void addAnchor(kyStrakeContext& context, int vertex) {
    MIntArray& anchors = context.anchorVertices;
    if (anchors.length() > 0) {
        anchors.setLength(2);
        anchors[1] = vertex;
        KY_REPORT_FAILURE(clearShadowStrokes());
        setInfoLine2(strakeSelectedHelp());
    } else {
        anchors.append(vertex);
        setInfoLine2(firstAnchorHelp());
    }
    KY_REPORT_FAILURE(setPlayerLineFromIds(anchors));
    MString count;
    count += static_cast<int>(anchors.length());
    setInfoLine1(count + " anchor point(s) selected,");
}

// Walks the border between the two anchors (around it when they are the same vertex) and makes
// the walked row the player row.
void selectAnchorRow(kyStrakeContext& context) {
    const int from = context.anchorVertices[0];
    const int to = context.anchorVertices[1];
    MIntArray& edges = context.anchorEdges;
    if (from == to) {
        edges = kyStrakeContext::boundaryLoopFrom(from);
    } else {
        if (edges.length() == 0) edges = kyStrakeContext::shortestBoundaryPath(from, to, kNoPathLimit);
        // An existing row is followed in its own direction, so a moved second anchor stays on the
        // side of the border first walked.
        if (edges.length() > 0) edges = kyStrakeContext::extendBoundaryPath(edges, from, to);
    }
    const MIntArray row = context.edgesToVertices(edges, from);
    KY_REPORT_FAILURE(setPlayerVertices(row));
    KY_REPORT_FAILURE(setPlayerLineFromIds(row));
}

// Walks the opposite rows again from their first vertices, so they keep the anchor row's length.
void rewalkOppositeRows(kyStrakeContext& context) {
    if (context.oppositeVerticesAlt.length() > 0) {
        context.oppositeVertices = context.walkOppositeRow(context.oppositeVertices[0]);
        context.oppositeVerticesAlt = context.walkOppositeRow(context.oppositeVerticesAlt[0]);
    } else if (context.oppositeVertices.length() > 0) {
        context.oppositeVertices = context.walkOppositeRow(context.oppositeVertices[0]);
    }
}

}  // namespace

MStatus kyStrakeContext::selectPoints() {
    const int vertex = pickBoundaryVertex(kAnchorPickRadius, false);
    if (vertex != -1) addAnchor(*this, vertex);
    // A miss still rebuilds the row and the preview from the anchors already there.
    if (anchorVertices.length() == 2) selectAnchorRow(*this);
    rewalkOppositeRows(*this);
    return rebuildBridgePreview(1);
}

MStatus kyStrakeContext::selectOppositeRow(int vertex) {
    if (vertex == -1) vertex = pickBoundaryVertex(kAnchorPickRadius, false);
    if (vertex == -1 || anchorVertices.length() != 2) return MS::kSuccess;
    oppositeVertices = walkOppositeRow(vertex);
    oppositeVerticesAlt.clear();
    traceIds(oppositeVertices, "fusevtx");
    return rebuildBridgePreview(1);
}

MStatus kyStrakeContext::selectMergeRow() {
    const int vertex = pickBoundaryVertex(kAnchorPickRadius, false);
    if (vertex == -1 || anchorVertices.length() != 2) return MS::kSuccess;
    oppositeVertices = walkOppositeRow(vertex);
    oppositeVerticesAlt = oppositeVertices;
    return rebuildBridgePreview(0);
}

MStatus kyStrakeContext::selectMagnetVertex() {
    const int vertex = pickBoundaryVertex(kAnchorPickRadius, false);
    // Only without anchors: with them, the same gesture picks the opposite row of a bridge.
    if (vertex == -1 || anchorVertices.length() > 0) return MS::kSuccess;
    magnetVertices.clear();
    magnetVertices.append(vertex);
    return updateMagnetPoints();
}

MStatus kyStrakeContext::updateMagnetPoints() {
    const MDagPath retopo = getActiveMeshPath();
    MPointArray screenPoints;
    for (unsigned k = 0; k < magnetVertices.length() && k < 2; ++k)
        screenPoints.append(worldToScreen(vertexPosition(retopo, magnetVertices[k])));
    return setPointArrayAttr("magnetPt", findStrakeLocator(), screenPoints);
}

MStatus kyStrakeContext::mergeMagnetVertices() {
    const MDagPath retopo = getActiveMeshPath();
    const MString meshName = retopo.fullPathName();
    // Undoable, so the merge is one step of the host's undo queue.
    const MStatus status = MGlobal::executeCommand(mergePairCommand(magnetVertices, retopo), false, true);
    KY_REPORT_FAILURE(status);
    magnetVertices.clear();
    KY_REPORT_FAILURE(clearToolData());
    KY_REPORT_FAILURE(MGlobal::selectByName(meshName, MGlobal::kReplaceList));
    return status;
}
