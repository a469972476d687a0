#include "polymodifiers/PolyModifierNode.h"

#include <maya/MPxNode.h>

#include "graph/ApiBridge.h"
#include "graph/BuiltinNodeTypes.h"
#include "graph/DataObject.h"
#include "meshnode/MeshAttributes.h"
#include "meshnode/MeshData.h"

namespace mhost {
namespace {

std::vector<int> componentsOf(const PlugValue& value) {
    std::vector<int> ids;
    if (auto array = std::dynamic_pointer_cast<IntArrayData>(dataOf(value.data))) {
        for (unsigned int i = 0; i < array->value.length(); ++i) ids.push_back(array->value[i]);
    }
    return ids;
}

class PolyModifierNode : public MPxNode {
public:
    explicit PolyModifierNode(const PolyModifierKind& kind) : kind_(kind) {}

    MStatus compute(const MPlug& plug, MDataBlock&) override {
        try {
            const PlugRef ref = hostPlugOf(plug);
            const PolyModifierAttributes& a = polyModifierAttributes();
            if (ref.key.attribute != a.output.get()) return MS::kUnknownParameter;
            const MeshDataPtr input =
                meshDataOf(scene().evaluate({ref.node, {a.inputPolymesh.get(), -1}}).data);
            const MeshTopology mesh = input ? input->mesh() : MeshTopology();
            PlugValue value;
            value.data = wrapData(std::make_shared<MeshData>(edited(*ref.node, mesh)));
            ref.node->values[ref.key] = value;
            return MS::kSuccess;
        } catch (const std::exception&) {
            return MS::kFailure;
        }
    }

private:
    MeshTopology edited(Node& node, const MeshTopology& mesh) const {
        const NodePtr self = node.self();
        const auto components =
            componentsOf(scene().evaluate({self, {polyModifierAttributes().inputComponents.get(), -1}}));
        PolyModifierValues values;
        for (const PolyModifierParameter& parameter : kind_.parameters) {
            const Attribute* attribute = node.type->findAttribute(parameter.longName);
            values[parameter.longName] = scene().evaluate({self, {attribute, -1}}).numbers[0];
        }
        try {
            return kind_.apply(mesh, components, values);
        } catch (const std::exception&) {
            return mesh;
        }
    }

    const PolyModifierKind& kind_;
};

}  // namespace

const PolyModifierAttributes& polyModifierAttributes() {
    static const PolyModifierAttributes attributes = [] {
        PolyModifierAttributes a;
        a.inputPolymesh = makeMeshAttribute("inputPolymesh", "ip");
        a.output = makeMeshAttribute("output", "out");
        a.output->writable = false;
        a.output->storable = false;
        a.inputComponents = std::make_shared<Attribute>(AttributeKind::kTyped, "inputComponents", "ics");
        a.inputComponents->dataType = MFnData::kIntArray;
        a.inputComponents->defaultData = wrapData(std::make_shared<IntArrayData>());
        return a;
    }();
    return attributes;
}

NodeTypePtr makePolyModifierType(const PolyModifierKind& kind) {
    const PolyModifierAttributes& a = polyModifierAttributes();
    auto type = std::make_shared<NodeType>();
    type->name = kind.typeName;
    type->apiType = kind.apiType;
    type->create = [&kind] { return new PolyModifierNode(kind); };
    addInheritedAttributes(*type);
    for (const AttributePtr& attribute : {a.inputPolymesh, a.output, a.inputComponents})
        type->addAttribute(attribute);
    type->affects[a.inputPolymesh.get()] = {a.output.get()};
    type->affects[a.inputComponents.get()] = {a.output.get()};
    for (const PolyModifierParameter& parameter : kind.parameters) {
        AttributePtr attribute = makeNumericAttribute(parameter.longName, parameter.shortName, parameter.type,
                                                      parameter.defaultValue);
        type->addAttribute(attribute);
        type->affects[attribute.get()] = {a.output.get()};
    }
    return type;
}

void configurePolyModifier(Node& node, const std::vector<int>& components, const PolyModifierValues& values) {
    PlugValue ids;
    ids.data = wrapData(std::make_shared<IntArrayData>(
        MIntArray(components.data(), static_cast<unsigned int>(components.size()))));
    node.values[{polyModifierAttributes().inputComponents.get(), -1}] = ids;
    for (const auto& [name, number] : values) {
        const Attribute* attribute = node.type->findAttribute(name);
        if (!attribute) throw HostError(node.type->name + ": no parameter named '" + name + "'");
        PlugValue value;
        value.numbers[0] = number;
        node.values[{attribute, -1}] = value;
    }
}

void registerPolyModifierTypes(NodeTypeRegistry& registry) {
    for (const PolyModifierKind* kind : {&polyMergeVertKind(), &polyBridgeEdgeKind(), &polySplitRingKind()})
        registry.add(makePolyModifierType(*kind));
}

}  // namespace mhost
