#include "graph/BuiltinNodeTypes.h"

#include <cctype>
#include <tuple>

#include "graph/NodeType.h"
#include "meshnode/MeshNodeTypes.h"
#include "polymodifiers/PolyModifierNode.h"

namespace mhost {
namespace {

const char* const kAxes[] = {"X", "Y", "Z", "W"};

AttributePtr makeDagAttribute(const std::string& longName, const std::string& shortName, double value) {
    return makeNumericAttribute(longName, shortName, MFnNumericData::kBoolean, value);
}

// Maya's transform channels are "tx", "ry", "sz": short names with lower-case axis letters.
AttributePtr lowerCaseChildShortNames(AttributePtr attribute) {
    for (auto& child : attribute->children)
        child->shortName.back() = static_cast<char>(std::tolower(child->shortName.back()));
    return attribute;
}

NodeTypePtr makeTransformType() {
    auto type = std::make_shared<NodeType>();
    type->name = "transform";
    type->apiType = MFn::kTransform;
    type->isDag = true;
    addInheritedAttributes(*type);
    for (const auto& [longName, shortName, value] :
         {std::tuple{"translate", "t", 0.0}, {"rotate", "r", 0.0}, {"scale", "s", 1.0}})
        type->addAttribute(lowerCaseChildShortNames(
            makeNumericAttribute(longName, shortName, MFnNumericData::k3Double, value)));
    return type;
}

AttributePtr makeMessageArray(const std::string& longName, const std::string& shortName) {
    auto attribute = std::make_shared<Attribute>(AttributeKind::kMessage, longName, shortName);
    attribute->array = true;
    attribute->storable = false;
    return attribute;
}

// A shading group: sets of DAG members, joined by connecting a member's instObjGroups[0] to one of
// the set's dagSetMembers elements, as Maya does.
NodeTypePtr makeShadingEngineType() {
    auto type = std::make_shared<NodeType>();
    type->name = "shadingEngine";
    type->apiType = MFn::kShadingEngine;
    addInheritedAttributes(*type);
    type->addAttribute(makeMessageArray("dagSetMembers", "dsm"));
    return type;
}

}  // namespace

AttributePtr makeNumericAttribute(const std::string& longName, const std::string& shortName,
                                  MFnNumericData::Type type, double defaultValue) {
    auto attribute = std::make_shared<Attribute>(AttributeKind::kNumeric, longName, shortName);
    attribute->numericType = type;
    const int count = numericComponentCount(type);
    for (int i = 0; i < count; ++i) attribute->numericDefault[i] = defaultValue;
    if (count > 1) {
        const MFnNumericData::Type element = numericElementType(type);
        for (int i = 0; i < count; ++i) {
            auto child = std::make_shared<Attribute>(AttributeKind::kNumeric, longName + kAxes[i],
                                                     shortName + kAxes[i]);
            child->numericType = element;
            child->numericDefault[0] = defaultValue;
            child->component = i;
            attribute->addChild(child);
        }
    }
    return attribute;
}

const BaseAttributes& baseAttributes() {
    static const BaseAttributes base = [] {
        BaseAttributes b;
        b.message = std::make_shared<Attribute>(AttributeKind::kMessage, "message", "msg");
        b.message->storable = false;
        b.caching = makeNumericAttribute("caching", "cch", MFnNumericData::kBoolean);
        b.frozen = makeNumericAttribute("frozen", "fzn", MFnNumericData::kBoolean);
        b.isHistoricallyInteresting =
            makeNumericAttribute("isHistoricallyInteresting", "ihi", MFnNumericData::kByte, 2);
        b.state = makeNumericAttribute("nodeState", "nds", MFnNumericData::kInt);
        return b;
    }();
    return base;
}

void addInheritedAttributes(NodeType& type) {
    const BaseAttributes& base = baseAttributes();
    for (const auto& a :
         {base.message, base.caching, base.frozen, base.isHistoricallyInteresting, base.state})
        type.addAttribute(a);
    if (!type.isDag) return;
    // Like the base attributes, one object per DAG attribute serves every DAG type.
    static const AttributePtr visibility = makeDagAttribute("visibility", "v", 1.0);
    static const AttributePtr intermediateObject = makeDagAttribute("intermediateObject", "io", 0.0);
    static const AttributePtr instObjGroups = makeMessageArray("instObjGroups", "iog");
    type.addAttribute(visibility);
    type.addAttribute(intermediateObject);
    type.addAttribute(instObjGroups);
}

void registerBuiltinNodeTypes(NodeTypeRegistry& registry) {
    registry.add(makeTransformType());
    registry.add(makeShadingEngineType());
    registerMeshNodeTypes(registry);
    registerPolyModifierTypes(registry);
}

}  // namespace mhost
