#pragma once
// MFnBase: the root of the function sets. A function set is attached to one MObject and operates on
// it; attaching fails with kInvalidParameter unless the object has the set's MFn type.

#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>

class OPENMAYA_EXPORT MFnBase {
public:
    virtual ~MFnBase();
    // The MFn type of this function set.
    virtual MFn::Type type() const;
    // Whether objects of the given type (or this object) can be used with this function set.
    bool hasObj(MFn::Type) const;
    bool hasObj(const MObject&) const;
    // The attached object; null when nothing is attached.
    MObject object(MStatus* ReturnStatus = NULL) const;
    // Attaches the set to an object; kInvalidParameter (and a detached set) for an incompatible one.
    virtual MStatus setObject(MObject& object);
    virtual MStatus setObject(const MObject& object);
    static const char* className();

protected:
    // Only a derived function set is ever made.
    MFnBase();

    MObject fObject;

private:
    MFnBase(const MFnBase&);
    MFnBase& operator=(const MFnBase&);
};

// The members every function set declares: its type, destructor, class name, the empty constructor
// and the two attaching constructors. Copying a function set is not allowed, as in Maya.
#define MHOST_DECLARE_MFN(MFnClass)                                \
public:                                                            \
    MFn::Type type() const override;                               \
    ~MFnClass() override;                                          \
    static const char* className();                                \
    MFnClass() {}                                                  \
    MFnClass(MObject& object, MStatus* ReturnStatus = NULL);       \
    MFnClass(const MObject& object, MStatus* ReturnStatus = NULL); \
                                                                   \
private:                                                           \
    MFnClass(const MFnClass&);                                     \
    MFnClass& operator=(const MFnClass&);                          \
                                                                   \
public:
