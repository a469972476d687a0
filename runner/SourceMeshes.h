#pragma once
// The dense source meshes the runner can lay retopology over: read from OBJ, or built in.

#include "runner/ObjFile.h"
#include "runner/Session.h"

namespace kystrake {

// The built-in procedural mesh of the session's source, sized to about `triangles` triangles:
// "limb" (a bent, tapered capsule), "relief" (an open face-like scan), "sphere", "torus" or "plane".
PolygonMesh proceduralMesh(const std::string& kind, int triangles);
// The session's source mesh: its OBJ file when it names one, else the procedural mesh.
PolygonMesh loadSourceMesh(const SourceMesh& source);

}  // namespace kystrake
