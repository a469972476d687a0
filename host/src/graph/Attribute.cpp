#include "graph/Attribute.h"

#include <algorithm>
#include <cmath>

namespace mhost {
namespace {

// Maya reports numeric compounds under types of their own. Those the host's MFn table does not list
// yet (2 floats, shorts or ints, 3 shorts or ints, 4 doubles) report their family, a compound.
MFn::Type numericApiType(MFnNumericData::Type type) {
    switch (type) {
        case MFnNumericData::k2Double:
            return MFn::kAttribute2Double;
        case MFnNumericData::k3Double:
            return MFn::kAttribute3Double;
        case MFnNumericData::k3Float:
            return MFn::kAttribute3Float;
        case MFnNumericData::k2Float:
            return MFn::kAttribute2Float;
        case MFnNumericData::k2Short:
            return MFn::kAttribute2Short;
        case MFnNumericData::k2Int:
            return MFn::kAttribute2Int;
        case MFnNumericData::k3Short:
            return MFn::kAttribute3Short;
        case MFnNumericData::k3Int:
            return MFn::kAttribute3Int;
        case MFnNumericData::k4Double:
            return MFn::kAttribute4Double;
        default:
            return numericComponentCount(type) > 1 ? MFn::kCompoundAttribute : MFn::kNumericAttribute;
    }
}

bool sharesName(const Attribute& a, const Attribute& b) {
    return a.longName == b.longName || a.shortName == b.shortName || a.longName == b.shortName ||
           a.shortName == b.longName;
}

bool isAncestorOrSelf(const Attribute* candidate, const Attribute* attribute) {
    for (const Attribute* a = attribute; a; a = a->parent)
        if (a == candidate) return true;
    return false;
}

}  // namespace

Attribute::Attribute(AttributeKind kind, std::string longName, std::string shortName)
    : kind(kind), longName(std::move(longName)), shortName(std::move(shortName)) {}

Attribute::~Attribute() {
    for (const auto& child : children) {
        if (child->parent != this) continue;
        child->parent = nullptr;
        child->component = -1;
    }
}

MFn::Type Attribute::apiType() const {
    switch (kind) {
        case AttributeKind::kNumeric:
            return numericApiType(numericType);
        case AttributeKind::kTyped:
            return MFn::kTypedAttribute;
        case AttributeKind::kGeneric:
            return MFn::kGenericAttribute;
        case AttributeKind::kCompound:
            return MFn::kCompoundAttribute;
        case AttributeKind::kMessage:
            return MFn::kMessageAttribute;
    }
    throw HostError("Attribute '" + longName + "': unknown attribute kind");
}

bool Attribute::hasFn(MFn::Type type) const {
    return ApiObject::hasFn(type) || (isNumericCompound() && typeDerivesFrom(MFn::kNumericAttribute, type));
}

int Attribute::componentCount() const {
    return kind == AttributeKind::kNumeric ? numericComponentCount(numericType) : 0;
}

const Attribute* Attribute::arrayAncestor() const {
    for (const Attribute* a = this; a; a = a->parent)
        if (a->array) return a;
    return nullptr;
}

void Attribute::addChild(const std::shared_ptr<Attribute>& child) {
    const std::string owner = "Attribute '" + longName + "'";
    if (!child) throw HostError(owner + ": cannot add a null child");
    const bool takesChild = kind == AttributeKind::kCompound ||
                            (isNumericCompound() && static_cast<int>(children.size()) < componentCount());
    if (!takesChild) throw HostError(owner + ": cannot take another child");
    if (child->parent || isAncestorOrSelf(child.get(), this))
        throw HostError(owner + ": '" + child->longName + "' already has a place in a hierarchy");
    for (const auto& sibling : children)
        if (sharesName(*sibling, *child))
            throw HostError(owner + ": a child already uses the name of '" + child->longName + "'");
    child->parent = this;
    child->component = isNumericCompound() ? static_cast<int>(children.size()) : -1;
    children.push_back(child);
}

void Attribute::removeChild(const Attribute* child) {
    auto it = std::find_if(children.begin(), children.end(), [&](const auto& c) { return c.get() == child; });
    if (kind != AttributeKind::kCompound || it == children.end())
        throw HostError("Attribute '" + longName +
                        "': the attribute given is not one of its removable children");
    (*it)->parent = nullptr;
    (*it)->component = -1;
    children.erase(it);
}

void Attribute::setDefaultComponent(int component, double value) {
    value = numericValueAs(numericType, value);
    if (parent && this->component >= 0) {
        numericDefault[0] = value;
        parent->numericDefault[this->component] = value;
        return;
    }
    numericDefault.at(component) = value;
    if (isNumericCompound()) children.at(component)->numericDefault[0] = value;
}

bool Attribute::acceptsData(MFnData::Type type) const {
    if (type == MFnData::kInvalid || type == MFnData::kLast) return false;
    auto accepted = [&](MFnData::Type t) {
        return std::find(acceptedData.begin(), acceptedData.end(), t) != acceptedData.end();
    };
    switch (kind) {
        case AttributeKind::kNumeric:
            return type == MFnData::kNumeric;
        case AttributeKind::kTyped:
            return type == dataType || dataType == MFnData::kAny;
        case AttributeKind::kGeneric:
            return accepted(type) || accepted(MFnData::kAny) ||
                   (type == MFnData::kNumeric && !acceptedNumeric.empty());
        default:
            return false;
    }
}

AttributePtr attributeOf(const MObject& object) { return objectAs<Attribute>(object.hostObject()); }

int numericComponentCount(MFnNumericData::Type type) {
    switch (type) {
        case MFnNumericData::kInvalid:
        case MFnNumericData::kAddr:
        case MFnNumericData::kLast:
            return 0;
        case MFnNumericData::k2Short:
        case MFnNumericData::k2Int:
        case MFnNumericData::k2Float:
        case MFnNumericData::k2Double:
            return 2;
        case MFnNumericData::k3Short:
        case MFnNumericData::k3Int:
        case MFnNumericData::k3Float:
        case MFnNumericData::k3Double:
            return 3;
        case MFnNumericData::k4Double:
            return 4;
        default:
            return 1;
    }
}

MFnNumericData::Type numericElementType(MFnNumericData::Type type) {
    switch (type) {
        case MFnNumericData::k2Short:
        case MFnNumericData::k3Short:
            return MFnNumericData::kShort;
        case MFnNumericData::k2Int:
        case MFnNumericData::k3Int:
            return MFnNumericData::kInt;
        case MFnNumericData::k2Float:
        case MFnNumericData::k3Float:
            return MFnNumericData::kFloat;
        case MFnNumericData::k2Double:
        case MFnNumericData::k3Double:
        case MFnNumericData::k4Double:
            return MFnNumericData::kDouble;
        default:
            return type;
    }
}

MFnNumericData::Type numericCompoundType(MFnNumericData::Type element, int count) {
    for (auto compound : {MFnNumericData::k2Short, MFnNumericData::k3Short, MFnNumericData::k2Int,
                          MFnNumericData::k3Int, MFnNumericData::k2Float, MFnNumericData::k3Float,
                          MFnNumericData::k2Double, MFnNumericData::k3Double, MFnNumericData::k4Double})
        if (numericElementType(compound) == element && numericComponentCount(compound) == count)
            return compound;
    return MFnNumericData::kInvalid;
}

double numericValueAs(MFnNumericData::Type type, double value) {
    switch (numericElementType(type)) {
        case MFnNumericData::kBoolean:
            return value != 0.0 ? 1.0 : 0.0;
        case MFnNumericData::kFloat:
            return static_cast<float>(value);
        case MFnNumericData::kDouble:
            return value;
        default:
            return std::trunc(value);
    }
}

}  // namespace mhost
