#include <maya/MDGContext.h>

MDGContext MDGContext::fsNormal;

MDGContext::MDGContext() = default;
MDGContext::MDGContext(const MDGContext&) = default;
MDGContext::~MDGContext() = default;
const char* MDGContext::className() { return "MDGContext"; }

bool MDGContext::isNormal(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = MS::kSuccess;
    return true;
}
