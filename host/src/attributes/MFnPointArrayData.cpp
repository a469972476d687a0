#include <maya/MFnPointArrayData.h>
#include <maya/MPoint.h>
#include <maya/MPointArray.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnPointArrayData, MFn::kPointArrayData)

namespace {

using Access = mhost::ArrayDataAccess<mhost::PointArrayData>;

}  // namespace

unsigned int MFnPointArrayData::length(MStatus* ReturnStatus) const {
    return Access(fObject, className()).length(ReturnStatus);
}
MStatus MFnPointArrayData::set(MPoint& element, unsigned int index) {
    return Access(fObject, className()).setElement(element, index);
}
MStatus MFnPointArrayData::copyTo(MPointArray& out) const { return Access(fObject, className()).copyTo(out); }
MStatus MFnPointArrayData::set(const MPointArray& newArray) {
    return Access(fObject, className()).set(newArray);
}
MPointArray MFnPointArrayData::array(MStatus* ReturnStatus) {
    return Access(fObject, className()).array(ReturnStatus);
}
const MPoint& MFnPointArrayData::operator[](unsigned int index) const {
    return Access(fObject, className()).at(index);
}
MPoint& MFnPointArrayData::operator[](unsigned int index) { return Access(fObject, className()).at(index); }

MObject MFnPointArrayData::create(MStatus* ReturnStatus) {
    return mhost::createData<mhost::PointArrayData>(fObject, ReturnStatus);
}

MObject MFnPointArrayData::create(const MPointArray& in, MStatus* ReturnStatus) {
    return mhost::createData<mhost::PointArrayData>(fObject, ReturnStatus, in);
}
