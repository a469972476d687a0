#pragma once
// MFnGenericAttribute: creates and edits attributes that accept data of several types, listed one by
// one (any data type, or numeric data of given numeric types).

#include <maya/MFnAttribute.h>
#include <maya/MFnNumericData.h>

class OPENMAYA_EXPORT MFnGenericAttribute : public MFnAttribute {
    MHOST_DECLARE_MFN(MFnGenericAttribute)

    // Creates a generic attribute accepting nothing yet and attaches the set to it. Empty or
    // malformed names fail with a null object.
    MObject create(const MString& full, const MString& brief, MStatus* ReturnStatus = NULL);
    // Adds a data type to the accept list; adding one already there changes nothing. kInvalid and
    // kLast are refused with kInvalidParameter.
    MStatus addDataAccept(MFnData::Type newType);
    // Adds a numeric type: numeric data of that type becomes acceptable. kInvalid, kAddr and kLast
    // are refused with kInvalidParameter.
    MStatus addNumericDataAccept(MFnNumericData::Type newType);
    // Remove a type from the accept lists; kInvalidParameter when it was not accepted.
    MStatus removeDataAccept(MFnData::Type oldType);
    MStatus removeNumericDataAccept(MFnNumericData::Type oldType);
};
