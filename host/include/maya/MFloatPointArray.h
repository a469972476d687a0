#pragma once
// MFloatPointArray: an ordered array of MFloatPoint.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MFloatPoint.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MFloatPointArray {
public:
    typedef MArrayIteratorTemplate<MFloatPointArray, MFloatPoint> Iterator;
    typedef MArrayConstIteratorTemplate<MFloatPointArray, MFloatPoint> ConstIterator;

    MFloatPointArray();
    MFloatPointArray(const MFloatPointArray& other);
    // The first `count` elements of `points`.
    MFloatPointArray(const MFloatPoint points[], unsigned int count);
    // From `count` rows of 4 components.
    MFloatPointArray(const float points[][4], unsigned int count);
    MFloatPointArray(const double points[][4], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MFloatPointArray(unsigned int initialSize, const MFloatPoint& initialValue = MFloatPoint::origin);
    ~MFloatPointArray();
    MFloatPointArray& operator=(const MFloatPointArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(const MFloatPoint& element, unsigned int index);
    // Overwrites element `index` with (x, y, z, w); kFailure when it is past the end.
    MStatus set(unsigned int index, float x, float y, float z = 0, float w = 1);
    // Truncates, or grows with the origin (0, 0, 0, 1).
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(const MFloatPoint& element, unsigned int index);
    MStatus append(const MFloatPoint& element);
    // Appends the point (x, y, z, w).
    MStatus append(float x, float y, float z = 0, float w = 1);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MFloatPointArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, one row of 4 components each; `dest` must hold length() rows.
    // kFailure for a null pointer.
    MStatus get(float[][4]) const;
    MStatus get(double[][4]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    MFloatPoint& operator[](unsigned int index);
    const MFloatPoint& operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatPointArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<MFloatPoint> fItems;
};
