#include "attributes/AttributeAccess.h"

#include <cctype>

namespace mhost {
namespace {

bool isIdentifier(const std::string& name) {
    if (name.empty() || std::isdigit(static_cast<unsigned char>(name[0]))) return false;
    for (unsigned char c : name)
        if (!std::isalnum(c) && c != '_') return false;
    return true;
}

}  // namespace

AttributePtr newAttribute(AttributeKind kind, const MString& longName, const MString& shortName,
                          const char* owner) {
    for (const std::string name : {longName.asChar(), shortName.asChar()})
        if (!isIdentifier(name))
            throw HostError(std::string(owner) + ": '" + name + "' is not a valid attribute name");
    return std::make_shared<Attribute>(kind, longName.asChar(), shortName.asChar());
}

Attribute& attachedAttribute(const MObject& object, const char* owner) {
    AttributePtr attribute = attributeOf(object);
    if (!attribute) throw HostError(std::string(owner) + ": no attribute attached");
    return *attribute;
}

}  // namespace mhost
