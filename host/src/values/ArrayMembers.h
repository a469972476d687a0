#pragma once
// The members the numeric and geometric array classes (MIntArray ... MFloatVectorArray) share. Each
// public class holds a std::vector named fItems; Maya gives the classes no common base, so their
// definitions are stamped into each class's .cpp from one macro, over the templates below.

#include <maya/MStatus.h>

#include <cstddef>
#include <ostream>
#include <vector>

#include "core/LargeArrays.h"
#include "core/VectorOps.h"
#include "values/XyzMath.h"

namespace mhost {

// Overwrites an existing element; kFailure past the end, for these arrays do not grow on set.
template <class T>
MStatus setExisting(std::vector<T>& items, const T& element, unsigned int index) {
    if (index >= items.size()) return MS::kFailure;
    items[index] = element;
    return MS::kSuccess;
}

// The first `count` entries of src, each converted to T (a row of components makes a point or a
// vector); a null src gives an empty array.
template <class T, class Source>
std::vector<T> elementsFrom(const Source* src, unsigned int count) {
    std::vector<T> items;
    if (src) assignLarge(items, src, src + count);
    return items;
}

// Copies every element to dest, converted to dest's scalar type; kFailure for a null dest.
template <class T, class Scalar>
MStatus copyElementsTo(const std::vector<T>& items, Scalar* dest) {
    if (!dest) return MS::kFailure;
    for (std::size_t i = 0; i < items.size(); ++i) dest[i] = static_cast<Scalar>(items[i]);
    return MS::kSuccess;
}

// Copies every point or vector to one row of N components of dest; kFailure for a null dest.
template <class T, class Scalar, std::size_t N>
MStatus copyRowsTo(const std::vector<T>& items, Scalar (*dest)[N]) {
    if (!dest) return MS::kFailure;
    for (std::size_t i = 0; i < items.size(); ++i) xyz::copyComponents(items[i], dest[i], N);
    return MS::kSuccess;
}

// Writes "[a, b, c]" with each element's own operator<<.
template <class T>
std::ostream& printElements(std::ostream& os, const std::vector<T>& items) {
    os << "[";
    for (std::size_t i = 0; i < items.size(); ++i) os << (i ? ", " : "") << items[i];
    return os << "]";
}

}  // namespace mhost

// Array is the class being defined, Element its element type, ElementIn the type its set, insert,
// append and const operator[] take or return (the element itself for numbers, a const reference for
// points and vectors). Expand it once, followed by a semicolon.
#define MHOST_DEFINE_ARRAY_MEMBERS(Array, Element, ElementIn)                                          \
    Array::Array() = default;                                                                          \
    Array::Array(const Array& other) : fItems(mhost::largeCopy(other.fItems)) {}                       \
    Array::Array(const Element src[], unsigned int count)                                              \
        : fItems(mhost::elementsFrom<Element>(src, count)) {}                                          \
    Array::Array(unsigned int initialSize, ElementIn initialValue)                                     \
        : fItems(mhost::largeArray<Element>(initialSize, initialValue)) {}                             \
    Array::~Array() = default;                                                                         \
    Array& Array::operator=(const Array& other) {                                                      \
        if (this != &other) mhost::assignLarge(fItems, other.fItems.begin(), other.fItems.end());      \
        return *this;                                                                                  \
    }                                                                                                  \
    ElementIn Array::operator[](unsigned int index) const {                                            \
        return mhost::checkedAt(fItems, index, #Array);                                                \
    }                                                                                                  \
    Element& Array::operator[](unsigned int index) { return mhost::checkedAt(fItems, index, #Array); } \
    MStatus Array::set(ElementIn element, unsigned int index) {                                        \
        return mhost::setExisting(fItems, element, index);                                             \
    }                                                                                                  \
    MStatus Array::setLength(unsigned int length) {                                                    \
        mhost::reserveLarge(fItems, length);                                                           \
        fItems.resize(length);                                                                         \
        return MS::kSuccess;                                                                           \
    }                                                                                                  \
    unsigned int Array::length() const { return static_cast<unsigned int>(fItems.size()); }            \
    MStatus Array::remove(unsigned int index) { return mhost::removeAt(fItems, index); }               \
    MStatus Array::insert(ElementIn element, unsigned int index) {                                     \
        return mhost::insertAt(fItems, element, index);                                                \
    }                                                                                                  \
    MStatus Array::append(ElementIn element) {                                                         \
        fItems.push_back(element);                                                                     \
        return MS::kSuccess;                                                                           \
    }                                                                                                  \
    MStatus Array::copy(const Array& source) {                                                         \
        if (this != &source) mhost::assignLarge(fItems, source.fItems.begin(), source.fItems.end());   \
        return MS::kSuccess;                                                                           \
    }                                                                                                  \
    MStatus Array::clear() {                                                                           \
        fItems.clear();                                                                                \
        return MS::kSuccess;                                                                           \
    }                                                                                                  \
    Array::Iterator Array::begin() { return Iterator(*this, 0); }                                      \
    Array::Iterator Array::end() { return Iterator(*this, length()); }                                 \
    Array::ConstIterator Array::begin() const { return ConstIterator(*this, 0); }                      \
    Array::ConstIterator Array::end() const { return ConstIterator(*this, length()); }                 \
    Array::ConstIterator Array::cbegin() const { return begin(); }                                     \
    Array::ConstIterator Array::cend() const { return end(); }                                         \
    std::ostream& operator<<(std::ostream& os, const Array& array) {                                   \
        return mhost::printElements(os, array.fItems);                                                 \
    }

// The members the point and vector arrays add: construction from rows of N components and copying out
// to them, in either precision. Expand it once, followed by a semicolon.
#define MHOST_DEFINE_ROW_ARRAY_MEMBERS(Array, Element, N)                                  \
    Array::Array(const double rows[][N], unsigned int count)                               \
        : fItems(mhost::elementsFrom<Element>(rows, count)) {}                             \
    Array::Array(const float rows[][N], unsigned int count)                                \
        : fItems(mhost::elementsFrom<Element>(rows, count)) {}                             \
    MStatus Array::get(double dest[][N]) const { return mhost::copyRowsTo(fItems, dest); } \
    MStatus Array::get(float dest[][N]) const { return mhost::copyRowsTo(fItems, dest); }  \
    static_assert(N == 3 || N == 4, #Array " rows hold a vector's 3 or a point's 4 components")
