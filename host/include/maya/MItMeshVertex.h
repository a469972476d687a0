#pragma once
// MItMeshVertex: walks the vertices of a mesh (shape or mesh data), all of them in id order or those of a
// vertex component in its order. Positions and normals are in object or world space; edits follow
// MFnMesh's rules.

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

namespace mhost {
class MeshWalk;
}

class OPENMAYA_EXPORT MItMeshVertex {
public:
    // Over every vertex of a mesh shape or mesh data; kInvalidParameter for another object.
    MItMeshVertex(MObject& polyObject, MStatus* ReturnStatus = NULL);
    // Over the mesh shape at the end of the path (or the one below a transform), limited to a vertex
    // component when one is given.
    MItMeshVertex(const MDagPath& polyObject, MObject& component = MObject::kNullObj,
                  MStatus* ReturnStatus = NULL);
    virtual ~MItMeshVertex();

    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    // Back to the first vertex; the world matrix is taken again.
    MStatus reset();
    MStatus reset(MObject& polyObject);
    MStatus reset(const MDagPath& polyObject, MObject& component = MObject::kNullObj);
    // Vertices the walk visits.
    int count(MStatus* ReturnStatus = NULL);
    // The current vertex id.
    int index(MStatus* ReturnStatus = NULL);
    // A vertex component holding the current vertex.
    MObject currentItem(MStatus* ReturnStatus = NULL);
    // Makes `index` the current vertex (for a component walk it must be in the component); prevIndex
    // receives the one before.
    MStatus setIndex(int index, int& prevIndex);

    MPoint position(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    MStatus setPosition(const MPoint& point, MSpace::Space space = MSpace::kObject);
    MStatus translateBy(const MVector& vector, MSpace::Space space = MSpace::kObject);
    // The vertex's angle-weighted normal.
    MStatus getNormal(MVector& vector, MSpace::Space space = MSpace::kObject);
    // Its normal as polygon faceIndex sees it (hard edges split normals); kInvalidParameter when the
    // polygon does not use the vertex.
    MStatus getNormal(MVector& vector, int faceIndex, MSpace::Space space = MSpace::kObject);
    // Those normals for each polygon using the vertex, in polygon order.
    MStatus getNormals(MVectorArray& vectorArray, MSpace::Space space = MSpace::kObject);

    // Neighbourhood: polygons using the vertex and edges ending at it (by id), vertices across those edges.
    MStatus getConnectedFaces(MIntArray& faceList);
    MStatus getConnectedEdges(MIntArray& edgeList);
    MStatus getConnectedVertices(MIntArray& vertexList);
    MStatus numConnectedFaces(int& faceCount) const;
    MStatus numConnectedEdges(int& edgeCount) const;
    bool connectedToFace(int faceIndex, MStatus* ReturnStatus = NULL);
    bool connectedToEdge(int edgeIndex, MStatus* ReturnStatus = NULL);
    // The other end of an edge at this vertex; kInvalidParameter for an edge not ending here.
    MStatus getOppositeVertex(int& vertexId, int edgeId);
    // Whether the vertex ends a boundary edge (one used by a single polygon).
    bool onBoundary(MStatus* ReturnStatus = NULL);

    // Edits already reach the mesh's consumers; these succeed.
    MStatus updateSurface();
    MStatus geomChanged();

    static const char* className();

private:
    std::shared_ptr<mhost::MeshWalk> fWalk;
};
