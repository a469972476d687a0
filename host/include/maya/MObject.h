#pragma once
// MObject: a handle on any object the host owns (node, attribute, data, component). A null handle
// refers to nothing; a handle on a deleted node stays valid to hold but is no longer alive.

#include <maya/MFn.h>
#include <maya/MTypes.h>

#include <memory>

namespace mhost {
class ApiObject;
}

class OPENMAYA_EXPORT MObject {
public:
    MObject();
    MObject(const MObject& other);
    ~MObject();
    // True if the object is compatible with function sets of the given type (Maya's type hierarchy).
    bool hasFn(MFn::Type fs) const;
    bool isNull() const;
    MFn::Type apiType() const;
    const char* apiTypeStr() const;
    bool operator==(const MObject&) const;
    bool operator!=(const MObject&) const;
    MObject& operator=(const MObject&);

    static MObject kNullObj;

    // Host side: wraps and unwraps the internal object. Not part of Maya's API.
    explicit MObject(std::shared_ptr<mhost::ApiObject> object);
    const std::shared_ptr<mhost::ApiObject>& hostObject() const { return fObject; }

private:
    std::shared_ptr<mhost::ApiObject> fObject;
};
