// Rows as stored on the locator: splitting stroke sets into polylines, converting between vertex
// ids and world positions, and the tests and closing of chains.

#include <maya/MItGeometry.h>
#include <maya/MItMeshVertex.h>

#include <cmath>
#include <stdexcept>

#include "geometry/functionsInternal.h"

namespace {

// Two separate tolerances for "first point equals last point", both kept as they are: the tests
// over all shadows or all strokes use the tight one, the tests of one stroke or of the first chain
// the loose one.
const double kTightClosedTolerance = 0.0001;
const double kLooseClosedTolerance = 0.001;

bool endsMeet(const MPointArray& polyline, double tolerance) {
    const unsigned int n = polyline.length();
    return n > 0 && distance3(polyline[0], polyline[n - 1]) < tolerance;
}

// The locator's stroke set `pointsName`/`sizesName` as polylines. A missing locator or a value
// never written (kInvalidParameter) reads as empty; only other read failures are handed back.
PolylineList locatorPolylines(const char* pointsName, const char* sizesName, MStatus& status) {
    status = MS::kSuccess;
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return PolylineList();
    MIntArray sizes;
    MPointArray points;
    const MStatus reads[] = {getIntArrayAttr(sizesName, locator, sizes),
                             getPointArrayAttr(pointsName, locator, points)};
    for (const MStatus& read : reads) {
        if (read != MS::kSuccess && read != MS::kInvalidParameter) status = read;
    }
    return splitStrokeSet(points, sizes);
}

// The id of the vertex nearest to `point`, scanning from the highest id down. Ties go to the
// higher id, and a vertex closer than 0.001 ends the scan at once. The scan stops before vertex 0,
// which is never examined: a standing quirk that callers live with. Distances are compared in
// single precision. -1 when every vertex lies 9999 or further away.
int nearestVertexFromTop(const MPointArray& vertices, const MPoint& point) {
    float best = 9999.0f;
    int bestId = -1;
    for (int id = static_cast<int>(vertices.length()) - 1; id >= 1; --id) {
        const MPoint& vertex = vertices[id];
        const double dx = vertex.x - point.x, dy = vertex.y - point.y, dz = vertex.z - point.z;
        const float distance = static_cast<float>(std::sqrt(dx * dx + dy * dy + dz * dz));
        if (distance < best) {
            best = distance;
            bestId = id;
        }
        if (distance < 0.001f) return id;
    }
    return bestId;
}

}  // namespace

MPointArray& PolylineList::at(std::size_t index) {
    if (index >= size()) throw std::out_of_range("invalid vector subscript");
    return std::vector<MPointArray>::operator[](index);
}

const MPointArray& PolylineList::at(std::size_t index) const {
    if (index >= size()) throw std::out_of_range("invalid vector subscript");
    return std::vector<MPointArray>::operator[](index);
}

PolylineList splitStrokeSet(const MPointArray& points, const MIntArray& sizes) {
    PolylineList polylines;
    unsigned int next = 0;
    for (unsigned int k = 0; k < sizes.length(); ++k) {
        MPointArray polyline;
        for (int i = 0; i < sizes[k] && next < points.length(); ++i) polyline.append(points[next++]);
        polylines.push_back(polyline);
    }
    return polylines;
}

PolylineList getShadowRows(MStatus& status) {
    return locatorPolylines("strokesShadow", "sizesShadow", status);
}

PolylineList getShadowRows() {
    MStatus status;
    return getShadowRows(status);
}

PolylineList getStrokeList(MStatus& status) { return locatorPolylines("strokes", "sizes", status); }

PolylineList getStrokeList() {
    MStatus status;
    return getStrokeList(status);
}

// An operation with no kept strokes stores its shadow in their place.
PolylineList getNondestructStrokes(MStatus& status) {
    status = MS::kSuccess;
    const MObject locator = findStrakeLocator();
    if (locator.isNull()) {
        status = MS::kFailure;
        return PolylineList();
    }
    MIntArray sizes;
    MPointArray points;
    const MStatus reads[] = {getIntArrayAttr("sizesNondestruct", locator, sizes),
                             getPointArrayAttr("strokesNondestruct", locator, points)};
    for (const MStatus& read : reads) {
        // An array never written reads as empty, which is no failure here.
        if (read != MS::kSuccess && read != MS::kInvalidParameter) {
            status = read;
            return PolylineList();
        }
    }
    if (sizes.length() == 0 || points.length() == 0) return getShadowRows(status);
    return splitStrokeSet(points, sizes);
}

MStatus lastShadowStroke(MIntArray& outSizes, MPointArray& outPoints) {
    MIntArray sizes = locatorIntArray("sizesShadow");
    if (sizes.length() == 0) return MS::kInvalidParameter;
    MPointArray points = locatorPointArray("strokesShadow");
    unsigned int offset = 0;
    for (unsigned int k = 0; k + 1 < sizes.length(); ++k) offset += sizes[k];
    const int lastSize = sizes[sizes.length() - 1];
    outSizes.append(lastSize);
    for (unsigned int i = offset; i < offset + lastSize && i < points.length(); ++i)
        outPoints.append(points[i]);
    return MS::kSuccess;
}

