#include <maya/MFnNumericAttribute.h>

#include <algorithm>
#include <vector>

#include "attributes/AttributeAccess.h"
#include "core/FunctionSet.h"

MHOST_DEFINE_MFN(MFnNumericAttribute, MFn::kNumericAttribute)

namespace {

using mhost::Attribute;
using mhost::AttributePtr;
using mhost::HostError;

const char* const kAxisSuffixes[] = {"X", "Y", "Z", "W"};
const char* const kColorSuffixes[] = {"R", "G", "B"};

std::string owner() { return MFnNumericAttribute::className(); }

Attribute& attached(const MObject& object) {
    return mhost::attachedAttribute(object, MFnNumericAttribute::className());
}

// A numeric attribute of the given type; compounds get one child per component, named with the
// suffixes appended, and every component starts at defaultValue.
AttributePtr newNumeric(const MString& fullName, const MString& briefName, MFnNumericData::Type type,
                        double defaultValue, const char* const suffixes[]) {
    const int count = mhost::numericComponentCount(type);
    if (count == 0) throw HostError(owner() + ": '" + fullName.asChar() + "' needs a valid numeric type");
    AttributePtr attribute = mhost::newAttribute(mhost::AttributeKind::kNumeric, fullName, briefName,
                                                 MFnNumericAttribute::className());
    attribute->numericType = type;
    if (count > 1) {
        for (int i = 0; i < count; ++i) {
            AttributePtr child =
                mhost::newAttribute(mhost::AttributeKind::kNumeric, fullName + suffixes[i],
                                    briefName + suffixes[i], MFnNumericAttribute::className());
            child->numericType = mhost::numericElementType(type);
            attribute->addChild(child);
        }
    }
    for (int i = 0; i < count; ++i) attribute->setDefaultComponent(i, defaultValue);
    return attribute;
}

// The scalar numeric attributes a compound is made of: the leading non-null objects, at least two.
std::vector<AttributePtr> compoundParts(std::initializer_list<const MObject*> objects) {
    std::vector<AttributePtr> parts;
    bool ended = false;
    for (const MObject* object : objects) {
        if (object->isNull()) {
            ended = true;
            continue;
        }
        AttributePtr part = mhost::attributeOf(*object);
        if (ended || !part || part->kind != mhost::AttributeKind::kNumeric || part->componentCount() != 1)
            throw HostError(owner() + ": compound children must be leading scalar numeric attributes");
        parts.push_back(part);
    }
    if (parts.size() < 2) throw HostError(owner() + ": a numeric compound needs at least two children");
    return parts;
}

// A numeric compound over existing children. When a child is refused (it has a parent, or shares a
// name) the new attribute unwinds and its destructor unlinks the children it took, so a failed create
// leaves every child as it was.
AttributePtr newCompound(const MString& fullName, const MString& briefName,
                         std::initializer_list<const MObject*> objects) {
    const std::vector<AttributePtr> parts = compoundParts(objects);
    const auto element = parts.front()->numericType;
    const auto type = mhost::numericCompoundType(element, static_cast<int>(parts.size()));
    const bool uniform = std::all_of(parts.begin(), parts.end(),
                                     [&](const AttributePtr& part) { return part->numericType == element; });
    if (!uniform || type == MFnNumericData::kInvalid)
        throw HostError(owner() + ": children of '" + fullName.asChar() + "' do not form a numeric compound");
    AttributePtr attribute = mhost::newAttribute(mhost::AttributeKind::kNumeric, fullName, briefName,
                                                 MFnNumericAttribute::className());
    attribute->numericType = type;
    for (const AttributePtr& part : parts) attribute->addChild(part);
    for (size_t i = 0; i < parts.size(); ++i) attribute->numericDefault[i] = parts[i]->numericDefault[0];
    return attribute;
}

void requireComponents(const Attribute& attribute, size_t count) {
    if (attribute.componentCount() != static_cast<int>(count))
        throw HostError(owner() + ": '" + attribute.longName + "' has " +
                        std::to_string(attribute.componentCount()) + " component(s), not " +
                        std::to_string(count));
}

// One of the two hard limits: where an attribute keeps whether it is set and its values.
struct Limit {
    bool Attribute::*present;
    std::array<double, 4> Attribute::*values;
    const char* name;
};
const Limit kMinimum{&Attribute::hasMin, &Attribute::minValue, "minimum"};
const Limit kMaximum{&Attribute::hasMax, &Attribute::maxValue, "maximum"};

template <class... Values>
MStatus readLimit(const MObject& object, const Limit& limit, Values&... values) {
    return mhost::guardStatus([&] {
        const Attribute& attribute = attached(object);
        requireComponents(attribute, sizeof...(Values));
        if (!(attribute.*limit.present))
            throw mhost::StatusError(MS::kFailure,
                                     owner() + ": '" + attribute.longName + "' has no " + limit.name);
        size_t i = 0;
        ((values = (attribute.*limit.values)[i++]), ...);
    });
}

template <class... Values>
MStatus writeLimit(const MObject& object, const Limit& limit, Values... values) {
    return mhost::guardStatus([&] {
        Attribute& attribute = attached(object);
        requireComponents(attribute, sizeof...(Values));
        std::array<double, 4>& stored = attribute.*limit.values;
        size_t i = 0;
        ((stored[i++] = values), ...);
        attribute.*limit.present = true;
    });
}

template <class... Values>
MStatus readDefault(const MObject& object, Values&... values) {
    return mhost::guardStatus([&] {
        const Attribute& attribute = attached(object);
        requireComponents(attribute, sizeof...(Values));
        size_t i = 0;
        ((values = static_cast<Values>(attribute.numericDefault[i++])), ...);
    });
}

template <class... Values>
MStatus writeDefault(const MObject& object, Values... values) {
    return mhost::guardStatus([&] {
        Attribute& attribute = attached(object);
        requireComponents(attribute, sizeof...(Values));
        int i = 0;
        (attribute.setDefaultComponent(i++, static_cast<double>(values)), ...);
    });
}

}  // namespace

