#pragma once
// MTypeId: the 32-bit number that identifies a node or data type, as registered by a plug-in.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

class OPENMAYA_EXPORT MTypeId {
public:
    // Id 0, which no registered type uses.
    MTypeId();
    ~MTypeId();
    MTypeId(unsigned int id);
    // A globally unique id: the lower 24 bits of `prefix` become the upper 24 bits of the id, and the
    // lower 8 bits of `id` its lower 8 bits; higher bits are ignored.
    MTypeId(unsigned int prefix, unsigned int id);
    MTypeId(const MTypeId& src);
    MTypeId& operator=(const MTypeId& rhs);
    bool operator==(const MTypeId& rhs) const;
    bool operator!=(const MTypeId& rhs) const;
    // The 32-bit id; *ReturnStatus, when given, is set to kSuccess.
    unsigned int id(MStatus* ReturnStatus = NULL) const;

private:
    unsigned int fId;
};
