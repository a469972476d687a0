#include <maya/MDataHandle.h>
#include <maya/MIntArray.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

#include <algorithm>
#include <set>

#include "core/ReturnStatus.h"
#include "graph/ApiBridge.h"
#include "graph/DataObject.h"
#include "graph/HandleSlot.h"

using mhost::AttributeKind;
using mhost::PlugRef;
using mhost::PlugValue;

namespace {

using mhost::report;

// The getValue forms: the matching as...() reader's value into `out`, and its status.
template <class Value, class Reader>
MStatus readInto(Value& out, Reader read) {
    MStatus status;
    out = read(&status);
    return status;
}

// Logical indices in use by an array plug: stored elements and connected elements.
std::vector<int> usedIndices(const PlugRef& arrayPlug) {
    std::set<int> indices;
    for (int i : arrayPlug.node->existingIndices(arrayPlug.key.attribute)) indices.insert(i);
    for (const auto& c : mhost::scene().connectionsOf(*arrayPlug.node)) {
        for (const PlugRef* end : {&c.source, &c.destination})
            if (end->node == arrayPlug.node && end->key.index >= 0 &&
                end->key.attribute->arrayAncestor() == arrayPlug.key.attribute)
                indices.insert(end->key.index);
    }
    return {indices.begin(), indices.end()};
}

double clampToLimits(const mhost::Attribute& attribute, int component, double value) {
    const mhost::Attribute& limits = attribute.component >= 0 ? *attribute.parent : attribute;
    const int c = attribute.component >= 0 ? attribute.component : component;
    if (limits.hasMin) value = std::max(value, limits.minValue[c]);
    if (limits.hasMax) value = std::min(value, limits.maxValue[c]);
    return value;
}

}  // namespace

MPlug::MPlug() = default;
MPlug::MPlug(const MPlug& in) = default;
MPlug::~MPlug() = default;
MPlug& MPlug::operator=(const MPlug& other) = default;
const char* MPlug::className() { return "MPlug"; }

MPlug::MPlug(const MObject& node, const MObject& attribute) {
    auto host = mhost::liveNodeOf(node);
    auto attr = mhost::attributeOf(attribute);
    if (!host || !attr || host->type->findAttribute(attr->longName) != attr.get()) return;
    fNode = host;
    fAttribute = attr.get();
}

MPlug::MPlug(const PlugRef& plug)
    : fNode(plug.node), fAttribute(plug.key.attribute), fIndex(plug.key.index) {}

PlugRef MPlug::hostPlug() const {
    if (!fNode || !fAttribute) throw mhost::HostError("MPlug: the plug is null");
    return {fNode, {fAttribute, fIndex}};
}

bool MPlug::isNull(MStatus* ReturnStatus) const {
    report(ReturnStatus, MS::kSuccess);
    return !fNode || !fAttribute || !fNode->alive;
}

MObject MPlug::attribute(MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    if (isNull()) return MObject();
    return MObject(std::const_pointer_cast<mhost::Attribute>(
        std::static_pointer_cast<const mhost::Attribute>(fAttribute->shared_from_this())));
}

MObject MPlug::node(MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    return isNull() ? MObject() : mhost::wrapNode(fNode);
}

MString MPlug::name(MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    if (isNull()) return MString();
    return MString((fNode->name + ".").c_str()) + partialName(false, false, false, false, true, true);
}

MString MPlug::partialName(bool includeNodeName, bool, bool, bool, bool useFullAttributePath,
                           bool useLongNames, MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    if (isNull()) return MString();
    std::string path;
    for (const mhost::Attribute* a = fAttribute; a; a = useFullAttributePath ? a->parent : nullptr) {
        std::string piece = useLongNames ? a->longName : a->shortName;
        if (a->array && fIndex >= 0) piece += "[" + std::to_string(fIndex) + "]";
        path = path.empty() ? piece : piece + "." + path;
    }
    if (includeNodeName) path = fNode->name + "." + path;
    return MString(path.c_str());
}

bool MPlug::isNetworked(MStatus* ReturnStatus) const { return isConnected(ReturnStatus); }
bool MPlug::isArray(MStatus* s) const {
    report(s, MS::kSuccess);
    return !isNull() && fAttribute->array && fIndex < 0;
}
bool MPlug::isElement(MStatus* s) const {
    report(s, MS::kSuccess);
    return !isNull() && fAttribute->array && fIndex >= 0;
}
bool MPlug::isCompound(MStatus* s) const {
    report(s, MS::kSuccess);
    return !isNull() && !fAttribute->children.empty();
}
bool MPlug::isChild(MStatus* s) const {
    report(s, MS::kSuccess);
    return !isNull() && fAttribute->parent;
}

