#pragma once
// MFnAttribute: the function set shared by every kind of attribute. Reads and sets the flags that
// govern how nodes use the attribute, and reports its names, parent and accepted data.
// A new attribute is readable, writable, connectable, storable and cached; it is not keyable,
// hidden, an array or used as a colour, its indices matter and it uses no array data builder.

#include <maya/MFnBase.h>
#include <maya/MFnData.h>
#include <maya/MString.h>

class OPENMAYA_EXPORT MFnAttribute : public MFnBase {
    MHOST_DECLARE_MFN(MFnAttribute)

    // Flag getters. Each returns false with kInvalidParameter when no attribute is attached.
    bool isReadable(MStatus* ReturnStatus = NULL) const;
    bool isWritable(MStatus* ReturnStatus = NULL) const;
    bool isConnectable(MStatus* ReturnStatus = NULL) const;
    bool isStorable(MStatus* ReturnStatus = NULL) const;
    bool isCached(MStatus* ReturnStatus = NULL) const;
    bool isArray(MStatus* ReturnStatus = NULL) const;
    // Whether array element indices are kept as given (true) or may be compacted.
    bool indexMatters(MStatus* ReturnStatus = NULL) const;
    bool isKeyable(MStatus* ReturnStatus = NULL) const;
    bool isHidden(MStatus* ReturnStatus = NULL) const;
    bool isUsedAsColor(MStatus* ReturnStatus = NULL) const;
    bool usesArrayDataBuilder(MStatus* ReturnStatus = NULL) const;

    // Flag setters; kInvalidParameter when no attribute is attached. Setting keyable on a numeric
    // compound (a point, a colour) sets it on the compound's children too.
    MStatus setReadable(bool state);
    MStatus setWritable(bool state);
    MStatus setConnectable(bool state);
    MStatus setStorable(bool state);
    MStatus setCached(bool state);
    MStatus setArray(bool state);
    MStatus setIndexMatters(bool state);
    MStatus setKeyable(bool state);
    MStatus setHidden(bool state);
    MStatus setUsedAsColor(bool state);
    MStatus setUsesArrayDataBuilder(bool state);

    // Whether data of the given type can be stored in or connected into the attribute: the typed
    // attribute's own type, a generic attribute's accept list, kNumeric for numeric attributes.
    bool accepts(MFnData::Type type, MStatus* ReturnStatus = NULL) const;
    // The compound attribute this one is a child of; a null object when it has none.
    MObject parent(MStatus* ReturnStatus = NULL) const;
    // The long and short names given at creation.
    MString name(MStatus* ReturnStatus = NULL) const;
    MString shortName(MStatus* ReturnStatus = NULL) const;
};
