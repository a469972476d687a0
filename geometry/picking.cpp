// Ray casts onto meshes, whole-mesh position reads, and the small scene writes that go with
// picking: vertex tweaks and the bridge or merge preview.

#include <maya/M3dView.h>
#include <maya/MFloatVector.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnMesh.h>
#include <maya/MItGeometry.h>

#include "geometry/functionsInternal.h"

bool intersectSurface(const MDagPath& path, MFloatPointArray& hitPoints, MVector& normal, M3dView& view,
                      MMeshIsectAccelParams& accelParams, short x, short y, MIntArray& faces,
                      bool wantNormal) {
    // Column and row 0 are valid pixels, yet they are refused here as they always have been.
    if (!(x > 0 && y > 0) || !path.isValid()) return false;
    MPoint source;
    MVector direction;
    view.viewToWorld(x, y, source, direction);

    MStatus status;
    MFnMesh mesh(path, &status);
    if (KY_REPORT_FAILURE(status)) return false;
    const MFloatPoint raySource(static_cast<float>(source.x), static_cast<float>(source.y),
                                static_cast<float>(source.z));
    const MFloatVector rayDirection(static_cast<float>(direction.x), static_cast<float>(direction.y),
                                    static_cast<float>(direction.z));
    const bool hit = mesh.allIntersections(raySource, rayDirection, nullptr, nullptr, true, MSpace::kWorld,
                                           10000.0f, false, &accelParams, true, hitPoints, nullptr, &faces,
                                           nullptr, nullptr, nullptr, 0.001f, &status);
    if (!status || !hit) return false;
    if (wantNormal && faces.length() > 0) mesh.getPolygonNormal(faces[0], normal, MSpace::kWorld);
    return true;
}

MPointArray getMeshPositions(MStatus& status) {
    MPointArray positions;
    MItGeometry geometry(getActiveMeshPath(), &status);
    if (KY_REPORT_FAILURE(status)) return positions;
    status = geometry.allPositions(positions, MSpace::kWorld);
    KY_REPORT_FAILURE(status);
    return positions;
}

MPointArray getMeshPositions() {
    MStatus status;
    return getMeshPositions(status);
}

MObject transformOfNode(const MObject& node) {
    MDagPath path;
    MFnDagNode(node).getPath(path);
    return path.transform();
}

MStatus clearMeshTweaks() {
    MDagPath path = getActiveMeshPath();
    if (!path.isValid()) return MS::kSuccess;
    // Positions live in the patch node's arrays now; leftover tweaks would move them twice.
    return setPointArrayAttr("pnts", path.node(), MPointArray());
}

MStatus clearMeshTweaks(MStatus& status) {
    status = clearMeshTweaks();
    return status;
}

MStatus storeFuseData(const MPointArray& points, const MPointArray& meshPoints, const MUintArray& ids,
                      int mode) {
    MObject locator = findStrakeLocator();
    if (MStatus status = setPointArrayAttr("fusept", locator, points); !status) return status;
    if (MStatus status = setPointArrayAttr("fusemesh", locator, meshPoints); !status) return status;
    if (MStatus status = setIntAttr("mode", locator, mode); !status) return status;
    MIntArray indices;
    for (unsigned int k = 0; k < ids.length(); ++k) indices.append(static_cast<int>(ids[k]));
    return setIntArrayAttr("fuseindices", locator, indices);
}

void dropIfContained(int id, const MIntArray& ids, bool& flag) {
    if (containsId(id, ids)) flag = false;
}
