#include <maya/MFloatArray.h>
#include <maya/MFnFloatArrayData.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnFloatArrayData, MFn::kFloatArrayData)

namespace {

using Access = mhost::ArrayDataAccess<mhost::FloatArrayData>;

}  // namespace

unsigned int MFnFloatArrayData::length(MStatus* ReturnStatus) const {
    return Access(fObject, className()).length(ReturnStatus);
}
MStatus MFnFloatArrayData::set(float element, unsigned int index) {
    return Access(fObject, className()).setElement(element, index);
}
MStatus MFnFloatArrayData::copyTo(MFloatArray& out) const { return Access(fObject, className()).copyTo(out); }
MStatus MFnFloatArrayData::set(const MFloatArray& newArray) {
    return Access(fObject, className()).set(newArray);
}
MFloatArray MFnFloatArrayData::array(MStatus* ReturnStatus) {
    return Access(fObject, className()).array(ReturnStatus);
}
float MFnFloatArrayData::operator[](unsigned int index) const {
    return Access(fObject, className()).at(index);
}
float& MFnFloatArrayData::operator[](unsigned int index) { return Access(fObject, className()).at(index); }

MObject MFnFloatArrayData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::FloatArrayData>(fObject, ReturnStatus);
}

MObject MFnFloatArrayData::create(const MFloatArray& in, MStatus* ReturnStatus) {
    return mhost::createData<mhost::FloatArrayData>(fObject, ReturnStatus, in);
}
