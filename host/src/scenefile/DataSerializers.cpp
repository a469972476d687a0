#include "scenefile/DataSerializers.h"

#include <algorithm>

#include "scenefile/BuiltinDataSerializers.h"

namespace mhost {

void DataSerializers::add(DataSerializer serializer) {
    const DataSerializer* named = findByName(serializer.name);
    if (named && named->type != serializer.type)
        throw HostError("DataSerializers: the name '" + serializer.name + "' is taken by another data type");
    serializers_.erase(std::remove_if(serializers_.begin(), serializers_.end(),
                                      [&](const DataSerializer& s) { return s.type == serializer.type; }),
                       serializers_.end());
    serializers_.push_back(std::move(serializer));
}

const DataSerializer* DataSerializers::find(MFnData::Type type) const {
    for (const auto& s : serializers_)
        if (s.type == type) return &s;
    return nullptr;
}

const DataSerializer* DataSerializers::findByName(const std::string& name) const {
    for (const auto& s : serializers_)
        if (s.name == name) return &s;
    return nullptr;
}

DataSerializers& dataSerializers() {
    static DataSerializers serializers = [] {
        DataSerializers builtin;
        addBuiltinDataSerializers(builtin);
        return builtin;
    }();
    return serializers;
}

}  // namespace mhost
