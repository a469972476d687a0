#pragma once
// MFnMesh: creates, reads and edits polygon meshes, on a mesh shape (kMesh, attached by node or DAG path)
// or on mesh data (kMeshData). Vertex, edge and polygon ids run from 0 in creation order. Spaces: kObject
// is the mesh's own; kWorld goes through the DAG path's inclusive matrix (for mesh data, the matrix the
// data carries). Edits of a shape with history last until the history next evaluates.

#include <maya/MColor.h>
#include <maya/MDGModifier.h>
#include <maya/MFnDagNode.h>
#include <maya/MObject.h>
#include <maya/MObjectArray.h>
#include <maya/MPoint.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include <memory>

// Default tolerance of mesh queries.
#define kMFnMeshTolerance 1.0e-3
// Distance within which addPolygon takes two points as one by default.
#define kMFnMeshPointTolerance 1.0e-10
// The instance argument meaning "not instance specific".
#define kMFnMeshInstanceUnspecified -1

class MFloatArray;
class MFloatPoint;
class MFloatPointArray;
class MFloatVector;
class MFloatVectorArray;
class MIntArray;
class MPointArray;
class MMeshIsectAccelParams;

namespace mhost {
class MeshAttachment;
}

class OPENMAYA_EXPORT MFnMesh : public MFnDagNode {
    MHOST_DECLARE_MFN(MFnMesh)

    // Attaches to the mesh shape at the end of the path, or to the one mesh shape below a transform.
    MFnMesh(const MDagPath& object, MStatus* ReturnStatus = NULL);

