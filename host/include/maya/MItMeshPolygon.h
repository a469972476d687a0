#pragma once
// MItMeshPolygon: walks the polygons of a mesh (shape or mesh data), all of them in id order or those of
// a polygon component in its order. Corner k of a polygon is its k-th vertex in winding order.

#include <maya/MFloatArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MFnDagNode.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MString.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include <memory>

class MIntArray;
class MPointArray;

namespace mhost {
class MeshWalk;
}

class OPENMAYA_EXPORT MItMeshPolygon {
public:
    // Over every polygon of a mesh shape or mesh data.
    MItMeshPolygon(const MObject& polyObject, MStatus* ReturnStatus = NULL);
    // Over the mesh shape at the end of the path (or the one below a transform), limited to a polygon
    // component when one is given.
    MItMeshPolygon(const MDagPath& polyObject, MObject& component = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);
    virtual ~MItMeshPolygon();

    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    // Back to the first polygon; the world matrix is taken again.
    MStatus reset();
    MStatus reset(const MObject& polyObject);
    MStatus reset(const MDagPath& polyObject, MObject& component = MObject::kNullObj);
    unsigned int count(MStatus* ReturnStatus = NULL);
    // Corners of the current polygon.
    unsigned int polygonVertexCount(MStatus* ReturnStatus = NULL);
    // The average of its vertices.
    MPoint center(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    // A polygon component holding the current polygon.
    MObject currentItem(MStatus* ReturnStatus = NULL);
    unsigned int index(MStatus* ReturnStatus = NULL);
    // Makes `index` the current polygon (in the component, for a component walk).
    MStatus setIndex(int index, int& prevIndex);
    // The vertex id at corner `index`, and all of them in order.
    unsigned int vertexIndex(int index, MStatus* ReturnStatus = NULL);
    MStatus getVertices(MIntArray& vertices);
    MPoint point(int index, MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    void getPoints(MPointArray& pointArray, MSpace::Space space = MSpace::kObject,
                   MStatus* ReturnStatus = NULL);
    MStatus setPoint(const MPoint& point, unsigned int index, MSpace::Space space = MSpace::kObject);
    // One point per corner.
    MStatus setPoints(MPointArray& pointArray, MSpace::Space space = MSpace::kObject);

    // The polygon's unit normal (Newell's method).
    MStatus getNormal(MVector& normal, MSpace::Space space = MSpace::kObject) const;
    // The normal at corner Vertexindex: angle-weighted over the polygons reached across smooth edges,
    // so that hard edges split it.
    MStatus getNormal(unsigned int Vertexindex, MVector& normal, MSpace::Space space = MSpace::kObject) const;
    // Those normals for every corner, in order.
    MStatus getNormals(MVectorArray& vectorArray, MSpace::Space space = MSpace::kObject) const;
    // Triangles of its fan from corner 0: corners - 2.
    MStatus numTriangles(int& count) const;
    // Whether every corner has a UV in the current set.
    bool hasUVs(MStatus* ReturnStatus = NULL) const;

    MStatus updateSurface();
    MStatus geomChanged();
    // Its edges; edge k joins corners k and k + 1.
    MStatus getEdges(MIntArray& edges);
    // Other polygons sharing an edge with it, each once, in the order of its edges.
    MStatus getConnectedFaces(MIntArray& faces);
    // Edges touching its corners that are not its own, and the vertices at their far ends.
    MStatus getConnectedEdges(MIntArray& edges);
    MStatus getConnectedVertices(MIntArray& vertices);
    bool isConnectedToFace(int index, MStatus* ReturnStatus = NULL);
    bool isConnectedToEdge(int index, MStatus* ReturnStatus = NULL);
    bool isConnectedToVertex(int index, MStatus* ReturnStatus = NULL);
    MStatus numConnectedFaces(int& faceCount) const;
    MStatus numConnectedEdges(int& edgeCount) const;
    // Whether one of its edges is on the mesh's boundary.
    bool onBoundary(MStatus* ReturnStatus = NULL);
    // Its area, exact for planar polygons; zeroArea tests it against 0.
    MStatus getArea(double& area, MSpace::Space space = MSpace::kObject);
    bool zeroArea(MStatus* ReturnStatus = NULL);

    static const char* className();

private:
    std::shared_ptr<mhost::MeshWalk> fWalk;
};
