#pragma once
// Base of component objects (vertices, edges, faces of a shape): they know how to name themselves
// in a selection string, e.g. ".vtx[3:5]".

#include <string>

#include "core/ApiObject.h"

namespace mhost {

class ComponentObject : public ApiObject {
public:
    // The suffix that follows the shape's name in a selection string, starting with '.'.
    virtual std::string selectionSuffix() const = 0;
};

}  // namespace mhost