unsigned int MPlug::logicalIndex(MStatus* ReturnStatus) const {
    report(ReturnStatus, isElement() ? MS::kSuccess : MS::kFailure);
    return isElement() ? static_cast<unsigned int>(fIndex) : 0;
}

unsigned int MPlug::getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus) {
    indices.clear();
    report(ReturnStatus, isArray() ? MS::kSuccess : MS::kFailure);
    if (!isArray()) return 0;
    for (int i : usedIndices(hostPlug())) indices.append(i);
    return indices.length();
}

unsigned int MPlug::numElements(MStatus* ReturnStatus) const {
    report(ReturnStatus, isArray() ? MS::kSuccess : MS::kFailure);
    return isArray() ? static_cast<unsigned int>(usedIndices(hostPlug()).size()) : 0;
}

unsigned int MPlug::evaluateNumElements(MStatus* ReturnStatus) { return numElements(ReturnStatus); }

unsigned int MPlug::numChildren(MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    return isNull() ? 0 : static_cast<unsigned int>(fAttribute->children.size());
}

unsigned int MPlug::numConnectedElements(MStatus* ReturnStatus) const {
    report(ReturnStatus, isArray() ? MS::kSuccess : MS::kFailure);
    unsigned int count = 0;
    if (!isArray()) return 0;
    for (int i : usedIndices(hostPlug()))
        if (elementByLogicalIndex(static_cast<unsigned int>(i)).isConnected()) ++count;
    return count;
}

MPlug MPlug::child(MObject& attr, MStatus* ReturnStatus) const {
    auto wanted = mhost::attributeOf(attr);
    for (unsigned int i = 0; !isNull() && wanted && i < fAttribute->children.size(); ++i)
        if (fAttribute->children[i] == wanted) return child(i, ReturnStatus);
    report(ReturnStatus, MS::kInvalidParameter);
    return MPlug();
}

MPlug MPlug::child(unsigned int index, MStatus* ReturnStatus) const {
    const bool ok = !isNull() && index < fAttribute->children.size() && !isArray();
    report(ReturnStatus, ok ? MS::kSuccess : MS::kInvalidParameter);
    if (!ok) return MPlug();
    return MPlug(PlugRef{fNode, {fAttribute->children[index].get(), fIndex}});
}

MPlug MPlug::parent(MStatus* ReturnStatus) const {
    const bool ok = isChild();
    report(ReturnStatus, ok ? MS::kSuccess : MS::kInvalidParameter);
    return ok ? MPlug(PlugRef{fNode, {fAttribute->parent, fIndex}}) : MPlug();
}

MPlug MPlug::array(MStatus* ReturnStatus) const {
    const bool ok = isElement();
    report(ReturnStatus, ok ? MS::kSuccess : MS::kInvalidParameter);
    return ok ? MPlug(PlugRef{fNode, {fAttribute, -1}}) : MPlug();
}

MPlug MPlug::elementByLogicalIndex(unsigned int logicalIndex, MStatus* ReturnStatus) const {
    const bool ok = isArray();
    report(ReturnStatus, ok ? MS::kSuccess : MS::kInvalidParameter);
    return ok ? MPlug(PlugRef{fNode, {fAttribute, static_cast<int>(logicalIndex)}}) : MPlug();
}

MPlug MPlug::elementByPhysicalIndex(unsigned int physicalIndex, MStatus* ReturnStatus) const {
    std::vector<int> indices = isArray() ? usedIndices(hostPlug()) : std::vector<int>();
    const bool ok = physicalIndex < indices.size();
    report(ReturnStatus, ok ? MS::kSuccess : MS::kInvalidParameter);
    return ok ? MPlug(PlugRef{fNode, {fAttribute, indices[physicalIndex]}}) : MPlug();
}

MPlug MPlug::operator[](unsigned int physicalIndex) const { return elementByPhysicalIndex(physicalIndex); }

bool MPlug::connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus) const {
    array.clear();
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    if (isNull()) return false;
    const PlugRef self = hostPlug();
    if (asDst)
        if (auto source = mhost::scene().sourceOf(self)) array.append(MPlug(*source));
    if (asSrc)
        for (const auto& destination : mhost::scene().destinationsOf(self)) array.append(MPlug(destination));
    return array.length() > 0;
}

