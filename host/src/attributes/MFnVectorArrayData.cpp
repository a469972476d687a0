#include <maya/MFnVectorArrayData.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnVectorArrayData, MFn::kVectorArrayData)

namespace {

using Access = mhost::ArrayDataAccess<mhost::VectorArrayData>;

}  // namespace

unsigned int MFnVectorArrayData::length(MStatus* ReturnStatus) const {
    return Access(fObject, className()).length(ReturnStatus);
}
MStatus MFnVectorArrayData::set(MVector& element, unsigned int index) {
    return Access(fObject, className()).setElement(element, index);
}
MStatus MFnVectorArrayData::copyTo(MVectorArray& out) const {
    return Access(fObject, className()).copyTo(out);
}
MStatus MFnVectorArrayData::set(const MVectorArray& newArray) {
    return Access(fObject, className()).set(newArray);
}
MVectorArray MFnVectorArrayData::array(MStatus* ReturnStatus) {
    return Access(fObject, className()).array(ReturnStatus);
}
const MVector& MFnVectorArrayData::operator[](unsigned int index) const {
    return Access(fObject, className()).at(index);
}
MVector& MFnVectorArrayData::operator[](unsigned int index) { return Access(fObject, className()).at(index); }

MObject MFnVectorArrayData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::VectorArrayData>(fObject, ReturnStatus);
}

MObject MFnVectorArrayData::create(const MVectorArray& in, MStatus* ReturnStatus) {
    return mhost::createData<mhost::VectorArrayData>(fObject, ReturnStatus, in);
}
