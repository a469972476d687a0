#pragma once
// MArrayConstIteratorTemplate, MArrayIteratorTemplate: the iterators of the API's array classes, so that
// begin()/end() and range-for loops work as in Maya 2019. An iterator is an array and an index; every
// read goes through the array's operator[], so stepping past the end fails loudly.

#include <maya/MTypes.h>

template <typename ContainerType, typename ObjectTypeContained>
class MArrayConstIteratorTemplate {
public:
    typedef ObjectTypeContained value_type;
    typedef ObjectTypeContained& reference;

    // An iterator on element `index` of `container`; index length() is the end.
    explicit MArrayConstIteratorTemplate(const ContainerType& container, unsigned int index = 0)
        : fContainer(&container), fIndex(index) {}
    // Equal when both iterators walk the same array and stand on the same index.
    bool operator==(const MArrayConstIteratorTemplate& other) const {
        return fContainer == other.fContainer && fIndex == other.fIndex;
    }
    bool operator!=(const MArrayConstIteratorTemplate& other) const { return !(*this == other); }
    // The element, copied out of the array: scalar arrays hand out values, not references.
    ObjectTypeContained operator*() const { return (*fContainer)[fIndex]; }
    // Moves to the next or previous element.
    MArrayConstIteratorTemplate& operator++() {
        ++fIndex;
        return *this;
    }
    MArrayConstIteratorTemplate& operator--() {
        --fIndex;
        return *this;
    }

protected:
    const ContainerType* fContainer;
    unsigned int fIndex;
};

template <typename ContainerType, typename ObjectTypeContained>
class MArrayIteratorTemplate : public MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained> {
public:
    typedef typename MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained>::reference reference;

    // An iterator on element `index` of `container` that may write the elements.
    explicit MArrayIteratorTemplate(ContainerType& container, unsigned int index = 0)
        : MArrayConstIteratorTemplate<ContainerType, ObjectTypeContained>(container, index) {}
    // The element itself. The array was handed over mutable, so dropping the base's const is sound.
    reference operator*() const { return const_cast<ContainerType&>(*this->fContainer)[this->fIndex]; }
};
