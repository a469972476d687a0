// Feedback of rows: the selected player row with its numbered ends, its point count and, when
// closed, the arrow of its direction; the player row as a line; and the rows of the last patch.

#include <maya/MString.h>

#include "geometry/functions.h"
#include "viewport/feedbackDepth.h"
#include "viewport/kyStrakeDrawOverride.h"
#include "viewport/palette.h"

namespace {

using MHWRender::MUIDrawManager;

const MVector kEndLabelOffset(10.0, 10.0, 0.0);

// An integer as text.
MString numberText(int value) {
    MString text;
    text += value;
    return text;
}

// A filled arrow head at the view position of the row's first point, pointing to its second, and
// its black outline.
void drawClosedRowArrow(MUIDrawManager& manager, const MPoint& first, const MPoint& second) {
    const MPoint start = worldToScreen(first);
    const MVector dir = (worldToScreen(second) - start).normal();
    const MVector across = dir.rotateBy(MVector::kZaxis, 1.5708);
    MPointArray triangle;
    triangle.append(start + dir * 60.0);
    triangle.append(start + across * 10.0);
    triangle.append(start - across * 10.0);
    manager.mesh2d(MUIDrawManager::kTriStrip, triangle);
    manager.setLineWidth(1.0f);
    manager.setColor(colorBlack);
    manager.line2d(triangle[0], triangle[1]);
    manager.line2d(triangle[1], triangle[2]);
    manager.line2d(triangle[2], triangle[0]);
}

// A yellow end marker with its label beside it.
void drawRowEnd(MUIDrawManager& manager, const MPoint& point, const char* label) {
    manager.setFontSize(16);
    manager.setColor(colorYellow);
    drawMarker(manager, point, colorYellow, 7.0, false);
    manager.text2d(worldToScreen(point) + kEndLabelOffset, label);
}

}  // namespace

void kyStrakeDrawOverride::drawPlayers(MUIDrawManager& manager) const {
    manager.beginDrawable(MUIDrawManager::kAutomatic);
    manager.setDepthPriority(kOnTopPriority);
    manager.setLineWidth(2.2f);
    manager.setFontName("Arial");
    manager.setFontSize(16);

    const unsigned int count = playerpts.length();
    if (count >= 2 && playerpts[0] == playerpts[count - 1]) {
        manager.setColor(colorYellow);
        manager.text(playerpts[0] + MVector(0.05, -0.05, -0.5), "Closed");
        drawClosedRowArrow(manager, playerpts[0], playerpts[1]);
    }

    // Only the two ends are marked; the points between carry no mark of their own.
    drawRowEnd(manager, playerpts[0], "1");
    if (count > 1) {
        const MPoint& last = playerpts[count - 1];
        drawRowEnd(manager, last, "2");
        manager.setColor(MColor(0.7f, 0.7f, 0.6f, 1.0f));
        manager.setFontSize(15);
        manager.text(last + MVector(0.3, -0.3, -0.3), numberText(static_cast<int>(count)) + "\"");
    }
    manager.endDrawable();
}

void kyStrakeDrawOverride::drawPlayersLine(MUIDrawManager& manager) const {
    manager.beginDrawInXray();
    manager.setColor(colorYellow);
    manager.setLineWidth(2.2f);
    manager.setDepthPriority(feedbackPriority(10.0));
    manager.lineStrip(playersLine, false);
    manager.endDrawInXray();
}

void kyStrakeDrawOverride::drawShadow(MUIDrawManager& manager) const {
    manager.beginDrawInXray();
    manager.setLineStyle(MUIDrawManager::kDashed);
    manager.setLineWidth(3.0f);
    manager.setFontSize(11);

    const unsigned int polylines = sizesShadow.length();
    unsigned int offset = 0;
    for (unsigned int k = 0; k < polylines; ++k) {
        MPointArray polyline;
        for (int i = 0; i < sizesShadow[k] && offset < strokesShadow.length(); ++i, ++offset)
            polyline.append(strokesShadow[offset]);
        for (unsigned int i = 0; i < polyline.length(); ++i) {
            manager.setDepthPriority(kOnTopPriority);
            manager.setColor(MColor(0.7f, 0.7f, 0.7f, 0.5f));
            manager.text2d(worldToScreen(polyline[i]) + kEndLabelOffset, numberText(static_cast<int>(i) + 1));
        }
        // A lone row is green; of two, the first is red and the second blue. A third keeps the
        // colour of the numbers, as it always has.
        if (polylines == 1)
            manager.setColor(MColor(0.1f, 0.9f, 0.1f, 1.0f));
        else if (k == 0)
            manager.setColor(MColor(0.9f, 0.1f, 0.1f, 1.0f));
        else if (k == 1)
            manager.setColor(MColor(0.1f, 0.1f, 0.9f, 1.0f));
        if (polyline.length() > 0) {
            manager.circle2d(worldToScreen(polyline[0]), 4.5, true);
            manager.circle2d(worldToScreen(polyline[polyline.length() - 1]), 4.5, true);
        }
        manager.setDepthPriority(feedbackPriority());
        manager.lineStrip(polyline, false);
    }
    manager.endDrawInXray();
}
