#include <maya/MFnMessageAttribute.h>

#include "attributes/AttributeAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnMessageAttribute, MFn::kMessageAttribute)

MObject MFnMessageAttribute::create(const MString& fullName, const MString& briefName,
                                    MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        return mhost::newAttribute(mhost::AttributeKind::kMessage, fullName, briefName, className());
    });
}
