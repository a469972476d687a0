// What is drawn while a stroke is drawn: the patch preview against the player row, the stroke
// itself with its spinning cursor, and the marker of the glued vertex under the pointer.

#include <maya/MColor.h>
#include <maya/MUIDrawManager.h>

#include <algorithm>
#include <cmath>

#include "geometry/functions.h"
#include "tool/contextSupport.h"
#include "tool/kyStrake.h"
#include "viewport/palette.h"

namespace {

const MColor kKeepColor(0.0f, 0.0f, 0.0f, 1.0f);  // drawMarker leaves the colour alone for black

// Appends a preview vertex. A vertex with any coordinate within 0.0001 of zero counts as no point
// and repeats the last vertex emitted instead: a guard of this preview only.
void appendGuarded(MPointArray& vertices, const MPoint& point) {
    MPoint vertex = point;
    keepOrLastPoint(vertex, vertices);
    vertices.append(vertex);
}

// The quads between `row` and the stroke resampled to the row's count, as two triangles each.
MPointArray bandTriangles(const MPointArray& stroke, const MPointArray& row) {
    MPointArray triangles;
    if (stroke.length() < 3) return triangles;
    const MPointArray along = resamplePolyline(stroke, static_cast<int>(row.length()));
    for (unsigned i = 0; i + 1 < row.length() && i + 1 < along.length(); ++i) {
        appendGuarded(triangles, row[i]);
        appendGuarded(triangles, along[i + 1]);
        appendGuarded(triangles, row[i + 1]);
        appendGuarded(triangles, along[i]);
        appendGuarded(triangles, row[i]);
        appendGuarded(triangles, along[i + 1]);
    }
    return triangles;
}

// An arc of `radius` pixels around `center`, from the view's x axis through `sweep` radians.
void spinArc(MHWRender::MUIDrawManager& drawManager, const MPoint& center, double radius, double sweep,
             bool filled) {
    drawManager.arc2d(center, MVector(1.0, 0.0, 0.0), MVector(std::cos(sweep), std::sin(sweep), 0.0), radius,
                      filled);
}

}  // namespace

MStatus kyStrakeContext::drawStrokeGuide(MHWRender::MUIDrawManager& drawManager, const MPointArray& points) {
    MPointArray stroke = points;
    MPointArray row = getPlayerPoints();
    // A CTRL redraw with no row shows the new stroke against the shadow line it will replace.
    if (getPlayerVertices().length() == 0 && ctrlStroke) {
        stroke = strokePoints;
        row.clear();
        MIntArray sizes;
        lastShadowStroke(sizes, row);
    }
    if (stroke.length() < 2 || row.length() < 2) return MS::kFailure;

    const bool closed = isClosedFigure();
    const unsigned strokeLast = stroke.length() - 1;
    const unsigned rowLast = row.length() - 1;
    drawManager.setFontSize(8);
    drawManager.setLineWidth(closed ? 3.0f : 2.0f);
    drawManager.lineStrip(stroke, false);
    drawManager.setLineWidth(1.5f);
    drawManager.setLineStyle(1, 0xFF00);
    drawManager.line(stroke[0], row[0]);
    drawManager.line(stroke[strokeLast], row[rowLast]);
    drawManager.setLineStyle(MHWRender::MUIDrawManager::kSolid);
    drawMarker(drawManager, pressPoint, kKeepColor, 4.0, true);
    drawMarker(drawManager, stroke[0], kKeepColor, 7.0, false);
    drawMarker(drawManager, stroke[strokeLast], kKeepColor, 7.0, false);
    if (closed && !reverseFigure)
        drawManager.text2d(MPoint(currentX, currentY + 10), "Hold SHIFT to reverse");

    // The closer the stroke's span to the row's (on x and y), the stronger the preview.
    const double ratio = distance2(stroke[0], stroke[strokeLast]) / distance2(row[0], row[rowLast]);
    const float alpha = static_cast<float>(std::min(0.7, ratio));
    const float scale = static_cast<float>(std::min(1.8, ratio + 1.0));
    MColor color;
    if (ctrlStroke)
        color = MColor(colorRed.r * scale, colorRed.g * scale * 0.5f, colorRed.b * scale * 0.5f, alpha);
    else
        color = MColor(colorBlue.r * scale * 0.5f, colorBlue.g * scale * 0.5f, colorBlue.b * scale, alpha);
    drawManager.setColor(color);
    const MPointArray triangles = bandTriangles(stroke, row);
    if (!hasFirstAndThirdRows() && triangles.length() > 0)
        drawManager.mesh(MHWRender::MUIDrawManager::kTriangles, triangles);
    return MS::kSuccess;
}

MStatus kyStrakeContext::drawStrokeCursor(MHWRender::MUIDrawManager& drawManager, const MPoint& point,
                                          const MString& text) {
    if (strokePoints.length() == 0) return MS::kFailure;
    const bool glue = getGlue();
    MPointArray drawn = strokePoints;
    if (glue) drawn[drawn.length() - 1] = point;

    drawManager.beginDrawable();
    drawManager.text2d(MPoint(300.0, 5.0), text);
    spinPhase += 0.12;
    // The stroke's colour ripens as it gains points.
    const double s = std::min(std::max(strokePoints.length() / 20.0, 0.25), 12.0) + 0.8;
    MColor color(static_cast<float>(s / 4.0), static_cast<float>(s / 4.0), static_cast<float>(s * s / 100.0),
                 1.0f);
    if (ctrlStroke)
        color = MColor(static_cast<float>(s * s / 4.0), static_cast<float>(s * s / 100.0),
                       static_cast<float>(s * s / 100.0), 1.0f);
    if (sliceStroke) color = MColor(0.75f, 0.25f, 0.75f, 1.0f);
    drawManager.setColor(color);

    if (!isMiss(point)) {
        drawManager.setLineWidth(1.0f);
        drawManager.circle2d(worldToScreen(drawn[0]), 3.0, true);
        const MPoint center = worldToScreen(point);
        spinArc(drawManager, center, 16.0, -spinPhase, false);
        spinArc(drawManager, center, 13.0, spinPhase, false);
        spinArc(drawManager, center, 10.0, -spinPhase, true);
    }

    float width = ctrlStroke ? 3.0f : 2.5f;
    if (isClosedFigure()) {
        width = 2.0f;
        drawManager.setColor(hasPlayerVertices() ? colorYellow : colorOrange);
    }
    drawManager.setLineWidth(width);
    // Glued strokes are shown as the vertices they snap to.
    if (glue)
        drawManager.points(drawn, false);
    else
        drawManager.lineStrip(drawn, false);
    drawManager.endDrawable();

    drawManager.beginDrawable();
    drawManager.setLineWidth(1.0f);
    drawManager.setColor(MColor(0.75f, 0.25f, 0.25f, 1.0f));
    if (strokePreview.length() > 1) drawManager.lineStrip(strokePreview, true);
    drawManager.endDrawable();
    return MS::kSuccess;
}

void kyStrakeContext::drawGlueMarker(MHWRender::MUIDrawManager& drawManager) {
    if (!getGlue() || isMiss(currentHit)) return;
    const MPoint center = worldToScreen(currentHit);
    drawManager.setColor(MColor(0.9f, 0.9f, 0.9f, 1.0f));
    drawManager.circle2d(center, 3.0, true);
    drawManager.setColor(MColor::kOpaqueBlack);
    drawManager.circle2d(center, 3.0, false);
}
