#include <maya/MFnCompoundAttribute.h>

#include "attributes/AttributeAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnCompoundAttribute, MFn::kCompoundAttribute)

namespace {

using mhost::AttributePtr;
using mhost::HostError;

std::string owner() { return MFnCompoundAttribute::className(); }

mhost::Attribute& attached(const MObject& object) {
    return mhost::attachedAttribute(object, MFnCompoundAttribute::className());
}

AttributePtr childAttribute(const MObject& child) {
    AttributePtr attribute = mhost::attributeOf(child);
    if (!attribute) throw HostError(owner() + ": the child given is not an attribute");
    return attribute;
}

}  // namespace

MObject MFnCompoundAttribute::create(const MString& full, const MString& brief, MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        return mhost::newAttribute(mhost::AttributeKind::kCompound, full, brief, className());
    });
}

// Numeric compounds answer to this set too, but their children are fixed by their numeric type.
MStatus MFnCompoundAttribute::addChild(const MObject& child) {
    return mhost::guardStatus([&] {
        mhost::Attribute& attribute = attached(fObject);
        if (attribute.kind != mhost::AttributeKind::kCompound)
            throw HostError(owner() + ": '" + attribute.longName + "' is a numeric compound");
        attribute.addChild(childAttribute(child));
    });
}

MStatus MFnCompoundAttribute::removeChild(const MObject& child) {
    return mhost::guardStatus([&] { attached(fObject).removeChild(childAttribute(child).get()); });
}

unsigned int MFnCompoundAttribute::numChildren(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus,
                             [&] { return static_cast<unsigned int>(attached(fObject).children.size()); });
}

MObject MFnCompoundAttribute::child(unsigned int index, MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return MObject(attached(fObject).children.at(index)); });
}
