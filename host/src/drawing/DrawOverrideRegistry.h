#pragma once
// The draw override creators plug-ins registered through MDrawRegistry, and which one draws a node
// type: a type is drawn by the first registration whose draw classification equals one of the type's
// colon-separated classifications or is a "/"-bounded prefix of it.

#include <maya/MDrawRegistry.h>

#include <string>
#include <vector>

namespace mhost {

using DrawOverrideCreator = MHWRender::MDrawRegistry::DrawOverrideCreator;

struct DrawOverrideRegistration {
    std::string classification;
    std::string registrant;
    DrawOverrideCreator creator;
};

class DrawOverrideRegistry {
public:
    // False when the classification and registrant are registered already.
    bool add(const DrawOverrideRegistration& registration);
    // Removes a registration and returns its creator, or null when there was none; the caller destroys
    // the overrides that creator made.
    DrawOverrideCreator remove(const std::string& classification, const std::string& registrant);
    // The creator that draws nodes of a type with the given classification, or null.
    DrawOverrideCreator creatorFor(const std::string& typeClassification) const;

private:
    std::vector<DrawOverrideRegistration> registrations_;
};

DrawOverrideRegistry& drawOverrideRegistry();

}  // namespace mhost
