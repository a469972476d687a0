#pragma once
// MStatus: the result code of every API call, with Maya's codes and its reporting macros.

#include <maya/MTypes.h>

#include <iostream>

class OPENMAYA_EXPORT MStatus {
public:
    enum MStatusCode {
        kSuccess = 0,
        kFailure,
        kInsufficientMemory,
        kInvalidParameter,
        kLicenseFailure,
        kUnknownParameter,
        kNotImplemented,
        kNotFound,
        kEndOfFile
    };

    MStatus();
    MStatus(MStatusCode);
    MStatus(const MStatus&);
    MStatus& operator=(const MStatus& rhs);
    bool operator==(const MStatus& rhs) const;
    bool operator==(const MStatusCode rhs) const;
    bool operator!=(const MStatus& rhs) const;
    bool operator!=(const MStatusCode rhs) const;
    // True when the status is not kSuccess.
    bool error() const;
    void clear();
    MStatusCode statusCode() const;
    // The code's description, e.g. "(kInvalidParameter): Invalid parameter".
    MString errorString() const;
    // Writes "<prefix>: <errorString>" (or just the description for an empty prefix) to stderr.
    void perror(const char*) const;
    void perror(const MString&) const;
    void set(bool status, unsigned char statusCode, unsigned char internalStatusCode);
    void setSuccess();
    operator bool() const { return fStatus; }

    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream&, MStatus&);
    friend inline bool operator==(const MStatus::MStatusCode code, const MStatus& status) {
        return status.fStatusCode == code;
    }
    friend inline bool operator!=(const MStatus::MStatusCode code, const MStatus& status) {
        return status.fStatusCode != code;
    }

private:
    unsigned char fStatusCode;
    unsigned char fInternalStatusCode;
    bool fStatus;
};

typedef MStatus MS;

#define CHECK_MSTATUS_AND_RETURN(_status, _retVal)                                                       \
    {                                                                                                    \
        MStatus _maya_status = (_status);                                                                \
        if (MStatus::kSuccess != _maya_status) {                                                         \
            std::cerr << "\nAPI error detected in " << __FILE__ << " at line " << __LINE__ << std::endl; \
            _maya_status.perror("");                                                                     \
            return (_retVal);                                                                            \
        }                                                                                                \
    }

#define CHECK_MSTATUS_AND_RETURN_IT(_status) CHECK_MSTATUS_AND_RETURN((_status), (_status))

#define CHECK_MSTATUS(_status)                                                                           \
    {                                                                                                    \
        MStatus _maya_status = (_status);                                                                \
        if (MStatus::kSuccess != _maya_status) {                                                         \
            std::cerr << "\nAPI error detected in " << __FILE__ << " at line " << __LINE__ << std::endl; \
            _maya_status.perror("");                                                                     \
        }                                                                                                \
    }
