#include <gtest/gtest.h>
#include <maya/MDoubleArray.h>
#include <maya/MFloatArray.h>
#include <maya/MFloatPointArray.h>
#include <maya/MFloatVectorArray.h>
#include <maya/MIntArray.h>
#include <maya/MPointArray.h>
#include <maya/MUintArray.h>
#include <maya/MVectorArray.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace {

// The name each array class reports in its errors, and distinct sample elements for it.
template <class Array>
struct ArrayTraits;

template <class Element>
Element sampleElement(int i) {
    if constexpr (std::is_arithmetic_v<Element>)
        return static_cast<Element>(10 * i + 1);
    else
        return Element(i, -i, 2 * i + 1);
}

template <>
struct ArrayTraits<MIntArray> {
    static constexpr const char* name = "MIntArray";
};
template <>
struct ArrayTraits<MUintArray> {
    static constexpr const char* name = "MUintArray";
};
template <>
struct ArrayTraits<MFloatArray> {
    static constexpr const char* name = "MFloatArray";
};
template <>
struct ArrayTraits<MDoubleArray> {
    static constexpr const char* name = "MDoubleArray";
};
template <>
struct ArrayTraits<MPointArray> {
    static constexpr const char* name = "MPointArray";
};
template <>
struct ArrayTraits<MFloatPointArray> {
    static constexpr const char* name = "MFloatPointArray";
};
template <>
struct ArrayTraits<MVectorArray> {
    static constexpr const char* name = "MVectorArray";
};
template <>
struct ArrayTraits<MFloatVectorArray> {
    static constexpr const char* name = "MFloatVectorArray";
};

template <class Array>
class ArrayContract : public testing::Test {
protected:
    using Element = typename Array::Iterator::value_type;

    static Element sample(int i) { return sampleElement<Element>(i); }

    // An array holding samples 0 .. count-1.
    static Array filled(int count) {
        Array array;
        for (int i = 0; i < count; ++i) array.append(sample(i));
        return array;
    }

    static std::vector<Element> contents(const Array& array) {
        std::vector<Element> items;
        for (unsigned int i = 0; i < array.length(); ++i) items.push_back(array[i]);
        return items;
    }
};

using ArrayTypes = testing::Types<MIntArray, MUintArray, MFloatArray, MDoubleArray, MPointArray,
                                  MFloatPointArray, MVectorArray, MFloatVectorArray>;
TYPED_TEST_SUITE(ArrayContract, ArrayTypes);

TYPED_TEST(ArrayContract, InsertRemoveAndSetRespectBounds) {
    const auto s = [](int i) { return TestFixture::sample(i); };
    TypeParam array = TestFixture::filled(3);
    EXPECT_EQ(MS::kSuccess, array.insert(s(7), 0));
    EXPECT_EQ(MS::kSuccess, array.insert(s(8), 4));  // at length(): appends
    EXPECT_EQ(MS::kSuccess, array.insert(s(9), 2));
    EXPECT_EQ(std::vector({s(7), s(0), s(9), s(1), s(2), s(8)}), TestFixture::contents(array));
    EXPECT_EQ(MS::kFailure, array.insert(s(5), 7));
    EXPECT_EQ(MS::kSuccess, array.remove(0));
    EXPECT_EQ(MS::kSuccess, array.remove(4));
    EXPECT_EQ(MS::kFailure, array.remove(4));
    EXPECT_EQ(MS::kSuccess, array.set(s(6), 3));
    EXPECT_EQ(MS::kFailure, array.set(s(6), 4));
    EXPECT_EQ(std::vector({s(0), s(9), s(1), s(6)}), TestFixture::contents(array));
}

TYPED_TEST(ArrayContract, IndexPastTheEndThrowsNamingTheClass) {
    TypeParam array = TestFixture::filled(2);
    const TypeParam& readOnly = array;
    EXPECT_EQ(TestFixture::sample(1), readOnly[1]);
    array[1] = TestFixture::sample(5);
    EXPECT_EQ(TestFixture::sample(5), readOnly[1]);
    EXPECT_THROW(readOnly[2], std::out_of_range);
    try {
        array[7] = TestFixture::sample(0);
        FAIL() << "no exception";
    } catch (const std::out_of_range& error) {
        EXPECT_NE(std::string::npos, std::string(error.what()).find(ArrayTraits<TypeParam>::name))
            << error.what();
    }
    EXPECT_THROW(TypeParam()[0], std::out_of_range);
}

TYPED_TEST(ArrayContract, SetLengthGrowsWithDefaultsAndTruncates) {
    TypeParam array = TestFixture::filled(2);
    EXPECT_EQ(MS::kSuccess, array.setLength(4));
    using Element = typename TestFixture::Element;
    EXPECT_EQ(std::vector({TestFixture::sample(0), TestFixture::sample(1), Element(), Element()}),
              TestFixture::contents(array));
    array.setLength(1);
    EXPECT_EQ(std::vector({TestFixture::sample(0)}), TestFixture::contents(array));
    EXPECT_EQ(MS::kSuccess, array.clear());
    EXPECT_EQ(0u, array.length());
    EXPECT_EQ(TestFixture::contents(TypeParam(3, TestFixture::sample(4))),
              std::vector(3, TestFixture::sample(4)));
}

