// The relax brush: each drag event pulls the retopo vertices inside the brush circle part of the
// way to the centroid of their neighbours and snaps them onto the source mesh, then brings the
// rows and shadow drawn on the locator in step with the moved vertices.

#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MItGeometry.h>
#include <maya/MItMeshVertex.h>

#include <limits>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/kyStrake.h"
#include "viewport/palette.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// The brush radius in scene units per unit of the ky_strakeRadius option.
constexpr double kRelaxRadiusPerOption = 0.05;

double relaxBrushRadius() { return optionDouble("ky_strakeRadius", 50.0) * kRelaxRadiusPerOption; }

// The last point of a closed row repeats its first.
void closeOnFirst(MPointArray& points) {
    if (points.length() > 0) points[points.length() - 1] = points[0];
}

// The centroid of the neighbours of the vertex under `vertex`, read in world space now, so that
// neighbours already moved in this pass count where they are.
MStatus neighbourCentroid(MItMeshVertex& vertex, const MDagPath& retopo, MPoint& centroid) {
    MIntArray neighbours;
    KY_RETURN_ON_FAILURE(vertex.getConnectedVertices(neighbours));
    // The weight goes through float on purpose: the centroid carries float rounding.
    const double weight = static_cast<float>(1.0 / neighbours.length());

    MStatus status;
    MFnSingleIndexedComponent neighbourComponent;
    MObject component = neighbourComponent.create(MFn::kMeshVertComponent, &status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(neighbourComponent.addElements(neighbours));
    MItGeometry neighbourPositions(retopo, component, &status);
    KY_RETURN_ON_FAILURE(status);
    MPointArray positions;
    KY_RETURN_ON_FAILURE(neighbourPositions.allPositions(positions, MSpace::kWorld));

    // A plain weighted sum of positions; the weight is not normalised again.
    centroid = MPoint(0.0, 0.0, 0.0, 1.0);
    for (unsigned i = 0; i < positions.length(); ++i) {
        centroid.x += weight * positions[i].x;
        centroid.y += weight * positions[i].y;
        centroid.z += weight * positions[i].z;
    }
    return MS::kSuccess;
}

}  // namespace

MStatus kyStrakeContext::relaxDrag(MHWRender::MUIDrawManager& drawManager) {
    const MDagPath retopo = getActiveMeshPath();
    MVector normal;
    const MObject component = pickVerticesAround(relaxBrushRadius(), retopo, normal);
    KY_RETURN_ON_FAILURE(relaxSelection(component, retopo));
    drawRelaxCircle(drawManager, normal);
    KY_RETURN_ON_FAILURE(refreshPlayerLine(retopo));
    KY_RETURN_ON_FAILURE(refreshShadowStrokes());

    MStatus status;
    if (!hasPlayerVertices()) {
        MIntArray ids1, ids2, ids3;
        KY_RETURN_ON_FAILURE(getShadowIndices(ids1, ids2, ids3));
        if (ids1.length() > 0 && ids2.length() > 0) {
            MPointArray rowA = pointsFromIds(ids1, retopo, status);
            KY_RETURN_ON_FAILURE(status);
            MPointArray rowB = pointsFromIds(ids2, retopo, status);
            KY_RETURN_ON_FAILURE(status);
            if (isFirstChainClosed()) {
                closeOnFirst(rowA);
                closeOnFirst(rowB);
            }
            KY_RETURN_ON_FAILURE(writeShadowStrokes(rowA, rowB, MPointArray()));
            KY_RETURN_ON_FAILURE(writeNondestructStrokes(PolylineList{rowA, rowB}));
        }
    }
    if (hasFirstAndThirdRows()) {
        MIntArray ids1, ids2, ids3;
        KY_RETURN_ON_FAILURE(getShadowIndices(ids1, ids2, ids3));
        const MPointArray row3 = pointsFromIds(ids3, retopo, status);
        KY_RETURN_ON_FAILURE(status);
        KY_RETURN_ON_FAILURE(writeNondestructStroke(row3));
    }
    return MS::kSuccess;
}

MStatus kyStrakeContext::relaxSelection(const MObject& component, const MDagPath& retopo) {
    // A null component would walk the whole mesh: a pick that took nothing moves nothing.
    if (component.isNull()) return view.refresh(false, false, false);
    MStatus status;
    MObject walked = component;
    MItMeshVertex vertices(retopo, walked, &status);
    KY_RETURN_ON_FAILURE(status);
    const double strength = relaxIntensity;
    for (; !vertices.isDone(); vertices.next()) {
        const MPoint position = vertices.position(MSpace::kWorld, &status);
        KY_RETURN_ON_FAILURE(status);
        MPoint centroid;
        KY_RETURN_ON_FAILURE(neighbourCentroid(vertices, retopo, centroid));
        const MPoint relaxed = position - strength * (position - centroid);

        MPointOnMesh onSource;
        KY_RETURN_ON_FAILURE(
            intersector.getClosestPoint(relaxed, onSource, std::numeric_limits<double>::max()));
        MPoint snapped(onSource.getPoint());
        // The median is held on the source's own x = 0, before the matrix, unlike the move brush,
        // which holds it on world x = 0.
        if (freezeMedianOn && containsId(vertices.index(), medianVertices)) snapped.x = 0.0;
        KY_RETURN_ON_FAILURE(vertices.setPosition(snapped * sourceMatrix, MSpace::kWorld));
    }
    return view.refresh(false, false, false);
}

void kyStrakeContext::drawRelaxCircle(MHWRender::MUIDrawManager& drawManager, const MVector& normal) {
    MColor color = colorGreen;
    color.a = 1.0f;
    drawManager.beginDrawable();
    drawManager.setLineWidth(2.0f);
    drawManager.setLineStyle(MHWRender::MUIDrawManager::kSolid);
    drawManager.setColor(color);
    // brushCenter may be in the retopo mesh's object space, so the circle sits right only on a
    // retopo mesh without a transform of its own; it is drawn where the pick left it.
    drawManager.circle(brushCenter, normal, relaxBrushRadius(), false);
    drawManager.endDrawable();
}
