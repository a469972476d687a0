#include <maya/MFnNumericData.h>

#include "attributes/DataAccess.h"
#include "core/FunctionSet.h"
#include "graph/Attribute.h"

MHOST_DEFINE_MFN(MFnNumericData, MFn::kNumericData)

namespace {

using mhost::NumericData;

// The attached data, checked to have as many components as the caller passes values.
NumericData& attachedWith(const MObject& object, size_t count) {
    NumericData& data = mhost::attachedData<NumericData>(object, MFnNumericData::className());
    if (mhost::numericComponentCount(data.numericType) != static_cast<int>(count))
        throw mhost::HostError(std::string(MFnNumericData::className()) + ": the data has " +
                               std::to_string(mhost::numericComponentCount(data.numericType)) +
                               " component(s), not " + std::to_string(count));
    return data;
}

template <class... Values>
MStatus readValues(const MObject& object, Values&... values) {
    return mhost::guardStatus([&] {
        const NumericData& data = attachedWith(object, sizeof...(Values));
        size_t i = 0;
        ((values = static_cast<Values>(data.values[i++])), ...);
    });
}

template <class... Values>
MStatus writeValues(const MObject& object, Values... values) {
    return mhost::guardStatus([&] {
        NumericData& data = attachedWith(object, sizeof...(Values));
        size_t i = 0;
        ((data.values[i++] = mhost::numericValueAs(data.numericType, static_cast<double>(values))), ...);
    });
}

}  // namespace

MObject MFnNumericData::create(Type dataType, MStatus* ReturnStatus) {
    if (mhost::numericComponentCount(dataType) == 0) {
        if (ReturnStatus) *ReturnStatus = MS::kInvalidParameter;
        return MObject::kNullObj;
    }
    return mhost::createData<NumericData>(fObject, ReturnStatus, dataType);
}

MFnNumericData::Type MFnNumericData::numericType(MStatus* ReturnStatus) {
    return mhost::guardValue(
        ReturnStatus, [&] { return mhost::attachedData<NumericData>(fObject, className()).numericType; });
}

MStatus MFnNumericData::getData(short& val1, short& val2) { return readValues(fObject, val1, val2); }
MStatus MFnNumericData::getData(int& val1, int& val2) { return readValues(fObject, val1, val2); }
MStatus MFnNumericData::getData(float& val1, float& val2) { return readValues(fObject, val1, val2); }
MStatus MFnNumericData::getData(double& val1, double& val2) { return readValues(fObject, val1, val2); }
MStatus MFnNumericData::getData(short& val1, short& val2, short& val3) {
    return readValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::getData(int& val1, int& val2, int& val3) {
    return readValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::getData(float& val1, float& val2, float& val3) {
    return readValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::getData(double& val1, double& val2, double& val3) {
    return readValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::getData(double& val1, double& val2, double& val3, double& val4) {
    return readValues(fObject, val1, val2, val3, val4);
}

MStatus MFnNumericData::setData(short val1, short val2) { return writeValues(fObject, val1, val2); }
MStatus MFnNumericData::setData(int val1, int val2) { return writeValues(fObject, val1, val2); }
MStatus MFnNumericData::setData(float val1, float val2) { return writeValues(fObject, val1, val2); }
MStatus MFnNumericData::setData(double val1, double val2) { return writeValues(fObject, val1, val2); }
MStatus MFnNumericData::setData(short val1, short val2, short val3) {
    return writeValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::setData(int val1, int val2, int val3) {
    return writeValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::setData(float val1, float val2, float val3) {
    return writeValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::setData(double val1, double val2, double val3) {
    return writeValues(fObject, val1, val2, val3);
}
MStatus MFnNumericData::setData(double val1, double val2, double val3, double val4) {
    return writeValues(fObject, val1, val2, val3, val4);
}

MStatus MFnNumericData::getData2Short(short& val1, short& val2) { return getData(val1, val2); }
MStatus MFnNumericData::getData2Int(int& val1, int& val2) { return getData(val1, val2); }
MStatus MFnNumericData::getData2Float(float& val1, float& val2) { return getData(val1, val2); }
MStatus MFnNumericData::getData2Double(double& val1, double& val2) { return getData(val1, val2); }
MStatus MFnNumericData::getData3Short(short& val1, short& val2, short& val3) {
    return getData(val1, val2, val3);
}
MStatus MFnNumericData::getData3Int(int& val1, int& val2, int& val3) { return getData(val1, val2, val3); }
MStatus MFnNumericData::getData3Float(float& val1, float& val2, float& val3) {
    return getData(val1, val2, val3);
}
MStatus MFnNumericData::getData3Double(double& val1, double& val2, double& val3) {
    return getData(val1, val2, val3);
}
MStatus MFnNumericData::getData4Double(double& val1, double& val2, double& val3, double& val4) {
    return getData(val1, val2, val3, val4);
}

MStatus MFnNumericData::setData2Short(short val1, short val2) { return setData(val1, val2); }
MStatus MFnNumericData::setData2Int(int val1, int val2) { return setData(val1, val2); }
MStatus MFnNumericData::setData2Float(float val1, float val2) { return setData(val1, val2); }
MStatus MFnNumericData::setData2Double(double val1, double val2) { return setData(val1, val2); }
MStatus MFnNumericData::setData3Short(short val1, short val2, short val3) {
    return setData(val1, val2, val3);
}
MStatus MFnNumericData::setData3Int(int val1, int val2, int val3) { return setData(val1, val2, val3); }
MStatus MFnNumericData::setData3Float(float val1, float val2, float val3) {
    return setData(val1, val2, val3);
}
MStatus MFnNumericData::setData3Double(double val1, double val2, double val3) {
    return setData(val1, val2, val3);
}
MStatus MFnNumericData::setData4Double(double val1, double val2, double val3, double val4) {
    return setData(val1, val2, val3, val4);
}
