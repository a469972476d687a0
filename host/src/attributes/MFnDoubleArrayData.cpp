#include <maya/MDoubleArray.h>
#include <maya/MFnDoubleArrayData.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnDoubleArrayData, MFn::kDoubleArrayData)

namespace {

using Access = mhost::ArrayDataAccess<mhost::DoubleArrayData>;

}  // namespace

unsigned int MFnDoubleArrayData::length(MStatus* ReturnStatus) const {
    return Access(fObject, className()).length(ReturnStatus);
}
MStatus MFnDoubleArrayData::set(double element, unsigned int index) {
    return Access(fObject, className()).setElement(element, index);
}
MStatus MFnDoubleArrayData::copyTo(MDoubleArray& out) const {
    return Access(fObject, className()).copyTo(out);
}
MStatus MFnDoubleArrayData::set(const MDoubleArray& newArray) {
    return Access(fObject, className()).set(newArray);
}
MDoubleArray MFnDoubleArrayData::array(MStatus* ReturnStatus) {
    return Access(fObject, className()).array(ReturnStatus);
}
double MFnDoubleArrayData::operator[](unsigned int index) const {
    return Access(fObject, className()).at(index);
}
double& MFnDoubleArrayData::operator[](unsigned int index) { return Access(fObject, className()).at(index); }

MObject MFnDoubleArrayData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::DoubleArrayData>(fObject, ReturnStatus);
}

MObject MFnDoubleArrayData::create(const MDoubleArray& in, MStatus* ReturnStatus) {
    return mhost::createData<mhost::DoubleArrayData>(fObject, ReturnStatus, in);
}
