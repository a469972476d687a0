#pragma once
// How scene files store the data objects of typed and generic attributes: one serializer per data
// type, under a name that stands in the file. The arrays, strings and numeric tuples are built in;
// other areas add theirs (the mesh data, for instance) with a DataSerializerRegistrar in their own
// source file.

#include <maya/MFnData.h>

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "graph/DataObject.h"

namespace mhost {

struct DataSerializer {
    MFnData::Type type = MFnData::kInvalid;
    // The data type's name in scene files, e.g. "pointArray".
    std::string name;
    // The data's value as JSON; given only data of `type`.
    std::function<nlohmann::json(const DataObject&)> write;
    // Data of `type` from what `write` produced; throws HostError (or nlohmann::json's exceptions) on
    // malformed input.
    std::function<DataPtr(const nlohmann::json&)> read;
};

class DataSerializers {
public:
    // Adds a serializer, replacing one for the same type. Throws HostError when its name is taken by
    // another type.
    void add(DataSerializer serializer);
    // The serializer of a data type, or null.
    const DataSerializer* find(MFnData::Type type) const;
    // The serializer whose file name is `name`, or null.
    const DataSerializer* findByName(const std::string& name) const;

private:
    std::vector<DataSerializer> serializers_;
};

// The process's serializers, with the built-in ones in place.
DataSerializers& dataSerializers();

// Adds a serializer when constructed: a static object of this type registers a data type's
// serializer as the host library loads.
struct DataSerializerRegistrar {
    explicit DataSerializerRegistrar(DataSerializer serializer) {
        dataSerializers().add(std::move(serializer));
    }
};

}  // namespace mhost
