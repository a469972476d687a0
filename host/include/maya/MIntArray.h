#pragma once
// MIntArray: an ordered array of int, such as vertex ids or polygon sizes.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MIntArray {
public:
    typedef MArrayIteratorTemplate<MIntArray, int> Iterator;
    typedef MArrayConstIteratorTemplate<MIntArray, int> ConstIterator;

    MIntArray();
    MIntArray(const MIntArray& other);
    // The first `count` values of `src`.
    MIntArray(const int src[], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MIntArray(unsigned int initialSize, int initialValue = 0);
    ~MIntArray();
    MIntArray& operator=(const MIntArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(int element, unsigned int index);
    // Truncates, or grows with zeros.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(int element, unsigned int index);
    MStatus append(int element);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MIntArray& source);
    // Empties the array.
    MStatus clear();
    // Copies the elements to `dest`, which must hold length() values; kFailure for a null pointer.
    MStatus get(int[]) const;
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    int& operator[](unsigned int index);
    int operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MIntArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<int> fItems;
};
