#pragma once
// The serializers of the data types the host itself defines: int, double, float, point, vector and
// string arrays, strings and numeric tuples.

namespace mhost {

class DataSerializers;

void addBuiltinDataSerializers(DataSerializers& serializers);

}  // namespace mhost
