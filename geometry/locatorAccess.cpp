// The locator's attributes by their meaning: strokes, rows, players, previews. The locator is
// looked up on every call; without one, clears succeed and reads come back empty.

#include <initializer_list>

#include "geometry/functionsInternal.h"

namespace {

// Writes an empty array to each named attribute of the locator in turn, stopping at the first
// failure. Without a locator nothing is written and the clear succeeds.
MStatus clearIntArrays(std::initializer_list<const char*> names) {
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kSuccess;
    for (const char* name : names) {
        if (MStatus status = setIntArrayAttr(name, locator, MIntArray()); !status) return status;
    }
    return MS::kSuccess;
}

MStatus clearPointArrays(std::initializer_list<const char*> names) {
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kSuccess;
    for (const char* name : names) {
        if (MStatus status = setPointArrayAttr(name, locator, MPointArray()); !status) return status;
    }
    return MS::kSuccess;
}

}  // namespace

MIntArray locatorIntArray(const char* name, MStatus* status) {
    MIntArray values;
    MStatus read = getIntArrayAttr(name, findStrakeLocator(), values);
    if (status) *status = read;
    return values;
}

MPointArray locatorPointArray(const char* name, MStatus* status) {
    MPointArray values;
    MStatus read = getPointArrayAttr(name, findStrakeLocator(), values);
    if (status) *status = read;
    return values;
}

MStatus getStrokes(const MObject& node, MPointArray& out) {
    if (node.isNull()) return MS::kSuccess;
    return getPointArrayAttr("strokes", node, out);
}

MStatus getSizes(const MObject& node, MIntArray& out) { return getIntArrayAttr("sizes", node, out); }

MStatus getSizesShadow(const MObject& node, MIntArray& out) {
    return getIntArrayAttr("sizesShadow", node, out);
}

MStatus getShadowStrokes(MPointArray& out) {
    return getPointArrayAttr("strokesShadow", findStrakeLocator(), out);
}

MStatus getShadowIndices(MIntArray& row1, MIntArray& row2, MIntArray& row3) {
    MObject locator = findStrakeLocator();
    MStatus status = getIntArrayAttr("shadowIndices1", locator, row1);
    KY_REPORT_FAILURE(status);
    status = getIntArrayAttr("shadowIndices2", locator, row2);
    KY_REPORT_FAILURE(status);
    status = getIntArrayAttr("shadowIndices3", locator, row3);
    KY_REPORT_FAILURE(status);
    return status;
}

MIntArray getPlayerVertices(MStatus& status) { return locatorIntArray("playervtx", &status); }

MIntArray getPlayerVertices() { return locatorIntArray("playervtx"); }

MPointArray getPlayerPoints(MStatus& status) { return locatorPointArray("playerpts", &status); }

MPointArray getPlayerPoints() { return locatorPointArray("playerpts"); }

MIntArray getNewFaces() { return locatorIntArray("newFaces"); }

MStatus setNewFaces(const MIntArray& faces) {
    return setIntArrayAttr("newFaces", findStrakeLocator(), faces);
}

MStatus setPlayerVertices(const MIntArray& ids) {
    return setIntArrayAttr("playervtx", findStrakeLocator(), ids);
}

MStatus setPlayerLine(const MPointArray& points) {
    MObject locator = findStrakeLocator();
    if (MStatus status = setPointArrayAttr("playersLine", locator, points); !status) return status;
    return setPointArrayAttr("playerpts", locator, points);
}

MStatus setPlayerLineFromIds(const MIntArray& ids) {
    if (findStrakeLocator().isNull()) return MS::kInvalidParameter;
    MStatus status;
    MPointArray points = pointsFromIds(ids, getActiveMeshPath(), status);
    KY_RETURN_ON_FAILURE(status);
    return setPlayerLine(points);
}

bool hasStrokes() { return locatorPointArray("strokes").length() > 0; }

bool hasPlayerVertices() { return getPlayerVertices().length() > 0; }

bool isPlayerClosed() {
    MIntArray ids = getPlayerVertices();
    return ids.length() > 0 && ids[0] == ids[ids.length() - 1];
}

int strokeCount() { return static_cast<int>(locatorIntArray("sizes").length()); }

int shadowCount() { return static_cast<int>(locatorIntArray("sizesShadow").length()); }

bool hasShadow() { return shadowCount() != 0; }

MStatus clearStrokes() {
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kSuccess;
    if (MStatus status = setPointArrayAttr("strokes", locator, MPointArray()); !status) return status;
    return setIntArrayAttr("sizes", locator, MIntArray());
}

MStatus clearStrokes(MStatus& status) {
    status = clearStrokes();
    return status;
}

MStatus clearShadowStrokes() {
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kSuccess;
    if (MStatus status = setPointArrayAttr("strokesShadow", locator, MPointArray()); !status) return status;
    return setIntArrayAttr("sizesShadow", locator, MIntArray());
}

MStatus clearShadowIndices() {
    return clearIntArrays({"shadowIndices1", "shadowIndices2", "shadowIndices3"});
}

MStatus clearPlayerVertices() { return clearIntArrays({"playervtx"}); }

MStatus clearNewFaces() { return clearIntArrays({"newFaces"}); }

MStatus clearMagnetPoints() { return clearPointArrays({"magnetPt"}); }

MStatus clearFreePoints() {
    if (findStrakeLocator().isNull()) return MS::kSuccess;
    if (MStatus status = clearPointArrays({"freepoints"}); !status) return status;
    setButtonChecked("freezeBtn", false);
    return MS::kSuccess;
}

MStatus clearFreezeMedian() {
    if (findStrakeLocator().isNull()) return MS::kSuccess;
    if (MStatus status = clearPointArrays({"freezeMedian"}); !status) return status;
    setButtonChecked("freezeSymBtn", false);
    return MS::kSuccess;
}

MStatus clearFuseData() {
    // "sizesShadow" is cleared with the preview while "strokesShadow" stays: the shadow's sizes
    // go with the fuse data on purpose.
    if (MStatus status = clearPointArrays({"fusept", "fusemesh"}); !status) return status;
    return clearIntArrays({"fuseindices", "sizesShadow"});
}
