#pragma once
// MPlug: a node's attribute, or one element or child of it, through which values are read, written
// and connected. Reads evaluate the graph: a dirty plug pulls from its connection or is computed.

#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <memory>

class MDataHandle;
class MPlugArray;
class MIntArray;
class MPointArray;

namespace mhost {
class Node;
class Attribute;
struct PlugRef;
}  // namespace mhost

class OPENMAYA_EXPORT MPlug {
public:
    MPlug();
    MPlug(const MPlug& in);
    // The plug of a node's attribute; a null plug if the node lacks the attribute.
    MPlug(const MObject& node, const MObject& attribute);
    virtual ~MPlug();

    MObject attribute(MStatus* ReturnStatus = nullptr) const;
    MObject node(MStatus* ReturnStatus = nullptr) const;
    // "node.attr", "node.arr[3]", "node.arr[3].child" with long attribute names.
    MString name(MStatus* ReturnStatus = nullptr) const;
    MString partialName(bool includeNodeName = false, bool includeNonMandatoryIndices = false,
                        bool includeInstancedIndices = false, bool useAlias = false,
                        bool useFullAttributePath = false, bool useLongNames = false,
                        MStatus* ReturnStatus = nullptr) const;
    // Whether the plug takes part in a connection.
    bool isNetworked(MStatus* ReturnStatus = nullptr) const;
    bool isArray(MStatus* ReturnStatus = nullptr) const;
    bool isElement(MStatus* ReturnStatus = nullptr) const;
    bool isCompound(MStatus* ReturnStatus = nullptr) const;
    bool isChild(MStatus* ReturnStatus = nullptr) const;
    unsigned int logicalIndex(MStatus* ReturnStatus = nullptr) const;
    // Logical indices of the elements that hold a value or a connection; returns their count.
    unsigned int getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus = nullptr);
    unsigned int numElements(MStatus* ReturnStatus = nullptr) const;
    unsigned int evaluateNumElements(MStatus* ReturnStatus = nullptr);
    unsigned int numChildren(MStatus* ReturnStatus = nullptr) const;
    unsigned int numConnectedElements(MStatus* ReturnStatus = nullptr) const;
    MPlug child(MObject& attr, MStatus* ReturnStatus = nullptr) const;
    MPlug child(unsigned int index, MStatus* ReturnStatus = nullptr) const;
    MPlug parent(MStatus* ReturnStatus = nullptr) const;
    MPlug array(MStatus* ReturnStatus = nullptr) const;
    // Element of an array plug by logical index (created on first write) or by position.
    MPlug elementByLogicalIndex(unsigned int logicalIndex, MStatus* ReturnStatus = nullptr) const;
    MPlug elementByPhysicalIndex(unsigned int physicalIndex, MStatus* ReturnStatus = nullptr) const;
    // Plugs connected to this one: its source (asDst) and its destinations (asSrc).
    bool connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus = nullptr) const;
    bool isConnected(MStatus* ReturnStatus = nullptr) const;
    MPlug source(MStatus* ReturnStatus = nullptr) const;
    bool destinations(MPlugArray& theDestinations, MStatus* ReturnStatus = nullptr) const;
    bool isKeyable(MStatus* ReturnStatus = nullptr) const;
    bool isLocked(MStatus* ReturnStatus = nullptr) const;
    MStatus setLocked(bool locked);
    bool isNull(MStatus* ReturnStatus = nullptr) const;
    bool isFromReferencedFile(MStatus* ReturnStatus = nullptr) const;
    bool isDynamic(MStatus* ReturnStatus = nullptr) const;
    bool isSource(MStatus* ReturnStatus = nullptr) const;
    bool isDestination(MStatus* ReturnStatus = nullptr) const;

    // Typed reads, evaluating the graph first.
    MObject asMObject(MStatus* ReturnStatus = nullptr) const;
    MDataHandle asMDataHandle(MStatus* ReturnStatus = nullptr) const;
    double asDouble(MStatus* ReturnStatus = nullptr) const;
    float asFloat(MStatus* ReturnStatus = nullptr) const;
    int asInt(MStatus* ReturnStatus = nullptr) const;
    short asShort(MStatus* ReturnStatus = nullptr) const;
    bool asBool(MStatus* ReturnStatus = nullptr) const;
    MString asString(MStatus* ReturnStatus = nullptr) const;

    // Typed writes: store the value and dirty everything downstream. A write to a plug with an
    // incoming connection or a locked plug fails.
    MStatus setMObject(const MObject&);
    MStatus setMDataHandle(const MDataHandle&);
    MStatus setDouble(double);
    MStatus setFloat(float);
    MStatus setInt(int);
    MStatus setShort(short);
    MStatus setBool(bool);
    MStatus setString(const MString&);

    MStatus getValue(MObject&) const;
    MStatus getValue(MDataHandle&) const;
    MStatus getValue(double&) const;
    MStatus getValue(float&) const;
    MStatus getValue(int&) const;
    MStatus getValue(short&) const;
    MStatus getValue(bool&) const;
    MStatus getValue(MString&) const;
    MStatus setValue(const MObject&);
    MStatus setValue(const MDataHandle&);
    MStatus setValue(double);
    MStatus setValue(float);
    MStatus setValue(int);
    MStatus setValue(short);
    MStatus setValue(bool);
    MStatus setValue(const MString&);
    MStatus setValue(const char*);

    MPlug& operator=(const MPlug& other);
    MPlug operator[](unsigned int physicalIndex) const;
    bool operator==(const MPlug& other) const;
    bool operator==(const MObject& other) const;
    bool operator!=(const MPlug& other) const;
    bool operator!=(const MObject& other) const;
    static const char* className();

    // Host side: the internal plug this MPlug stands for.
    explicit MPlug(const mhost::PlugRef& plug);
    mhost::PlugRef hostPlug() const;

private:
    MStatus writeNumbers(const double* values, int count);
    MStatus setElementsFromPoints(const MPointArray& points);

    std::shared_ptr<mhost::Node> fNode;
    const mhost::Attribute* fAttribute = nullptr;
    int fIndex = -1;
};