bool MPlug::isConnected(MStatus* ReturnStatus) const {
    MPlugArray both;
    return connectedTo(both, true, true, ReturnStatus);
}

MPlug MPlug::source(MStatus* ReturnStatus) const {
    MPlugArray sources;
    connectedTo(sources, true, false, ReturnStatus);
    return sources.length() ? sources[0] : MPlug();
}

bool MPlug::destinations(MPlugArray& theDestinations, MStatus* ReturnStatus) const {
    return connectedTo(theDestinations, false, true, ReturnStatus);
}

bool MPlug::isSource(MStatus* ReturnStatus) const {
    MPlugArray d;
    return destinations(d, ReturnStatus);
}

bool MPlug::isDestination(MStatus* ReturnStatus) const { return !source(ReturnStatus).isNull(); }
bool MPlug::isKeyable(MStatus* s) const {
    report(s, MS::kSuccess);
    return !isNull() && fAttribute->keyable;
}
bool MPlug::isFromReferencedFile(MStatus* s) const {
    report(s, MS::kSuccess);
    return false;
}
bool MPlug::isDynamic(MStatus* s) const {
    report(s, MS::kSuccess);
    return false;
}

bool MPlug::isLocked(MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    return !isNull() && fNode->locked.count({fAttribute, fIndex});
}

MStatus MPlug::setLocked(bool locked) {
    if (isNull()) return MS::kFailure;
    if (locked)
        fNode->locked.insert({fAttribute, fIndex});
    else
        fNode->locked.erase({fAttribute, fIndex});
    return MS::kSuccess;
}

// ---- reads

MObject MPlug::asMObject(MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    if (isNull()) return MObject();
    PlugValue value = mhost::scene().evaluate(hostPlug());
    if (fAttribute->isNumericCompound()) {
        auto numeric = std::make_shared<mhost::NumericData>(fAttribute->numericType);
        numeric->values = value.numbers;
        return mhost::wrapData(numeric);
    }
    // A copy, so that what the caller does with it leaves the plug's value alone (mesh data shares
    // its mesh until one side changes it).
    const mhost::DataPtr data = mhost::dataOf(value.data);
    return data ? mhost::wrapData(data->clone()) : value.data;
}

MDataHandle MPlug::asMDataHandle(MStatus* ReturnStatus) const {
    report(ReturnStatus, isNull() ? MS::kFailure : MS::kSuccess);
    if (isNull()) return MDataHandle();
    return MDataHandle(
        std::make_shared<mhost::HandleSlot>(fAttribute, mhost::scene().evaluate(hostPlug()), nullptr));
}

double MPlug::asDouble(MStatus* ReturnStatus) const {
    const bool ok = !isNull() && fAttribute->kind == AttributeKind::kNumeric;
    report(ReturnStatus, ok ? MS::kSuccess : MS::kFailure);
    return ok ? mhost::scene().evaluate(hostPlug()).numbers[0] : 0.0;
}

float MPlug::asFloat(MStatus* s) const { return static_cast<float>(asDouble(s)); }
int MPlug::asInt(MStatus* s) const { return static_cast<int>(asDouble(s)); }
short MPlug::asShort(MStatus* s) const { return static_cast<short>(asDouble(s)); }
bool MPlug::asBool(MStatus* s) const { return asDouble(s) != 0.0; }

MString MPlug::asString(MStatus* ReturnStatus) const {
    auto text = std::dynamic_pointer_cast<mhost::StringData>(mhost::dataOf(asMObject(ReturnStatus)));
    return text ? text->value : MString();
}

MStatus MPlug::getValue(MObject& v) const {
    return readInto(v, [this](MStatus* s) { return asMObject(s); });
}
MStatus MPlug::getValue(MDataHandle& v) const {
    return readInto(v, [this](MStatus* s) { return asMDataHandle(s); });
}
MStatus MPlug::getValue(double& v) const {
    return readInto(v, [this](MStatus* s) { return asDouble(s); });
}
MStatus MPlug::getValue(float& v) const {
    return readInto(v, [this](MStatus* s) { return asFloat(s); });
}
MStatus MPlug::getValue(int& v) const {
    return readInto(v, [this](MStatus* s) { return asInt(s); });
}
MStatus MPlug::getValue(short& v) const {
    return readInto(v, [this](MStatus* s) { return asShort(s); });
}
MStatus MPlug::getValue(bool& v) const {
    return readInto(v, [this](MStatus* s) { return asBool(s); });
}
MStatus MPlug::getValue(MString& v) const {
    return readInto(v, [this](MStatus* s) { return asString(s); });
}

