#pragma once
// MArrayConstIteratorTemplate, MArrayIteratorTemplate: the iterators of the API's array classes, so that
// begin()/end() and range-for loops work as in Maya 2019. An iterator is an array and an index; every
// read goes through the array's operator[], so stepping past the end fails loudly. The comparison,
// dereference and step operators are non-const and the steps return a const reference, exactly as
// Maya declares them, so that code written here compiles against Maya unchanged.

#include <maya/MTypes.h>

template <typename ContainerType, typename ObjectTypeContained>
class MArrayConstIteratorTemplate {
public:
    typedef ObjectTypeContained value_type;
    typedef ObjectTypeContained& reference;

    // An iterator on element `index` of `container`; index length() is the end. The array is held
    // mutable so that the element can be handed out by reference; this iterator never writes it.
    explicit MArrayConstIteratorTemplate(const ContainerType& container, unsigned int index = 0)
        : fContainer(&const_cast<ContainerType&>(container)), fIndex(index) {}
    // Equal when both iterators walk the same array and stand on the same index.
    bool operator==(const MArrayConstIteratorTemplate& other) {
        return fContainer == other.fContainer && fIndex == other.fIndex;
    }
    bool operator!=(const MArrayConstIteratorTemplate& other) { return !(*this == other); }
    // The element, read-only.
    const ObjectTypeContained& operator*() { return (*fContainer)[fIndex]; }
    // Moves to the next or previous element.
    const MArrayConstIteratorTemplate& operator++() {
        ++fIndex;
        return *this;
    }
    const MArrayConstIteratorTemplate& operator--() {
        --fIndex;
        return *this;
    }

protected:
    // The writing iterator's way in, from a mutable array.
    MArrayConstIteratorTemplate(ContainerType& container, unsigned int index = 0)
        : fContainer(&container), fIndex(index) {}

    ContainerType* fContainer;
    unsigned int fIndex;
};

template <typename ContainerType, typename ObjectTypeContained>
class MArrayIteratorTemplate : public MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained> {
public:
    typedef typename MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained>::reference reference;

    // An iterator on element `index` of `container` that may write the elements.
    explicit MArrayIteratorTemplate(ContainerType& container, unsigned int index = 0)
        : MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained>(container, index) {}
    // The element itself.
    reference operator*() const { return (*this->fContainer)[this->fIndex]; }
};
