#pragma once
// A loaded plug-in: its module handle, identity and what it has registered. The MObject given to
// initializePlugin and uninitializePlugin holds this record.

#include <string>

#include "core/ApiObject.h"

namespace mhost {

class PluginRecord : public ApiObject {
public:
    MFn::Type apiType() const override { return MFn::kPlugin; }

    std::string name;        // file name without folder and extension
    std::string path;        // as loaded
    std::string apiVersion;  // the module's MApiVersion text
    std::string vendor = "Unknown";
    std::string version = "Unknown";
    void* handle = nullptr;  // from dlopen
};

}  // namespace mhost
