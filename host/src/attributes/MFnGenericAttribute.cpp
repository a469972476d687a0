#include <maya/MFnGenericAttribute.h>

#include <algorithm>
#include <vector>

#include "attributes/AttributeAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnGenericAttribute, MFn::kGenericAttribute)

namespace {

using mhost::HostError;

std::string owner() { return MFnGenericAttribute::className(); }

mhost::Attribute& attached(const MObject& object) {
    return mhost::attachedAttribute(object, MFnGenericAttribute::className());
}

template <class Type>
void addAccepted(std::vector<Type>& accepted, Type type) {
    if (std::find(accepted.begin(), accepted.end(), type) == accepted.end()) accepted.push_back(type);
}

template <class Type>
void removeAccepted(std::vector<Type>& accepted, Type type) {
    auto it = std::find(accepted.begin(), accepted.end(), type);
    if (it == accepted.end()) throw HostError(owner() + ": the type to remove is not accepted");
    accepted.erase(it);
}

}  // namespace

MObject MFnGenericAttribute::create(const MString& full, const MString& brief, MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        return mhost::newAttribute(mhost::AttributeKind::kGeneric, full, brief, className());
    });
}

MStatus MFnGenericAttribute::addDataAccept(MFnData::Type newType) {
    return mhost::guardStatus([&] {
        mhost::Attribute& attribute = attached(fObject);
        if (newType == MFnData::kInvalid || newType == MFnData::kLast)
            throw HostError(owner() + ": '" + attribute.longName + "' cannot accept an invalid data type");
        addAccepted(attribute.acceptedData, newType);
    });
}

MStatus MFnGenericAttribute::addNumericDataAccept(MFnNumericData::Type newType) {
    return mhost::guardStatus([&] {
        mhost::Attribute& attribute = attached(fObject);
        if (mhost::numericComponentCount(newType) == 0)
            throw HostError(owner() + ": '" + attribute.longName + "' cannot accept an invalid numeric type");
        addAccepted(attribute.acceptedNumeric, newType);
    });
}

MStatus MFnGenericAttribute::removeDataAccept(MFnData::Type oldType) {
    return mhost::guardStatus([&] { removeAccepted(attached(fObject).acceptedData, oldType); });
}

MStatus MFnGenericAttribute::removeNumericDataAccept(MFnNumericData::Type oldType) {
    return mhost::guardStatus([&] { removeAccepted(attached(fObject).acceptedNumeric, oldType); });
}
