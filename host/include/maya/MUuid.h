#pragma once
// MUuid: a 128-bit universally unique identifier, written as 36 characters such as
// "1B4E28BA-2FA1-41D2-883F-0016D3CCA427". A default-constructed uuid is null (all zero) and not valid.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

class OPENMAYA_EXPORT MUuid {
public:
    // The null uuid.
    MUuid();
    MUuid(const MUuid& other);
    // From 16 bytes, most significant first as in the text form.
    MUuid(const unsigned char* uuid);
    // Parses the 8-4-4-4-12 hexadecimal text form, either case. Bad text leaves the uuid null and sets
    // *ReturnStatus to kInvalidParameter.
    MUuid(const MString& value, MStatus* ReturnStatus = NULL);
    ~MUuid();
    MUuid& operator=(const MUuid& rhs);
    // Byte-wise comparison.
    bool operator==(const MUuid& rhs) const;
    bool operator!=(const MUuid& rhs) const;
    // Copies the 16 bytes to `uuid`; kFailure for a null pointer.
    MStatus get(unsigned char* uuid) const;
    // The text form in upper-case hexadecimal.
    MString asString() const;
    operator MString() const;
    void copy(const MUuid& rhs);
    // True unless the uuid is null.
    bool valid() const;
    // Replaces the value with a new random (version 4, RFC 4122 variant) uuid. Always kSuccess.
    MStatus generate();

private:
    unsigned char fBytes[16];
};
