#pragma once
// MUintArray: an ordered array of unsigned int.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MUintArray {
public:
    typedef MArrayIteratorTemplate<MUintArray, unsigned int> Iterator;
    typedef MArrayConstIteratorTemplate<MUintArray, unsigned int> ConstIterator;

    MUintArray();
    MUintArray(const MUintArray& other);
    // The first `count` values of `src`.
    MUintArray(const unsigned int src[], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MUintArray(unsigned int initialSize, unsigned int initialValue = 0);
    ~MUintArray();
    MUintArray& operator=(const MUintArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(unsigned int element, unsigned int index);
    // Truncates, or grows with zeros.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(unsigned int element, unsigned int index);
    MStatus append(unsigned int element);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MUintArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, which must hold length() values; kFailure for a null pointer.
    MStatus get(unsigned int[]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    unsigned int& operator[](unsigned int index);
    unsigned int operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MUintArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<unsigned int> fItems;
};
