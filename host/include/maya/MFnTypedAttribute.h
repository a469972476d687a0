#pragma once
// MFnTypedAttribute: creates and edits attributes holding one kind of data object (an int array, a
// point array, a string, a mesh...).

#include <maya/MFnAttribute.h>

class OPENMAYA_EXPORT MFnTypedAttribute : public MFnAttribute {
    MHOST_DECLARE_MFN(MFnTypedAttribute)

    // Creates an attribute holding data of the given type and attaches the set to it. The default,
    // when given, must be data of that type; the attribute keeps its own copy. Empty or malformed
    // names, kInvalid/kLast and a default of another type fail with a null object.
    MObject create(const MString& fullName, const MString& briefName, MFnData::Type type,
                   MObject defaultData = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    // The data type the attribute holds.
    MFnData::Type attrType(MStatus* ReturnStatus = NULL) const;
    // A copy of the default data; a null object when the attribute has none.
    MStatus getDefault(MObject& defaultCustomData);
    // Replaces the default with a copy of the given data (a null object clears it); the data must
    // be of the attribute's type.
    MStatus setDefault(const MObject& defaultCustomData);
};
