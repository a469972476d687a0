#include "drawing/DrawOverrideRegistry.h"

#include <algorithm>
#include <sstream>

namespace mhost {
namespace {

bool covers(const std::string& registered, const std::string& classification) {
    if (classification.compare(0, registered.size(), registered) != 0) return false;
    return classification.size() == registered.size() || classification[registered.size()] == '/';
}

bool coversAny(const std::string& registered, const std::string& typeClassification) {
    std::istringstream parts(typeClassification);
    for (std::string part; std::getline(parts, part, ':');)
        if (covers(registered, part)) return true;
    return false;
}

}  // namespace

bool DrawOverrideRegistry::add(const DrawOverrideRegistration& registration) {
    for (const auto& r : registrations_)
        if (r.classification == registration.classification && r.registrant == registration.registrant)
            return false;
    registrations_.push_back(registration);
    return true;
}

DrawOverrideCreator DrawOverrideRegistry::remove(const std::string& classification,
                                                 const std::string& registrant) {
    auto it =
        std::find_if(registrations_.begin(), registrations_.end(), [&](const DrawOverrideRegistration& r) {
            return r.classification == classification && r.registrant == registrant;
        });
    if (it == registrations_.end()) return nullptr;
    DrawOverrideCreator creator = it->creator;
    registrations_.erase(it);
    return creator;
}

DrawOverrideCreator DrawOverrideRegistry::creatorFor(const std::string& typeClassification) const {
    for (const auto& r : registrations_)
        if (coversAny(r.classification, typeClassification)) return r.creator;
    return nullptr;
}

DrawOverrideRegistry& drawOverrideRegistry() {
    static DrawOverrideRegistry registry;
    return registry;
}

}  // namespace mhost
