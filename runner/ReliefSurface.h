#pragma once
// The "relief" source: a dense, open, scan-like surface shaped as a face in relief (brow, eye
// sockets, nose, cheeks, lips, chin), a triangulated height field in the XY plane that faces +Z, so
// the default front camera looks straight at it.

#include "runner/ObjFile.h"

namespace kystrake {

// Width of the relief along X and height along Y, in scene units; the face is centred on the origin.
constexpr double kReliefWidth = 10.0;
constexpr double kReliefHeight = 12.0;

// The relief's depth (Z) above the XY plane at (x, y): smooth everywhere, falling off towards the border.
double reliefHeight(double x, double y);

// The relief as a triangle mesh of about `triangles` triangles (at least 8), wound so that its
// normals face +Z. The same count always gives the same mesh.
PolygonMesh reliefSurface(int triangles);

}  // namespace kystrake
