#pragma once
// MFnStringData: creates and edits string data objects, the values of typed attributes of type
// MFnData::kString.

#include <maya/MFnData.h>
#include <maya/MString.h>

class OPENMAYA_EXPORT MFnStringData : public MFnData {
    MHOST_DECLARE_MFN(MFnStringData)

    // The string held by the attached data; empty with kInvalidParameter when nothing is attached.
    MString string(MStatus* ReturnStatus = NULL) const;
    // Replaces the string held by the attached data.
    MStatus set(const MString& newString);
    // Create a data object holding the given string, or an empty one, and attach the set to it.
    MObject create(const MString& str, MStatus* ReturnStatus = NULL);
    MObject create(MStatus* ReturnStatus = NULL);
};
