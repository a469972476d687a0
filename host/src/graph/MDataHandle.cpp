#include <maya/MDataHandle.h>
#include <maya/MFloatVector.h>
#include <maya/MPlug.h>
#include <maya/MVector.h>

#include "graph/DataObject.h"
#include "graph/HandleSlot.h"
#include "graph/Scene.h"

using mhost::HandleSlot;
using Scratch = mhost::HandleSlot::Scratch;

namespace {

// A shared slot for handles with nothing behind them, so reference readers stay valid.
HandleSlot& nullSlot() {
    static HandleSlot slot(nullptr, {}, nullptr);
    return slot;
}

}  // namespace

MDataHandle::MDataHandle() = default;
MDataHandle::MDataHandle(std::shared_ptr<HandleSlot> slot) : fSlot(std::move(slot)) {}

bool MDataHandle::isNumeric() const {
    return fSlot && fSlot->attribute && fSlot->attribute->kind == mhost::AttributeKind::kNumeric;
}

MFnNumericData::Type MDataHandle::numericType() const {
    return isNumeric() ? fSlot->attribute->numericType : MFnNumericData::kInvalid;
}

MFnData::Type MDataHandle::type() const {
    if (!fSlot) return MFnData::kInvalid;
    if (auto data = mhost::dataOf(fSlot->value.data)) return data->dataType();
    return isNumeric() ? MFnData::kNumeric : MFnData::kInvalid;
}

MObject MDataHandle::data() { return fSlot ? fSlot->value.data : MObject::kNullObj; }

MStatus MDataHandle::copy(const MDataHandle& src) {
    if (!fSlot || !src.fSlot) return MS::kInvalidParameter;
    src.fSlot->commit();
    fSlot->active = Scratch::kNone;
    fSlot->value = src.fSlot->value;
    if (fSlot->target) *fSlot->target = fSlot->value;
    return MS::kSuccess;
}

void MDataHandle::setClean() {
    if (fSlot) fSlot->commit();
}

#define MHOST_SCRATCH_READER(Type, Method, Member, Kind) \
    Type& MDataHandle::Method() const {                  \
        HandleSlot& slot = fSlot ? *fSlot : nullSlot();  \
        slot.load(Scratch::Kind);                        \
        return slot.Member;                              \
    }

MHOST_SCRATCH_READER(bool, asBool, asBool, kBool)
MHOST_SCRATCH_READER(short, asShort, asShort, kShort)
MHOST_SCRATCH_READER(int, asInt, asInt, kInt)
MHOST_SCRATCH_READER(float, asFloat, asFloat, kFloat)
MHOST_SCRATCH_READER(double, asDouble, asDouble, kDouble)
MHOST_SCRATCH_READER(double3, asDouble3, asDouble3, kDouble3)
MHOST_SCRATCH_READER(float3, asFloat3, asFloat3, kFloat3)
MHOST_SCRATCH_READER(MVector, asVector, asVector, kVector)
MHOST_SCRATCH_READER(MString, asString, asString, kString)
#undef MHOST_SCRATCH_READER

MObject MDataHandle::asMesh() const {
    if (!fSlot || !fSlot->value.data.hasFn(MFn::kMeshData)) return MObject::kNullObj;
    return fSlot->value.data;
}

void MDataHandle::set(bool v) { setBool(v); }
void MDataHandle::set(short v) { setShort(v); }
void MDataHandle::set(int v) { setInt(v); }
void MDataHandle::set(float v) { setFloat(v); }
void MDataHandle::set(double v) { setDouble(v); }
void MDataHandle::set(const MVector& v) { setMVector(v); }
void MDataHandle::set(const MFloatVector& v) { set3Float(v.x, v.y, v.z); }
void MDataHandle::set(double a, double b, double c) { set3Double(a, b, c); }
void MDataHandle::set(float a, float b, float c) { set3Float(a, b, c); }
void MDataHandle::set(const MString& v) { setString(v); }
MStatus MDataHandle::set(const MObject& data) { return setMObject(data); }
void MDataHandle::setBool(bool v) {
    if (fSlot) fSlot->storeNumbers(v ? 1 : 0);
}
void MDataHandle::setShort(short v) {
    if (fSlot) fSlot->storeNumbers(v);
}
void MDataHandle::setInt(int v) {
    if (fSlot) fSlot->storeNumbers(v);
}
void MDataHandle::setFloat(float v) {
    if (fSlot) fSlot->storeNumbers(v);
}
void MDataHandle::setDouble(double v) {
    if (fSlot) fSlot->storeNumbers(v);
}
void MDataHandle::setMVector(const MVector& v) {
    if (fSlot) fSlot->storeNumbers(v.x, v.y, v.z);
}
void MDataHandle::set3Float(float a, float b, float c) {
    if (fSlot) fSlot->storeNumbers(a, b, c);
}
void MDataHandle::set3Double(double a, double b, double c) {
    if (fSlot) fSlot->storeNumbers(a, b, c);
}

void MDataHandle::setString(const MString& v) {
    if (!fSlot) return;
    fSlot->active = Scratch::kNone;
    fSlot->value.data = mhost::wrapData(std::make_shared<mhost::StringData>(v));
    if (fSlot->target) *fSlot->target = fSlot->value;
}

MStatus MDataHandle::setMObject(const MObject& data) {
    auto object = mhost::dataOf(data);
    if (!fSlot || (!object && !data.isNull())) return MS::kInvalidParameter;
    fSlot->active = Scratch::kNone;
    fSlot->value.data = object ? mhost::wrapData(object->clone()) : MObject();
    if (fSlot->target) *fSlot->target = fSlot->value;
    return MS::kSuccess;
}

MDataHandle MDataHandle::child(const MObject& attribute) {
    auto child = mhost::attributeOf(attribute);
    if (!fSlot || !child || child->parent != fSlot->attribute || child->component < 0) return MDataHandle();
    fSlot->commit();
    mhost::PlugValue part;
    part.numbers[0] = fSlot->value.numbers[child->component];
    // A child handle reads its component; writes to it are not reflected in the parent.
    return MDataHandle(std::make_shared<HandleSlot>(child.get(), part, nullptr));
}

MDataHandle MDataHandle::child(const MPlug& plug) { return child(plug.attribute()); }
