#include "graph/LocatorAttributes.h"

#include "graph/BuiltinNodeTypes.h"
#include "graph/NodeType.h"

namespace mhost {

const LocatorAttributes& locatorAttributes() {
    static const LocatorAttributes attributes{
        makeNumericAttribute("localPosition", "lp", MFnNumericData::k3Double),
        makeNumericAttribute("localScale", "los", MFnNumericData::k3Double, 1.0)};
    return attributes;
}

void addLocatorAttributes(NodeType& type) {
    type.addAttribute(locatorAttributes().localPosition);
    type.addAttribute(locatorAttributes().localScale);
}

}  // namespace mhost
