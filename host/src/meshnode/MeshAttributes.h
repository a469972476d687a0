#pragma once
// Attribute builders shared by the host's mesh node types.

#include <array>
#include <string>
#include <utility>

#include "graph/Attribute.h"

namespace mhost {

// A hidden typed attribute holding mesh data; reads an empty mesh until a value is stored.
AttributePtr makeMeshAttribute(const std::string& longName, const std::string& shortName);

// An array of float3 vertex offsets (element i moves vertex i) whose children carry the given long and
// short names, as Maya names them ("pntx"/"px"...).
AttributePtr makeTweakArrayAttribute(const std::string& longName, const std::string& shortName,
                                     const std::array<std::pair<std::string, std::string>, 3>& childNames);

}  // namespace mhost
