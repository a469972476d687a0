#pragma once
// What the attribute function sets share: making a new attribute from the names a create call is
// given, and reaching the attribute a set is attached to.

#include <maya/MObject.h>
#include <maya/MString.h>

#include "attributes/ApiCall.h"
#include "graph/Attribute.h"

namespace mhost {

// A new attribute of the given kind with Maya's default flags. Throws HostError naming `owner` when
// a name is empty or not an identifier (letters, digits and '_', not starting with a digit).
AttributePtr newAttribute(AttributeKind kind, const MString& longName, const MString& shortName,
                          const char* owner);

// The attribute a function set is attached to; throws HostError naming `owner` when it is detached.
Attribute& attachedAttribute(const MObject& object, const char* owner);

// Runs `make` (returning an AttributePtr), attaches the set to the new attribute by storing it in
// `attached` and returns it. On failure the set keeps its object and a null object is returned.
template <class Make>
MObject createAttribute(MObject& attached, MStatus* ReturnStatus, Make&& make) {
    return guardValue(ReturnStatus, [&] {
        attached = MObject(make());
        return attached;
    });
}

}  // namespace mhost
