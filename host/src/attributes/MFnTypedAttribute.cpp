#include <maya/MFnTypedAttribute.h>

#include "attributes/AttributeAccess.h"
#include "core/FunctionSet.h"
#include "graph/DataObject.h"

MHOST_DEFINE_MFN(MFnTypedAttribute, MFn::kTypedAttribute)

namespace {

using mhost::Attribute;
using mhost::HostError;

std::string owner() { return MFnTypedAttribute::className(); }

Attribute& attached(const MObject& object) {
    return mhost::attachedAttribute(object, MFnTypedAttribute::className());
}

// The attribute's own copy of a default: a null object stays null; other data must be of the
// attribute's type. Copying keeps later edits of the caller's object out of the attribute.
MObject defaultCopy(const Attribute& attribute, const MObject& data) {
    if (data.isNull()) return MObject();
    mhost::DataPtr object = mhost::dataOf(data);
    if (!object || object->dataType() != attribute.dataType)
        throw HostError(owner() + ": the default of '" + attribute.longName + "' is not data of its type");
    return mhost::wrapData(object->clone());
}

}  // namespace

MObject MFnTypedAttribute::create(const MString& fullName, const MString& briefName, MFnData::Type type,
                                  MObject defaultData, MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        if (type == MFnData::kInvalid || type == MFnData::kLast)
            throw HostError(owner() + ": '" + fullName.asChar() + "' needs a valid data type");
        auto attribute = mhost::newAttribute(mhost::AttributeKind::kTyped, fullName, briefName, className());
        attribute->dataType = type;
        attribute->defaultData = defaultCopy(*attribute, defaultData);
        return attribute;
    });
}

MFnData::Type MFnTypedAttribute::attrType(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return attached(fObject).dataType; });
}

MStatus MFnTypedAttribute::getDefault(MObject& defaultCustomData) {
    return mhost::guardStatus([&] {
        const Attribute& attribute = attached(fObject);
        defaultCustomData = defaultCopy(attribute, attribute.defaultData);
    });
}

MStatus MFnTypedAttribute::setDefault(const MObject& defaultCustomData) {
    return mhost::guardStatus([&] {
        Attribute& attribute = attached(fObject);
        attribute.defaultData = defaultCopy(attribute, defaultCustomData);
    });
}
