#pragma once
// Base of every object an MObject can hold. Each subclass reports its MFn type; hasFn follows the
// type hierarchy table of TypeHierarchy.cpp.

#include <maya/MFn.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace mhost {

class ApiObject : public std::enable_shared_from_this<ApiObject> {
public:
    virtual ~ApiObject() = default;
    virtual MFn::Type apiType() const = 0;
    // Whether this object may be used with function sets of `type`. Default: the type hierarchy.
    virtual bool hasFn(MFn::Type type) const;
};

// True if `type` is `ancestor` or derives from it in Maya's hierarchy.
bool typeDerivesFrom(MFn::Type type, MFn::Type ancestor);
// Maya's spelling of a type, e.g. "kMesh"; "kInvalid" for unknown values.
const char* typeName(MFn::Type type);

// Casts the object held by an MObject-like shared pointer to a subclass; null when it is not one.
template <class T, class Ptr>
std::shared_ptr<T> objectAs(const Ptr& object) {
    return std::dynamic_pointer_cast<T>(object);
}

// Host internals fail loudly with the owner's name; API entry points turn this into an MStatus.
class HostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace mhost
