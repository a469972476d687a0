#pragma once
// A static attribute: the description shared by every node of a type. Created by the attribute
// function sets, owned by shared pointer so that an MObject can hold it before it joins a type.

#include <maya/MFnData.h>
#include <maya/MFnNumericData.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "core/ApiObject.h"

namespace mhost {

enum class AttributeKind { kNumeric, kTyped, kGeneric, kCompound, kMessage };

class Attribute : public ApiObject {
public:
    Attribute(AttributeKind kind, std::string longName, std::string shortName);
    // Children outliving this attribute are unlinked rather than left with a dangling parent.
    ~Attribute() override;

    // Maya's type for the kind; numeric compounds report kAttribute3Double and the like.
    MFn::Type apiType() const override;
    // Numeric compounds are compounds by type and numeric attributes as well, as in Maya.
    bool hasFn(MFn::Type type) const override;

    AttributeKind kind;
    std::string longName;
    std::string shortName;

    // Numeric attributes: element type, default and optional limits (per component for compounds).
    MFnNumericData::Type numericType = MFnNumericData::kInvalid;
    std::array<double, 4> numericDefault{};
    bool hasMin = false, hasMax = false;
    std::array<double, 4> minValue{}, maxValue{};

    // Typed attributes hold one data type; generic attributes accept a list of them.
    MFnData::Type dataType = MFnData::kInvalid;
    std::vector<MFnData::Type> acceptedData;
    std::vector<MFnNumericData::Type> acceptedNumeric;
    MObject defaultData;

    // Flags with Maya's defaults for a new attribute.
    bool readable = true, writable = true, connectable = true, storable = true, keyable = false,
         hidden = false, cached = true, array = false, indexMatters = true, usesArrayDataBuilder = false,
         usedAsColor = false;

    // Compound structure. Numeric compounds (k2Double, k3Float, ...) get generated children named
    // longName + "X"/"Y"/"Z" (short name likewise) whose values live in the parent's components.
    std::vector<std::shared_ptr<Attribute>> children;
    Attribute* parent = nullptr;
    // Component of the parent's numeric value this child stands for; -1 for other children.
    int component = -1;

    // Number of numeric components: 1 for scalars, 2-4 for numeric compounds, 0 otherwise.
    int componentCount() const;
    bool isNumericCompound() const { return componentCount() > 1; }
    // Nearest array attribute among this one and its ancestors, or null.
    const Attribute* arrayAncestor() const;
    // Adds a child (compound attributes, and numeric compounds up to their component count) and links
    // it back; a numeric compound's child stands for the next component. Throws HostError for a null
    // child, one that already has a parent or is an ancestor, or a name taken by a sibling.
    void addChild(const std::shared_ptr<Attribute>& child);
    // Unlinks a child of a compound attribute; throws HostError when it is not one (numeric
    // compounds keep their children).
    void removeChild(const Attribute* child);
    // Sets the default of one numeric component, rounded as the element type stores it. A numeric
    // compound and the child standing for the component are kept in step.
    void setDefaultComponent(int component, double value);
    // Whether data of the given type may be stored in or connected into this attribute.
    bool acceptsData(MFnData::Type type) const;
};

using AttributePtr = std::shared_ptr<Attribute>;

// The attribute an MObject holds, or null.
AttributePtr attributeOf(const MObject& object);

// Number of components of a numeric type: 1 for scalars, 2..4 for compounds, 0 for kInvalid, kAddr
// (addresses do not fit a double) and kLast.
int numericComponentCount(MFnNumericData::Type type);
// The scalar type of a numeric type's components: kDouble for k3Double, the type itself for scalars.
MFnNumericData::Type numericElementType(MFnNumericData::Type type);
// The compound of `count` components of a scalar type (k3Double for 3 kDouble); kInvalid when Maya
// has none (only short, int, float and double form compounds).
MFnNumericData::Type numericCompoundType(MFnNumericData::Type element, int count);
// A value as a numeric type stores it: booleans become 0 or 1, integers are truncated toward zero,
// floats lose double precision.
double numericValueAs(MFnNumericData::Type type, double value);

}  // namespace mhost
