#pragma once
// MItMeshEdge: walks the edges of a mesh (shape or mesh data), all of them in id order or those of an edge
// component in its order. Edge ids follow first appearance along the polygons; end 0 and end 1 run in
// the direction of the first polygon using the edge.

#include <maya/MFnDagNode.h>
#include <maya/MObject.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <memory>

class MIntArray;

namespace mhost {
class MeshWalk;
}

class OPENMAYA_EXPORT MItMeshEdge {
public:
    // Over every edge of a mesh shape or mesh data, or those of an edge component.
    MItMeshEdge(MObject& polyObject, MStatus* ReturnStatus = NULL);
    MItMeshEdge(MObject& polyObject, MObject& component, MStatus* ReturnStatus = NULL);
    // Over the mesh shape at the end of the path (or the one below a transform).
    MItMeshEdge(const MDagPath& polyObject, MObject& component = MObject::kNullObj,
                MStatus* ReturnStatus = NULL);
    virtual ~MItMeshEdge();

    bool isDone(MStatus* ReturnStatus = NULL);
    MStatus next();
    MStatus reset();
    MStatus reset(MObject& polyObject, MObject& component = MObject::kNullObj);
    MStatus reset(const MDagPath& polyObject, MObject& component = MObject::kNullObj);
    int count(MStatus* ReturnStatus = NULL);

    // The midpoint, and end 0 or 1.
    MPoint center(MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    MPoint point(int index, MSpace::Space space = MSpace::kObject, MStatus* ReturnStatus = NULL);
    MStatus setPoint(const MPoint& point, unsigned int index, MSpace::Space space = MSpace::kObject);
    bool isSmooth(MStatus* ReturnStatus = NULL) const;
    MStatus setSmoothing(bool smooth = true);
    // The vertex id at end 0 or 1.
    int index(int index, MStatus* ReturnStatus = NULL);
    // The current edge id.
    int index(MStatus* ReturnStatus = NULL) const;
    // An edge component holding the current edge.
    MObject currentItem(MStatus* ReturnStatus = NULL);
    MStatus updateSurface();
    MStatus geomChanged();
    // Makes `index` the current edge (in the component, for a component walk).
    MStatus setIndex(int index, int& prevIndex);

    // Polygons using the edge, in polygon order; returns their number.
    int getConnectedFaces(MIntArray& faceList, MStatus* ReturnStatus = NULL) const;
    // Other edges sharing an end with it: those at end 0, then those at end 1, each in id order.
    int getConnectedEdges(MIntArray& edgeList, MStatus* ReturnStatus = NULL) const;
    MStatus numConnectedFaces(int& faceCount) const;
    MStatus numConnectedEdges(int& edgeCount) const;
    bool connectedToFace(int index, MStatus* ReturnStatus = NULL);
    bool connectedToEdge(int index, MStatus* ReturnStatus = NULL);
    // Whether a single polygon uses the edge.
    bool onBoundary(MStatus* ReturnStatus = NULL);
    MStatus getLength(double& length, MSpace::Space space = MSpace::kObject);

    static const char* className();

private:
    std::shared_ptr<mhost::MeshWalk> fWalk;
};
