#pragma once
// MDataHandle: a handle on one plug's value inside a node's data block. Handles from inputValue
// hold the evaluated value; handles from outputValue write through to the node. Reference-returning
// readers (asInt, asDouble, ...) write back when the handle is set clean or goes away.

#include <maya/MFnData.h>
#include <maya/MFnNumericData.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MTypes.h>

#include <memory>

class MVector;
class MFloatVector;
class MPlug;

namespace mhost {
struct HandleSlot;
}

class OPENMAYA_EXPORT MDataHandle {
public:
    MDataHandle();
    bool isNumeric() const;
    MFnNumericData::Type numericType() const;
    MFnData::Type type() const;
    // The data object of a typed or generic value; null for numeric values or when nothing is stored.
    MObject data();
    MStatus copy(const MDataHandle& src);
    void setClean();

    bool& asBool() const;
    short& asShort() const;
    int& asInt() const;
    float& asFloat() const;
    double& asDouble() const;
    double3& asDouble3() const;
    float3& asFloat3() const;
    MVector& asVector() const;
    MString& asString() const;
    // The mesh data object held, or null when the value is no mesh.
    MObject asMesh() const;
    // The mesh with its points moved by the data's matrix (world space for a worldMesh value), as a new
    // data object with the identity matrix; asMesh's object when the matrix is the identity.
    MObject asMeshTransformed() const;

    void set(bool);
    void set(short);
    void set(int);
    void set(float);
    void set(double);
    void set(const MVector&);
    void set(const MFloatVector&);
    void set(double, double, double);
    void set(float, float, float);
    void set(const MString&);
    MStatus set(const MObject& data);
    void setBool(bool);
    void setShort(short);
    void setInt(int);
    void setFloat(float);
    void setDouble(double);
    void setMVector(const MVector&);
    void set3Float(float, float, float);
    void set3Double(double, double, double);
    void setString(const MString&);
    MStatus setMObject(const MObject& data);

    // The handle of a child of a compound value.
    MDataHandle child(const MPlug& plug);
    MDataHandle child(const MObject& attribute);

    // Host side: a handle over a slot.
    explicit MDataHandle(std::shared_ptr<mhost::HandleSlot> slot);
    const std::shared_ptr<mhost::HandleSlot>& hostSlot() const { return fSlot; }

private:
    std::shared_ptr<mhost::HandleSlot> fSlot;
};
