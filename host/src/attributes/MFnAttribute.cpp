#include <maya/MFnAttribute.h>

#include "attributes/AttributeAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnAttribute, MFn::kAttribute)

namespace {

using mhost::Attribute;

bool readFlag(const MObject& object, bool Attribute::*flag, MStatus* ReturnStatus) {
    return mhost::guardValue(
        ReturnStatus, [&] { return mhost::attachedAttribute(object, MFnAttribute::className()).*flag; });
}

MStatus writeFlag(const MObject& object, bool Attribute::*flag, bool state) {
    return mhost::guardStatus(
        [&] { mhost::attachedAttribute(object, MFnAttribute::className()).*flag = state; });
}

}  // namespace

bool MFnAttribute::isReadable(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::readable, ReturnStatus);
}
bool MFnAttribute::isWritable(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::writable, ReturnStatus);
}
bool MFnAttribute::isConnectable(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::connectable, ReturnStatus);
}
bool MFnAttribute::isStorable(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::storable, ReturnStatus);
}
bool MFnAttribute::isCached(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::cached, ReturnStatus);
}
bool MFnAttribute::isArray(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::array, ReturnStatus);
}
bool MFnAttribute::indexMatters(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::indexMatters, ReturnStatus);
}
bool MFnAttribute::isKeyable(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::keyable, ReturnStatus);
}
bool MFnAttribute::isHidden(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::hidden, ReturnStatus);
}
bool MFnAttribute::isUsedAsColor(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::usedAsColor, ReturnStatus);
}
bool MFnAttribute::usesArrayDataBuilder(MStatus* ReturnStatus) const {
    return readFlag(fObject, &Attribute::usesArrayDataBuilder, ReturnStatus);
}

MStatus MFnAttribute::setReadable(bool state) { return writeFlag(fObject, &Attribute::readable, state); }
MStatus MFnAttribute::setWritable(bool state) { return writeFlag(fObject, &Attribute::writable, state); }
MStatus MFnAttribute::setConnectable(bool state) {
    return writeFlag(fObject, &Attribute::connectable, state);
}
MStatus MFnAttribute::setStorable(bool state) { return writeFlag(fObject, &Attribute::storable, state); }
MStatus MFnAttribute::setCached(bool state) { return writeFlag(fObject, &Attribute::cached, state); }
MStatus MFnAttribute::setArray(bool state) { return writeFlag(fObject, &Attribute::array, state); }
MStatus MFnAttribute::setIndexMatters(bool state) {
    return writeFlag(fObject, &Attribute::indexMatters, state);
}
MStatus MFnAttribute::setHidden(bool state) { return writeFlag(fObject, &Attribute::hidden, state); }
MStatus MFnAttribute::setUsedAsColor(bool state) {
    return writeFlag(fObject, &Attribute::usedAsColor, state);
}
MStatus MFnAttribute::setUsesArrayDataBuilder(bool state) {
    return writeFlag(fObject, &Attribute::usesArrayDataBuilder, state);
}

// The channels of a point or colour are keyed one by one, so its children follow the compound.
MStatus MFnAttribute::setKeyable(bool state) {
    return mhost::guardStatus([&] {
        Attribute& attribute = mhost::attachedAttribute(fObject, className());
        attribute.keyable = state;
        if (attribute.isNumericCompound())
            for (const auto& child : attribute.children) child->keyable = state;
    });
}

bool MFnAttribute::accepts(MFnData::Type type, MStatus* ReturnStatus) const {
    return mhost::guardValue(
        ReturnStatus, [&] { return mhost::attachedAttribute(fObject, className()).acceptsData(type); });
}

MObject MFnAttribute::parent(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] {
        Attribute* parent = mhost::attachedAttribute(fObject, className()).parent;
        return parent ? MObject(parent->shared_from_this()) : MObject::kNullObj;
    });
}

MString MFnAttribute::name(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] {
        return MString(mhost::attachedAttribute(fObject, className()).longName.c_str());
    });
}

MString MFnAttribute::shortName(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] {
        return MString(mhost::attachedAttribute(fObject, className()).shortName.c_str());
    });
}
