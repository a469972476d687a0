// Vertex and face components: sets of ids that the tool command hands to mesh iterators and to
// the tweak node.

#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MItMeshPolygon.h>

#include "geometry/functionsInternal.h"

namespace {

// The ids from `high` down to `low`, both included, less those `skip` rejects.
template <typename Skip>
MIntArray idsDownFrom(int high, int low, Skip skip) {
    MIntArray ids;
    for (int id = high; id >= low; --id) {
        if (!skip(id)) ids.append(id);
    }
    return ids;
}

}  // namespace

MObject makeComponent(const MIntArray& ids, MFn::Type type) {
    if (ids.length() == 0) return MObject::kNullObj;
    MStatus status;
    MFnSingleIndexedComponent fn;
    MObject component = fn.create(type, &status);
    if (KY_REPORT_FAILURE(status)) return MObject::kNullObj;
    MIntArray elements = ids;
    KY_REPORT_FAILURE(fn.addElements(elements));
    return component;
}

MObject stripVertices(int oldCount, int newCount, MStatus& status, const MDagPath& path) {
    PolylineList shadow = getShadowRows(status);
    if (shadow.size() < 2) {
        status = MS::kFailure;
        return MObject::kNullObj;
    }
    MDagPath meshPath = path.isValid() ? path : getActiveMeshPath();
    const MIntArray row1 = idsFromPoints(meshPath, shadow[0]);
    const MIntArray row2 = idsFromPoints(meshPath, shadow[1]);
    const MIntArray free = idsDownFrom(newCount - 1, oldCount,
                                       [&](int id) { return containsId(id, row1) || containsId(id, row2); });
    traceIds(free, "strip_vertices");
    status = MS::kSuccess;
    return makeComponent(free, MFn::kMeshVertComponent);
}

MObject deltaVertices(int oldCount, int newCount) {
    const MIntArray ids = idsDownFrom(newCount - 1, oldCount, [](int) { return false; });
    traceIds(ids, "deltaVertices");
    return makeComponent(ids, MFn::kMeshVertComponent);
}

MObject newVertexComponent(int oldCount, int newCount) {
    // The one-based range 1 .. newCount less 1 .. oldCount: the ids oldCount + 1 .. newCount. That
    // is one above the new vertices' ids (see deltaVertices), a difference callers rely on.
    MIntArray ids;
    for (int id = oldCount + 1; id <= newCount; ++id) ids.append(id);
    return makeComponent(ids, MFn::kMeshVertComponent);
}

MObject verticesOfFaces(const MDagPath& path, const MIntArray& faces) {
    // "newFaces" overrides `faces` as soon as it holds a value, even an empty one; `faces` counts
    // only while the attribute has never been written.
    MIntArray faceIds = faces;
    getIntArrayAttr("newFaces", findStrakeLocator(), faceIds);
    MObject faceComponent = makeComponent(faceIds, MFn::kMeshPolygonComponent);
    if (faceComponent.isNull()) return MObject::kNullObj;

    MStatus status;
    MItMeshPolygon face(path, faceComponent, &status);
    if (KY_REPORT_FAILURE(status)) return MObject::kNullObj;
    MIntArray vertices;
    for (; !face.isDone(); face.next()) {
        MIntArray corners;
        face.getVertices(corners);
        for (unsigned int k = 0; k < corners.length(); ++k) {
            if (!containsId(corners[k], vertices)) vertices.append(corners[k]);
        }
    }
    return makeComponent(vertices, MFn::kMeshVertComponent);
}
