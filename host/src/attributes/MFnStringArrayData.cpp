#include <maya/MFnStringArrayData.h>
#include <maya/MStringArray.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnStringArrayData, MFn::kStringArrayData)

namespace {

using Access = mhost::ArrayDataAccess<mhost::StringArrayData>;

}  // namespace

unsigned int MFnStringArrayData::length(MStatus* ReturnStatus) const {
    return Access(fObject, className()).length(ReturnStatus);
}
MStatus MFnStringArrayData::set(const MString& element, unsigned int index) {
    return Access(fObject, className()).setElement(element, index);
}
MStatus MFnStringArrayData::copyTo(MStringArray& out) const {
    return Access(fObject, className()).copyTo(out);
}
MStatus MFnStringArrayData::set(const MStringArray& newArray) {
    return Access(fObject, className()).set(newArray);
}
MStringArray MFnStringArrayData::array(MStatus* ReturnStatus) {
    return Access(fObject, className()).array(ReturnStatus);
}
const MString& MFnStringArrayData::operator[](unsigned int index) const {
    return Access(fObject, className()).at(index);
}
MString& MFnStringArrayData::operator[](unsigned int index) { return Access(fObject, className()).at(index); }

MObject MFnStringArrayData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::StringArrayData>(fObject, ReturnStatus);
}

MObject MFnStringArrayData::create(const MStringArray& in, MStatus* ReturnStatus) {
    return mhost::createData<mhost::StringArrayData>(fObject, ReturnStatus, in);
}
