// Whole-mesh states of the retopo mesh. A patch edit is undone by writing an older set of arrays
// into the patch node above the mesh, which rebuilds the whole mesh from them; nothing is
// replayed. These routines read a mesh into a MeshSnapshot and write a snapshot into a node.

#include <maya/MFnMesh.h>
#include <maya/MItMeshPolygon.h>
#include <maya/MVector.h>

#include "geometry/errorReporting.h"
#include "geometry/functions.h"
#include "patch/kyStrakeToolCmd.h"

namespace {

constexpr const char* kyErrorStem = "kyStrakeToolCmd";

// Quads flipped in place: [a, b, c, d] becomes [d, c, b, a] for the last `quadCount` groups of four.
// The new quads are the last polygons because addPolygon appends; a face of another degree among
// them makes the groups slide, which nothing detects.
void reverseLastQuads(MIntArray& polyconnect, unsigned int quadCount) {
    const unsigned int length = polyconnect.length();
    if (4 * quadCount > length) return;
    for (unsigned int start = length - 4 * quadCount; start + 3 < length; start += 4) {
        const int a = polyconnect[start], b = polyconnect[start + 1];
        polyconnect[start] = polyconnect[start + 3];
        polyconnect[start + 1] = polyconnect[start + 2];
        polyconnect[start + 2] = b;
        polyconnect[start + 3] = a;
    }
}

}  // namespace

MStatus collectFaceVertexNormals(MVectorArray& normals, MIntArray& faceList, MIntArray& vertexList) {
    MStatus status;
    MItMeshPolygon polygons(getActiveMeshPath(), MObject::kNullObj, &status);
    if (!status) return status;
    for (polygons.reset(); !polygons.isDone(); polygons.next()) {
        const int face = static_cast<int>(polygons.index());
        const unsigned int corners = polygons.polygonVertexCount();
        for (unsigned int k = 0; k < corners; ++k) {
            MVector normal;
            status = polygons.getNormal(k, normal, MSpace::kObject);
            if (!status) return status;
            faceList.append(face);
            vertexList.append(static_cast<int>(polygons.vertexIndex(static_cast<int>(k))));
            normals.append(normal);
        }
    }
    return MS::kSuccess;
}

MStatus readMeshSnapshot(const MFnMesh& mesh, MeshSnapshot& out, bool uvFailuresCount) {
    MStatus status;
    out.numverts = static_cast<uint32_t>(mesh.numVertices());
    out.numpolys = static_cast<uint32_t>(mesh.numPolygons());
    if (!(status = mesh.getPoints(out.vertexarray, MSpace::kObject))) return status;
    if (!(status = mesh.getVertices(out.polycount, out.polyconnect))) return status;
    const MString uvSet = mesh.currentUVSetName(&status);
    if (status) status = mesh.getUVs(out.uarray, out.varray, &uvSet);
    if (!status && uvFailuresCount) return status;
    if (!(status = collectFaceVertexNormals(out.normalsin, out.facelist, out.vertexlist))) return status;
    if (!(status = mesh.getAssignedUVs(out.polycountUV, out.polyconnUV))) return status;
    const int edges = mesh.numEdges();
    for (int e = 0; e < edges; ++e) {
        out.edgesharden.append(e);
        out.hardenvalues.append(mesh.isEdgeSmooth(e) ? 1 : 0);
    }
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::commitPatchMesh(MFnMesh& meshFn, bool reversed, const MObject& patchNode,
                                         MIntArray faces) {
    MeshSnapshot snapshot;
    MStatus status = readMeshSnapshot(meshFn, snapshot, false);
    KY_RETURN_ON_FAILURE(status);
    // The flip lives in the arrays only: the mesh keeps its winding until the node rebuilds it.
    if (reversed) reverseLastQuads(snapshot.polyconnect, faces.length());
    meshAfter = snapshot;
    KY_RETURN_ON_FAILURE(writeMeshAfterToNode(patchNode));
    return MS::kSuccess;
}

// "redo" fills meshBefore and "undo" meshAfter: the labels name the direction in which the state
// is used, so the snapshot taken before a change is the one undo writes back.
MStatus kyStrakeToolCmd::saveMeshSnapshot(const MString& label) {
    const MDagPath path = getActiveMeshPath();
    if (!path.isValid()) return MS::kInvalidParameter;
    MFnMesh mesh(path);
    mesh.updateSurface();
    MeshSnapshot snapshot;
    MStatus status = readMeshSnapshot(mesh, snapshot, true);
    KY_RETURN_ON_FAILURE(status);
    if (label == "redo") meshBefore = snapshot;
    if (label == "undo") meshAfter = snapshot;
    return MS::kSuccess;
}

MStatus kyStrakeToolCmd::writeMeshAfterToNode(const MObject& node) { return writeSnapshotToNode(meshAfter, node); }

MStatus kyStrakeToolCmd::writeMeshBeforeToNode(const MObject& node) { return writeSnapshotToNode(meshBefore, node); }

// The order is the node's: "polyconnUV" comes last because writing it is what dirties the node's
// output, so one full write ends with the mesh rebuilt from all fourteen arrays.
MStatus kyStrakeToolCmd::writeSnapshotToNode(const MeshSnapshot& snapshot, const MObject& node) {
    MStatus status = clearMeshTweaks();
    if (!status) return status;
    KY_RETURN_ON_FAILURE(setPointArrayAttr("vertexarray", node, snapshot.vertexarray));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("polycount", node, snapshot.polycount));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("polyconnect", node, snapshot.polyconnect));
    KY_RETURN_ON_FAILURE(setIntAttr("numpolys", node, static_cast<int>(snapshot.numpolys)));
    KY_RETURN_ON_FAILURE(setIntAttr("numverts", node, static_cast<int>(snapshot.numverts)));
    KY_RETURN_ON_FAILURE(setFloatArrayAttr("uarray", node, snapshot.uarray));
    KY_RETURN_ON_FAILURE(setFloatArrayAttr("varray", node, snapshot.varray));
    KY_RETURN_ON_FAILURE(setVectorArrayAttr("normalsin", node, snapshot.normalsin));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("facelist", node, snapshot.facelist));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("vertexlist", node, snapshot.vertexlist));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("hardenvalues", node, snapshot.hardenvalues));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("edgesharden", node, snapshot.edgesharden));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("polycountUV", node, snapshot.polycountUV));
    KY_RETURN_ON_FAILURE(setIntArrayAttr("polyconnUV", node, snapshot.polyconnUV));
    return MS::kSuccess;
}

void kyStrakeToolCmd::clearMeshAfter() { meshAfter = MeshSnapshot(); }
