#pragma once
// Random version-4 uuids in their 36-character text form, for node identities.

#include <string>

namespace mhost {

std::string newUuidText();

}  // namespace mhost