MObject MFnNumericAttribute::create(const MString& fullName, const MString& briefName,
                                    MFnNumericData::Type unitType, double defaultValue,
                                    MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        return newNumeric(fullName, briefName, unitType, defaultValue, kAxisSuffixes);
    });
}

MObject MFnNumericAttribute::createColor(const MString& fullName, const MString& briefName,
                                         MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        AttributePtr color = newNumeric(fullName, briefName, MFnNumericData::k3Float, 0.0, kColorSuffixes);
        color->usedAsColor = true;
        return color;
    });
}

MObject MFnNumericAttribute::createPoint(const MString& fullName, const MString& briefName,
                                         MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        return newNumeric(fullName, briefName, MFnNumericData::k3Double, 0.0, kAxisSuffixes);
    });
}

MObject MFnNumericAttribute::create(const MString& fullName, const MString& briefName, const MObject& child1,
                                    const MObject& child2, const MObject& child3, MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        return newCompound(fullName, briefName, {&child1, &child2, &child3});
    });
}

MObject MFnNumericAttribute::create(const MString& fullName, const MString& briefName, const MObject& child1,
                                    const MObject& child2, const MObject& child3, const MObject& child4,
                                    MStatus* ReturnStatus) {
    return mhost::createAttribute(fObject, ReturnStatus, [&] {
        return newCompound(fullName, briefName, {&child1, &child2, &child3, &child4});
    });
}

MFnNumericData::Type MFnNumericAttribute::unitType(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return attached(fObject).numericType; });
}

MObject MFnNumericAttribute::child(unsigned int index, MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return MObject(attached(fObject).children.at(index)); });
}

bool MFnNumericAttribute::hasMin(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return attached(fObject).hasMin; });
}

bool MFnNumericAttribute::hasMax(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return attached(fObject).hasMax; });
}

MStatus MFnNumericAttribute::getMin(double& min1) const { return readLimit(fObject, kMinimum, min1); }
MStatus MFnNumericAttribute::getMin(double& min1, double& min2) const {
    return readLimit(fObject, kMinimum, min1, min2);
}
MStatus MFnNumericAttribute::getMin(double& min1, double& min2, double& min3) const {
    return readLimit(fObject, kMinimum, min1, min2, min3);
}
MStatus MFnNumericAttribute::getMin(double& min1, double& min2, double& min3, double& min4) const {
    return readLimit(fObject, kMinimum, min1, min2, min3, min4);
}
MStatus MFnNumericAttribute::getMax(double& max1) const { return readLimit(fObject, kMaximum, max1); }
MStatus MFnNumericAttribute::getMax(double& max1, double& max2) const {
    return readLimit(fObject, kMaximum, max1, max2);
}
MStatus MFnNumericAttribute::getMax(double& max1, double& max2, double& max3) const {
    return readLimit(fObject, kMaximum, max1, max2, max3);
}
MStatus MFnNumericAttribute::getMax(double& max1, double& max2, double& max3, double& max4) const {
    return readLimit(fObject, kMaximum, max1, max2, max3, max4);
}

