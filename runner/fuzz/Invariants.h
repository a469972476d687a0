#pragma once
// The invariants that hold after every step of any session: the meshes are valid meshes and the
// locator's arrays agree with one another and with the retopo mesh.

#include <string>
#include <vector>

#include "runner/fuzz/SceneState.h"

namespace kystrake {

// One broken invariant: which one (a short fixed name, the same for every case of it, so that a
// shrunk session can be checked to break the same one) and what exactly was found.
struct Violation {
    std::string invariant;
    std::string detail;
};

// Every broken invariant of the state; empty when all hold.
std::vector<Violation> findViolations(const SceneState& state);

}  // namespace kystrake
