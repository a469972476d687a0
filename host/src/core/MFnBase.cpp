#include <maya/MFnBase.h>

#include "core/ApiObject.h"

MFnBase::MFnBase() = default;
MFnBase::~MFnBase() = default;
MFn::Type MFnBase::type() const { return MFn::kBase; }
const char* MFnBase::className() { return "MFnBase"; }

bool MFnBase::hasObj(MFn::Type objectType) const { return mhost::typeDerivesFrom(objectType, type()); }

bool MFnBase::hasObj(const MObject& object) const { return object.hasFn(type()); }

MObject MFnBase::object(MStatus* ReturnStatus) const {
    if (ReturnStatus) *ReturnStatus = fObject.isNull() ? MS::kInvalidParameter : MS::kSuccess;
    return fObject;
}

MStatus MFnBase::setObject(MObject& object) { return setObject(static_cast<const MObject&>(object)); }

MStatus MFnBase::setObject(const MObject& object) {
    if (object.isNull() || !object.hasFn(type())) {
        fObject = MObject::kNullObj;
        return MS::kInvalidParameter;
    }
    fObject = object;
    return MS::kSuccess;
}
