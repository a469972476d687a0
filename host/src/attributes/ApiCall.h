#pragma once
// Entry-point guards of the attribute and data function sets: the body runs inside, and whatever the
// host throws comes out as the MStatus the caller sees, so nothing escapes into a plug-in.

#include <maya/MStatus.h>

#include <new>
#include <stdexcept>
#include <string>

#include "core/ApiObject.h"

namespace mhost {

// A host error that asks for a status other than kInvalidParameter (e.g. kFailure for "no minimum").
class StatusError : public HostError {
public:
    StatusError(MStatus::MStatusCode code, const std::string& what) : HostError(what), code(code) {}
    MStatus::MStatusCode code;
};

// The status standing for the exception being handled: bad arguments, detached function sets and
// indices out of range are kInvalidParameter. Call only inside a catch block.
inline MStatus currentErrorStatus() {
    try {
        throw;
    } catch (const StatusError& e) {
        return e.code;
    } catch (const HostError&) {
        return MS::kInvalidParameter;
    } catch (const std::logic_error&) {
        return MS::kInvalidParameter;
    } catch (const std::bad_alloc&) {
        return MS::kInsufficientMemory;
    } catch (...) {
        return MS::kFailure;
    }
}

// Runs a body returning nothing; kSuccess, or the status of what it threw.
template <class Body>
MStatus guardStatus(Body&& body) {
    try {
        body();
        return MS::kSuccess;
    } catch (...) {
        return currentErrorStatus();
    }
}

// Runs a body returning a value and reports the outcome through ReturnStatus (when given); on
// failure the result is a value-initialised one (false, 0, a null object, an empty string).
template <class Body>
auto guardValue(MStatus* ReturnStatus, Body&& body) -> decltype(body()) {
    MStatus status;
    try {
        auto result = body();
        if (ReturnStatus) *ReturnStatus = status;
        return result;
    } catch (...) {
        status = currentErrorStatus();
    }
    if (ReturnStatus) *ReturnStatus = status;
    return {};
}

}  // namespace mhost
