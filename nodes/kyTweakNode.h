#pragma once
// kyTweakNode: snaps the selected vertices of the retopo mesh onto the source mesh through the
// dependency graph. Scripts wire a mesh's outMesh into `lowMesh` and the source's into `scanMesh`;
// pulling `kyTweakEval` moves the selected vertices of the low mesh to their closest points on the
// scan mesh. The result leaves through no output: it is written straight into the low mesh's shape,
// so the node reads the global selection and writes another shape, and must run on the main thread.

#include <maya/MDagPath.h>
#include <maya/MDataBlock.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MMeshIntersector.h>
#include <maya/MMessage.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPxConstraint.h>
#include <maya/MStatus.h>
#include <maya/MTypeId.h>

class kyTweakNode : public MPxConstraint {
public:
    kyTweakNode();
    // Leaves the attribute-changed callback registered: its id is kept but never removed.
    ~kyTweakNode() override;

    // Registers the (empty) attribute-changed callback on this node and keeps its id.
    void postConstructor() override;
    // For `kyTweakEval`: moves each selected vertex of the mesh on `lowMesh` to its closest point on
    // the mesh on `scanMesh` and writes all positions into the low mesh's shape. kUnknownParameter,
    // with nothing moved, when the meshes are not the locator's source and the selected mesh, or an
    // object rather than vertices is selected. O(vertices x selected vertices).
    MStatus compute(const MPlug& plug, MDataBlock& data) override;
    // The first connection into `scanMesh` builds the closest-point intersector on that mesh, with
    // the shape's world matrix of that moment; later connections change nothing.
    MStatus connectionMade(const MPlug& plug, const MPlug& otherPlug, bool asSrc) override;

    // The vertex ids of a single-indexed component, in a fresh array; failure in `status` for a
    // component that is none (a null one included).
    MIntArray selectionElements(const MObject& component, MStatus& status) const;
    // Whether `index` is one of `elements`. O(elements).
    bool indexSelected(int index, const MIntArray& elements) const;
    // Whether the node feeding `scanMesh` has the name of the node feeding the locator's
    // `kyStrakeMesh`. Unconnected ends count as the empty name, so two of them match.
    bool scanMatchesLocator() const;
    // Whether the node connected to `lowMesh` is the node of `path`, compared by uuid. False when
    // nothing is connected.
    bool lowMatchesSelection(const MDagPath& path) const;

    // Allocates one node for the host.
    static void* creator();
    // Creates the attributes, adds all but `threshold`, and makes the meshes and `selectionAttr`
    // affect `kyTweakEval`. The status of the last step is returned.
    static MStatus initialize();

    static MTypeId id;

    // The mesh the vertices are snapped onto, and the mesh whose vertices move.
    static MObject scanMesh;
    static MObject lowMesh;
    // The attribute whose pull runs the snap; its value is never written.
    static MObject kyTweakEval;
    // Created but never added to the node: the reach of the snap is a constant of compute.
    static MObject threshold;
    // A point array open to scripts; the node does not read it.
    static MObject selectionAttr;

private:
    MCallbackId attrChangedCallbackId;
    MMeshIntersector intersector;
    MMatrix scanMatrix;
};
