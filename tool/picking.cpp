// What lies under the pointer: ray picks on the source mesh, the closest-point snap, and the
// boundary-vertex pick on the retopo mesh. The families differ on purpose in their reach,
// tolerance, ray directions and in which hit they keep; each keeps its own parameters below.

#include <maya/MFloatPointArray.h>
#include <maya/MFnMesh.h>
#include <maya/MItMeshEdge.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MItMeshVertex.h>
#include <maya/MMeshIntersector.h>

#include <limits>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "tool/contextSupport.h"
#include "tool/kyStrake.h"

namespace {

constexpr const char* kyErrorStem = "kyStrake";

// The ray settings of one pick family for MFnMesh::allIntersections.
struct RayFamily {
    bool idsSorted;
    float maxParam;
    bool testBothDirections;
    float tolerance;
};

// The stroke's hit on the source: both directions, the first sorted hit.
constexpr RayFamily kSourceHit{true, 10000.0f, true, 0.0001f};
// The slice's through pick: every layer along the ray.
constexpr RayFamily kFrontBack{false, 10000.0f, true, 0.001f};
// Pulling stroke points back on the source: short reach, loose tolerance.
constexpr RayFamily kReproject{false, 100.0f, true, 0.01f};

// All sorted hits of the ray on `mesh`, world space; `faces` may be null. False on a miss or a
// failed cast, which is never reported: a failed ray is just a miss.
bool castRay(MFnMesh& mesh, const MFloatPoint& source, const MFloatVector& direction, const RayFamily& family,
             MMeshIsectAccelParams& accelParams, MFloatPointArray& hits, MIntArray* faces) {
    MStatus status;
    const bool found =
        mesh.allIntersections(source, direction, nullptr, nullptr, family.idsSorted, MSpace::kWorld,
                              family.maxParam, family.testBothDirections, &accelParams, true, hits, nullptr,
                              faces, nullptr, nullptr, nullptr, family.tolerance, &status);
    return found && status && hits.length() > 0;
}

// Whether vertex `vertices` has a border edge among its edges.
bool touchesBorder(MItMeshVertex& vertices, MItMeshEdge& edges) {
    MIntArray connected;
    vertices.getConnectedEdges(connected);
    for (unsigned i = 0; i < connected.length(); ++i) {
        int previous = 0;
        if (edges.setIndex(connected[i], previous) && edges.onBoundary()) return true;
    }
    return false;
}

}  // namespace

bool kyStrakeContext::sourceHitAt(short x, short y, MPoint& hit) {
    hit = MPoint::origin;
    // With glue on, a stroke starts exactly on the vertex that the hover showed.
    if (getGlue() && !isMiss(currentHit) && strokePoints.length() == 0 && !relaxBrushArmed) {
        hit = currentHit;
        return true;
    }
    MStatus status;
    MDagPath source = getSourceMeshPath(status);
    if (!source.isValid()) return false;
    MFnMesh mesh(source, &status);
    if (!status) return false;
    MPoint nearPoint;
    MVector direction;
    if (!view.viewToWorld(x, y, nearPoint, direction)) return false;
    MFloatPointArray hits;
    if (!castRay(mesh, MFloatPoint(nearPoint), MFloatVector(direction), kSourceHit, accelParams, hits,
                 nullptr))
        return false;
    hit = MPoint(hits[0]);
    return true;
}

void kyStrakeContext::hoverPick(MEvent& event, const MHWRender::MFrameContext&, bool writeAttribute) {
    event.getPosition(currentX, currentY);
    const bool glue = getGlue();
    MStatus status;
    MDagPath mesh = glue ? getSourceMeshPath(status) : getActiveMeshPath();
    if (!mesh.isValid() || !mesh.hasFn(MFn::kMesh)) return;

    MFloatPointArray hits;
    MVector normal;
    MIntArray faces;
    if (!intersectSurface(mesh, hits, normal, view, accelParams, currentX, currentY, faces, false)) return;
    if (hits.length() == 0) return;
    const MPoint hit(hits[0]);
    if (writeAttribute)
        KY_REPORT_FAILURE(setPoint3Attr("interPoint", findStrakeLocator(), hit.x, hit.y, hit.z));
    if (glue && faces.length() > 0) currentHit = nearestFaceVertex(faces[0], hit);
}

MPoint kyStrakeContext::nearestFaceVertex(int face, const MPoint& reference) {
    MStatus status;
    MDagPath source = getSourceMeshPath(status);
    MIntArray ids;
    ids.append(face);
    MObject component = makeComponent(ids, MFn::kMeshPolygonComponent);
    MItMeshPolygon polygon(source, component, &status);
    if (!status || polygon.isDone()) return reference;

    MPoint nearest = reference;
    int best = 9999;
    const unsigned corners = polygon.polygonVertexCount();
    for (unsigned i = 0; i < corners; ++i) {
        const MPoint corner = polygon.point(static_cast<int>(i), MSpace::kWorld);
        const int distance = screenDistance(corner, reference);
        if (distance < best) {  // strict: the first of equal corners stays
            best = distance;
            nearest = corner;
        }
    }
    return nearest;
}

