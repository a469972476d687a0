#pragma once
// MCallbackIdArray: an ordered array of callback ids.

#include <maya/MArrayIteratorTemplate.h>
#include <maya/MMessage.h>
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#include <iosfwd>
#include <vector>

class OPENMAYA_EXPORT MCallbackIdArray {
public:
    typedef MArrayIteratorTemplate<MCallbackIdArray, MCallbackId> Iterator;
    typedef MArrayConstIteratorTemplate<MCallbackIdArray, MCallbackId> ConstIterator;

    MCallbackIdArray();
    MCallbackIdArray(const MCallbackIdArray& other);
    // `initialSize` copies of `initialValue`.
    MCallbackIdArray(unsigned int initialSize, MCallbackId initialValue = 0);
    // The first `count` ids of `src`.
    MCallbackIdArray(const MCallbackId src[], unsigned int count);
    ~MCallbackIdArray();
    MCallbackIdArray& operator=(const MCallbackIdArray& other);
    // Element `index`; an index past the end throws std::out_of_range naming the class.
    MCallbackId operator[](unsigned int index) const;
    MCallbackId& operator[](unsigned int index);
    // Overwrites element `index`; kFailure when it is past the end.
    MStatus set(MCallbackId element, unsigned int index);
    // Truncates, or grows with zeros.
    MStatus setLength(unsigned int length);
    unsigned int length() const;
    // Removes or inserts before element `index`, shifting the rest; kFailure past the end. O(n).
    MStatus remove(unsigned int index);
    MStatus insert(MCallbackId element, unsigned int index);
    MStatus append(MCallbackId element);
    MStatus copy(const MCallbackIdArray& source);
    MStatus clear();
    // Copies the ids to `dest`, which must hold length() of them; kFailure for a null pointer.
    MStatus get(MCallbackId dest[]) const;
    // Writes the ids as "[a, b, c]".
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MCallbackIdArray& array);
    Iterator begin();
    Iterator end();
    ConstIterator begin() const;
    ConstIterator end() const;
    ConstIterator cbegin() const;
    ConstIterator cend() const;

private:
    std::vector<MCallbackId> fItems;
};
