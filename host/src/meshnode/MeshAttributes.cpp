#include "meshnode/MeshAttributes.h"

#include "graph/BuiltinNodeTypes.h"
#include "meshnode/MeshData.h"

namespace mhost {

AttributePtr makeMeshAttribute(const std::string& longName, const std::string& shortName) {
    auto attribute = std::make_shared<Attribute>(AttributeKind::kTyped, longName, shortName);
    attribute->dataType = MFnData::kMesh;
    attribute->defaultData = wrapData(std::make_shared<MeshData>());
    attribute->hidden = true;
    return attribute;
}

AttributePtr makeTweakArrayAttribute(const std::string& longName, const std::string& shortName,
                                     const std::array<std::pair<std::string, std::string>, 3>& childNames) {
    AttributePtr attribute = makeNumericAttribute(longName, shortName, MFnNumericData::k3Float);
    attribute->array = true;
    attribute->keyable = true;
    for (std::size_t axis = 0; axis < childNames.size(); ++axis) {
        attribute->children[axis]->longName = childNames[axis].first;
        attribute->children[axis]->shortName = childNames[axis].second;
    }
    return attribute;
}

}  // namespace mhost
