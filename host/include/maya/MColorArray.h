#pragma once
// MColorArray: an ordered array of MColor, as per-vertex colours of drawn meshes.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MColor.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MColorArray {
public:
    typedef MArrayIteratorTemplate<MColorArray, MColor> Iterator;
    typedef MArrayConstIteratorTemplate<MColorArray, MColor> ConstIterator;

    MColorArray();
    MColorArray(const MColorArray& other);
    // The first `count` colours of `src`.
    MColorArray(const MColor src[], unsigned int count);
    // `initialSize` copies of `initialValue`.
    MColorArray(unsigned int initialSize, const MColor& initialValue = MColor::kOpaqueBlack);
    ~MColorArray();
    MColorArray& operator=(const MColorArray& other);
    // Overwrites element `index`; kFailure when it is past the end (the array does not grow).
    MStatus set(const MColor& element, unsigned int index);
    // Truncates, or grows with opaque black.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes element `index`, shifting the rest down; kFailure when it is past the end. O(n).
    MStatus remove(unsigned int index);
    // Inserts before element `index`; index length() appends, a larger one gives kFailure. O(n).
    MStatus insert(const MColor& element, unsigned int index);
    MStatus append(const MColor& element);
    // Replaces the contents with a copy of `source`.
    MStatus copy(const MColorArray& source);
    // Empties the array.
    MStatus clear();
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    MColor& operator[](unsigned int index);
    const MColor& operator[](unsigned int index) const;
    // Writes the elements as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MColorArray& array);
    // Iterators over the elements in order; they stay usable while the length does not change.
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<MColor> fItems;
};
