#include "scenefile/BuiltinDataSerializers.h"

#include <nlohmann/json.hpp>

#include "scenefile/DataSerializers.h"

namespace mhost {
namespace {

using json = nlohmann::json;

json toJson(int value) { return value; }
json toJson(double value) { return value; }
json toJson(float value) { return value; }
json toJson(const MString& value) { return value.asChar(); }
json toJson(const MPoint& p) { return {p.x, p.y, p.z, p.w}; }
json toJson(const MVector& v) { return {v.x, v.y, v.z}; }

template <class Element>
Element fromJson(const json& value);
template <>
int fromJson<int>(const json& value) {
    return value.get<int>();
}
template <>
double fromJson<double>(const json& value) {
    return value.get<double>();
}
template <>
float fromJson<float>(const json& value) {
    return value.get<float>();
}
template <>
MString fromJson<MString>(const json& value) {
    return MString(value.get<std::string>().c_str());
}
template <>
MPoint fromJson<MPoint>(const json& value) {
    return MPoint(value.at(0).get<double>(), value.at(1).get<double>(), value.at(2).get<double>(),
                  value.at(3).get<double>());
}
template <>
MVector fromJson<MVector>(const json& value) {
    return MVector(value.at(0).get<double>(), value.at(1).get<double>(), value.at(2).get<double>());
}

// A serializer for ValueData<Array>: the elements as a JSON array.
template <class Data, class Element>
DataSerializer arraySerializer(MFnData::Type type, const char* name) {
    DataSerializer serializer;
    serializer.type = type;
    serializer.name = name;
    serializer.write = [](const DataObject& data) {
        const auto& array = static_cast<const Data&>(data).value;
        json elements = json::array();
        for (unsigned int i = 0; i < array.length(); ++i) elements.push_back(toJson(array[i]));
        return elements;
    };
    serializer.read = [](const json& value) {
        auto data = std::make_shared<Data>();
        for (const auto& element : value) data->value.append(fromJson<Element>(element));
        return data;
    };
    return serializer;
}

DataSerializer stringSerializer() {
    DataSerializer serializer;
    serializer.type = MFnData::kString;
    serializer.name = "string";
    serializer.write = [](const DataObject& data) {
        return toJson(static_cast<const StringData&>(data).value);
    };
    serializer.read = [](const json& value) {
        return std::make_shared<StringData>(fromJson<MString>(value));
    };
    return serializer;
}

// A tuple of numbers as MFnNumericData makes it: its numeric type and its values.
DataSerializer numericSerializer() {
    DataSerializer serializer;
    serializer.type = MFnData::kNumeric;
    serializer.name = "numeric";
    serializer.write = [](const DataObject& data) {
        const auto& numeric = static_cast<const NumericData&>(data);
        return json{{"numericType", static_cast<int>(numeric.numericType)}, {"values", numeric.values}};
    };
    serializer.read = [](const json& value) {
        auto data = std::make_shared<NumericData>(
            static_cast<MFnNumericData::Type>(value.at("numericType").get<int>()));
        data->values = value.at("values").get<std::array<double, 4>>();
        return data;
    };
    return serializer;
}

}  // namespace

void addBuiltinDataSerializers(DataSerializers& serializers) {
    serializers.add(arraySerializer<IntArrayData, int>(MFnData::kIntArray, "intArray"));
    serializers.add(arraySerializer<DoubleArrayData, double>(MFnData::kDoubleArray, "doubleArray"));
    serializers.add(arraySerializer<FloatArrayData, float>(MFnData::kFloatArray, "floatArray"));
    serializers.add(arraySerializer<PointArrayData, MPoint>(MFnData::kPointArray, "pointArray"));
    serializers.add(arraySerializer<VectorArrayData, MVector>(MFnData::kVectorArray, "vectorArray"));
    serializers.add(arraySerializer<StringArrayData, MString>(MFnData::kStringArray, "stringArray"));
    serializers.add(stringSerializer());
    serializers.add(numericSerializer());
}

}  // namespace mhost
