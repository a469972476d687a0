#pragma once
// MVectorArray: an ordered array of MVector.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MVector.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MVectorArray {
public:
    typedef MArrayIteratorTemplate<MVectorArray, MVector> Iterator;
    typedef MArrayConstIteratorTemplate<MVectorArray, MVector> ConstIterator;

    MVectorArray();
    MVectorArray(const MVectorArray& other);
    // The first `count` elements of `vectors`.
    MVectorArray(const MVector vectors[], unsigned int count);
    // From `count` rows of 3 components.
    MVectorArray(const double vectors[][3], unsigned int count);
    MVectorArray(const float vectors[][3], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MVectorArray(unsigned int initialSize, const MVector& initialValue = MVector::zero);
    ~MVectorArray();
    MVectorArray& operator=(const MVectorArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(const MVector& element, unsigned int index);
    // Truncates, or grows with zero vectors.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(const MVector& element, unsigned int index);
    MStatus append(const MVector& element);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MVectorArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, one row of 3 components each; `dest` must hold length() rows.
    // kFailure for a null pointer.
    MStatus get(double[][3]) const;
    MStatus get(float[][3]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    MVector& operator[](unsigned int index);
    const MVector& operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MVectorArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<MVector> fItems;
};
