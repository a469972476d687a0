#include <maya/MObject.h>

#include "core/ApiObject.h"

MObject MObject::kNullObj;

MObject::MObject() = default;
MObject::MObject(const MObject& other) = default;
MObject::MObject(std::shared_ptr<mhost::ApiObject> object) : fObject(std::move(object)) {}
MObject::~MObject() = default;
MObject& MObject::operator=(const MObject&) = default;

bool MObject::hasFn(MFn::Type fs) const { return fObject && fObject->hasFn(fs); }
bool MObject::isNull() const { return !fObject; }
MFn::Type MObject::apiType() const { return fObject ? fObject->apiType() : MFn::kInvalid; }
const char* MObject::apiTypeStr() const { return mhost::typeName(apiType()); }
bool MObject::operator==(const MObject& other) const { return fObject == other.fObject; }
bool MObject::operator!=(const MObject& other) const { return fObject != other.fObject; }
