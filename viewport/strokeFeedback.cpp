// Feedback of the strokes on the locator: each stroke numbered in drawing order, drawn as pairs of
// points so that every second segment stays open, with marked ends, and a closed stroke with the
// "o" and "x" of its closing pair.

#include <maya/MString.h>

#include "geometry/functions.h"
#include "viewport/feedbackDepth.h"
#include "viewport/kyStrakeDrawOverride.h"
#include "viewport/palette.h"

namespace {

using MHWRender::MUIDrawManager;

// Marks the two points that close a stroke and joins them with a short-dashed line. With an odd
// point count the pair is the last point and the one before it, not the two ends.
void drawClosingPair(MUIDrawManager& manager, const MPointArray& points) {
    const unsigned int count = points.length();
    MPoint first = points[0];
    MPoint last = points[count - 1];
    if (count % 2 == 1 && count >= 3) {
        first = points[count - 1];
        last = points[count - 2];
    }
    manager.text(first, "o");
    manager.text(last, "x");
    manager.setLineStyle(MUIDrawManager::kShortDashed);
    manager.line(first, last);
}

// A yellow disc with a black ring at the view position of a stroke's end.
void drawStrokeEnd(MUIDrawManager& manager, const MPoint& point) {
    const MPoint centre = worldToScreen(point);
    manager.setLineWidth(2.0f);
    manager.setColor(colorYellow);
    manager.circle2d(centre, 5.0, true);
    manager.setLineWidth(1.0f);
    manager.setColor(colorBlack);
    manager.circle2d(centre, 6.0, false);
}

}  // namespace

void kyStrakeDrawOverride::drawStrokes(MUIDrawManager& manager) const {
    // Set before any drawable is open, so the drawables below start from their own default size:
    // the stroke numbers have always shown at that size.
    manager.setFontSize(36);
    unsigned int offset = 0;
    for (unsigned int k = 0; k < sizes.length(); ++k) {
        MPointArray points;
        for (int i = 0; i < sizes[k] && offset < strokes.length(); ++i, ++offset)
            points.append(strokes[offset]);
        if (points.length() == 0) continue;

        manager.beginDrawable(MUIDrawManager::kAutomatic);
        manager.setLineWidth(2.0f);
        manager.setDepthPriority(kOnTopPriority);
        // The cached stroke is the locator's, copied by prepareForDraw for this frame; testing it
        // here spares a read and split of the whole stroke set per stroke.
        if (isStrokeClosed(points)) drawClosingPair(manager, points);
        const MPoint first = points[0];
        const MPoint last = points[points.length() - 1];
        // lineList takes pairs, so an odd stroke repeats its last point.
        if (points.length() % 2 == 1) points.append(last);

        manager.setLineStyle(MUIDrawManager::kSolid);
        manager.setColor(colorYellow);
        MString number;
        number += static_cast<int>(k) + 1;
        manager.text2d(worldToScreen(first) + MVector(10.0, 5.0, 0.0), number);
        manager.lineList(points, false);
        drawStrokeEnd(manager, first);
        drawStrokeEnd(manager, last);
        manager.endDrawable();
    }
}
