#pragma once
// MFnSingleIndexedComponent: components whose elements are single ids: mesh vertices
// (MFn::kMeshVertComponent), edges (kMeshEdgeComponent) and polygons (kMeshPolygonComponent).
// Elements keep the order they were added in; adding one that is there already changes nothing.

#include <maya/MFnBase.h>
#include <maya/MFnComponent.h>
#include <maya/MString.h>

class MIntArray;

class OPENMAYA_EXPORT MFnSingleIndexedComponent : public MFnComponent {
    MHOST_DECLARE_MFN(MFnSingleIndexedComponent)

    // A new, empty component of a mesh component type, to which the set attaches; other types give
    // kInvalidParameter and a null object.
    MObject create(MFn::Type compType, MStatus* ReturnStatus = NULL);
    // Ids must not be negative (kInvalidParameter); addElements adds all or, on a bad id, none.
    MStatus addElement(int element);
    MStatus addElements(MIntArray& elements);
    // The largest element, -1 for an empty component.
    int elementMax(MStatus* ReturnStatus = NULL) const;
    // The element at a position of the component's order; kInvalidParameter past the end.
    int element(int index, MStatus* ReturnStatus = NULL) const;
    MStatus getElements(MIntArray& elements) const;
};
