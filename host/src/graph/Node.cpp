#include "graph/Node.h"

#include <maya/MPxNode.h>

#include "graph/DataObject.h"

namespace mhost {

Node::Node(NodeTypePtr t, std::string n) : type(std::move(t)), name(std::move(n)) {}

Node::~Node() = default;

bool Node::hasFn(MFn::Type fn) const {
    if (type->isPlugin && fn == MFn::kPluginDependNode) return true;
    return ApiObject::hasFn(fn);
}

namespace {

std::uint64_t transformEdits = 1;

}  // namespace

std::uint64_t transformEditCount() { return transformEdits; }

void noteValuesEdited(Node& node) {
    ++node.valueEdits;
    if (node.type->apiType == MFn::kTransform) ++transformEdits;
}

namespace {

// A typed array attribute without a default reads as an empty array of its type, never as nothing.
DataPtr emptyArrayOf(MFnData::Type type) {
    switch (type) {
        case MFnData::kIntArray:
            return std::make_shared<IntArrayData>();
        case MFnData::kDoubleArray:
            return std::make_shared<DoubleArrayData>();
        case MFnData::kFloatArray:
            return std::make_shared<FloatArrayData>();
        case MFnData::kPointArray:
            return std::make_shared<PointArrayData>();
        case MFnData::kVectorArray:
            return std::make_shared<VectorArrayData>();
        case MFnData::kStringArray:
            return std::make_shared<StringArrayData>();
        default:
            return nullptr;
    }
}

}  // namespace

PlugValue defaultValue(const Attribute& attribute) {
    PlugValue value;
    value.numbers = attribute.numericDefault;
    if (DataPtr data = dataOf(attribute.defaultData))
        value.data = wrapData(data->clone());
    else if (attribute.kind == AttributeKind::kTyped && !attribute.array)
        if (DataPtr empty = emptyArrayOf(attribute.dataType)) value.data = wrapData(empty);
    return value;
}

PlugValue Node::storedValue(const PlugKey& key) const {
    auto it = values.find(key);
    return it != values.end() ? it->second : defaultValue(*key.attribute);
}

bool Node::isDirty(const PlugKey& key) const {
    for (const Attribute* a = key.attribute; a; a = a->parent) {
        if (dirty.count({a, key.index}) || dirty.count({a, -1})) return true;
    }
    return false;
}

void Node::setClean(const PlugKey& key) {
    dirty.erase(key);
    if (key.index != -1) return;
    for (auto it = dirty.begin(); it != dirty.end();)
        it = it->attribute == key.attribute ? dirty.erase(it) : std::next(it);
}

std::vector<int> Node::existingIndices(const Attribute* attribute) const {
    std::vector<int> indices;
    for (const auto& [key, value] : values)
        if (key.attribute == attribute && key.index >= 0) indices.push_back(key.index);
    return indices;
}

NodePtr nodeOf(const MObject& object) { return std::dynamic_pointer_cast<Node>(object.hostObject()); }

NodePtr liveNodeOf(const MObject& object) {
    NodePtr node = nodeOf(object);
    return node && node->alive ? node : nullptr;
}

}  // namespace mhost
