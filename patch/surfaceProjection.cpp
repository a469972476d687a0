// Projection of new patch vertices onto the source mesh. New vertices are built on straight lines
// between rows and hang above or below the dense source; each is moved onto it along its own
// normal, and the hit faces' normals vote on whether the new faces point the same way as the
// source.

#include <maya/MFloatArray.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFloatVector.h>
#include <maya/MItGeometry.h>
#include <maya/MItMeshVertex.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include "geometry/errorReporting.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

const char* const kDistanceSnapOption = "ky_distancesnap";
constexpr double kDefaultDistanceSnap = 100.0;

// `result`, kept in `status` when it is a failure, so that `status` ends with the last failure.
const MStatus& kept(const MStatus& result, MStatus& status) {
    if (!result) status = result;
    return result;
}

// Whether the first vertex of row 2 on the active mesh faces away from the source surface nearest
// to it. No row 2: false.
bool isRowFacingAway(MFnMesh& source, MStatus& status) {
    MIntArray row1, row2, row3;
    // Reads of rows never written print their own failures and leave the rows empty.
    getShadowIndices(row1, row2, row3);
    if (row2.length() == 0) return false;

    MStatus result;
    MObject allVertices;
    MItMeshVertex vertex(getActiveMeshPath(), allVertices, &result);
    KY_REPORT_FAILURE(kept(result, status));
    int previous = 0;
    KY_REPORT_FAILURE(kept(vertex.setIndex(row2[0], previous), status));
    MVector normal;
    KY_REPORT_FAILURE(kept(vertex.getNormal(normal, MSpace::kWorld), status));
    const MPoint position = vertex.position(MSpace::kWorld, &result);
    KY_REPORT_FAILURE(kept(result, status));

    MVector sourceNormal;
    KY_REPORT_FAILURE(kept(source.getClosestNormal(position, sourceNormal, MSpace::kWorld), status));
    return !(normal * sourceNormal > 0.0);
}

}  // namespace

double kyStrakeToolCmd::distanceSnap() { return optionDouble(kDistanceSnapOption, kDefaultDistanceSnap); }

bool kyStrakeToolCmd::projectOnSource(MDagPath meshPath, const MObject& vertices,
                                      MMeshIsectAccelParams& accelParams, MStatus& status) {
    MStatus result;
    const MDagPath sourcePath = getSourceMeshPath(result);
    KY_REPORT_FAILURE(kept(result, status));
    MFnMesh source(sourcePath, &result);
    KY_REPORT_FAILURE(kept(result, status));
    if (vertices.isNull()) return isRowFacingAway(source, status);

    MVectorArray normals;
    getVectorArrayAttr("inputNormals", findStrakeLocator(), normals);
    if (!meshPath.isValid()) {
        meshPath = findMeshByName(getActiveMeshPath().fullPathName(), result);
        KY_REPORT_FAILURE(kept(result, status));
    }

    MObject component = vertices;
    MItGeometry geometry(meshPath, component, &result);
    KY_REPORT_FAILURE(kept(result, status));
    MPointArray positions;
    KY_REPORT_FAILURE(kept(geometry.allPositions(positions, MSpace::kWorld), status));

    int vote = 0;
    for (unsigned int i = 0; !geometry.isDone(); geometry.next(), ++i) {
        const MVector normal = geometry.normal(MSpace::kWorld);
        const MFloatPoint origin(geometry.position(MSpace::kWorld));
        const MFloatVector direction(-normal);
        MFloatPointArray hitPoints;
        MFloatArray hitParams;
        MIntArray hitFaces;
        // Both directions: a vertex under the surface or inside a closed shell projects as well.
        const bool hit =
            source.allIntersections(origin, direction, nullptr, nullptr, false, MSpace::kWorld,
                                    static_cast<float>(distanceSnap()), true, &accelParams, false, hitPoints,
                                    &hitParams, &hitFaces, nullptr, nullptr, nullptr, 0.0f, &result);
        KY_REPORT_FAILURE(kept(result, status));
        if (!hit) continue;

        // The hit nearest to the vertex, whichever side of it: parameters are signed.
        const int nearest = nearestHitIndex(hitParams);
        // inputNormals is written when the tool is activated; an empty array is not guarded.
        const double facing = normals[hitFaces[nearest]] * geometry.normal(MSpace::kWorld);
        vote += facing > 0.0 ? 1 : -1;
        if (i < positions.length()) positions[i] = MPoint(hitPoints[nearest]);
    }
    KY_REPORT_FAILURE(kept(geometry.setAllPositions(positions, MSpace::kWorld), status));
    // A tie, and a patch that hit nothing, count as reversed: the caller flips on them.
    return vote <= 0;
}
