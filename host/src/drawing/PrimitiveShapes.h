#pragma once
// The outlines of the round and rectangular primitives, as points in the primitive's own space (world,
// or view pixels with z = 0 for the 2D forms, whose normal is the view's z axis).

#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <vector>

namespace mhost {

// The circle's outline, `subdivisions` points (48 when fewer than 3 are asked for), not closed.
std::vector<MPoint> circleOutline(const MPoint& center, const MVector& normal, double radius,
                                  int subdivisions);

// The arc from the direction `start` to the direction `end`, counter-clockwise about `normal` (a full
// turn when they coincide), from its first point to its last; `subdivisions` segments, or about one per
// 7.5 degrees when fewer than 1 are asked for.
std::vector<MPoint> arcOutline(const MPoint& center, const MVector& start, const MVector& end,
                               const MVector& normal, double radius, int subdivisions);

// The rectangle's four corners, counter-clockwise about `normal`: its height lies along `up`, its width
// across it; the scales are half-extents.
std::vector<MPoint> rectOutline(const MPoint& center, const MVector& up, const MVector& normal, double scaleX,
                                double scaleY);

}  // namespace mhost
