// Freeze border and freeze median: the lists of retopo vertices the brushes must leave alone (all
// boundary vertices) or hold on the centre plane x = 0 (boundary vertices on or over it), and their
// markers in the viewport. Both are rebuilt from scratch at every call, so they follow new geometry
// and the camera; only vertices turned clearly away from the view direction are marked.

#include <maya/MBoundingBox.h>
#include <maya/MFnDagNode.h>
#include <maya/MItMeshVertex.h>

#include "geometry/functions.h"
#include "tool/contextSupport.h"
#include "tool/kyStrake.h"

namespace {

// How far a vertex normal must point against the view direction to be marked. The border asks
// more than the median on purpose.
constexpr double kBorderFacing = -0.5;
constexpr double kMedianFacing = -0.2;

// Whether the world normal of the iterator's vertex points against `viewDirection` by more than
// `margin` (a dot product strictly below it).
bool facesViewer(MItMeshVertex& vertices, const MVector& viewDirection, double margin) {
    MVector normal;
    vertices.getNormal(normal, MSpace::kWorld);
    return viewDirection * normal < margin;
}

}  // namespace

// With no retopo mesh selected the iterator has nothing to walk, so the lists and markers stay
// empty; the switch itself keeps its value.
MStatus kyStrakeContext::refreshFreezeBorder() {
    frozenVertices.clear();
    const MVector viewDirection = cameraViewDirection(view);
    MPointArray markers;
    if (freezeBorder) {
        setButtonChecked("freezeBtn", true);
        MStatus status;
        MItMeshVertex vertices(getActiveMeshPath(), MObject::kNullObj, &status);
        for (; status && !vertices.isDone(); vertices.next()) {
            if (!vertices.onBoundary()) continue;
            frozenVertices.append(vertices.index());
            if (facesViewer(vertices, viewDirection, kBorderFacing))
                markers.append(vertices.position(MSpace::kWorld));
        }
    }
    return setPointArrayAttr("freepoints", findStrakeLocator(), markers);
}

MStatus kyStrakeContext::refreshFreezeMedian() {
    MStatus status;
    const MDagPath retopo = getActiveMeshPath();
    if (!retopo.isValid()) return status;
    // A model centred exactly on x = 0 passes both tests and counts as a right half.
    const double centerX = MFnDagNode(retopo).boundingBox().center().x;
    MString side;
    if (0.0 >= centerX) side = "left";
    if (centerX >= 0.0) side = "right";

    medianVertices.clear();
    const MVector viewDirection = cameraViewDirection(view);
    MPointArray markers;
    if (freezeMedianOn) {
        setButtonChecked("freezeSymBtn", true);
        MItMeshVertex vertices(retopo, MObject::kNullObj, &status);
        for (; status && !vertices.isDone(); vertices.next()) {
            if (!vertices.onBoundary()) continue;
            const MPoint position = vertices.position(MSpace::kWorld);
            if (!onMedianSide(position, side)) continue;
            medianVertices.append(vertices.index());
            if (facesViewer(vertices, viewDirection, kMedianFacing)) markers.append(position);
        }
    }
    return setPointArrayAttr("freezeMedian", findStrakeLocator(), markers);
}

bool kyStrakeContext::onMedianSide(const MPoint& point, const MString& side) {
    return (side == "right" && 0.0 >= point.x) || (side == "left" && point.x >= 0.0);
}
