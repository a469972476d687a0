#pragma once
// What the artist's work consists of, read out of the scene as plain numbers: every mesh's arrays
// and every attribute of the kyStrake locator. Two states compare bit for bit.

#include <map>
#include <string>
#include <vector>

#include "runner/SceneSetup.h"

namespace kystrake {

// One mesh shape as the arrays that define it.
struct MeshArrays {
    std::string name;            // the shape's partial path name
    std::vector<double> points;  // x, y, z of each vertex, object space
    std::vector<int> polygonCounts;
    std::vector<int> polygonConnects;
    // Its inMesh is fed by history, which computes its points afresh whenever it evaluates: points
    // set on the shape itself last only until then.
    bool hasHistory = false;
    // The kyPatchNode directly above the shape is set to have no effect, so that the shape shows the
    // mesh as it was before that patch.
    bool patchBlocked = false;
    // That node holds a mesh in its arrays, yet the shape is empty: the host refused the arrays.
    bool patchRefused = false;
    int vertexCount() const { return static_cast<int>(points.size() / 3); }
};

// The whole of what the fuzzer checks and compares, read at one moment.
struct SceneState {
    std::vector<MeshArrays> meshes;  // every mesh shape that is not an intermediate object
    int activeMesh = -1;             // index in `meshes` of the first selected mesh, -1 when none
    // Index in `meshes` of the mesh the locator's rows and new faces were written on, -1 when not
    // known: the active mesh when the rows changed last (see `carryRowsMesh`).
    int rowsMesh = -1;
    // The locator's attributes by long name, each as its numbers in order: the ids of an integer
    // array, x, y, z, w of each point, x, y, z of each vector, the one or three numbers of a value.
    std::map<std::string, std::vector<double>> locator;
};

// Reads the state of the scene that `scene` names, taking its rows to belong to the active mesh.
SceneState captureSceneState(const SceneNames& scene);

// When the rows and new faces of `current` are those of `previous`, they still belong to the mesh
// they belonged to then (the artist may have selected another mesh since): `current.rowsMesh` is
// set to that mesh, or -1 when it is gone.
void carryRowsMesh(const SceneState& previous, SceneState& current);

// Every difference between two states, bit for bit, one line each ("mesh kyMeshShape1 points",
// "locator strokes"); empty when they are the same.
std::vector<std::string> stateDifferences(const SceneState& before, const SceneState& after);

}  // namespace kystrake
