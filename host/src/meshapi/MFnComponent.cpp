#include <maya/MFnComponent.h>

#include <algorithm>

#include "attributes/ApiCall.h"
#include "core/FunctionSet.h"
#include "meshnode/MeshComponent.h"

MHOST_DEFINE_MFN(MFnComponent, MFn::kComponent)

namespace {

const mhost::MeshComponent& attachedComponent(const MObject& object) {
    const mhost::MeshComponent* component = mhost::meshComponentOf(object);
    if (!component) throw mhost::HostError("MFnComponent: no component attached");
    return *component;
}

}  // namespace

int MFnComponent::elementCount(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus,
                             [&] { return static_cast<int>(attachedComponent(fObject).elements().size()); });
}

MFn::Type MFnComponent::componentType(MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] { return attachedComponent(fObject).apiType(); });
}

bool MFnComponent::isEmpty(MStatus* ReturnStatus) const { return elementCount(ReturnStatus) == 0; }

bool MFnComponent::isEqual(MObject& other, MStatus* ReturnStatus) const {
    return mhost::guardValue(ReturnStatus, [&] {
        const mhost::MeshComponent& mine = attachedComponent(fObject);
        const mhost::MeshComponent* theirs = mhost::meshComponentOf(other);
        if (!theirs || theirs->apiType() != mine.apiType()) return false;
        std::vector<int> a = mine.elements(), b = theirs->elements();
        std::sort(a.begin(), a.end());
        std::sort(b.begin(), b.end());
        return a == b;
    });
}
