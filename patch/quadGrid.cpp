// The quad grid builder: the one place where the tool creates faces. Each pair of neighbouring
// rows becomes a band of quads, added one at a time with MFnMesh::addPolygon and its point merge,
// which is what welds a new patch onto the border it grows from. The order in which corners are
// handed over fixes the numbering of the new vertices, and the append flow relies on it.

#include <maya/MPoint.h>
#include <maya/MVector.h>

#include "geometry/errorReporting.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

const char* const kMergeThresholdOption = "ky_mergThreshold";
constexpr double kDefaultMergeThreshold = 0.001;

// Where one strip of a band starts and ends, in steps of the band's column edges from the first
// row: strip k runs from `lo` to `hi`.
struct StripSpan {
    double lo;
    double hi;
};

// Strip k of `vSpans`, with the second and the second-last inner lines pulled `pinch` towards the
// band's borders. The first two strips are tested first, so with fewer than four strips (where the
// caller has set pinch to 0) the table still gives plain unit strips.
StripSpan stripSpan(unsigned int k, unsigned int vSpans, double pinch) {
    if (k == 0) return {0.0, 1.0 - pinch};
    if (k == 1) return {1.0 - pinch, 2.0};
    if (k + 2 == vSpans) return {vSpans - 2.0, vSpans - 1.0 + pinch};
    if (k + 1 == vSpans) return {vSpans - 1.0 + pinch, static_cast<double>(vSpans)};
    return {static_cast<double>(k), k + 1.0};
}

// A row whose last point repeats its first exactly, w included.
bool isExactlyClosed(const MPointArray& row) {
    if (row.length() == 0) return false;
    const MPoint& first = row[0];
    const MPoint& last = row[row.length() - 1];
    return first.x == last.x && first.y == last.y && first.z == last.z && first.w == last.w;
}

// Adds the quads between `rowA` and `rowB` (of equal length, at least 2) to `meshFn`: columns in
// the outer loop, strips in the inner one, corners in the order that the point merge numbering
// relies on. Appends each face id to `faces` (-1 for a quad the host refused, which is reported
// and skipped) and each addPolygon result to `meshObject`.
void addBand(MFnMesh& meshFn, const MPointArray& rowA, const MPointArray& rowB, unsigned int vSpans,
             double pinch, double tolerance, MIntArray& faces, MObject& meshObject) {
    for (unsigned int j = 0; j + 1 < rowA.length(); ++j) {
        const MPoint& a = rowA[j];
        const MPoint& c = rowA[j + 1];
        const MVector U = (rowB[j] - a) / vSpans;
        const MVector V = (rowB[j + 1] - c) / vSpans;
        for (unsigned int k = 0; k < vSpans; ++k) {
            const StripSpan span = stripSpan(k, vSpans, pinch);
            MPointArray corners;
            corners.append(a + U * span.lo);
            corners.append(c + V * span.lo);
            corners.append(c + V * span.hi);
            corners.append(a + U * span.hi);
            int faceIndex = -1;
            MStatus status;
            meshObject = meshFn.addPolygon(corners, faceIndex, true, tolerance, MObject::kNullObj, &status);
            KY_REPORT_FAILURE(status);
            faces.append(faceIndex);
        }
    }
}

}  // namespace

double kyStrakeToolCmd::mergeThreshold() {
    return optionDouble(kMergeThresholdOption, kDefaultMergeThreshold);
}

MIntArray kyStrakeToolCmd::buildQuadGrid(MFnMesh& meshFn, const PolylineList& rows, unsigned int uSpans,
                                         unsigned int vSpans, bool allowUnequal, bool& outOk,
                                         MObject& outMeshObject) {
    outOk = true;
    const double tolerance = mergeThreshold();
    const double pinch = vSpans <= 3 ? 0.0 : getPinch();

    // Rows that cannot be matched: no ids, though faces of earlier bands stay in the mesh.
    auto fail = [&outOk]() {
        outOk = false;
        return MIntArray();
    };
    if (rows.empty() || rows[0].length() == 0) return fail();
    // A ring of fewer than three quads is no ring.
    if (isExactlyClosed(rows[0]) && uSpans < 3) uSpans = 3;

    KY_REPORT_FAILURE(clearMeshTweaks());

    MIntArray faces;
    MPointArray lastA, lastB;
    for (std::size_t r = 0; r + 1 < rows.size(); ++r) {
        MPointArray rowA = rows[r];
        MPointArray rowB = rows[r + 1];
        // A row not of uSpans + 1 points is resampled to uSpans points, one fewer than the test
        // asks for. The scratch flows pass uSpans + 1 on purpose to get uSpans + 1 points; keep it.
        if (rowA.length() != uSpans + 1) rowA = resampleStroke(rows[r], static_cast<int>(uSpans));
        if (rowB.length() != rowA.length())
            rowB = resampleStroke(rows[r + 1], static_cast<int>(rowA.length()));
        if (rowA.length() != rowB.length() && !allowUnequal) return fail();
        lastA = rowA;
        lastB = rowB;
        if (rowA.length() < 2 || rowB.length() < 2) return fail();

        addBand(meshFn, rowA, rowB, vSpans, pinch, tolerance, faces, outMeshObject);
    }

    KY_REPORT_FAILURE(writeShadowStrokes(lastA, lastB, MPointArray()));
    KY_REPORT_FAILURE(rebuildShadowIndices());
    return faces;
}
