#include <gtest/gtest.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFnAttribute.h>
#include <maya/MFnCompoundAttribute.h>
#include <maya/MFnDoubleArrayData.h>
#include <maya/MFnFloatArrayData.h>
#include <maya/MFnGenericAttribute.h>
#include <maya/MFnIntArrayData.h>
#include <maya/MFnMessageAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnPointArrayData.h>
#include <maya/MFnStringArrayData.h>
#include <maya/MFnStringData.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MFnVectorArrayData.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>
#include <maya/MVectorArray.h>

#include <stdexcept>

#include "graph/Attribute.h"

namespace {

MObject numeric(const char* name, MFnNumericData::Type type, double defaultValue = 0) {
    MFnNumericAttribute fn;
    return fn.create(name, name, type, defaultValue);
}

MString nameOf(const MObject& attribute) { return MFnAttribute(attribute).name(); }

// The status of attaching a function set of type Fn to the object.
template <class Fn>
MStatus attach(const MObject& object) {
    MStatus status;
    Fn fn(object, &status);
    return status;
}

}  // namespace

TEST(AttributeFlags, NewAttributesHaveMayasDefaultsAndSettersStick) {
    MFnMessageAttribute fn;
    MObject message = fn.create("link", "lk");
    EXPECT_EQ(MFn::kMessageAttribute, message.apiType());
    EXPECT_TRUE(fn.isReadable() && fn.isWritable() && fn.isConnectable() && fn.isStorable() && fn.isCached());
    EXPECT_TRUE(fn.indexMatters());
    EXPECT_FALSE(fn.isKeyable() || fn.isHidden() || fn.isArray() || fn.isUsedAsColor() ||
                 fn.usesArrayDataBuilder());

    ASSERT_TRUE(fn.setStorable(false));
    fn.setKeyable(true);
    fn.setHidden(true);
    fn.setArray(true);
    MFnAttribute reader(message);
    EXPECT_FALSE(reader.isStorable());
    EXPECT_TRUE(reader.isKeyable() && reader.isHidden() && reader.isArray());
    EXPECT_STREQ("link", reader.name().asChar());
    EXPECT_STREQ("lk", reader.shortName().asChar());
}

TEST(AttributeFlags, DetachedSetReportsInvalidParameter) {
    MFnAttribute fn;
    MStatus status;
    EXPECT_FALSE(fn.isReadable(&status));
    EXPECT_EQ(MS::kInvalidParameter, status);
    EXPECT_EQ(MS::kInvalidParameter, fn.setKeyable(true));
    EXPECT_STREQ("", fn.name(&status).asChar());
    EXPECT_EQ(MS::kInvalidParameter, status);
}

