// Whole-mesh states of the retopo mesh. A patch edit is undone by writing an older set of arrays
// into the patch node above the mesh, which rebuilds the whole mesh from them; nothing is
// replayed. These routines read a mesh into a MeshSnapshot and write a snapshot into a node.

#include <maya/MFloatVectorArray.h>
#include <maya/MFnMesh.h>
#include <maya/MItMeshEdge.h>
#include <maya/MVector.h>

#include <vector>

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

// Every edge id in order, with whether the edge is smooth. Walked with an edge iterator, which
// keeps hold of the mesh between edges.
MStatus readEdgeSmoothing(const MFnMesh& mesh, MIntArray& edgeIds, MIntArray& smooth) {
    MObject meshObject = mesh.object();
    MStatus status;
    MItMeshEdge edges(meshObject, &status);
    if (!status) return status;
    const unsigned int count = static_cast<unsigned int>(mesh.numEdges());
    edgeIds.setLength(count);
    smooth.setLength(count);
    for (unsigned int e = 0; !edges.isDone() && e < count; edges.next(), ++e) {
        edgeIds[e] = edges.index();
        smooth[e] = edges.isSmooth() ? 1 : 0;
    }
    return MS::kSuccess;
}

}  // namespace

// Read in bulk (the normals with their ids, and the polygons' vertices) and assembled in plain
// buffers: a retopo mesh has tens of thousands of face-vertices, and a host call per corner, or an
// array grown entry by entry, would cost more than the rest of a patch operation.
MStatus collectFaceVertexNormals(MVectorArray& normals, MIntArray& faceList, MIntArray& vertexList) {
    MStatus status;
    const MFnMesh mesh(getActiveMeshPath(), &status);
    if (!status) return status;
    MFloatVectorArray meshNormals;
    MIntArray normalCounts, normalIds, counts, connects;
    if (!(status = mesh.getNormals(meshNormals, MSpace::kObject))) return status;
    if (!(status = mesh.getNormalIds(normalCounts, normalIds))) return status;
    if (!(status = mesh.getVertices(counts, connects))) return status;

    const unsigned int total = connects.length();
    std::vector<float> normalCoords(3 * std::size_t(meshNormals.length()));
    std::vector<int> polygonCounts(counts.length()), cornerVertices(total), cornerNormals(total);
    meshNormals.get(reinterpret_cast<float(*)[3]>(normalCoords.data()));
    counts.get(polygonCounts.data());
    connects.get(cornerVertices.data());
    normalIds.get(cornerNormals.data());

    std::vector<int> cornerFaces(total);
    std::vector<double> cornerCoords(3 * std::size_t(total));
    unsigned int corner = 0;
    for (int face = 0; face < static_cast<int>(polygonCounts.size()); ++face) {
        for (int k = 0; k < polygonCounts[face]; ++k, ++corner) {
            cornerFaces[corner] = face;
            for (int axis = 0; axis < 3; ++axis)
                cornerCoords[3 * corner + axis] = normalCoords[3 * std::size_t(cornerNormals[corner]) + axis];
        }
    }
    normals = MVectorArray(reinterpret_cast<const double(*)[3]>(cornerCoords.data()), total);
    faceList = MIntArray(cornerFaces.data(), total);
    vertexList = connects;
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
    return readEdgeSmoothing(mesh, out.edgesharden, out.hardenvalues);
}

MStatus kyStrakeToolCmd::commitPatchMesh(MFnMesh& meshFn, bool reversed, const MObject& patchNode,
                                         MIntArray faces) {
    // Read in place, as the snapshot is large; a failed read leaves meshAfter empty, as the workers
    // cleared it before the grid was built.
    clearMeshAfter();
    MStatus status = readMeshSnapshot(meshFn, meshAfter, false);
    if (!status) clearMeshAfter();
    KY_RETURN_ON_FAILURE(status);
    // The flip lives in the arrays only: the mesh keeps its winding until the node rebuilds it.
    if (reversed) reverseLastQuads(meshAfter.polyconnect, faces.length());
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

MStatus kyStrakeToolCmd::writeMeshAfterToNode(const MObject& node) {
    return writeSnapshotToNode(meshAfter, node);
}

MStatus kyStrakeToolCmd::writeMeshBeforeToNode(const MObject& node) {
    return writeSnapshotToNode(meshBefore, node);
}

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
