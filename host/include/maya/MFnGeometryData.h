#pragma once
// MFnGeometryData: what geometry data objects (mesh data) share: the matrix that places the geometry
// in the world. Data from a shape's outMesh carries the identity; from its worldMesh, the shape's
// world matrix.

#include <maya/MFnData.h>

class MMatrix;

class OPENMAYA_EXPORT MFnGeometryData : public MFnData {
    MHOST_DECLARE_MFN(MFnGeometryData)

    // The object-to-world matrix of the data; world-space queries on the data go through it.
    MStatus setMatrix(const MMatrix&);
    MStatus getMatrix(MMatrix&) const;
    // Exact comparisons with the identity; false with kInvalidParameter when nothing is attached.
    bool matrixIsIdentity(MStatus* ReturnStatus = NULL) const;
    bool matrixIsNotIdentity(MStatus* ReturnStatus = NULL) const;
};
