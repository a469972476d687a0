#pragma once
// MFnMeshData: makes mesh data objects, the values that mesh attributes hold and connections carry.
// Fill one with MFnMesh::create(..., parentOrOwner = the data) and hand it to a data handle or a plug.

#include <maya/MFnGeometryData.h>

class OPENMAYA_EXPORT MFnMeshData : public MFnGeometryData {
    MHOST_DECLARE_MFN(MFnMeshData)

    // A new data object holding an empty mesh; the set attaches to it.
    MObject create(MStatus* ReturnStatus = NULL);
};
