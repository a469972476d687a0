#include <maya/MFnStringData.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnStringData, MFn::kStringData)

MString MFnStringData::string(MStatus* ReturnStatus) const {
    return mhost::guardValue(
        ReturnStatus, [&] { return mhost::attachedData<mhost::StringData>(fObject, className()).value; });
}

MStatus MFnStringData::set(const MString& newString) {
    return mhost::guardStatus(
        [&] { mhost::attachedData<mhost::StringData>(fObject, className()).value = newString; });
}

MObject MFnStringData::create(const MString& str, MStatus* ReturnStatus) {
    return mhost::createData<mhost::StringData>(fObject, ReturnStatus, str);
}

MObject MFnStringData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::StringData>(fObject, ReturnStatus);
}
