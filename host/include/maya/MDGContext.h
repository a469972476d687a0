#pragma once
// MDGContext: the context in which the dependency graph evaluates. The host evaluates at the current
// time only, so every context is the normal one.

#include <maya/MStatus.h>
#include <maya/MTypes.h>

class OPENMAYA_EXPORT MDGContext {
public:
    // The normal context.
    MDGContext();
    MDGContext(const MDGContext& in);
    ~MDGContext();
    // Whether this is the normal context (evaluation at the current time): always true in the host.
    bool isNormal(MStatus* ReturnStatus = NULL) const;
    static const char* className();

    // The normal context, shared.
    static MDGContext fsNormal;
};
