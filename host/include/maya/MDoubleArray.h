#pragma once
// MDoubleArray: an ordered array of double.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MDoubleArray {
public:
    typedef MArrayIteratorTemplate<MDoubleArray, double> Iterator;
    typedef MArrayConstIteratorTemplate<MDoubleArray, double> ConstIterator;

    MDoubleArray();
    MDoubleArray(const MDoubleArray& other);
    // The first `count` values of `src`.
    MDoubleArray(const double src[], unsigned int count);
    MDoubleArray(const float src[], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MDoubleArray(unsigned int initialSize, double initialValue = 0);
    ~MDoubleArray();
    MDoubleArray& operator=(const MDoubleArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(double element, unsigned int index);
    MStatus set(float element, unsigned int index);
    // Truncates, or grows with zeros.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(double element, unsigned int index);
    MStatus append(double element);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MDoubleArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, which must hold length() values; kFailure for a null pointer.
    MStatus get(double[]) const;
    MStatus get(float[]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    double& operator[](unsigned int index);
    double operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MDoubleArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<double> fItems;
};
