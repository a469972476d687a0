#pragma once
// MFloatArray: an ordered array of float, such as UV coordinates.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MFloatArray {
public:
    typedef MArrayIteratorTemplate<MFloatArray, float> Iterator;
    typedef MArrayConstIteratorTemplate<MFloatArray, float> ConstIterator;

    MFloatArray();
    MFloatArray(const MFloatArray& other);
    // The first `count` values of `src`.
    MFloatArray(const float src[], unsigned int count);
    MFloatArray(const double src[], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MFloatArray(unsigned int initialSize, float initialValue = 0);
    ~MFloatArray();
    MFloatArray& operator=(const MFloatArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(float element, unsigned int index);
    MStatus set(double element, unsigned int index);
    // Truncates, or grows with zeros.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(float element, unsigned int index);
    MStatus append(float element);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MFloatArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, which must hold length() values; kFailure for a null pointer.
    MStatus get(float[]) const;
    MStatus get(double[]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    float& operator[](unsigned int index);
    float operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<float> fItems;
};
