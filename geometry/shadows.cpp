// Keeping the rows (ids) and the shadow (positions) of the last patch true while the mesh changes
// underneath them, and the writes of the stroke sets that go with them.
//
// Writing order matters: writeShadowIndices writes "sizesShadow" from the rows, and
// writeShadowStrokes, always called after it, has the last word on it.

#include <maya/MItGeometry.h>

#include "geometry/functionsInternal.h"

namespace {

const char* const kRowNames[] = {"shadowIndices1", "shadowIndices2", "shadowIndices3"};

void appendAll(MPointArray& to, const MPointArray& from) {
    for (unsigned int i = 0; i < from.length(); ++i) to.append(from[i]);
}

// Positions of the ids the mesh has; ids at or past the position count are skipped.
MPointArray positionsOfKnownIds(const MIntArray& ids, const MPointArray& positions) {
    MPointArray points;
    for (unsigned int k = 0; k < ids.length(); ++k) {
        if (ids[k] >= 0 && static_cast<unsigned int>(ids[k]) < positions.length())
            points.append(positions[ids[k]]);
    }
    return points;
}

// Moves every entry one place toward the front (forward) or the end (backward) with the entry at
// that end dropped, then repeats the new first entry at the end (or the new last at the front) so
// that a closed row stays closed: [a, b, c, d, a] becomes [b, c, d, a, b] or [d, a, b, c, d].
void rotateClosedRow(MIntArray& row, bool forward) {
    const unsigned int n = row.length();
    if (n == 0) return;
    if (forward) {
        for (unsigned int i = 0; i + 1 < n; ++i) row[i] = row[i + 1];
        if (n > 2) row[n - 1] = row[0];
    } else {
        for (unsigned int i = n - 1; i > 0; --i) row[i] = row[i - 1];
        if (n > 2) row[0] = row[n - 1];
    }
}

// Writes the last entry of a non-empty row over with its first.
void repeatFirstAtEnd(MIntArray& row) {
    if (row.length() > 0) row[row.length() - 1] = row[0];
}

}  // namespace

MStatus writeShadowIndices(const MIntArray& ids1, const MIntArray& ids2, const MIntArray& ids3) {
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kFailure;
    const MIntArray* rows[] = {&ids1, &ids2, &ids3};
    MIntArray sizes;
    for (int k = 0; k < 3; ++k) {
        if (MStatus status = setIntArrayAttr(kRowNames[k], locator, *rows[k]); !status) return status;
        if (rows[k]->length() > 0) sizes.append(static_cast<int>(rows[k]->length()));
    }
    return setIntArrayAttr("sizesShadow", locator, sizes);
}

MStatus writeShadowStrokes(const MPointArray& p1, const MPointArray& p2, const MPointArray& p3) {
    MPointArray points;
    MIntArray sizes;
    if (p3.length() > 0) {
        // A third row stands for the whole shadow: the first two are dropped.
        points = p3;
        sizes.append(static_cast<int>(p3.length()));
    } else {
        points = p1;
        appendAll(points, p2);
        sizes.append(static_cast<int>(p1.length()));
        sizes.append(static_cast<int>(p2.length()));
    }
    MObject locator = findStrakeLocator();
    if (MStatus status = setPointArrayAttr("strokesShadow", locator, points); !status) return status;
    return setIntArrayAttr("sizesShadow", locator, sizes);
}