// ---- writes

MStatus MPlug::writeNumbers(const double* values, int count) {
    if (isNull() || fAttribute->kind != AttributeKind::kNumeric || isLocked() || isDestination())
        return MS::kFailure;
    PlugValue value = fNode->storedValue({fAttribute, fIndex});
    for (int i = 0; i < count && i < 4; ++i) value.numbers[i] = clampToLimits(*fAttribute, i, values[i]);
    mhost::scene().setValue(hostPlug(), value);
    return MS::kSuccess;
}

MStatus MPlug::setDouble(double v) { return writeNumbers(&v, 1); }
MStatus MPlug::setFloat(float v) { return setDouble(v); }
MStatus MPlug::setInt(int v) { return setDouble(v); }
MStatus MPlug::setShort(short v) { return setDouble(v); }
MStatus MPlug::setBool(bool v) { return setDouble(v ? 1.0 : 0.0); }

// A point array written to an array of numeric compounds (a mesh's "pnts", say) replaces all its
// elements: point i goes to element i, and an empty array removes every element.
MStatus MPlug::setElementsFromPoints(const MPointArray& points) {
    mhost::Node& node = *fNode;
    for (auto it = node.values.begin(); it != node.values.end();)
        it =
            it->first.attribute == fAttribute && it->first.index >= 0 ? node.values.erase(it) : std::next(it);
    for (unsigned int i = 0; i < points.length(); ++i) {
        PlugValue value;
        value.numbers = {points[i].x, points[i].y, points[i].z, 0};
        node.values[{fAttribute, static_cast<int>(i)}] = value;
    }
    mhost::scene().markDirty(hostPlug());
    return MS::kSuccess;
}

MStatus MPlug::setMObject(const MObject& object) {
    if (isNull() || isLocked() || isDestination()) return MS::kFailure;
    auto data = mhost::dataOf(object);
    auto points = std::dynamic_pointer_cast<mhost::PointArrayData>(data);
    if (points && isArray() && fAttribute->isNumericCompound() && fAttribute->componentCount() >= 3)
        return setElementsFromPoints(points->value);
    if (auto numeric = std::dynamic_pointer_cast<mhost::NumericData>(data))
        return writeNumbers(numeric->values.data(), fAttribute->componentCount());
    const bool accepted = !data ? object.isNull() : fAttribute->acceptsData(data->dataType());
    if (!accepted) return MS::kInvalidParameter;
    PlugValue value;
    if (data) value.data = mhost::wrapData(data->clone());
    mhost::scene().setValue(hostPlug(), value);
    return MS::kSuccess;
}

MStatus MPlug::setMDataHandle(const MDataHandle& handle) {
    if (!handle.hostSlot()) return MS::kInvalidParameter;
    handle.hostSlot()->commit();
    const PlugValue& value = handle.hostSlot()->value;
    if (!value.data.isNull()) return setMObject(value.data);
    return writeNumbers(value.numbers.data(), std::max(1, fAttribute ? fAttribute->componentCount() : 1));
}

MStatus MPlug::setString(const MString& v) {
    return setMObject(mhost::wrapData(std::make_shared<mhost::StringData>(v)));
}

MStatus MPlug::setValue(const MObject& v) { return setMObject(v); }
MStatus MPlug::setValue(const MDataHandle& v) { return setMDataHandle(v); }
MStatus MPlug::setValue(double v) { return setDouble(v); }
MStatus MPlug::setValue(float v) { return setFloat(v); }
MStatus MPlug::setValue(int v) { return setInt(v); }
MStatus MPlug::setValue(short v) { return setShort(v); }
MStatus MPlug::setValue(bool v) { return setBool(v); }
MStatus MPlug::setValue(const MString& v) { return setString(v); }
MStatus MPlug::setValue(const char* v) { return setString(MString(v)); }

bool MPlug::operator==(const MPlug& other) const {
    return fNode == other.fNode && fAttribute == other.fAttribute && fIndex == other.fIndex;
}
bool MPlug::operator!=(const MPlug& other) const { return !(*this == other); }
bool MPlug::operator==(const MObject& other) const { return !isNull() && attribute() == other; }
bool MPlug::operator!=(const MObject& other) const { return !(*this == other); }
