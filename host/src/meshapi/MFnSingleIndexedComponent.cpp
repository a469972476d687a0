#include <maya/MFnSingleIndexedComponent.h>
#include <maya/MIntArray.h>

#include <algorithm>

#include "attributes/ApiCall.h"
#include "core/FunctionSet.h"
#include "meshapi/ArrayConversions.h"
#include "meshnode/MeshComponent.h"

MHOST_DEFINE_MFN(MFnSingleIndexedComponent, MFn::kSingleIndexedComponent)

namespace {

mhost::MeshComponent& attachedComponent(const MObject& object) {
    mhost::MeshComponent* component = mhost::meshComponentOf(object);
    if (!component) throw mhost::HostError("MFnSingleIndexedComponent: no component attached");
    return *component;
}

}  // namespace

MObject MFnSingleIndexedComponent::create(MFn::Type compType, MStatus* ReturnStatus) {
    return mhost::guardValue(ReturnStatus, [&] {
        fObject = MObject(std::make_shared<mhost::MeshComponent>(compType));
        return fObject;
    });
}

MStatus MFnSingleIndexedComponent::addElement(int element) {
    return mhost::guardStatus([&] { attachedComponent(fObject).add(element); });
}

MStatus MFnSingleIndexedComponent::addElements(MIntArray& elements) {
    return mhost::guardStatus([&] {
        mhost::MeshComponent& component = attachedComponent(fObject);
        const unsigned int count = elements.length();
        for (unsigned int i = 0; i < count; ++i)
            if (elements[i] < 0) throw mhost::HostError("MFnSingleIndexedComponent: negative element");
        component.reserve(count);
        for (unsigned int i = 0; i < count; ++i) component.add(elements[i]);
    });
}

int MFnSingleIndexedComponent::elementMax(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] {
        const std::vector<int>& elements = attachedComponent(fObject).elements();
        return elements.empty() ? -1 : *std::max_element(elements.begin(), elements.end());
    });
}

int MFnSingleIndexedComponent::element(int index, MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] {
        const std::vector<int>& elements = attachedComponent(fObject).elements();
        mhost::checkIndex("MFnSingleIndexedComponent", "position", index, static_cast<int>(elements.size()));
        return elements[index];
    });
}

MStatus MFnSingleIndexedComponent::getElements(MIntArray& elements) const {
    return mhost::guardStatus([&] { mhost::assignArray(elements, attachedComponent(fObject).elements()); });
}
