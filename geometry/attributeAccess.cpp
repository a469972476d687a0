// Typed reads and writes of any node's attributes, by attribute name. Array values travel as data
// objects and are copied on both read and write.

#include <maya/MFnDependencyNode.h>
#include <maya/MFnFloatArrayData.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnVectorArrayData.h>
#include <maya/MPlug.h>

#include "geometry/functionsInternal.h"

namespace {

// Reads an array attribute through the data object of its handle. A null node, a missing plug or
// a value never written (a null data object) is kInvalidParameter with `out` untouched, and is
// not reported: an absent value reads as empty and the caller goes on.
template <typename DataFn, typename Array>
MStatus readArrayAttr(const char* name, const MObject& node, Array& out) {
    if (node.isNull()) return MS::kInvalidParameter;
    MStatus status;
    MDataHandle handle = attrDataHandle(name, node, status);
    if (!status) return status;
    MObject data = handle.data();
    if (data.isNull()) return MS::kInvalidParameter;
    DataFn fn(data, &status);
    KY_RETURN_ON_FAILURE(status);
    out = fn.array(&status);
    return status;
}

// The plug `name` of `node` for a write; a failing status when the node or the plug is missing.
MPlug plugForWrite(const char* name, const MObject& node, MStatus& status) {
    MFnDependencyNode fn(node, &status);
    if (!status) return MPlug();
    return fn.findPlug(name, false, &status);
}

// Writes an array attribute as a new data object holding a copy of `values`.
template <typename DataFn, typename Array>
MStatus writeArrayAttr(const char* name, const MObject& node, const Array& values) {
    MStatus status;
    MPlug plug = plugForWrite(name, node, status);
    KY_RETURN_ON_FAILURE(status);
    DataFn fn;
    MObject data = fn.create(values, &status);
    KY_RETURN_ON_FAILURE(status);
    if (data.isNull()) return MS::kInvalidParameter;
    KY_RETURN_ON_FAILURE(plug.setMObject(data));
    return MS::kSuccess;
}

// Reads a three-double compound through the plug's numeric data object.
MStatus readDouble3Attr(const char* name, const MObject& node, double& x, double& y, double& z) {
    if (node.isNull()) return MS::kInvalidParameter;
    MStatus status;
    MPlug plug = MFnDependencyNode(node).findPlug(name, false, &status);
    KY_RETURN_ON_FAILURE(status);
    MObject data = plug.asMObject(&status);
    KY_RETURN_ON_FAILURE(status);
    MFnNumericData numeric(data, &status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(numeric.getData3Double(x, y, z));
    return MS::kSuccess;
}

// Writes a three-double compound as a new numeric data object.
MStatus writeDouble3Attr(const char* name, const MObject& node, double x, double y, double z) {
    MStatus status;
    MPlug plug = plugForWrite(name, node, status);
    KY_RETURN_ON_FAILURE(status);
    MFnNumericData numeric;
    numeric.create(MFnNumericData::k3Double, &status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(numeric.setData(x, y, z));
    KY_RETURN_ON_FAILURE(plug.setMObject(numeric.object()));
    return MS::kSuccess;
}

}  // namespace

MDataHandle attrDataHandle(const char* name, const MObject& node, MStatus& status) {
    MFnDependencyNode fn(node, &status);
    if (!status) {
        status = MS::kInvalidParameter;
        return MDataHandle();
    }
    MPlug plug = fn.findPlug(name, false, &status);
    if (!status || plug.isNull()) {
        status = MS::kInvalidParameter;
        return MDataHandle();
    }
    return plug.asMDataHandle(&status);
}

MStatus getIntArrayAttr(const char* name, const MObject& node, MIntArray& out) {
    return readArrayAttr<MFnIntArrayData>(name, node, out);
}

MStatus getPointArrayAttr(const char* name, const MObject& node, MPointArray& out) {
    return readArrayAttr<MFnPointArrayData>(name, node, out);
}

MStatus getVectorArrayAttr(const char* name, const MObject& node, MVectorArray& out) {
    return readArrayAttr<MFnVectorArrayData>(name, node, out);
}

MStatus getDoubleAttr(const char* name, const MObject& node, double& out) {
    if (node.isNull()) return MS::kInvalidParameter;
    MStatus status;
    MDataHandle handle = attrDataHandle(name, node, status);
    if (!status) return status;
    out = handle.asDouble();
    return MS::kSuccess;
}

int getIntAttr(const char* name, const MObject& node, MStatus& status) {
    if (node.isNull()) {
        status = MS::kInvalidParameter;
        return -1;
    }
    MDataHandle handle = attrDataHandle(name, node, status);
    if (!status) return -1;
    return handle.asInt();
}

MStatus getPoint3Attr(const char* name, const MObject& node, MPoint& out) {
    double x = 0.0, y = 0.0, z = 0.0;
    MStatus status = readDouble3Attr(name, node, x, y, z);
    if (status) out = MPoint(x, y, z, 1.0);
    return status;
}

MStatus getVector3Attr(const char* name, const MObject& node, MVector& out) {
    double x = 0.0, y = 0.0, z = 0.0;
    MStatus status = readDouble3Attr(name, node, x, y, z);
    if (status) out = MVector(x, y, z);
    return status;
}

MStatus setIntAttr(const char* name, const MObject& node, int value) {
    MStatus status;
    MPlug plug = plugForWrite(name, node, status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(plug.setInt(value));
    return MS::kSuccess;
}

MStatus setDoubleAttr(const char* name, const MObject& node, double value) {
    MStatus status;
    MPlug plug = plugForWrite(name, node, status);
    KY_RETURN_ON_FAILURE(status);
    KY_RETURN_ON_FAILURE(plug.setDouble(value));
    return MS::kSuccess;
}

MStatus setIntArrayAttr(const char* name, const MObject& node, const MIntArray& values) {
    return writeArrayAttr<MFnIntArrayData>(name, node, values);
}

MStatus setFloatArrayAttr(const char* name, const MObject& node, const MFloatArray& values) {
    return writeArrayAttr<MFnFloatArrayData>(name, node, values);
}

MStatus setPointArrayAttr(const char* name, const MObject& node, const MPointArray& values) {
    return writeArrayAttr<MFnPointArrayData>(name, node, values);
}

MStatus setVectorArrayAttr(const char* name, const MObject& node, const MVectorArray& values) {
    return writeArrayAttr<MFnVectorArrayData>(name, node, values);
}

MStatus setPoint3Attr(const char* name, const MObject& node, double x, double y, double z) {
    return writeDouble3Attr(name, node, x, y, z);
}

MStatus setVector3Attr(const char* name, const MObject& node, double x, double y, double z) {
    return writeDouble3Attr(name, node, x, y, z);
}

MStatus setNodeStateNormal(const MObject& node) { return setIntAttr("nodeState", node, 0); }

MStatus setNodeStateHasNoEffect(const MObject& node) { return setIntAttr("nodeState", node, 1); }
