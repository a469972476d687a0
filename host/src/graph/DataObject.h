#pragma once
// Data objects: the values typed and generic attributes hold (arrays, numeric tuples, meshes...).
// A plug stores its own copy; reading hands out the stored object, writing stores a clone.

#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnData.h>
#include <maya/MFnNumericData.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>
#include <maya/MVectorArray.h>

#include <array>
#include <memory>
#include <string>

#include "core/ApiObject.h"

namespace mhost {

class DataObject : public ApiObject {
public:
    virtual MFnData::Type dataType() const = 0;
    virtual std::shared_ptr<DataObject> clone() const = 0;
    // Lets go of what the object derives from its value and can build again (a mesh's ray hierarchy).
    // Called when the node holding it leaves the scene: kept for undo, it is queried no more.
    virtual void dropDerived() {}
};

using DataPtr = std::shared_ptr<DataObject>;

template <class Value, MFn::Type Api, MFnData::Type Kind>
class ValueData : public DataObject {
public:
    explicit ValueData(Value v = Value()) : value(std::move(v)) {}
    MFn::Type apiType() const override { return Api; }
    MFnData::Type dataType() const override { return Kind; }
    DataPtr clone() const override { return std::make_shared<ValueData>(value); }
    Value value;
};

using IntArrayData = ValueData<MIntArray, MFn::kIntArrayData, MFnData::kIntArray>;
using DoubleArrayData = ValueData<MDoubleArray, MFn::kDoubleArrayData, MFnData::kDoubleArray>;
using FloatArrayData = ValueData<MFloatArray, MFn::kFloatArrayData, MFnData::kFloatArray>;
using PointArrayData = ValueData<MPointArray, MFn::kPointArrayData, MFnData::kPointArray>;
using VectorArrayData = ValueData<MVectorArray, MFn::kVectorArrayData, MFnData::kVectorArray>;
using StringArrayData = ValueData<MStringArray, MFn::kStringArrayData, MFnData::kStringArray>;
using StringData = ValueData<MString, MFn::kStringData, MFnData::kString>;

// A tuple of numbers with its numeric type, as MFnNumericData creates it.
class NumericData : public DataObject {
public:
    explicit NumericData(MFnNumericData::Type type) : numericType(type) {}
    MFn::Type apiType() const override { return MFn::kNumericData; }
    MFnData::Type dataType() const override { return MFnData::kNumeric; }
    DataPtr clone() const override { return std::make_shared<NumericData>(*this); }
    MFnNumericData::Type numericType;
    std::array<double, 4> values{};
};

// The data object an MObject holds, or null.
DataPtr dataOf(const MObject& object);

// Wraps a data object in an MObject.
MObject wrapData(DataPtr data);

}  // namespace mhost
