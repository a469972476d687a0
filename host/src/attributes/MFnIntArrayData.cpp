#include <maya/MFnIntArrayData.h>
#include <maya/MIntArray.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnIntArrayData, MFn::kIntArrayData)

namespace {

using Access = mhost::ArrayDataAccess<mhost::IntArrayData>;

}  // namespace

unsigned int MFnIntArrayData::length(MStatus* ReturnStatus) const {
    return Access(fObject, className()).length(ReturnStatus);
}
MStatus MFnIntArrayData::set(int element, unsigned int index) {
    return Access(fObject, className()).setElement(element, index);
}
MStatus MFnIntArrayData::copyTo(MIntArray& out) const { return Access(fObject, className()).copyTo(out); }
MStatus MFnIntArrayData::set(const MIntArray& newArray) { return Access(fObject, className()).set(newArray); }
MIntArray MFnIntArrayData::array(MStatus* ReturnStatus) {
    return Access(fObject, className()).array(ReturnStatus);
}
int MFnIntArrayData::operator[](unsigned int index) const { return Access(fObject, className()).at(index); }
int& MFnIntArrayData::operator[](unsigned int index) { return Access(fObject, className()).at(index); }

MObject MFnIntArrayData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::IntArrayData>(fObject, ReturnStatus);
}

MObject MFnIntArrayData::create(const MIntArray& in, MStatus* ReturnStatus) {
    return mhost::createData<mhost::IntArrayData>(fObject, ReturnStatus, in);
}
