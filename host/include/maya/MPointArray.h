#pragma once
// MPointArray: an ordered array of MPoint.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MPoint.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MPointArray {
public:
    typedef MArrayIteratorTemplate<MPointArray, MPoint> Iterator;
    typedef MArrayConstIteratorTemplate<MPointArray, MPoint> ConstIterator;

    MPointArray();
    MPointArray(const MPointArray& other);
    // The first `count` elements of `points`.
    MPointArray(const MPoint points[], unsigned int count);
    // From `count` rows of 4 components.
    MPointArray(const double points[][4], unsigned int count);
    MPointArray(const float points[][4], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MPointArray(unsigned int initialSize, const MPoint& initialValue = MPoint::origin);
    ~MPointArray();
    MPointArray& operator=(const MPointArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(const MPoint& element, unsigned int index);
    // Overwrites element `index` with (x, y, z, w); kFailure when it is past the end.
    MStatus set(unsigned int index, double x, double y, double z = 0, double w = 1);
    // Truncates, or grows with the origin (0, 0, 0, 1).
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(const MPoint& element, unsigned int index);
    MStatus append(const MPoint& element);
    // Appends the point (x, y, z, w).
    MStatus append(double x, double y, double z = 0, double w = 1);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MPointArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, one row of 4 components each; `dest` must hold length() rows.
    // kFailure for a null pointer.
    MStatus get(double[][4]) const;
    MStatus get(float[][4]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    MPoint& operator[](unsigned int index);
    const MPoint& operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MPointArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<MPoint> fItems;
};