    // Builds a mesh of numVertices points and numPolygons polygons, polygon f using the next
    // polygonCounts[f] ids of polygonConnects. parentOrOwner: null makes a new transform and shape and
    // returns the transform; a transform gets a new shape below it, which is returned; a mesh shape without
    // history or a mesh data object receive the mesh and are returned. The set attaches to the new mesh.
    // Bad arrays (counts, ids out of range, repeated corners, non-finite points) give kInvalidParameter
    // and change nothing. O(points + face-vertices).
    MObject create(int numVertices, int numPolygons, const MFloatPointArray& vertexArray,
                   const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                   MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                   const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                   MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    // As above, with the UV arrays of the current UV set ("map1"); assign them with assignUVs.
    MObject create(int numVertices, int numPolygons, const MFloatPointArray& vertexArray,
                   const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                   const MFloatArray& uArray, const MFloatArray& vArray,
                   MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(int numVertices, int numPolygons, const MPointArray& vertexArray,
                   const MIntArray& polygonCounts, const MIntArray& polygonConnects,
                   const MFloatArray& uArray, const MFloatArray& vArray,
                   MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);

    // Appends a polygon through the corners, taken in order: with mergeVertices a corner within
    // pointTolerance of an existing vertex (one made by an earlier corner included) reuses the nearest,
    // otherwise it gets the next free vertex id. A set attached to nothing, or to a shape with no
    // vertices, first makes a new mesh as create does with parentOrOwner, and returns what create
    // returns; otherwise it returns the attached mesh object. Degenerate polygons (under 3 distinct
    // vertices) and non-finite corners give kInvalidParameter. Amortised O(corners).
    MObject addPolygon(const MPointArray& vertexArray, bool mergeVertices = true,
                       double pointTolerance = kMFnMeshPointTolerance,
                       MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    // As above; faceIndex receives the new polygon's id (unchanged on failure).
    MObject addPolygon(const MPointArray& vertexArray, int& faceIndex, bool mergeVertices = true,
                       double pointTolerance = kMFnMeshPointTolerance,
                       MObject parentOrOwner = MObject::kNullObj, MStatus* ReturnStatus = NULL);

    // Counts; 0 with kInvalidParameter when nothing is attached. numEdges builds the adjacency once.
    int numVertices(MStatus* ReturnStatus = NULL) const;
    int numEdges(MStatus* ReturnStatus = NULL) const;
    int numPolygons(MStatus* ReturnStatus = NULL) const;
    int numFaceVertices(MStatus* ReturnStatus = NULL) const;
    int polygonVertexCount(int polygonId, MStatus* ReturnStatus = NULL) const;
    // UVs in the current set, or in the named one.
    int numUVs(MStatus* ReturnStatus = NULL) const;
    int numUVs(const MString& uvSet, MStatus* ReturnStatus = NULL) const;

    // Accelerator parameters for the ray queries. The host always uses its own accelerator, built once
    // per mesh and reused until the mesh changes, so the parameters only say that one is wanted.
    static MMeshIsectAccelParams uniformGridParams(int xDiv, int yDiv, int zDiv);
    static MMeshIsectAccelParams autoUniformGridParams();

    // The hit nearest to raySource along rayDirection (in `space`) within maxParam, in both directions
    // when testBothDirections (then the smallest |param|). faceIds/triIds (nullable) restrict the
    // polygons and the triangles within them. Outputs may be null except hitPoint. Returns whether there
    // was a hit; a zero or non-finite ray or a negative maxParam give kInvalidParameter.
    bool closestIntersection(const MFloatPoint& raySource, const MFloatVector& rayDirection,
                             const MIntArray* faceIds, const MIntArray* triIds, bool idsSorted,
                             MSpace::Space space, float maxParam, bool testBothDirections,
                             MMeshIsectAccelParams* accelerator, MFloatPoint& hitPoint, float* hitRayParam,
                             int* hitFace, int* hitTriangle, float* hitBary1, float* hitBary2,
                             float tolerance = 1e-6, MStatus* ReturnStatus = NULL);
    // Every hit along the ray within maxParam (behind the source too when testBothDirections, with
    // negative parameters), one per polygon and place: hits on one polygon within `tolerance` along the
    // ray count once. sortHits orders them by parameter. The arrays are replaced, one entry per hit;
    // hit points are in `space`. Returns whether there was a hit. O(log triangles + hits).
    bool allIntersections(const MFloatPoint& raySource, const MFloatVector& rayDirection,
                          const MIntArray* faceIds, const MIntArray* triIds, bool idsSorted,
                          MSpace::Space space, float maxParam, bool testBothDirections,
                          MMeshIsectAccelParams* accelerator, bool sortHits, MFloatPointArray& hitPoints,
                          MFloatArray* hitRayParams, MIntArray* hitFaces, MIntArray* hitTriangles,
                          MFloatArray* hitBary1, MFloatArray* hitBary2, float tolerance = 1e-6,
                          MStatus* ReturnStatus = NULL);

    // The surface point nearest to toThisPoint (searched in object space) and its polygon. kFailure on a
    // mesh without polygons.
    MStatus getClosestPoint(const MPoint& toThisPoint, MPoint& theClosestPoint,
                            MSpace::Space space = MSpace::kObject, int* closestPolygon = NULL,
                            MMeshIsectAccelParams* accelerator = NULL) const;
    // The normal there: the angle-weighted vertex normals interpolated over the triangle hit.
    MStatus getClosestNormal(const MPoint& toThisPoint, MVector& theNormal,
                             MSpace::Space space = MSpace::kObject, int* closestPolygon = NULL,
                             MMeshIsectAccelParams* accelerator = NULL) const;

    // Tells the shape's consumers that the mesh changed; edits already do, so this only succeeds.
    MStatus updateSurface();

    // x, y, z of every vertex in turn, object space; valid until the mesh next changes.
    const float* getRawPoints(MStatus* ReturnStatus) const;
    // All vertex positions; setPoints needs exactly one per vertex.
    MStatus getPoints(MFloatPointArray& vertexArray, MSpace::Space space = MSpace::kObject) const;
    MStatus getPoints(MPointArray& vertexArray, MSpace::Space space = MSpace::kObject) const;
    MStatus setPoints(MFloatPointArray& vertexArray, MSpace::Space space = MSpace::kObject);
    MStatus setPoints(MPointArray& vertexArray, MSpace::Space space = MSpace::kObject);
    // Corner counts per polygon and the vertex ids of all polygons in order, as create takes them.
    MStatus getVertices(MIntArray& vertexCount, MIntArray& vertexList) const;
    MStatus getPolygonVertices(int polygonId, MIntArray& vertexList) const;
    MStatus setPoint(int vertexId, const MPoint& pos, MSpace::Space space = MSpace::kObject);
    MStatus getPoint(int vertexId, MPoint& pos, MSpace::Space space = MSpace::kObject) const;

    // One unit normal per vertex: its polygons' normals weighted by corner angle, or plainly averaged.
    MStatus getVertexNormal(int vertexId, bool angleWeighted, MVector& normal,
                            MSpace::Space space = MSpace::kObject) const;
    // The per-polygon-vertex normals (a polygon's corner normals split at hard edges), object space
    // or world; getNormalIds gives, polygon by polygon, the corner count and the index of each
    // corner's normal in that array. The host shares no normals between corners, so the ids run
    // 0, 1, 2, ... in face-vertex order.
    MStatus getNormals(MFloatVectorArray& normals, MSpace::Space space = MSpace::kObject) const;
    MStatus getNormalIds(MIntArray& normalIdCounts, MIntArray& normalIds) const;
    MStatus getVertexNormals(bool angleWeighted, MFloatVectorArray& normals,
                             MSpace::Space space = MSpace::kObject) const;
    // The polygon's unit normal (Newell's method; zero for a polygon without area).
    MStatus getPolygonNormal(int polygonId, MVector& normal, MSpace::Space space = MSpace::kObject) const;

    // The edge's two vertex ids, in the direction of the first polygon using it.
    MStatus getEdgeVertices(int edgeId, int2& vertexList) const;
    // Whether the polygon has an edge on the mesh's boundary.
    bool onBoundary(int polygonId, MStatus* ReturnStatus = NULL) const;
    // Edges are smooth until set hard; hard edges split the face-vertex normals.
    bool isEdgeSmooth(int edgeId, MStatus* ReturnStatus = NULL) const;
    MStatus setEdgeSmoothing(int edgeId, bool smooth = true);
    // smooths[i] (non-zero: smooth) for edgeIds[i]; the arrays must be equally long.
    MStatus setEdgeSmoothings(const MIntArray& edgeIds, const MIntArray& smooths);
    // Nothing is left to clean up after setEdgeSmoothing(s); succeeds on an attached set.
    MStatus cleanupEdgeSmoothing();

    // UV sets: a null uvSet means the current one. A new mesh has the one set "map1".
    MString currentUVSetName(MStatus* ReturnStatus = NULL, int instance = kMFnMeshInstanceUnspecified) const;
    // Replaces the set's UV arrays (equal lengths; no assigned id may fall off the end).
    MStatus setUVs(const MFloatArray& uArray, const MFloatArray& vArray, const MString* uvSet = NULL);
    MStatus getUVs(MFloatArray& uArray, MFloatArray& vArray, const MString* uvSet = NULL) const;
    // Assigns UV ids polygon by polygon: uvCounts[f] is 0 or polygon f's corner count. Bad counts or
    // ids give kInvalidParameter and change nothing.
    MStatus assignUVs(const MIntArray& uvCounts, const MIntArray& uvIds, const MString* uvSet = NULL);
    // The assignment as assignUVs takes it; a polygon missing a UV at any corner counts 0.
    MStatus getAssignedUVs(MIntArray& uvCounts, MIntArray& uvIds, const MString* uvSet = NULL) const;

private:
    friend struct mhost::FunctionSetAccess;
    // What the set resolved its object to, kept between calls (made at the first call).
    mutable std::shared_ptr<mhost::MeshAttachment> fAttachment;
};

// Parameters of the accelerated ray queries, made by MFnMesh::uniformGridParams or
// MFnMesh::autoUniformGridParams.
class OPENMAYA_EXPORT MMeshIsectAccelParams {
public:
    MMeshIsectAccelParams();

private:
    friend class MFnMesh;
    int type;
    int xDiv;
    int yDiv;
    int zDiv;
    bool verbose;
};
