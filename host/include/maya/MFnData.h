#pragma once
// MFnData: the base of the data function sets. Data objects are the values that typed and generic
// attributes hold and that flow through connections (arrays, strings, numeric tuples, meshes).

#include <maya/MFnBase.h>

class OPENMAYA_EXPORT MFnData : public MFnBase {
    MHOST_DECLARE_MFN(MFnData)

    // The kinds of data, numbered as in Maya; kAny stands for every kind in accept lists.
    enum Type {
        kInvalid,
        kNumeric,
        kPlugin,
        kPluginGeometry,
        kString,
        kMatrix,
        kStringArray,
        kDoubleArray,
        kFloatArray,
        kIntArray,
        kPointArray,
        kVectorArray,
        kMatrixArray,
        kComponentList,
        kMesh,
        kLattice,
        kNurbsCurve,
        kNurbsSurface,
        kSphere,
        kDynArrayAttrs,
        kDynSweptGeometry,
        kSubdSurface,
        kNObject,
        kNId,
        kAny,
        kLast
    };
};
