// Feedback of what a gesture is about to do: the brush circle while a brush key is held, the move
// brush's tweak circle, the magnet link between two border vertices, and the bridge or merge preview.

#include <maya/MUintArray.h>

#include "geometry/functions.h"
#include "viewport/feedbackDepth.h"
#include "viewport/kyStrakeDrawOverride.h"
#include "viewport/palette.h"

namespace {

using MHWRender::MUIDrawManager;

// drawMarker keeps the manager's colour when given this one.
const MColor kCurrentColor(0.0f, 0.0f, 0.0f, 1.0f);

// `color` with its alpha replaced.
MColor withAlpha(const MColor& color, float alpha) { return MColor(color.r, color.g, color.b, alpha); }

// The preview's colour by merge mode: 1 bridge, -1 merge of rows, 0 merge of borders.
MColor fuseColor(int mode) {
    if (mode == 1) return colorBlue;
    if (mode == -1) return colorRed;
    return MColor(0.3f, 0.9f, 0.3f, 1.0f);
}

// The points of `points` from `first`, `count` of them.
MPointArray pointRun(const MPointArray& points, unsigned int first, unsigned int count) {
    MPointArray run;
    for (unsigned int i = first; i < first + count && i < points.length(); ++i) run.append(points[i]);
    return run;
}

}  // namespace

void kyStrakeDrawOverride::drawBrushPreview(MUIDrawManager& manager, const MVector& viewDirection) const {
    manager.beginDrawable(MUIDrawManager::kAutomatic);
    manager.setFontSize(10);
    manager.setFontName("Arial");
    MColor color(0.0f, 0.0f, 0.0f, 1.0f);
    double radius = 0.0;
    if (displayInfo == 2) {
        color = colorGreen;
        radius = radiusRelaxInteractive * 0.05;
    } else if (displayInfo == 3) {
        color = colorDarkGrey;
        radius = intensityRelaxInteractive * 0.05;
    } else if (displayInfo == 4) {
        color = colorDeepRed;
        radius = radiusMoveInteractive * 0.03;
    }
    manager.setLineWidth(2.0f);
    manager.setDepthPriority(999);
    manager.setColor(withAlpha(color, 1.0f));
    manager.circle(interPoint, viewDirection, radius, false);
    manager.setColor(MColor(0.4f, 0.4f, 0.4f, 0.8f));
    manager.circle(interPoint, viewDirection, radius * 0.8, true);
    manager.endDrawable();
}

void kyStrakeDrawOverride::drawTweakCircle(MUIDrawManager& manager) const {
    const double radius = optionInt("ky_strakeTweakR", 50) * 0.03;
    manager.beginDrawable(MUIDrawManager::kAutomatic);
    manager.setLineWidth(2.0f);
    manager.setColor(MColor(0.703f, 0.05f, 0.0625f, 1.0f));
    manager.setDepthPriority(9999);
    manager.circle(interPoint, interNormal, radius, false);
    manager.endDrawable();
}

void kyStrakeDrawOverride::drawMagnet(MUIDrawManager& manager) const {
    // The magnet points are stored in view pixels.
    manager.beginDrawInXray();
    manager.setDepthPriority(feedbackPriority());
    manager.setColor(colorMagenta);
    manager.setLineWidth(1.5f);
    drawMarker(manager, magnetPt[0], colorMagenta, 7.0, false);
    if (magnetPt.length() > 1) {
        drawMarker(manager, magnetPt[1], colorMagenta, 7.0, false);
        manager.setLineWidth(3.5f);
        manager.setLineStyle(MUIDrawManager::kShortDotted);
        manager.line2d(magnetPt[0], magnetPt[1]);
    }
    manager.endDrawInXray();
}

void kyStrakeDrawOverride::drawFusePreview(MUIDrawManager& manager) const {
    manager.beginDrawInXray();
    const MColor color = fuseColor(mode);
    manager.setColor(color);
    manager.setLineWidth(1.7f);
    manager.setDepthPriority(feedbackPriority());
    manager.lineStrip(fusept, false);

    if (fusemesh.length() > 0) {
        MUintArray indices;
        for (unsigned int i = 0; i < fuseindices.length(); ++i)
            indices.append(static_cast<unsigned int>(fuseindices[i]));
        const MPoint& fuseFirst = fusept[0];
        const MPoint& fuseLast = fusept[fusept.length() - 1];
        manager.setLineWidth(1.5f);
        drawMarker(manager, fuseFirst, kCurrentColor, 7.0, true);
        drawMarker(manager, fuseLast, kCurrentColor, 7.0, true);
        manager.setLineStyle(MUIDrawManager::kDashed);
        manager.line(playersLine[0], fuseFirst);
        manager.line(playersLine[playersLine.length() - 1], fuseLast);
        manager.setColor(withAlpha(color, 0.3f));
        manager.mesh(MUIDrawManager::kTriangles, fusemesh, nullptr, nullptr, &indices);

        const int runs = optionInt("ky_bdiv", 0) + 1;
        if (runs > 0 && sublines.length() > 0 && mode != 0) {
            manager.setLineStyle(MUIDrawManager::kSolid);
            manager.setLineWidth(1.0f);
            const unsigned int runLength = sublines.length() / static_cast<unsigned int>(runs);
            for (int r = 0; r < runs; ++r)
                manager.lineStrip(pointRun(sublines, static_cast<unsigned int>(r) * runLength, runLength),
                                  false);
        }
    }
    manager.endDrawInXray();
}