MStatus MFnNumericAttribute::setMin(double min1) { return writeLimit(fObject, kMinimum, min1); }
MStatus MFnNumericAttribute::setMin(double min1, double min2) {
    return writeLimit(fObject, kMinimum, min1, min2);
}
MStatus MFnNumericAttribute::setMin(double min1, double min2, double min3) {
    return writeLimit(fObject, kMinimum, min1, min2, min3);
}
MStatus MFnNumericAttribute::setMin(double min1, double min2, double min3, double min4) {
    return writeLimit(fObject, kMinimum, min1, min2, min3, min4);
}
MStatus MFnNumericAttribute::setMax(double max1) { return writeLimit(fObject, kMaximum, max1); }
MStatus MFnNumericAttribute::setMax(double max1, double max2) {
    return writeLimit(fObject, kMaximum, max1, max2);
}
MStatus MFnNumericAttribute::setMax(double max1, double max2, double max3) {
    return writeLimit(fObject, kMaximum, max1, max2, max3);
}
MStatus MFnNumericAttribute::setMax(double max1, double max2, double max3, double max4) {
    return writeLimit(fObject, kMaximum, max1, max2, max3, max4);
}

MStatus MFnNumericAttribute::getDefault(bool& def1) { return readDefault(fObject, def1); }
MStatus MFnNumericAttribute::getDefault(char& def1) { return readDefault(fObject, def1); }
MStatus MFnNumericAttribute::getDefault(int& def1) { return readDefault(fObject, def1); }
MStatus MFnNumericAttribute::getDefault(int& def1, int& def2) { return readDefault(fObject, def1, def2); }
MStatus MFnNumericAttribute::getDefault(int& def1, int& def2, int& def3) {
    return readDefault(fObject, def1, def2, def3);
}
MStatus MFnNumericAttribute::getDefault(float& def1) { return readDefault(fObject, def1); }
MStatus MFnNumericAttribute::getDefault(float& def1, float& def2) { return readDefault(fObject, def1, def2); }
MStatus MFnNumericAttribute::getDefault(float& def1, float& def2, float& def3) {
    return readDefault(fObject, def1, def2, def3);
}
MStatus MFnNumericAttribute::getDefault(double& def1) { return readDefault(fObject, def1); }
MStatus MFnNumericAttribute::getDefault(double& def1, double& def2) {
    return readDefault(fObject, def1, def2);
}
MStatus MFnNumericAttribute::getDefault(double& def1, double& def2, double& def3) {
    return readDefault(fObject, def1, def2, def3);
}
MStatus MFnNumericAttribute::getDefault(double& def1, double& def2, double& def3, double& def4) {
    return readDefault(fObject, def1, def2, def3, def4);
}

MStatus MFnNumericAttribute::setDefault(bool def1) { return writeDefault(fObject, def1); }
MStatus MFnNumericAttribute::setDefault(char def1) { return writeDefault(fObject, def1); }
MStatus MFnNumericAttribute::setDefault(int def1) { return writeDefault(fObject, def1); }
MStatus MFnNumericAttribute::setDefault(int def1, int def2) { return writeDefault(fObject, def1, def2); }
MStatus MFnNumericAttribute::setDefault(int def1, int def2, int def3) {
    return writeDefault(fObject, def1, def2, def3);
}
MStatus MFnNumericAttribute::setDefault(float def1) { return writeDefault(fObject, def1); }
MStatus MFnNumericAttribute::setDefault(float def1, float def2) { return writeDefault(fObject, def1, def2); }
MStatus MFnNumericAttribute::setDefault(float def1, float def2, float def3) {
    return writeDefault(fObject, def1, def2, def3);
}
MStatus MFnNumericAttribute::setDefault(double def1) { return writeDefault(fObject, def1); }
MStatus MFnNumericAttribute::setDefault(double def1, double def2) {
    return writeDefault(fObject, def1, def2);
}
MStatus MFnNumericAttribute::setDefault(double def1, double def2, double def3) {
    return writeDefault(fObject, def1, def2, def3);
}
MStatus MFnNumericAttribute::setDefault(double def1, double def2, double def3, double def4) {
    return writeDefault(fObject, def1, def2, def3, def4);
}