MStatus writeShadowStrokesFromIds(const MIntArray& ids1, const MIntArray& ids2, const MIntArray& ids3) {
    MDagPath path = getActiveMeshPath();
    MStatus status;
    MPointArray p1 = pointsFromIds(ids1, path, status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray p2 = pointsFromIds(ids2, path, status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray p3 = pointsFromIds(ids3, path, status);
    KY_RETURN_ON_FAILURE(status);
    return writeShadowStrokes(p1, p2, p3);
}

MStatus refreshShadowStrokes() {
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    MDagPath path = getActiveMeshPath();
    if (!hasPlayerVertices() && !hasFirstAndThirdRows()) return MS::kSuccess;
    if (row1.length() != row2.length() && row3.length() == 0) return MS::kFailure;

    MStatus status;
    MPointArray p1 = pointsFromIds(row1, path, status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray p2 = pointsFromIds(row2, path, status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray p3 = pointsFromIds(row3, path, status);
    KY_RETURN_ON_FAILURE(status);
    if (p1.length() != p2.length() && p3.length() == 0) {
        writeShadowStrokes(MPointArray(), MPointArray(), MPointArray());
        return failWith(status, "Not same amount of pos comp: ");
    }
    return writeShadowStrokes(p1, p2, p3);
}

MStatus refreshShadowStrokesFromMesh(const MDagPath& path) {
    if (!path.isValid()) return MS::kFailure;
    MStatus status;
    MItGeometry geometry(path, &status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray positions;
    KY_RETURN_ON_FAILURE(geometry.allPositions(positions, MSpace::kWorld));
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    // Rows loaded with an older mesh may name vertices it no longer has: they shorten here.
    return writeShadowStrokes(positionsOfKnownIds(row1, positions), positionsOfKnownIds(row2, positions),
                              positionsOfKnownIds(row3, positions));
}

MStatus rebuildShadowIndices() {
    MDagPath path = getActiveMeshPath();
    if (!path.isValid()) return MS::kInvalidParameter;
    PolylineList shadow = getShadowRows();
    const bool closed = anyShadowClosed();
    MIntArray ids1 = idsFromPoints(path, shadow[0]);
    MIntArray ids2 = idsFromPoints(path, shadow[1]);
    traceIds(ids1, "(indices1) stack shadow");
    traceIds(ids2, "(indices2) stack shadow");
    MObject locator = findStrakeLocator();
    if (shadow.size() > 2) {
        MIntArray ids3 = idsFromPoints(path, shadow[2]);
        if (closed) repeatFirstAtEnd(ids3);
        if (MStatus status = setIntArrayAttr("shadowIndices3", locator, ids3); !status) return status;
    }
    if (closed && ids1.length() > 0 && ids2.length() > 0) {
        repeatFirstAtEnd(ids1);
        repeatFirstAtEnd(ids2);
    }
    if (MStatus status = setIntArrayAttr("shadowIndices1", locator, ids1); !status) return status;
    return setIntArrayAttr("shadowIndices2", locator, ids2);
}

MStatus writeNondestructStrokes(const PolylineList& list) {
    MIntArray sizes;
    MPointArray points;
    for (const MPointArray& polyline : list) {
        sizes.append(static_cast<int>(polyline.length()));
        appendAll(points, polyline);
    }
    MObject locator = findStrakeLocator();
    if (MStatus status = setIntArrayAttr("sizesNondestruct", locator, sizes); !status) return status;
    return setPointArrayAttr("strokesNondestruct", locator, points);
}

MStatus writeNondestructStroke(const MPointArray& points) {
    return writeNondestructStrokes(PolylineList{points});
}

bool dropLastStroke() {
    MIntArray sizes = locatorIntArray("sizes");
    if (sizes.length() == 0) return false;
    MPointArray strokes = locatorPointArray("strokes");
    const int lastSize = sizes[sizes.length() - 1];
    sizes.remove(sizes.length() - 1);
    const int kept = static_cast<int>(strokes.length()) - lastSize;
    strokes.setLength(kept > 0 ? static_cast<unsigned int>(kept) : 0u);
    MObject locator = findStrakeLocator();
    setIntArrayAttr("sizes", locator, sizes);
    setPointArrayAttr("strokes", locator, strokes);
    return true;
}

MStatus settlePatch(const MObject& patchNode) {
    clearStrokes();
    if (!patchNode.isNull()) setNodeStateNormal(patchNode);
    refreshShadowStrokes();
    return MS::kSuccess;
}

MStatus refreshPlayerLine(const MDagPath& path) {
    MStatus status;
    MItGeometry geometry(path, &status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray positions;
    KY_RETURN_ON_FAILURE(geometry.allPositions(positions, MSpace::kWorld));
    MIntArray ids = getPlayerVertices();
    if (ids.length() == 0) return MS::kSuccess;
    // The player ids are taken to name vertices of this mesh: they are not bound-tested.
    MPointArray points;
    for (unsigned int k = 0; k < ids.length(); ++k) points.append(positions[ids[k]]);
    return setPlayerLine(points);
}

MStatus stackSlice(MPointArray& outPoints, MIntArray& outIds) {
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    outIds = row3.length() > 0 ? row3 : row2;
    closeRow(row1);
    closeRow(row2);
    closeRow(row3);
    traceIds(row1, "(row1) stack slice indices");
    traceIds(row2, "(row2) stack slice indices");
    traceIds(row3, "(row3) stack slice indices");

    PolylineList shadow = getShadowRows();
    MPointArray first = shadow[0];
    closePoints(first);
    MPointArray second = shadow[1];
    closePoints(second);
    outPoints = second;
    MPointArray third;
    if (shadow.size() > 2) {
        third = shadow[2];
        closePoints(third);
        outPoints = third;
    }
    if (MStatus status = writeShadowIndices(row1, row2, row3); !status) return status;
    return writeShadowStrokes(first, second, third);
}

void finishClosedRows() {
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    if (row1.length() == 0 || row2.length() == 0) return;
    traceIds(row1, "finition before");
    // Row 1 gains its first id at the end (an append, where closeRow overwrites); row 2 has its
    // last entry overwritten.
    if (row1[0] != row1[row1.length() - 1]) row1.append(row1[0]);
    repeatFirstAtEnd(row2);
    KY_REPORT_FAILURE(writeShadowIndices(row1, row2, row3));
    KY_REPORT_FAILURE(refreshShadowStrokes());
    KY_REPORT_FAILURE(setPlayerLineFromIds(row2));
    KY_REPORT_FAILURE(setPlayerVertices(row2));
    traceIds(row2, "finition after");
}

MStatus twistShadow(int direction) {
    if (direction == 0) return MS::kSuccess;
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    MDagPath path = getActiveMeshPath();
    MStatus status;
    if (row1.length() != row2.length()) return failWith(status, "twist shadows not equals ");
    if (row2.length() == 0) return failWith(status, "shadow length is 0");

    // Only the sign counts: a twist is always by one vertex.
    rotateClosedRow(row2, direction > 0);
    KY_RETURN_ON_FAILURE(writeShadowIndices(row1, row2, row3));
    MPointArray p1 = pointsFromIds(row1, path, status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray p2 = pointsFromIds(row2, path, status);
    KY_RETURN_ON_FAILURE(status);
    return writeShadowStrokes(p1, p2, MPointArray());
}
