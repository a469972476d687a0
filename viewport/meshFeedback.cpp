// Feedback on the meshes themselves: markers of frozen border and median vertices, the normals of
// the last patch, and the symmetry plane through the source mesh.

#include <maya/MBoundingBox.h>
#include <maya/MFnDagNode.h>
#include <maya/MItMeshVertex.h>

#include "geometry/functions.h"
#include "viewport/feedbackDepth.h"
#include "viewport/kyStrakeDrawOverride.h"
#include "viewport/palette.h"

using MHWRender::MUIDrawManager;

void kyStrakeDrawOverride::drawFrozenMarkers(MUIDrawManager& manager, const MPointArray& points,
                                             const MColor& fill, double radius) const {
    manager.beginDrawInXray();
    manager.setDepthPriority(feedbackPriority(5.0));
    manager.setLineStyle(MUIDrawManager::kSolid);
    manager.setLineWidth(2.0f);
    for (unsigned int i = 0; i < points.length(); ++i) {
        const MPoint centre = worldToScreen(points[i]);
        manager.setColor(fill);
        manager.circle2d(centre, radius, true);
        manager.setColor(MColor::kOpaqueBlack);
        manager.circle2d(centre, radius, false);
    }
    manager.endDrawInXray();
}

void kyStrakeDrawOverride::drawFreeBorder(MUIDrawManager& manager) const {
    drawFrozenMarkers(manager, freepoints, MColor(0.1f, 0.1f, 0.8f, 1.0f), 4.5);
}

void kyStrakeDrawOverride::drawFreezeMedian(MUIDrawManager& manager) const {
    drawFrozenMarkers(manager, freezeMedian, MColor(colorDarkGrey.r, colorDarkGrey.g, colorDarkGrey.b, 1.0f),
                      5.0);
}

// Opens no drawable of its own: the normals go into whatever drawable the host has open.
void kyStrakeDrawOverride::drawNormals(MUIDrawManager& manager) const {
    const MDagPath mesh = getActiveMeshPath();
    if (!mesh.isValid()) return;
    MObject vertices = verticesOfFaces(mesh, MIntArray());
    if (vertices.isNull()) return;
    MStatus status;
    MItMeshVertex vertex(mesh, vertices, &status);
    if (!status) return;

    manager.setColor(MColor(colorDarkGrey.r, colorDarkGrey.g, colorDarkGrey.b * 1.1f, 0.3f));
    MPointArray segments;
    for (; !vertex.isDone(); vertex.next()) {
        const MPoint base = vertex.position(MSpace::kWorld);
        MVector normal;
        vertex.getNormal(normal, MSpace::kWorld);
        const MPoint tip = base + displaySize * normal;
        // Each normal goes in twice, with a disc at its tip each time: kept as the feedback has
        // always drawn it.
        for (int copy = 0; copy < 2; ++copy) {
            segments.append(base);
            segments.append(tip);
            manager.circle2d(worldToScreen(tip), 3.0, true);
        }
    }
    manager.setLineWidth(1.0f);
    manager.setLineStyle(MUIDrawManager::kShortDashed);
    manager.lineList(segments, false);
}

// Opens no drawable of its own, like drawNormals. The plane is always x = centre x, whatever axis
// the symmetry actually uses.
void kyStrakeDrawOverride::drawSymmetryPlane(MUIDrawManager& manager) const {
    MStatus status;
    const MDagPath source = getSourceMeshPath(status);
    if (!source.isValid()) return;
    const MBoundingBox box = MFnDagNode(source).boundingBox();
    const MPoint c = box.center();
    const double h = box.height();
    const double d = box.depth();

    manager.setDepthPriority(0);
    manager.setColor(MColor(0.1f, 0.1f, 0.2f, 0.05f));
    manager.rect(c, MVector(0.0, 1.0, 0.0), MVector(1.0, 0.0, 0.0), d * 0.6, h * 0.6, true);
    manager.setLineStyle(MUIDrawManager::kSolid);
    manager.setLineWidth(1.0f);
    manager.setColor(MColor(1.0f, 1.0f, 0.2f, 0.1f));
    manager.line(MPoint(c.x, c.y - 0.3 * h, c.z - 0.6 * d), MPoint(c.x, c.y + 0.3 * h, c.z - 0.6 * d));
    manager.setColor(MColor(0.2f, 0.2f, 1.0f, 0.1f));
    manager.line(MPoint(c.x, c.y + 0.6 * h, c.z - 0.3 * d), MPoint(c.x, c.y + 0.6 * h, c.z + 0.3 * d));
}
