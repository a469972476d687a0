#pragma once
// What an MDataHandle refers to: a copy of a plug's value, the attribute that describes it and, for
// writable handles, the stored value it writes back to. Typed scratch storage backs the
// reference-returning readers; the last one used is written back on commit.

#include <maya/MString.h>
#include <maya/MVector.h>

#include "graph/Attribute.h"
#include "graph/PlugValue.h"

namespace mhost {

struct HandleSlot {
    enum class Scratch { kNone, kBool, kShort, kInt, kFloat, kDouble, kFloat3, kDouble3, kVector, kString };

    HandleSlot(const Attribute* attribute, PlugValue value, PlugValue* target)
        : attribute(attribute), value(std::move(value)), target(target) {}
    ~HandleSlot() { commit(); }

    // Loads the scratch storage of the given kind from the value and makes it the one to write back.
    void load(Scratch kind);
    // Copies the active scratch storage into the value, then the value into the target.
    void commit();
    // Stores numbers directly (set* calls) and writes through.
    void storeNumbers(double a, double b = 0, double c = 0, double d = 0);

    const Attribute* attribute;
    PlugValue value;
    PlugValue* target;

    Scratch active = Scratch::kNone;
    bool asBool = false;
    short asShort = 0;
    int asInt = 0;
    float asFloat = 0;
    double asDouble = 0;
    float asFloat3[3] = {0, 0, 0};
    double asDouble3[3] = {0, 0, 0};
    MVector asVector;
    MString asString;
};

}  // namespace mhost
