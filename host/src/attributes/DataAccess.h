#pragma once
// What the data function sets share: reaching the data object a set is attached to, making a new
// one, and the whole behaviour of the array sets (MFnIntArrayData, MFnPointArrayData, ...), which
// differ only in their element type.

#include <maya/MObject.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "attributes/ApiCall.h"
#include "graph/DataObject.h"

namespace mhost {

// The data object of type Data a function set is attached to; throws HostError naming `owner` when
// it is detached. The set's MObject keeps the object alive.
template <class Data>
Data& attachedData(const MObject& object, const char* owner) {
    auto data = objectAs<Data>(object.hostObject());
    if (!data) throw HostError(std::string(owner) + ": no data object attached");
    return *data;
}

// Makes a Data from `args`, attaches the set to it by storing it in `attached` and returns it.
template <class Data, class... Args>
MObject createData(MObject& attached, MStatus* ReturnStatus, Args&&... args) {
    return guardValue(ReturnStatus, [&] {
        attached = wrapData(std::make_shared<Data>(std::forward<Args>(args)...));
        return attached;
    });
}

// One call of an array data set: the set's object and name, and the operations every array set has.
template <class Data>
class ArrayDataAccess {
public:
    using Array = decltype(Data::value);

    ArrayDataAccess(const MObject& object, const char* owner) : object_(object), owner_(owner) {}

    unsigned int length(MStatus* ReturnStatus) const {
        return guardValue(ReturnStatus, [&] { return stored().length(); });
    }
    template <class Element>
    MStatus setElement(const Element& element, unsigned int index) const {
        return guardStatus([&] { at(index) = element; });
    }
    MStatus copyTo(Array& out) const {
        return guardStatus([&] { out = stored(); });
    }
    MStatus set(const Array& in) const {
        return guardStatus([&] { stored() = in; });
    }
    Array array(MStatus* ReturnStatus) const {
        return guardValue(ReturnStatus, [&] { return stored(); });
    }
    // The element at the index; throws std::out_of_range past the end.
    auto& at(unsigned int index) const {
        Array& elements = stored();
        if (index >= elements.length())
            throw std::out_of_range(std::string(owner_) + ": index " + std::to_string(index) +
                                    " past the end (" + std::to_string(elements.length()) + " elements)");
        return elements[index];
    }

private:
    Array& stored() const { return attachedData<Data>(object_, owner_).value; }

    const MObject& object_;
    const char* owner_;
};

}  // namespace mhost
