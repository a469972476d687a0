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

// Where the tool, as it is meant to, leaves the locator out of step with the mesh for a while. Each
// holds from the undo or redo that causes it until the arrays it concerns are written afresh.
struct KeptCases {
    // The undo states of a patch hold the rows and the shadow but not newFaces, so after an undo or
    // redo newFaces may name the faces of another state of the mesh.
    bool newFacesNotRestored = false;
    // The undo and redo of a change of spans (and of a twist, which files the same command) write
    // the rows back, and sizesShadow from the rows' lengths, but not the shadow's points; and the
    // mesh they write back is the snapshot staged by the last spans or twist gesture, so that after a
    // MMB-CTRL click without a twist it is an older mesh, or none. And an undo or redo that fails
    // half-way (the undo of a command that never saved a locator state, a restore of points after
    // the topology changed) rolls nothing back. The rows then need not fit the mesh, nor the
    // shadow's sizes its points.
    bool rowsOutOfStep = false;
};

// Every broken invariant of the state, the kept cases aside; empty when all hold.
std::vector<Violation> findViolations(const SceneState& state, const KeptCases& kept = {});

}  // namespace kystrake
