#pragma once
// MFnMessageAttribute: creates message attributes, which carry no data and exist to be connected
// (relationships between nodes).

#include <maya/MFnAttribute.h>

class OPENMAYA_EXPORT MFnMessageAttribute : public MFnAttribute {
    MHOST_DECLARE_MFN(MFnMessageAttribute)

    // Creates a message attribute and attaches the set to it. Empty or malformed names fail with a
    // null object.
    MObject create(const MString& fullName, const MString& briefName, MStatus* ReturnStatus = NULL);
};
