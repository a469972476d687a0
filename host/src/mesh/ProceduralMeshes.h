#pragma once
// Meshes made from a few numbers, for tests, benchmarks and the runner's built-in sources. All are
// quads apart from the triangles around poles, wound counter-clockwise seen from outside (normals point
// out), with UVs in "map1". Each throws HostError on sizes that are not positive and finite or on too
// few divisions.

#include "mesh/MeshTopology.h"

namespace mhost {

// A flat grid in the XZ plane centred on the origin, facing +Y: (columns + 1) x (rows + 1) vertices,
// row by row from the corner at (-width/2, 0, depth/2), columns along +X and rows towards -Z.
// UV (0, 0) at the first vertex, (1, 1) at the last.
MeshTopology makePlaneGrid(double width, double depth, int columns, int rows);

// A sphere around the origin with poles on the Y axis: `axisDivisions` (>= 3) around, `heightDivisions`
// (>= 2) from pole to pole. Ring vertices first, from the south ring up, then the south and north poles.
MeshTopology makeUvSphere(double radius, int axisDivisions, int heightDivisions);

// A torus around the Y axis: `ringDivisions` (>= 3) around the Y axis, `sideDivisions` (>= 3) around
// the tube. Vertices ring by ring.
MeshTopology makeTorus(double majorRadius, double minorRadius, int ringDivisions, int sideDivisions);

struct LimbShape {
    double length = 4.0;
    double radius = 0.5;
    // The tip's radius is radius * (1 - taper); 0 <= taper < 1.
    double taper = 0.0;
    // Total turn of the axis, in radians, bending from +Y towards +X along an arc.
    double bendAngle = 0.0;
    int segments = 8;  // spans along the body (>= 1)
    int sides = 12;    // around the axis (>= 3)
    int capRings = 4;  // rings in each hemispherical cap, pole excluded (>= 1)
};

// A capsule along an axis that starts at the origin along +Y, optionally tapered and bent so it reads
// as a limb. Vertices ring by ring from the base pole's cap to the tip's, then the base and tip poles.
MeshTopology makeLimb(const LimbShape& shape);

}  // namespace mhost