TEST(NumericAttribute, CompoundTypesGetNamedChildrenAndMayasApiTypes) {
    MFnNumericAttribute fn;
    MStatus status;
    MObject offset = fn.create("offset", "of", MFnNumericData::k3Double, 2.5, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(MFn::kAttribute3Double, offset.apiType());
    EXPECT_TRUE(offset.hasFn(MFn::kNumericAttribute) && offset.hasFn(MFn::kCompoundAttribute));
    EXPECT_EQ(3u, MFnCompoundAttribute(offset).numChildren());
    MFnNumericAttribute y(fn.child(1));
    EXPECT_STREQ("offsetY", y.name().asChar());
    EXPECT_STREQ("ofY", y.shortName().asChar());
    EXPECT_EQ(MFnNumericData::kDouble, y.unitType());
    EXPECT_EQ(offset, y.parent());
    double value = 0;
    EXPECT_TRUE(y.getDefault(value));
    EXPECT_EQ(2.5, value);
    fn.child(3, &status);
    EXPECT_EQ(MS::kInvalidParameter, status);

    MObject color = fn.createColor("tint", "tn");
    EXPECT_EQ(MFn::kAttribute3Float, color.apiType());
    EXPECT_TRUE(fn.isUsedAsColor());
    EXPECT_STREQ("tintB", nameOf(fn.child(2)).asChar());
    fn.createPoint("where", "wh");
    EXPECT_EQ(MFnNumericData::k3Double, fn.unitType());
    EXPECT_STREQ("whereZ", nameOf(fn.child(2)).asChar());

    EXPECT_EQ(MFn::kNumericAttribute, numeric("count", MFnNumericData::kInt).apiType());
    EXPECT_EQ(MFn::kAttribute2Double, numeric("uv", MFnNumericData::k2Double).apiType());
}

TEST(NumericAttribute, KeyableReachesTheChildrenOfANumericCompound) {
    MFnNumericAttribute fn;
    fn.createPoint("aim", "aim");
    fn.setKeyable(true);
    EXPECT_TRUE(MFnAttribute(fn.child(0)).isKeyable());
}

TEST(NumericAttribute, CompoundOfExistingChildrenTakesTheirTypeAndDefaults) {
    MObject u = numeric("u", MFnNumericData::kFloat, 1), v = numeric("v", MFnNumericData::kFloat, 2);
    MFnNumericAttribute fn;
    MStatus status;
    MObject uv = fn.create("uvCoord", "uvc", u, v, MObject::kNullObj, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(MFnNumericData::k2Float, fn.unitType());
    float a = 0, b = 0;
    EXPECT_TRUE(fn.getDefault(a, b));
    EXPECT_EQ(1.0f, a);
    EXPECT_EQ(2.0f, b);
    EXPECT_EQ(uv, MFnAttribute(v).parent());
}

TEST(NumericAttribute, RefusedCompoundLeavesItsChildrenFree) {
    MObject x = numeric("x", MFnNumericData::kDouble), y = numeric("y", MFnNumericData::kDouble);
    MObject taken = numeric("taken", MFnNumericData::kDouble);
    MFnCompoundAttribute owner;
    owner.create("owner", "own");
    owner.addChild(taken);
    MFnNumericAttribute fn;
    MStatus status;
    EXPECT_TRUE(fn.create("bad", "bad", x, y, taken, &status).isNull());
    EXPECT_EQ(MS::kInvalidParameter, status);
    EXPECT_TRUE(MFnAttribute(x).parent().isNull());
    EXPECT_TRUE(
        fn.create("mixed", "mx", x, numeric("i", MFnNumericData::kInt), MObject::kNullObj, &status).isNull());
    EXPECT_TRUE(fn.create("good", "gd", x, y, MObject::kNullObj, &status).hasFn(MFn::kAttribute2Double));
}

TEST(NumericAttribute, CreateRefusesBadNamesAndTypesAndKeepsItsObject) {
    MFnNumericAttribute fn;
    MObject kept = fn.create("kept", "kp", MFnNumericData::kDouble);
    struct Case {
        const char* name;
        MFnNumericData::Type type;
    };
    for (const Case& bad : {Case{"", MFnNumericData::kDouble}, Case{"2d", MFnNumericData::kDouble},
                            Case{"a b", MFnNumericData::kDouble}, Case{"ok", MFnNumericData::kInvalid},
                            Case{"ok", MFnNumericData::kAddr}, Case{"ok", MFnNumericData::kLast}}) {
        MStatus status;
        EXPECT_TRUE(fn.create(bad.name, "b", bad.type, 0, &status).isNull()) << bad.name;
        EXPECT_EQ(MS::kInvalidParameter, status) << bad.name;
    }
    EXPECT_EQ(kept, fn.object());
}

TEST(NumericAttribute, DefaultsRoundTripAsTheirTypeStoresThem) {
    MFnNumericAttribute fn;
    fn.create("flag", "fl", MFnNumericData::kBoolean);
    bool flag = false;
    fn.setDefault(true);
    EXPECT_TRUE(fn.getDefault(flag) && flag);

    fn.create("steps", "st", MFnNumericData::kInt);
    fn.setDefault(2.9);
    int steps = 0;
    fn.getDefault(steps);
    EXPECT_EQ(2, steps);

    fn.create("ratio", "ra", MFnNumericData::kFloat);
    fn.setDefault(0.1);
    double ratio = 0;
    fn.getDefault(ratio);
    EXPECT_EQ(static_cast<double>(0.1f), ratio);

    fn.create("cell", "ce", MFnNumericData::k2Int);
    int i = 0, j = 0;
    EXPECT_TRUE(fn.setDefault(3, 4) && fn.getDefault(i, j));
    EXPECT_EQ(4, j);
    EXPECT_EQ(MS::kInvalidParameter, fn.setDefault(1, 2, 3));
    EXPECT_EQ(MS::kInvalidParameter, fn.getDefault(i));

    fn.create("quat", "q", MFnNumericData::k4Double);
    double q[4] = {};
    fn.setDefault(1.0, 2.0, 3.0, 4.0);
    fn.getDefault(q[0], q[1], q[2], q[3]);
    EXPECT_EQ(4.0, q[3]);
}

TEST(NumericAttribute, CompoundAndChildDefaultsStayInStep) {
    MFnNumericAttribute fn;
    fn.createPoint("pivot", "pv");
    fn.setDefault(1.0, 2.0, 3.0);
    MFnNumericAttribute z(fn.child(2));
    double value = 0;
    z.getDefault(value);
    EXPECT_EQ(3.0, value);
    z.setDefault(9.0);
    double x = 0, y = 0;
    fn.getDefault(x, y, value);
    EXPECT_EQ(9.0, value);
}

TEST(NumericAttribute, LimitsRoundTripPerComponentCount) {
    MFnNumericAttribute fn;
    fn.create("radius", "rad", MFnNumericData::kDouble, 1.0);
    double low = 0, high = 0;
    EXPECT_FALSE(fn.hasMin());
    EXPECT_EQ(MS::kFailure, fn.getMin(low));
    fn.setMin(0.5);
    fn.setMax(10.0);
    EXPECT_TRUE(fn.hasMin() && fn.hasMax());
    EXPECT_TRUE(fn.getMin(low) && fn.getMax(high));
    EXPECT_EQ(0.5, low);
    EXPECT_EQ(10.0, high);

    fn.createPoint("box", "bx");
    EXPECT_EQ(MS::kInvalidParameter, fn.setMin(1.0));
    double a = 0, b = 0, c = 0;
    fn.setMax(1.0, 2.0, 3.0);
    EXPECT_TRUE(fn.getMax(a, b, c));
    EXPECT_EQ(2.0, b);
    EXPECT_EQ(MS::kInvalidParameter, fn.getMax(a, b));
}

TEST(TypedAttribute, DefaultDataIsCopiedAndTypeChecked) {
    MIntArray ids(2, 7);
    MFnIntArrayData ints;
    MObject data = ints.create(ids);
    MFnTypedAttribute fn;
    MObject attribute = fn.create("ids", "ids", MFnData::kIntArray, data);
    EXPECT_EQ(MFn::kTypedAttribute, attribute.apiType());
    EXPECT_EQ(MFnData::kIntArray, fn.attrType());
    EXPECT_TRUE(fn.accepts(MFnData::kIntArray));
    EXPECT_FALSE(fn.accepts(MFnData::kDoubleArray));

    ints[0] = 99;  // the attribute holds its own copy
    MObject stored;
    ASSERT_TRUE(fn.getDefault(stored));
    EXPECT_EQ(7, MFnIntArrayData(stored)[0]);

    MObject text = MFnStringData().create("x");
    EXPECT_EQ(MS::kInvalidParameter, fn.setDefault(text));
    MStatus status;
    EXPECT_TRUE(fn.create("name", "nm", MFnData::kPointArray, text, &status).isNull());
    EXPECT_EQ(MS::kInvalidParameter, status);
    EXPECT_TRUE(fn.create("none", "no", MFnData::kInvalid, MObject::kNullObj, &status).isNull());
    fn.create("plain", "pl", MFnData::kString);
    EXPECT_TRUE(fn.getDefault(stored) && stored.isNull());
}

TEST(GenericAttribute, AcceptListsGrowAndShrink) {
    MFnGenericAttribute fn;
    MObject attribute = fn.create("input", "in");
    EXPECT_EQ(MFn::kGenericAttribute, attribute.apiType());
    EXPECT_FALSE(fn.accepts(MFnData::kMesh));
    EXPECT_TRUE(fn.addDataAccept(MFnData::kMesh) && fn.addDataAccept(MFnData::kMesh));
    EXPECT_TRUE(fn.accepts(MFnData::kMesh));
    EXPECT_FALSE(fn.accepts(MFnData::kNumeric));
    EXPECT_TRUE(fn.addNumericDataAccept(MFnNumericData::k3Double));
    EXPECT_TRUE(fn.accepts(MFnData::kNumeric));

    EXPECT_TRUE(fn.removeDataAccept(MFnData::kMesh));
    EXPECT_FALSE(fn.accepts(MFnData::kMesh));
    EXPECT_EQ(MS::kInvalidParameter, fn.removeDataAccept(MFnData::kMesh));
    EXPECT_TRUE(fn.removeNumericDataAccept(MFnNumericData::k3Double));
    EXPECT_FALSE(fn.accepts(MFnData::kNumeric));
    EXPECT_EQ(MS::kInvalidParameter, fn.addDataAccept(MFnData::kInvalid));
    EXPECT_EQ(MS::kInvalidParameter, fn.addNumericDataAccept(MFnNumericData::kAddr));
    fn.addDataAccept(MFnData::kAny);
    EXPECT_TRUE(fn.accepts(MFnData::kIntArray));
}

TEST(CompoundAttribute, ChildrenAreAddedFoundAndRemoved) {
    MFnCompoundAttribute fn;
    MObject group = fn.create("group", "grp");
    MObject a = numeric("a", MFnNumericData::kInt), b = MFnMessageAttribute().create("b", "b");
    EXPECT_TRUE(fn.addChild(a) && fn.addChild(b));
    EXPECT_EQ(2u, fn.numChildren());
    EXPECT_EQ(b, fn.child(1));
    EXPECT_EQ(group, MFnAttribute(a).parent());

    MFnCompoundAttribute other;
    other.create("other", "oth");
    EXPECT_EQ(MS::kInvalidParameter, other.addChild(a));  // already a child of group
    EXPECT_EQ(MS::kInvalidParameter, fn.addChild(numeric("a", MFnNumericData::kInt)));
    EXPECT_EQ(MS::kInvalidParameter, other.addChild(MObject::kNullObj));

    MFnCompoundAttribute inner;
    MObject innerGroup = inner.create("inner", "inr");
    fn.addChild(innerGroup);
    EXPECT_EQ(MS::kInvalidParameter, inner.addChild(group));  // would make a cycle

    EXPECT_TRUE(fn.removeChild(a));
    EXPECT_EQ(2u, fn.numChildren());
    EXPECT_TRUE(MFnAttribute(a).parent().isNull());
    EXPECT_EQ(MS::kInvalidParameter, fn.removeChild(a));
}

TEST(CompoundAttribute, NumericCompoundsKeepTheirGeneratedChildren) {
    MFnNumericAttribute point;
    MObject p = point.createPoint("p", "p");
    MFnCompoundAttribute fn(p);
    EXPECT_EQ(3u, fn.numChildren());
    EXPECT_EQ(MS::kInvalidParameter, fn.addChild(numeric("w", MFnNumericData::kDouble)));
    EXPECT_EQ(MS::kInvalidParameter, fn.removeChild(fn.child(0)));
}

TEST(AttributeInternals, ArrayAncestorAndAcceptedDataFollowTheHierarchy) {
    MFnCompoundAttribute fn;
    MObject group = fn.create("rows", "rw");
    fn.setArray(true);
    MObject cell = numeric("cell", MFnNumericData::kDouble);
    fn.addChild(cell);
    EXPECT_EQ(mhost::attributeOf(group).get(), mhost::attributeOf(cell)->arrayAncestor());
    EXPECT_TRUE(mhost::attributeOf(cell)->acceptsData(MFnData::kNumeric));
    EXPECT_FALSE(mhost::attributeOf(group)->acceptsData(MFnData::kNumeric));
    EXPECT_EQ(MFnNumericData::k3Int, mhost::numericCompoundType(MFnNumericData::kInt, 3));
    EXPECT_EQ(MFnNumericData::kInvalid, mhost::numericCompoundType(MFnNumericData::kBoolean, 2));
}

TEST(FunctionSets, RefuseObjectsOfTheWrongKind) {
    MObject typed = MFnTypedAttribute().create("t", "t", MFnData::kString);
    MObject number = numeric("n", MFnNumericData::kDouble);
    MStatus status;
    MFnNumericAttribute onTyped(typed, &status);
    EXPECT_EQ(MS::kInvalidParameter, status);
    EXPECT_TRUE(onTyped.object().isNull());
    EXPECT_EQ(MS::kInvalidParameter, attach<MFnTypedAttribute>(number));
    EXPECT_EQ(MS::kInvalidParameter, attach<MFnCompoundAttribute>(number));
    EXPECT_EQ(MS::kInvalidParameter, attach<MFnGenericAttribute>(typed));
    EXPECT_EQ(MS::kSuccess, attach<MFnAttribute>(typed));
    EXPECT_EQ(MS::kInvalidParameter, attach<MFnIntArrayData>(MFnPointArrayData().create()));
    EXPECT_EQ(MS::kSuccess, attach<MFnData>(MFnStringData().create()));
    EXPECT_EQ(MS::kInvalidParameter, attach<MFnStringData>(number));
}

namespace {

// Array data sets share one behaviour; each type supplies its function set and two sample elements.
template <class Fn, class Array, class Element>
struct ArrayCase {
    using FnSet = Fn;
    using ArrayType = Array;
    static Element first();
    static Element second();
};
using IntCase = ArrayCase<MFnIntArrayData, MIntArray, int>;
using DoubleCase = ArrayCase<MFnDoubleArrayData, MDoubleArray, double>;
using FloatCase = ArrayCase<MFnFloatArrayData, MFloatArray, float>;
using PointCase = ArrayCase<MFnPointArrayData, MPointArray, MPoint>;
using VectorCase = ArrayCase<MFnVectorArrayData, MVectorArray, MVector>;
using StringCase = ArrayCase<MFnStringArrayData, MStringArray, MString>;
template <>
int IntCase::first() {
    return 3;
}
template <>
int IntCase::second() {
    return -8;
}
template <>
double DoubleCase::first() {
    return 0.25;
}
template <>
double DoubleCase::second() {
    return -1e9;
}
template <>
float FloatCase::first() {
    return 1.5f;
}
template <>
float FloatCase::second() {
    return 7.0f;
}
template <>
MPoint PointCase::first() {
    return MPoint(1, 2, 3);
}
template <>
MPoint PointCase::second() {
    return MPoint(-4, 0, 2);
}
template <>
MVector VectorCase::first() {
    return MVector(0, 1, 0);
}
template <>
MVector VectorCase::second() {
    return MVector(5, 5, -1);
}
template <>
MString StringCase::first() {
    return "mesh";
}
template <>
MString StringCase::second() {
    return "retopo";
}

}  // namespace

template <class Case>
class ArrayData : public testing::Test {};
using ArrayCases = testing::Types<IntCase, DoubleCase, FloatCase, PointCase, VectorCase, StringCase>;
TYPED_TEST_SUITE(ArrayData, ArrayCases);

TYPED_TEST(ArrayData, CreateSetAndReadRoundTrip) {
    typename TypeParam::ArrayType values;
    values.append(TypeParam::first());
    values.append(TypeParam::first());
    typename TypeParam::FnSet fn;
    MStatus status;
    MObject data = fn.create(values, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(2u, fn.length());

    auto element = TypeParam::second();
    EXPECT_TRUE(fn.set(element, 1));
    EXPECT_EQ(MS::kInvalidParameter, fn.set(element, 2));
    typename TypeParam::FnSet reader(data);
    EXPECT_TRUE(reader[1] == TypeParam::second());
    EXPECT_THROW(reader[2], std::out_of_range);

    typename TypeParam::ArrayType copy = fn.array(&status);
    ASSERT_TRUE(status);
    copy[0] = TypeParam::second();  // a copy: the data keeps its first element
    EXPECT_TRUE(fn[0] == TypeParam::first());
    EXPECT_TRUE(fn.set(copy));
    typename TypeParam::ArrayType out;
    EXPECT_TRUE(fn.copyTo(out));
    EXPECT_EQ(2u, out.length());
    EXPECT_TRUE(out[0] == TypeParam::second());

    fn.create(&status);
    EXPECT_EQ(0u, fn.length());
    EXPECT_EQ(2u, reader.length());  // a new object, the old one is untouched
}

TYPED_TEST(ArrayData, NullObjectReadsAsNothing) {
    MStatus status;
    typename TypeParam::FnSet fn(MObject::kNullObj, &status);
    EXPECT_EQ(MS::kInvalidParameter, status);
    EXPECT_EQ(0u, fn.length(&status));
    EXPECT_EQ(MS::kInvalidParameter, status);
    EXPECT_EQ(0u, fn.array(&status).length());
    EXPECT_EQ(MS::kInvalidParameter, status);
    typename TypeParam::ArrayType out;
    EXPECT_EQ(MS::kInvalidParameter, fn.copyTo(out));
}

TEST(NumericData, TripleRoundTripsAndCountsMustMatch) {
    MFnNumericData fn;
    MObject data = fn.create(MFnNumericData::k3Double);
    EXPECT_EQ(MFn::kNumericData, data.apiType());
    EXPECT_EQ(MFnNumericData::k3Double, fn.numericType());
    EXPECT_TRUE(fn.setData3Double(1.0, -2.0, 0.5));
    double x = 0, y = 0, z = 0;
    EXPECT_TRUE(MFnNumericData(data).getData3Double(x, y, z));
    EXPECT_EQ(-2.0, y);
    EXPECT_EQ(0.5, z);
    EXPECT_EQ(MS::kInvalidParameter, fn.getData2Double(x, y));
    EXPECT_EQ(MS::kInvalidParameter, fn.setData4Double(1, 2, 3, 4));

    fn.create(MFnNumericData::k2Int);
    fn.setData(2.7, -2.7);
    int i = 0, j = 0;
    fn.getData2Int(i, j);
    EXPECT_EQ(2, i);
    EXPECT_EQ(-2, j);

    MStatus status;
    EXPECT_TRUE(fn.create(MFnNumericData::kInvalid, &status).isNull());
    EXPECT_EQ(MS::kInvalidParameter, status);
    MFnNumericData detached;
    EXPECT_EQ(MFnNumericData::kInvalid, detached.numericType(&status));
    EXPECT_EQ(MS::kInvalidParameter, status);
}

TEST(StringData, CreateSetAndRead) {
    MFnStringData fn;
    MObject data = fn.create("first");
    EXPECT_EQ(MFn::kStringData, data.apiType());
    EXPECT_TRUE(fn.set("second"));
    EXPECT_STREQ("second", MFnStringData(data).string().asChar());
    fn.create();
    EXPECT_STREQ("", fn.string().asChar());
}
