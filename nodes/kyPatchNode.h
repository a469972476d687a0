#pragma once
// kyPatchNode: the one node of the retopo mesh's construction history. The tool command writes the
// whole mesh into its attributes as plain arrays (points, polygon counts and connects, UVs, edge
// hardness) and the node rebuilds the mesh from them on every evaluation. While the arrays are empty
// the node is transparent: the incoming mesh goes out unchanged.

#include <maya/MDataBlock.h>
#include <maya/MFloatArray.h>
#include <maya/MIntArray.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>
#include <maya/MPointArray.h>
#include <maya/MPxNode.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>
#include <maya/MVectorArray.h>

class kyPatchNode : public MPxNode {
public:
    kyPatchNode();
    ~kyPatchNode() override;

    // State 1 (has no effect): moves the incoming mesh's points to `vertexarray` when it has any
    // and passes the mesh on. Otherwise, for `outMesh`: the incoming mesh while every array is
    // empty, else a new mesh built from the arrays. O(whole mesh) per evaluation.
    MStatus compute(const MPlug& plug, MDataBlock& dataBlock) override;
    // A write of `polyconnUV`, `state` or `vertexarray` dirties `outMesh`; nothing else does.
    MStatus setDependentsDirty(const MPlug& plug, MPlugArray& plugArray) override;

    // The node name of the first destination of `outMesh` (the downstream shape), into `outName`
    // and returned; empty when nothing is connected. Kept for diagnostics.
    MString outputNodeName(MString& outName) const;

    // The array held by `attribute` in the data block, copied; empty when it was never written.
    static MFloatArray getFloatArrayInput(MDataBlock& dataBlock, const MObject& attribute);
    static MIntArray getIntArrayInput(MDataBlock& dataBlock, const MObject& attribute);
    static MPointArray getPointArrayInput(MDataBlock& dataBlock, const MObject& attribute);
    static MVectorArray getVectorArrayInput(MDataBlock& dataBlock, const MObject& attribute);

    // Allocates one node for the host.
    static void* creator();
    // Creates and adds the attributes and their dependencies. A failing creation is reported and
    // the rest are still made; the status of the last step is returned.
    static MStatus initialize();

    static MTypeId id;
    // The name stem of patch nodes ("kyPatch") and a draw classification that is not registered.
    static MString nameStem;
    static MString drawDbClassification;

    // Mesh counts.
    static MObject numpolys;
    static MObject numverts;
    // Topology, positions and UVs of the current UV set.
    static MObject polycount;
    static MObject polyconnect;
    static MObject uarray;
    static MObject varray;
    static MObject vertexarray;
    static MObject polycountUV;
    static MObject polyconnUV;
    // Face-vertex normals with their face and vertex ids: carried along, never applied.
    static MObject normalsin;
    static MObject facelist;
    static MObject vertexlist;
    // Per-edge smoothness (`hardenvalues`) of the edges `edgesharden`.
    static MObject hardenvalues;
    static MObject edgesharden;
    // The mesh from upstream and the result.
    static MObject inMesh;
    static MObject outMesh;
};
