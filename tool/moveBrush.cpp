// The move brush: the press picks the retopo vertices in a soft circle with their start positions
// and weights, each drag event moves them from those starts by the weighted pointer displacement
// and snaps them onto the source mesh, and the release files the whole drag as one tool command.

#include <maya/MFloatPointArray.h>
#include <maya/MItGeometry.h>

#include <limits>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"
#include "tool/kyStrake.h"
#include "viewport/palette.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// The brush radius in scene units per unit of the ky_strakeTweakR option.
constexpr double kMoveRadiusPerOption = 0.03;

int moveRadiusOption() { return optionInt("ky_strakeTweakR", 50); }
double moveBrushRadius() { return moveRadiusOption() * kMoveRadiusPerOption; }

// The last point of a closed row repeats its first.
void closeOnFirst(MPointArray& points) {
    if (points.length() > 0) points[points.length() - 1] = points[0];
}

// The shadow polylines of the three rows, read from the moved vertices.
MStatus rewriteShadowFromRows(const MDagPath& retopo) {
    MIntArray ids1, ids2, ids3;
    KY_RETURN_ON_FAILURE(getShadowIndices(ids1, ids2, ids3));
    MStatus status;
    MPointArray row1 = pointsFromIds(ids1, retopo, status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray row2 = pointsFromIds(ids2, retopo, status);
    KY_RETURN_ON_FAILURE(status);
    const MPointArray row3 = pointsFromIds(ids3, retopo, status);
    KY_RETURN_ON_FAILURE(status);
    if (isFirstChainClosed() && row1.length() > 0 && row2.length() > 0) {
        closeOnFirst(row1);
        closeOnFirst(row2);
    }
    return writeShadowStrokes(row1, row2, row3);
}

}  // namespace

MStatus kyStrakeContext::moveBrushStart(const MDagPath& retopo) {
    moveWeights.clear();
    moveAnchors.clear();
    moveHitState = -1;
    const double radius = moveBrushRadius();
    moveComponent = pickWeightedAround(radius, retopo);
    moveInProgress = true;
    MString status("Move brush,Radius: ");
    status += radius / kMoveRadiusPerOption;
    setInfoLine1(status);
    return MS::kSuccess;
}

MVector kyStrakeContext::moveDragVector(MPoint& nearPoint) {
    MPoint pressNear, pressFar, currentNear, currentFar;
    view.viewToWorld(pressX, pressY, pressNear, pressFar);
    // How far along the press ray the brush centre lies, as a fraction of the ray's length.
    const double depth = (brushCenter - pressNear).length() / (pressFar - pressNear).length();
    view.viewToWorld(currentX, currentY, currentNear, currentFar);
    nearPoint = pressNear;
    // Measured from the press ray's near point, not from the current ray's own: the brush has
    // always moved this way and must keep doing so.
    return (currentFar - pressNear) * depth;
}

MStatus kyStrakeContext::moveBrushDrag() {
    if (moveHitState == -1) return MS::kUnknownParameter;
    MPoint nearPoint;
    const MVector displacement = moveDragVector(nearPoint);
    const MPoint target = nearPoint + displacement;

    const MDagPath retopo = getActiveMeshPath();
    MStatus status;
    MItGeometry vertices(retopo, moveComponent, &status);
    KY_RETURN_ON_FAILURE(status);
    const int count = vertices.count();
    if (count == 0 || count != static_cast<int>(moveAnchors.length())) return MS::kUnknownParameter;
    if (!intersector.isCreated()) return MS::kFailure;

    // The anchors and brushCenter are in the retopo mesh's object space and the target in world
    // space; they agree for a retopo mesh without a transform of its own, and the mix is kept.
    const MVector pull = target - brushCenter;
    for (unsigned i = 0; !vertices.isDone(); vertices.next(), ++i) {
        // Every event starts again from the press positions, so no error builds up.
        const MPoint moved = moveAnchors[i] + moveWeights[i] * pull;
        MPointOnMesh onSource;
        KY_RETURN_ON_FAILURE(
            intersector.getClosestPoint(moved, onSource, std::numeric_limits<double>::max()));
        MPoint snapped = MPoint(onSource.getPoint()) * sourceMatrix;
        // The median is held on world x = 0, after the matrix, unlike the relax brush, which holds
        // it on the source's own x = 0.
        if (freezeMedianOn && containsId(vertices.index(), medianVertices)) snapped.x = 0.0;
        KY_RETURN_ON_FAILURE(vertices.setPosition(snapped, MSpace::kWorld));
    }

    KY_RETURN_ON_FAILURE(refreshPlayerLine(retopo));
    KY_RETURN_ON_FAILURE(refreshShadowStrokes());
    if (!hasPlayerVertices()) KY_RETURN_ON_FAILURE(rewriteShadowFromRows(retopo));
    KY_RETURN_ON_FAILURE(writeNondestructStrokes(getStrokeList()));
    KY_RETURN_ON_FAILURE(setTweakRadius(false));
    KY_RETURN_ON_FAILURE(setPoint3Attr("interPoint", findStrakeLocator(), target.x, target.y, target.z));
    return view.refresh(false, false, false);
}

MStatus kyStrakeContext::setTweakRadius(bool clear) {
    MIntArray values;
    if (!clear) {
        values.append(moveRadiusOption());
        values.append(currentX);
        values.append(currentY);
    }
    return setIntArrayAttr("tweakRadius", findStrakeLocator(), values);
}

MStatus kyStrakeContext::moveBrushRelease() {
    moveInProgress = false;
    relaxBrushArmed = false;
    KY_REPORT_FAILURE(setTweakRadius(true));
    MStatus status;
    const MPointArray positions = getMeshPositions(status);
    KY_RETURN_ON_FAILURE(status);
    kyStrakeToolCmd* cmd = newStrakeCommand();
    cmd->setTweak(meshPositions, positions);
    KY_RETURN_ON_FAILURE(cmd->redoIt());
    return cmd->finalize();
}

void kyStrakeContext::drawMoveHover(MHWRender::MUIDrawManager& drawManager) {
    const double radius = moveBrushRadius();
    MFloatPointArray hits;
    MIntArray faces;
    MVector normal;
    if (!intersectSurface(getActiveMeshPath(), hits, normal, view, accelParams, currentX, currentY, faces,
                          true) ||
        hits.length() == 0)
        return;
    const MPoint hit(hits[0]);
    MColor color = colorDeepRed;
    color.a = 1.0f;
    drawManager.beginDrawable();
    drawManager.setLineWidth(2.0f);
    drawManager.setLineStyle(MHWRender::MUIDrawManager::kSolid);
    drawManager.setColor(color);
    drawManager.circle(hit, normal, radius, false);
    drawManager.endDrawable();
    const MObject locator = findStrakeLocator();
    KY_REPORT_FAILURE(setPoint3Attr("interPoint", locator, hit.x, hit.y, hit.z));
    KY_REPORT_FAILURE(setVector3Attr("interNormal", locator, normal.x, normal.y, normal.z));
}
