#pragma once
// MFloatVectorArray: an ordered array of MFloatVector.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MFloatVector.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MFloatVectorArray {
public:
    typedef MArrayIteratorTemplate<MFloatVectorArray, MFloatVector> Iterator;
    typedef MArrayConstIteratorTemplate<MFloatVectorArray, MFloatVector> ConstIterator;

    MFloatVectorArray();
    MFloatVectorArray(const MFloatVectorArray& other);
    // The first `count` elements of `vectors`.
    MFloatVectorArray(const MFloatVector vectors[], unsigned int count);
    // From `count` rows of 3 components.
    MFloatVectorArray(const float vectors[][3], unsigned int count);
    MFloatVectorArray(const double vectors[][3], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MFloatVectorArray(unsigned int initialSize, const MFloatVector& initialValue = MFloatVector::zero);
    ~MFloatVectorArray();
    MFloatVectorArray& operator=(const MFloatVectorArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(const MFloatVector& element, unsigned int index);
    // Truncates, or grows with zero vectors.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(const MFloatVector& element, unsigned int index);
    MStatus append(const MFloatVector& element);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MFloatVectorArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, one row of 3 components each; `dest` must hold length() rows.
    // kFailure for a null pointer.
    MStatus get(float[][3]) const;
    MStatus get(double[][3]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    MFloatVector& operator[](unsigned int index);
    const MFloatVector& operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatVectorArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<MFloatVector> fItems;
};