MPointArray pointsFromIds(const MIntArray& ids, const MDagPath& path, MStatus& status) {
    status = MS::kSuccess;
    MPointArray points;
    if (ids.length() == 0) return points;
    MDagPath meshPath = path.isValid() ? path : getActiveMeshPath();
    MItMeshVertex vertex(meshPath, MObject::kNullObj, &status);
    if (!status) return points;
    const int count = vertex.count();
    for (unsigned int k = 0; k < ids.length(); ++k) {
        // The bound test is one looser than the valid range: an id equal to the count passes,
        // setIndex then fails unnoticed and the vertex the iterator stood on is read in its place.
        if (ids[k] - 1 >= count) {
            status = MS::kFailure;
            return MPointArray();
        }
        int previous = 0;
        vertex.setIndex(ids[k], previous);
        points.append(vertex.position(MSpace::kWorld, &status));
    }
    traceIds(ids, "indicesToPoints");
    return points;
}

MPointArray pointsFromIds(const MIntArray& ids, const MDagPath& path) {
    MStatus status;
    return pointsFromIds(ids, path, status);
}

MIntArray idsFromPoints(const MDagPath& path, const MPointArray& points, MStatus& status) {
    MIntArray ids;
    if (points.length() == 0) {
        status = MS::kInvalidParameter;
        return ids;
    }
    MDagPath meshPath = path.isValid() ? path : getActiveMeshPath();
    MItGeometry geometry(meshPath, &status);
    if (!status) return ids;
    MPointArray vertices;
    status = geometry.allPositions(vertices, MSpace::kWorld);
    if (!status) return ids;
    status = MS::kSuccess;
    if (vertices.length() < 3) return ids;
    for (unsigned int k = 0; k < points.length(); ++k) ids.append(nearestVertexFromTop(vertices, points[k]));
    return ids;
}

MIntArray idsFromPoints(const MDagPath& path, const MPointArray& points) {
    MStatus status;
    return idsFromPoints(path, points, status);
}

bool containsId(int id, const MIntArray& ids) {
    for (unsigned int k = 0; k < ids.length(); ++k) {
        if (ids[k] == id) return true;
    }
    return false;
}

bool rowsShareId(const MIntArray& a, const MIntArray& b) {
    for (unsigned int k = 0; k < a.length(); ++k) {
        if (containsId(a[k], b)) return true;
    }
    return false;
}

bool hasFirstAndThirdRows() {
    MIntArray row1, row2, row3;
    getShadowIndices(row1, row2, row3);
    return row1.length() > 0 && row2.length() == 0 && row3.length() > 0;
}

bool anyShadowClosed() {
    for (const MPointArray& polyline : getShadowRows()) {
        if (endsMeet(polyline, kTightClosedTolerance)) return true;
    }
    return false;
}

bool anyStrokeClosed() {
    MIntArray sizes = locatorIntArray("sizes");
    MPointArray strokes = locatorPointArray("strokes");
    int offset = 0;
    for (unsigned int k = 0; k < sizes.length(); ++k) {
        const int first = offset;
        const int last = offset + sizes[k] - 1;
        if (first >= 0 && last >= 0 && first < static_cast<int>(strokes.length()) &&
            last < static_cast<int>(strokes.length()) &&
            distance3(strokes[first], strokes[last]) < kTightClosedTolerance) {
            return true;
        }
        // The offset is set to this stroke's size rather than advanced by it, so from the third
        // stroke on the pair compared is not that stroke's ends. Kept as it is.
        offset = sizes[k];
    }
    return false;
}

bool isStrokeClosed(int index) {
    PolylineList strokes = getStrokeList();
    if (strokes.empty()) return false;
    return isStrokeClosed(strokes[static_cast<std::size_t>(index)]);
}

bool isStrokeClosed(const MPointArray& stroke) { return endsMeet(stroke, kLooseClosedTolerance); }

bool isFirstChainClosed() {
    PolylineList shadow = getShadowRows();
    if (!shadow.empty() && shadow[0].length() > 0) return endsMeet(shadow[0], kLooseClosedTolerance);
    return isStrokeClosed(0);
}

bool isRowOnInterior(const MDagPath& path, const MIntArray& ids) {
    MObject component = makeComponent(ids, MFn::kMeshVertComponent);
    if (component.isNull()) return false;
    MStatus status;
    MItMeshVertex vertex(path, component, &status);
    if (KY_REPORT_FAILURE(status)) return false;
    for (; !vertex.isDone(); vertex.next()) {
        if (!vertex.onBoundary()) return true;
    }
    return false;
}

MStatus closeRow(MIntArray& ids) {
    const unsigned int n = ids.length();
    if (n == 0) return MS::kSuccess;
    if (n < 3) return MS::kFailure;
    ids[n - 1] = ids[0];
    return MS::kSuccess;
}

MStatus closePoints(MPointArray& points) {
    const unsigned int n = points.length();
    if (n == 0) return MS::kSuccess;
    if (n < 3) return MS::kFailure;
    points[n - 1] = points[0];
    return MS::kSuccess;
}

MStatus closeRowPair(MIntArray& a, MIntArray& b) {
    if (a.length() < 3 || b.length() < 3) return MS::kFailure;
    closeRow(a);
    closeRow(b);
    return MS::kSuccess;
}
