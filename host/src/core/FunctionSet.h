#pragma once
// Definitions behind MHOST_DECLARE_MFN: type, destructor, class name and attaching constructors.

#define MHOST_DEFINE_MFN(MFnClass, FnType)                             \
    MFn::Type MFnClass::type() const { return FnType; }                \
    MFnClass::~MFnClass() = default;                                   \
    const char* MFnClass::className() { return #MFnClass; }            \
    MFnClass::MFnClass(MObject& object, MStatus* ReturnStatus) {       \
        MStatus status = setObject(object);                            \
        if (ReturnStatus) *ReturnStatus = status;                      \
    }                                                                  \
    MFnClass::MFnClass(const MObject& object, MStatus* ReturnStatus) { \
        MStatus status = setObject(object);                            \
        if (ReturnStatus) *ReturnStatus = status;                      \
    }
