// Stroke capture: what one LMB drag event does to the stroke under way, the four figures, the
// mapping of a closed figure onto the player row, and the commit of the finished stroke. The
// stroke grows in strokePoints alone; the locator sees it once, at release.

#include <maya/MFloatPoint.h>
#include <maya/MMatrix.h>

#include <algorithm>
#include <cmath>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/contextSupport.h"
#include "tool/kyStrake.h"
#include "tool/strokeFilters.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// Points per scene unit of the line figure, and pixels per outline step of the rectangle.
constexpr double kLineDensity = 10.0;
constexpr int kOutlinePixels = 10;

// The first step of a walk measured along `reference`: |step| cos(angle to reference).
double firstStepAlong(const MPointArray& walk, const MVector& reference) {
    if (walk.length() < 2) return 0.0;
    return projectedLength(walk[1] - walk[0], reference);
}

}  // namespace

MPointArray kyStrakeContext::captureStrokePoint(const MPoint& hit, MEvent& event) {
    const MPoint point = getGlue() ? currentHit : hit;
    if (!isMiss(pressPoint)) {
        switch (figure) {
            case 0:
                // No minimum spacing: every event on the surface adds a point, repeats included.
                strokePoints.append(point);
                lazySmooth();
                break;
            case 1: {
                MPointArray ends;
                ends.append(pressPoint);
                ends.append(point);
                strokePoints = subdivideByDensity(ends, kLineDensity);
                break;
            }
            case 2:
                strokePoints = figureRectangle(point);
                break;
            case 3:
                strokePoints = figureCircle(point);
                break;
            default:
                break;
        }
        // The whole stroke, at every event, for every figure: it may shrink here.
        reprojectStroke(strokePoints);
    }

    if (getPlayerVertices().length() == 0) return MPointArray();
    if (event.isModifierShift()) reverseFigure = true;
    if (!isClosedFigure()) return strokePoints;
    if (anchorVertices.length() == 0) return MPointArray();
    return alignFigureToRow(strokePoints, edgesToVertices(anchorEdges, anchorVertices[0]));
}

void kyStrakeContext::lazySmooth() {
    if (!optionFlag("ky_lazyActive", 0)) return;
    lazySmoothTail(strokePoints, optionInt("ky_lazyDistance", 1) * 10, optionInt("ky_lazyStrength", 1));
}

MPointArray kyStrakeContext::figureRectangle(const MPoint& corner) {
    const MVector right = cameraRightDirection(view);
    const double width = projectedLength(corner - pressPoint, right);
    const MVector side = right * width;
    return subdivideOutline(pressPoint, pressPoint + side, corner, corner - side, kOutlinePixels);
}

MPointArray kyStrakeContext::figureCircle(const MPoint& rim) {
    const double radius = pressPoint.distanceTo(rim);
    const MPoint center2d = worldToScreen(pressPoint);
    const MPoint rim2d = worldToScreen(rim);
    figureAspect = radius == 0.0 ? 1.0 : std::fabs(rim2d.y - center2d.y) / std::fabs(rim2d.x - center2d.x);

    // A circle that is large on screen gets a finer step, down to one degree.
    const double pixels = distance2(center2d, rim2d);
    const int stepDegrees = static_cast<int>(std::max(1.0, std::trunc((400.0 - pixels) / 17.0)));

    // The circle lies in the camera's plane: built around the camera and moved onto pressPoint.
    const MMatrix camera = cameraMatrix(view);
    const MVector offset = pressPoint - MPoint(cameraEyePoint());
    MPointArray circle;
    for (int degrees = 0; degrees < 360; degrees += stepDegrees) {
        const double angle = degreesToRadians(degrees);
        circle.append(MPoint(radius * std::cos(angle), radius * std::sin(angle), 0.0, 1.0) * camera + offset);
    }
    circle.append(circle[0]);
    return circle;
}

MPointArray kyStrakeContext::alignFigureToRow(const MPointArray& figurePoints, const MIntArray& rowVertices) {
    MStatus status;
    const MPointArray row = pointsFromIds(getPlayerVertices(), getActiveMeshPath(), status);
    const double rowLength = polylineLength(row);

    // The figure point nearest to the pointer starts the walk; the first of equals stays.
    const MPoint pointer(currentX, currentY, 0.0, 1.0);
    double best = 99999.0;
    int nearest = -1;
    for (unsigned i = 0; i < figurePoints.length(); ++i) {
        const double distance = distance2(worldToScreen(figurePoints[i]), pointer);
        if (distance < best) {
            best = distance;
            nearest = static_cast<int>(i);
        }
    }
    if (nearest < 0) return MPointArray();

    const MPointArray rotated = rotatedToStart(figurePoints, static_cast<unsigned>(nearest));
    const int count = static_cast<int>(rowVertices.length());
    const MPointArray forwardWalk = pointsAlongArc(rotated, rowLength, count, true);
    const MPointArray backwardWalk = pointsAlongArc(rotated, rowLength, count, false);
    if (forwardWalk.length() == 0 || backwardWalk.length() == 0) return figurePoints;

    // The walk that sets off the way the figure was drawn wins; SHIFT (reverseFigure) flips it.
    const MVector reference = figurePoints[figurePoints.length() / 8] - figurePoints[0];
    const bool forwardWins = firstStepAlong(forwardWalk, reference) > firstStepAlong(backwardWalk, reference);
    return forwardWins != reverseFigure ? forwardWalk : backwardWalk;
}

MStatus kyStrakeContext::commitStroke() {
    if (!meshIsMesh || !meshValid || strokePoints.length() <= 1) return MS::kSuccess;
    kyStrakeToolCmd* cmd = newStrakeCommand();
    if (cmd == nullptr) return MS::kSuccess;
    MStatus status;
    cmd->appendStrokeToLocator(status, strokePoints);
    KY_REPORT_FAILURE(status);
    return MS::kSuccess;
}
