// ENTER, ESC and BACKSPACE, which the host hands to the tool as completeAction, abortAction and
// deleteAction, and the clears they share with activation and clean-up.

#include <maya/MDagPath.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/helpTexts.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

}  // namespace

void kyStrakeContext::completeAction() {
    const MDagPath retopo = getActiveMeshPath();
    setInfoLine1(activatedText);

    if (isBridgeReady()) {
        const bool merge = oppositeVerticesAlt.length() > 0;
        const MStatus status = merge ? applyMerge(retopo) : applyBridge(retopo);
        if (!status) return;
        clearStrokes();
        clearShadowStrokes();
        clearAnchors();
        clearToolData();
        // "creagted" is the text the artist has always seen; it stays.
        setInfoLine1(merge ? "Boundary edges merged" : "Bridge creagted");
        return;
    }
    if (ctrlStroke) {
        clearStrokes();
        if (hasPlayerVertices()) clearAnchors();
        clearToolData();
    } else if (!shiftStroke) {
        if (!hasPlayerVertices()) applyScratch();
        // Tested again: a scratch that leaves a player row finishes it in the same ENTER.
        if (hasPlayerVertices()) finishRow();
    }
    setInfoLines(helpStart, activatedText);
}

void kyStrakeContext::abortAction() {
    clearToolData();
    setInfoLine1("Operation cancelled");
}

void kyStrakeContext::deleteAction() {
    const bool removed = dropLastStroke();
    clearShadowStrokes();
    if (removed) {
        view.refresh(true, true);
        return;
    }
    const MObject locator = findStrakeLocator();
    if (oppositeVertices.length() == 0) {
        deleteLastAnchor();
        // Only the line goes: "playerpts" keeps what deleteLastAnchor wrote.
        setPointArrayAttr("playersLine", locator, MPointArray());
    } else {
        clearFuseData();
    }
    oppositeVertices.clear();
    oppositeVerticesAlt.clear();
    oppositeEdges.clear();
    if (magnetVertices.length() > 0) {
        magnetVertices.clear();
        setPointArrayAttr("magnetPt", locator, MPointArray());
    }
}

MStatus kyStrakeContext::deleteLastAnchor() {
    const unsigned count = anchorVertices.length();
    if (count == 0) {
        setInfoLines("", "");
        return MS::kSuccess;
    }
    if (count >= 2) {
        anchorVertices.setLength(1);
        anchorEdges.clear();
        KY_RETURN_ON_FAILURE(setPlayerLineFromIds(anchorVertices));
        KY_RETURN_ON_FAILURE(setPlayerVertices(MIntArray()));
    } else {
        anchorVertices.clear();
        KY_RETURN_ON_FAILURE(setPlayerLineFromIds(anchorVertices));
    }
    return view.refresh();
}

MStatus kyStrakeContext::clearToolData() {
    const MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kSuccess;
    KY_RETURN_ON_FAILURE(setIntArrayAttr("sizesNondestruct", locator, MIntArray()));
    KY_RETURN_ON_FAILURE(setPointArrayAttr("strokesNondestruct", locator, MPointArray()));
    KY_RETURN_ON_FAILURE(clearAnchors());
    KY_RETURN_ON_FAILURE(clearStrokes());
    KY_RETURN_ON_FAILURE(clearShadowStrokes());
    KY_RETURN_ON_FAILURE(setPointArrayAttr("playersLine", locator, MPointArray()));
    KY_RETURN_ON_FAILURE(setPlayerLineFromIds(anchorVertices));
    KY_RETURN_ON_FAILURE(clearFuseData());
    KY_RETURN_ON_FAILURE(clearMagnetPoints());
    KY_RETURN_ON_FAILURE(clearNewFaces());
    KY_RETURN_ON_FAILURE(clearFreePoints());
    KY_RETURN_ON_FAILURE(clearFreezeMedian());
    KY_RETURN_ON_FAILURE(clearPlayerVertices());
    KY_RETURN_ON_FAILURE(clearShadowIndices());
    setInfoLine1(activatedText);
    historyHint();
    view.refresh(false, false);
    return MS::kSuccess;
}

MStatus kyStrakeContext::clearAnchors() {
    anchorVertices.setLength(0);
    anchorVertices.clear();
    oppositeVertices.clear();
    oppositeVerticesAlt.clear();
    oppositeEdges.clear();
    anchorEdges.clear();
    // Reported but not acted on: the context forgets its anchors whatever the locator reports.
    KY_REPORT_FAILURE(setPlayerLineFromIds(MIntArray()));
    KY_REPORT_FAILURE(setPlayerVertices(MIntArray()));
    return clearFuseData();
}

void kyStrakeContext::finishRow() {
    // The repeated clear of the tool data is redundant and harmless.
    if (KY_REPORT_FAILURE(clearToolData())) return;
    if (KY_REPORT_FAILURE(clearAnchors())) return;
    if (KY_REPORT_FAILURE(clearToolData())) return;
    if (KY_REPORT_FAILURE(clearNewFaces())) return;
    if (KY_REPORT_FAILURE(clearToolData())) return;
    if (KY_REPORT_FAILURE(clearStrokes())) return;
    if (KY_REPORT_FAILURE(clearToolData())) return;
    setInfoLines(helpStart, "strake created");
}

MPointArray kyStrakeContext::rowPositions(MStatus& status) {
    return pointsFromIds(getPlayerVertices(), getActiveMeshPath(), status);
}
