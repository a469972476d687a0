#pragma once
// Whole states that an edit of the retopo mesh keeps for undo and redo. Undo never replays
// geometry: a tool command holds one state from before and one from after its work, and writes
// the one asked for back into the scene. Every array is owned by value and starts empty.

#include <maya/MFloatArray.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MStatus.h>
#include <maya/MVectorArray.h>

#include <cstdint>
#include <vector>

// The whole retopo mesh as the patch node's input arrays, each field feeding the patch node
// attribute of the same name.
struct MeshSnapshot {
    MPointArray vertexarray;
    MIntArray polycount;
    MIntArray polyconnect;
    uint32_t numpolys = 0;
    uint32_t numverts = 0;
    MFloatArray uarray;
    MFloatArray varray;
    MVectorArray normalsin;
    MIntArray facelist;
    MIntArray vertexlist;
    MIntArray hardenvalues;
    MIntArray edgesharden;
    MIntArray polycountUV;
    MIntArray polyconnUV;
};

class MFnMesh;

// Reads the whole mesh of `mesh` into `out` (which starts empty): points in object space, polygon
// counts and connects, the current UV set, a normal per polygon-vertex of the active mesh, the
// assigned UVs and the smooth flag of every edge. Stops at the first failing read and returns it;
// failures of the UV-set read only when `uvFailuresCount`. O(face-vertices + edges).
MStatus readMeshSnapshot(const MFnMesh& mesh, MeshSnapshot& out, bool uvFailuresCount);
// One normal per polygon-vertex of the active mesh, object space, with the polygon and vertex id
// of each, polygon by polygon; the outputs are replaced.
MStatus collectFaceVertexNormals(MVectorArray& normals, MIntArray& faceList, MIntArray& vertexList);

// The locator's bookkeeping of the last patch: player row, strokes, shadow lines and row ids.
struct LocatorState {
    MPointArray playerPoints;
    MIntArray playerVertices;
    std::vector<MPointArray> strokes;
    std::vector<MPointArray> shadows;
    MIntArray shadowIndices1;
    MIntArray shadowIndices2;
    MIntArray shadowIndices3;
};

// Player ids and the three rows, around a change of spans.
struct RowIds {
    MIntArray playerVertices;
    MIntArray shadowIndices1;
    MIntArray shadowIndices2;
    MIntArray shadowIndices3;
};
