#include <maya/MStatus.h>
#include <maya/MString.h>

#include <iostream>

namespace {

const char* codeName(MStatus::MStatusCode code) {
    switch (code) {
        case MStatus::kSuccess:
            return "(kSuccess): No error";
        case MStatus::kFailure:
            return "(kFailure): Unexpected Internal Failure";
        case MStatus::kInsufficientMemory:
            return "(kInsufficientMemory): Insufficient memory";
        case MStatus::kInvalidParameter:
            return "(kInvalidParameter): Invalid parameter";
        case MStatus::kLicenseFailure:
            return "(kLicenseFailure): License failure";
        case MStatus::kUnknownParameter:
            return "(kUnknownParameter): Unknown parameter";
        case MStatus::kNotImplemented:
            return "(kNotImplemented): Not implemented";
        case MStatus::kNotFound:
            return "(kNotFound): Not found";
        case MStatus::kEndOfFile:
            return "(kEndOfFile): End of file";
    }
    return "(kFailure): Unexpected Internal Failure";
}

}  // namespace

MStatus::MStatus() : fStatusCode(kSuccess), fInternalStatusCode(0), fStatus(true) {}
MStatus::MStatus(MStatusCode code) : fStatusCode(code), fInternalStatusCode(0), fStatus(code == kSuccess) {}
MStatus::MStatus(const MStatus&) = default;
MStatus& MStatus::operator=(const MStatus&) = default;

bool MStatus::operator==(const MStatus& rhs) const { return fStatusCode == rhs.fStatusCode; }
bool MStatus::operator==(const MStatusCode rhs) const { return fStatusCode == rhs; }
bool MStatus::operator!=(const MStatus& rhs) const { return fStatusCode != rhs.fStatusCode; }
bool MStatus::operator!=(const MStatusCode rhs) const { return fStatusCode != rhs; }
bool MStatus::error() const { return fStatusCode != kSuccess; }
void MStatus::clear() { *this = MStatus(); }
MStatus::MStatusCode MStatus::statusCode() const { return static_cast<MStatusCode>(fStatusCode); }
MString MStatus::errorString() const { return MString(codeName(statusCode())); }

void MStatus::perror(const char* prefix) const {
    if (prefix && *prefix) std::cerr << prefix << ": ";
    std::cerr << codeName(statusCode()) << std::endl;
}

void MStatus::perror(const MString& prefix) const { perror(prefix.asChar()); }

void MStatus::set(bool status, unsigned char statusCode, unsigned char internalStatusCode) {
    fStatus = status;
    fStatusCode = statusCode;
    fInternalStatusCode = internalStatusCode;
}

void MStatus::setSuccess() { clear(); }

std::ostream& operator<<(std::ostream& os, MStatus& status) { return os << codeName(status.statusCode()); }
