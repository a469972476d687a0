// The tool command's work on the stroke set of the locator: strokes appended at the end of a
// gesture, closed, put behind the player row, tied to the row's middle, and kept as the
// "nondestructive" strokes that a patch can be rebuilt from.

#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MVector.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

// `subdivisions` equal steps per segment: p + (q - p) * k / subdivisions for k below
// subdivisions, then q. Inner points thus come out twice, which resampling takes in its stride
// because it skips zero-length segments.
MPointArray subdivideSegments(const MPointArray& stroke, int subdivisions) {
    MPointArray out;
    for (unsigned int i = 0; i + 1 < stroke.length(); ++i) {
        const MPoint& p = stroke[i];
        const MPoint& q = stroke[i + 1];
        for (int k = 0; k < subdivisions; ++k)
            out.append(p + (q - p) * (static_cast<double>(k) / subdivisions));
        out.append(q);
    }
    return out;
}

// The middle of the row: its middle point for an odd count, the mean of the two middle ones for
// an even count.
MPoint rowMiddle(const MPointArray& row) {
    const unsigned int n = row.length();
    if (n % 2 == 1) return row[n / 2];
    const unsigned int low = (n - 1) / 2;
    return (row[low] + MVector(row[low + 1])) / 2.0;
}

}  // namespace

void kyStrakeToolCmd::appendStrokeToLocator(MStatus& status, const MPointArray& points) {
    if (points.length() == 0) {
        status = MS::kInvalidParameter;
        return;
    }
    MObject locator = findStrakeLocator();
    MPointArray strokes;
    MIntArray sizes;
    getStrokes(locator, strokes);
    getSizes(locator, sizes);
    for (unsigned int i = 0; i < points.length(); ++i) strokes.append(points[i]);
    sizes.append(static_cast<int>(points.length()));

    status = setPointArrayAttr("strokes", locator, strokes);
    if (KY_REPORT_FAILURE(status)) return;
    status = setIntArrayAttr("sizes", locator, sizes);
    KY_REPORT_FAILURE(status);
}

MStatus kyStrakeToolCmd::closeStrokes() {
    MObject locator = findStrakeLocator();
    if (locator.isNull()) return MS::kSuccess;
    MPointArray strokes;
    MIntArray sizes;
    getStrokes(locator, strokes);
    getSizes(locator, sizes);

    unsigned int first = 0;
    for (unsigned int i = 0; i < sizes.length(); ++i) {
        const unsigned int size = sizes[i] > 0 ? static_cast<unsigned int>(sizes[i]) : 0;
        if (size == 0) continue;
        if (first + size > strokes.length()) break;  // sizes that outrun the points: close what is there
        strokes[first + size - 1] = strokes[first];
        first += size;
    }
    MStatus status = setPointArrayAttr("strokes", locator, strokes);
    KY_REPORT_FAILURE(status);
    return status;
}

MStatus kyStrakeToolCmd::prependRowToStrokes(const MPointArray& row) {
    const MObject locator = findStrakeLocator();
    MPointArray strokes;
    MIntArray sizes;
    getStrokes(locator, strokes);
    getSizes(locator, sizes);

    MPointArray points = row;
    MIntArray counts;
    counts.append(static_cast<int>(row.length()));
    unsigned int offset = 0;
    for (unsigned int s = 0; s < sizes.length(); ++s) {
        for (int i = 0; i < sizes[s] && offset < strokes.length(); ++i) points.append(strokes[offset++]);
        counts.append(sizes[s]);
    }
    KY_RETURN_ON_FAILURE(setPointArrayAttr("strokes", locator, points));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("sizes", locator, counts));
    return MS::kSuccess;
}

// A stroke that starts anywhere near the row is tied to the row's middle, so the sweep of a
// bridge starts on the row itself.
MStatus kyStrakeToolCmd::seedSpineStart(PolylineList& strokes) {
    if (strokes.empty() || strokes[0].length() == 0) return MS::kInvalidParameter;
    MStatus status;
    const MPointArray row = getPlayerPoints(status);
    KY_RETURN_ON_FAILURE(status);
    if (row.length() == 0) return MS::kInvalidParameter;
    strokes[0][0] = rowMiddle(row);
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::saveNondestructStrokes(int subdivisions) {
    MStatus status;
    const PolylineList strokes = getStrokeList(status);
    if (!status) return status;
    if (strokes.size() < 2) return MS::kSuccess;

    MPointArray points;
    MIntArray sizes;
    for (const MPointArray& stroke : strokes) {
        const MPointArray kept = subdivisions == 0 ? stroke : subdivideSegments(stroke, subdivisions);
        for (unsigned int i = 0; i < kept.length(); ++i) points.append(kept[i]);
        sizes.append(static_cast<int>(kept.length()));
    }
    const MObject locator = findStrakeLocator();
    KY_RETURN_ON_FAILURE(setIntArrayAttr("sizesNondestruct", locator, sizes));
    KY_RETURN_ON_FAILURE(setPointArrayAttr("strokesNondestruct", locator, points));
    return MS::kSuccess;
}
