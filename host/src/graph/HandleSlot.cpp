#include "graph/HandleSlot.h"

#include "graph/DataObject.h"

namespace mhost {

void HandleSlot::load(Scratch kind) {
    commit();
    const auto& n = value.numbers;
    switch (kind) {
        case Scratch::kBool:
            asBool = n[0] != 0;
            break;
        case Scratch::kShort:
            asShort = static_cast<short>(n[0]);
            break;
        case Scratch::kInt:
            asInt = static_cast<int>(n[0]);
            break;
        case Scratch::kFloat:
            asFloat = static_cast<float>(n[0]);
            break;
        case Scratch::kDouble:
            asDouble = n[0];
            break;
        case Scratch::kFloat3:
            for (int i = 0; i < 3; ++i) asFloat3[i] = static_cast<float>(n[i]);
            break;
        case Scratch::kDouble3:
            for (int i = 0; i < 3; ++i) asDouble3[i] = n[i];
            break;
        case Scratch::kVector:
            asVector = MVector(n[0], n[1], n[2]);
            break;
        case Scratch::kString: {
            auto text = std::dynamic_pointer_cast<StringData>(dataOf(value.data));
            asString = text ? text->value : MString();
            break;
        }
        case Scratch::kNone:
            break;
    }
    active = kind;
}

void HandleSlot::commit() {
    auto& n = value.numbers;
    switch (active) {
        case Scratch::kBool:
            n[0] = asBool ? 1 : 0;
            break;
        case Scratch::kShort:
            n[0] = asShort;
            break;
        case Scratch::kInt:
            n[0] = asInt;
            break;
        case Scratch::kFloat:
            n[0] = asFloat;
            break;
        case Scratch::kDouble:
            n[0] = asDouble;
            break;
        case Scratch::kFloat3:
            for (int i = 0; i < 3; ++i) n[i] = asFloat3[i];
            break;
        case Scratch::kDouble3:
            for (int i = 0; i < 3; ++i) n[i] = asDouble3[i];
            break;
        case Scratch::kVector:
            n = {asVector.x, asVector.y, asVector.z, 0};
            break;
        case Scratch::kString:
            value.data = wrapData(std::make_shared<StringData>(asString));
            break;
        case Scratch::kNone:
            break;
    }
    if (target && active != Scratch::kNone) *target = value;
}

void HandleSlot::storeNumbers(double a, double b, double c, double d) {
    active = Scratch::kNone;
    value.numbers = {a, b, c, d};
    if (target) *target = value;
}

}  // namespace mhost
