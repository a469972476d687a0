// The slice stroke: dragged with SHIFT across a limb of the source, it sees the front of the limb
// and, along the same rays, its back. At release the two sides are joined into one closed ring on
// the surface, a stroke that could not be drawn by hand since half of it lies out of sight.

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/contextSupport.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Pixels per sample of a figure's outline, and the steps of the two straight bridges between the
// front and the back of the ring and of each ring segment once it is joined.
constexpr int kFigurePixels = 10;
constexpr int kBridgeSteps = 10;
constexpr int kRingSteps = 6;

// Appends the points from `from` to `to` in `steps` equal steps, `from` left out and `to` last.
void appendBridge(MPointArray& points, const MPoint& from, const MPoint& to) {
    for (int i = 1; i <= kBridgeSteps; ++i) points.append(from + (to - from) * i / kBridgeSteps);
}

}  // namespace

MStatus kyStrakeContext::captureSliceStroke(MHWRender::MUIDrawManager& drawManager) {
    if (hasPlayerVertices()) return MS::kSuccess;
    const MPoint pixel(currentX, currentY, 0.0, 1.0);
    MPoint current = pixel;
    if (figure == 0) {
        const MPoint hit = pickFrontBack(pixel);
        // The red 2D line of the feedback shows only the samples missed since the last hit.
        if (isMiss(hit)) {
            strokePreview.append(pixel);
        } else {
            strokePoints.append(hit);
            strokePreview.clear();
            current = hit;
        }
    } else if (figure >= 1 && figure <= 3) {
        const MPoint world = screenToWorld(pixel);
        if (isMiss(pressPoint)) pressPoint = world;
        if (figure == 1)
            projectSliceSamples(subdivideByScreen(pressPoint, world, kFigurePixels));
        else if (figure == 2)
            projectSliceSamples(figureRectangle(world));
        else
            projectSliceSamples(figureCircle(world));
        current = world;
    }
    KY_REPORT_FAILURE(drawStrokeCursor(drawManager, current, ""));
    return view.refresh(false, false, false);
}

void kyStrakeContext::projectSliceSamples(const MPointArray& samples) {
    strokePoints.clear();
    backHits.clear();
    frontHits.clear();
    for (unsigned i = 0; i < samples.length(); ++i) {
        const MPoint hit = pickFrontBack(worldToScreen(samples[i]));
        if (!isMiss(hit)) strokePoints.append(hit);
    }
}

// The ring runs along the front hits, bridges to the last back hit, walks the back hits backwards
// and bridges home to the first front hit. Both bridges end on a hit already in the list, and the
// subdivision turns those repeats into zero-length runs; they are kept as the ring's form.
MStatus kyStrakeContext::closeSliceContour() {
    strokePoints.clear();
    if (frontHits.length() == 0 || backHits.length() == 0) return MS::kSuccess;
    const unsigned frontCount = frontHits.length();
    const unsigned backCount = backHits.length();

    MPointArray ring;
    for (unsigned i = 0; i < frontCount; ++i) ring.append(frontHits[i]);
    appendBridge(ring, frontHits[frontCount - 1], backHits[backCount - 1]);
    for (unsigned i = backCount; i > 0; --i) ring.append(backHits[i - 1]);
    appendBridge(ring, backHits[0], frontHits[0]);

    strokePoints = subdivideSegments(ring, kRingSteps);
    KY_REPORT_FAILURE(snapToSource(strokePoints));
    if (strokePoints.length() > 0) strokePoints[strokePoints.length() - 1] = strokePoints[0];
    return MS::kSuccess;
}

// The first input point is not copied: the result starts one step into the first segment.
MPointArray kyStrakeContext::subdivideSegments(const MPointArray& points, int steps) {
    MPointArray result;
    for (unsigned i = 0; i + 1 < points.length(); ++i) {
        const MVector segment = points[i + 1] - points[i];
        for (int j = 1; j <= steps; ++j) result.append(points[i] + segment * j / steps);
    }
    return result;
}
