#pragma once
// MFnCompoundAttribute: creates and edits compound attributes, which group child attributes so that
// they can be connected as a whole or one by one.

#include <maya/MFnAttribute.h>

class OPENMAYA_EXPORT MFnCompoundAttribute : public MFnAttribute {
    MHOST_DECLARE_MFN(MFnCompoundAttribute)

    // Creates a compound attribute with no children and attaches the set to it. Empty or malformed
    // names fail with a null object.
    MObject create(const MString& full, const MString& brief, MStatus* ReturnStatus = NULL);
    // Appends a child attribute. kInvalidParameter when the child is null, already has a parent,
    // shares a name with a sibling, is this attribute, or when this is a numeric compound.
    MStatus addChild(const MObject& child);
    // Detaches a child; kInvalidParameter when it is not a child of this attribute.
    MStatus removeChild(const MObject& child);
    // Number of children; for a numeric compound its generated children.
    unsigned int numChildren(MStatus* ReturnStatus = NULL) const;
    // The child at the index; null with kInvalidParameter past the end.
    MObject child(unsigned int index, MStatus* ReturnStatus = NULL) const;
};