bool kyStrakeContext::faceFrontsEye(int face, const MPoint& eye, MItMeshPolygon& faces) {
    int previous = 0;
    faces.setIndex(face, previous);
    MVector normal;
    faces.getNormal(normal, MSpace::kWorld);
    const MPoint center = faces.center(MSpace::kWorld);
    return !(normal * (center - eye) > 0.0);
}

MPoint kyStrakeContext::pickFrontBack(const MPoint& screenPoint) {
    MPoint result(0.0, 0.0, 0.0, 1.0);
    MStatus status;
    MDagPath source = getSourceMeshPath(status);
    if (!source.isValid()) return result;
    MFnMesh mesh(source, &status);
    if (!status) return result;
    MPoint nearPoint;
    MVector direction;
    if (!view.viewToWorld(static_cast<short>(screenPoint.x), static_cast<short>(screenPoint.y), nearPoint,
                          direction))
        return result;
    MFloatPointArray hits;
    MIntArray faces;
    if (!castRay(mesh, MFloatPoint(nearPoint), MFloatVector(direction), kFrontBack, accelParams, hits,
                 &faces))
        return result;

    const MPoint eye(cameraEyePoint());
    MItMeshPolygon polygons(source, MObject::kNullObj, &status);
    if (!status) return result;
    double best = 9999999.0;
    for (unsigned i = 0; i < hits.length() && i < faces.length(); ++i) {
        const MPoint hit(hits[i]);
        if (!faceFrontsEye(faces[i], eye, polygons)) {
            backHits.append(hit);
            continue;
        }
        const double distance = hit.distanceTo(eye);
        // A front hit no nearer than the best so far is dropped, so frontHits gains a point only
        // while the hits come in from far to near.
        if (best > distance) {
            best = distance;
            frontHits.append(hit);
            result = hit;
        }
    }
    return result;
}

void kyStrakeContext::reprojectStroke(MPointArray& points) {
    MStatus status;
    MDagPath source = getSourceMeshPath(status);
    MFnMesh mesh(source, &status);
    const bool haveMesh = source.isValid() && status;
    const MPoint eye(cameraEyePoint());

    MPointArray kept;
    for (unsigned i = 0; i < points.length(); ++i) {
        const MPoint& point = points[i];
        MFloatPointArray hits;
        if (!haveMesh || !castRay(mesh, MFloatPoint(point), MFloatVector(point - eye), kReproject,
                                  accelParams, hits, nullptr))
            continue;  // a point with no hit leaves the stroke
        // The end of the sorted list, not its start, so that a thin surface's far side never wins
        // just by lying first along the ray.
        kept.append(MPoint(hits[hits.length() - 1]));
    }
    points = kept;
}

MStatus kyStrakeContext::snapToSource(MPointArray& points) {
    MStatus status;
    if (!intersector.isCreated()) {
        MDagPath source = getSourceMeshPath(status);
        KY_RETURN_ON_FAILURE(status);
        MObject node = source.node(&status);
        KY_RETURN_ON_FAILURE(status);
        KY_RETURN_ON_FAILURE(intersector.create(node, source.inclusiveMatrix()));
    }
    for (unsigned i = 0; i < points.length(); ++i) {
        MPointOnMesh onMesh;
        status = intersector.getClosestPoint(points[i], onMesh, std::numeric_limits<double>::max());
        if (KY_REPORT_FAILURE(status)) continue;
        // The closest point comes back in the source's object space.
        points[i] = MPoint(onMesh.getPoint()) * sourceMatrix;
    }
    return MS::kSuccess;
}

int kyStrakeContext::pickBoundaryVertex(double radius, bool useCurrentPosition) {
    const short x = useCurrentPosition ? currentX : pressX;
    const short y = useCurrentPosition ? currentY : pressY;
    MDagPath retopo = getActiveMeshPath();
    if (!retopo.isValid()) return -1;
    MStatus status;
    MItMeshVertex vertices(retopo, MObject::kNullObj, &status);
    if (!status) return -1;
    MItMeshEdge edges(retopo, MObject::kNullObj, &status);
    if (!status) return -1;

    const BackFaceTest backFaces(view);
    const double radiusSquared = radius * radius;
    // The lowest index in range wins, not the nearest vertex.
    for (; !vertices.isDone(); vertices.next()) {
        short viewX = 0;
        short viewY = 0;
        view.worldToView(vertices.position(MSpace::kWorld), viewX, viewY);
        const double dx = viewX - x;
        const double dy = viewY - y;
        if (!(dx * dx + dy * dy < radiusSquared)) continue;
        MVector normal;
        vertices.getNormal(normal, MSpace::kWorld);
        if (!backFaces.facesCamera(normal)) continue;
        if (touchesBorder(vertices, edges)) return vertices.index();
    }
    return -1;
}