TYPED_TEST(ArrayContract, CopiesAreIndependent) {
    const TypeParam original = TestFixture::filled(3);
    TypeParam constructed(original), assigned, copied;
    assigned = original;
    EXPECT_EQ(MS::kSuccess, copied.copy(original));
    for (TypeParam* array : {&constructed, &assigned, &copied}) {
        (*array)[0] = TestFixture::sample(9);
        EXPECT_EQ(TestFixture::sample(0), original[0]);
        EXPECT_EQ(TestFixture::contents(original).size(), TestFixture::contents(*array).size());
    }
    const typename TestFixture::Element raw[] = {TestFixture::sample(1), TestFixture::sample(2)};
    EXPECT_EQ(std::vector({TestFixture::sample(1), TestFixture::sample(2)}),
              TestFixture::contents(TypeParam(raw, 2)));
}

TYPED_TEST(ArrayContract, IteratorsVisitInOrderAndWriteThrough) {
    TypeParam array = TestFixture::filled(3);
    std::vector<typename TestFixture::Element> seen;
    for (const auto& element : static_cast<const TypeParam&>(array)) seen.push_back(element);
    EXPECT_EQ(TestFixture::contents(array), seen);
    for (auto& element : array) element = TestFixture::sample(4);
    EXPECT_EQ(std::vector(3, TestFixture::sample(4)), TestFixture::contents(array));
    EXPECT_TRUE(array.cbegin() != array.cend());
    const TypeParam twin(array);
    EXPECT_TRUE(array.cbegin() != twin.begin());  // same index, different arrays
    const TypeParam empty;
    EXPECT_TRUE(empty.begin() == empty.end());
}

}  // namespace

TEST(PointArrays, RowsConvertBothWays) {
    const double rows[2][4] = {{1, 2, 3, 1}, {4, 5, 6, 2}};
    const MPointArray points(rows, 2);
    EXPECT_EQ(MPoint(4, 5, 6, 2), points[1]);
    float out[2][4] = {};
    EXPECT_EQ(MS::kSuccess, points.get(out));
    EXPECT_EQ(2.0f, out[1][3]);
    EXPECT_EQ(MS::kFailure, points.get(static_cast<double(*)[4]>(nullptr)));
    const MFloatPointArray floats(rows, 2);
    EXPECT_EQ(MFloatPoint(4, 5, 6, 2), floats[1]);
    EXPECT_EQ(0u, MPointArray(static_cast<const double(*)[4]>(nullptr), 3).length());
}

TEST(PointArrays, ComponentFormsDefaultToACartesianPoint) {
    MPointArray points;
    EXPECT_EQ(MS::kSuccess, points.append(1, 2));
    EXPECT_EQ(MPoint(1, 2, 0, 1), points[0]);
    EXPECT_EQ(MS::kSuccess, points.set(0, 7, 8, 9, 2));
    EXPECT_EQ(MPoint(7, 8, 9, 2), points[0]);
    EXPECT_EQ(MS::kFailure, points.set(1, 7, 8));
    EXPECT_EQ(MPoint::origin, MPointArray(2)[1]);
    MFloatPointArray floats;
    floats.append(1.5f, 2.5f);
    EXPECT_EQ(MFloatPoint(1.5f, 2.5f, 0, 1), floats[0]);
}

TEST(VectorArrays, RowsConvertBothWays) {
    const float rows[2][3] = {{1, 2, 3}, {4, 5, 6}};
    const MVectorArray vectors(rows, 2);
    EXPECT_EQ(MVector(4, 5, 6), vectors[1]);
    double out[2][3] = {};
    EXPECT_EQ(MS::kSuccess, vectors.get(out));
    EXPECT_EQ(6.0, out[1][2]);
    EXPECT_EQ(MVector::zero, MVectorArray(1)[0]);
    EXPECT_EQ(MFloatVector(1, 2, 3), MFloatVectorArray(rows, 2)[0]);
}

TEST(NumberArrays, CrossPrecisionFormsConvert) {
    const double precise[] = {0.1, 0.2};
    MFloatArray floats(precise, 2);
    EXPECT_EQ(0.1f, floats[0]);
    EXPECT_EQ(MS::kSuccess, floats.set(0.3, 1));
    EXPECT_EQ(0.3f, floats[1]);
    double widened[2] = {};
    EXPECT_EQ(MS::kSuccess, floats.get(widened));
    EXPECT_EQ(static_cast<double>(0.3f), widened[1]);
    const float rough[] = {0.5f};
    EXPECT_EQ(0.5, MDoubleArray(rough, 1)[0]);
    int ids[3] = {};
    EXPECT_EQ(MS::kSuccess, MIntArray(3, 7).get(ids));
    EXPECT_EQ(7, ids[2]);
    EXPECT_EQ(MS::kFailure, MIntArray(3, 7).get(nullptr));
}

TEST(NumberArrays, StreamAsBracketedLists) {
    std::ostringstream text;
    const int ids[] = {3, -1, 4};
    text << MIntArray(ids, 3) << " " << MDoubleArray() << " " << MPointArray(1, MPoint(1, 2, 3));
    EXPECT_EQ("[3, -1, 4] [] [[1, 2, 3, 1]]", text.str());
}
