#pragma once
// MFnComponent: the base of the component function sets. A component names parts of a shape (mesh
// vertices, edges or polygons) and goes with a DAG path in selection lists and iterators.

#include <maya/MFnBase.h>
#include <maya/MString.h>

class OPENMAYA_EXPORT MFnComponent : public MFnBase {
    MHOST_DECLARE_MFN(MFnComponent)

    // Number of elements; 0 with kInvalidParameter when nothing is attached.
    int elementCount(MStatus* ReturnStatus = NULL) const;
    // The component's MFn type, e.g. MFn::kMeshVertComponent.
    MFn::Type componentType(MStatus* ReturnStatus = NULL) const;
    bool isEmpty(MStatus* ReturnStatus = NULL) const;
    // Whether the other component is of the same type with the same elements, in any order.
    bool isEqual(MObject& other, MStatus* ReturnStatus = NULL) const;
};
