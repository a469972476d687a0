#pragma once
// Array work of stroke capture that needs no scene: the lazy tail filter, the walk along a closed
// figure at a row's spacing, and two small polyline helpers.

#include <maya/MPointArray.h>

// One run of the lazy filter per pass over the last `window` points of `points`, in place: each
// inner point becomes 0.25 of its left, 0.5 of itself and 0.25 of its right neighbour, from the
// window's start towards the tip, so an updated point feeds the next. The tip never moves. Does
// nothing to strokes of fewer than 3 points, nor while the stroke is shorter than `window`.
// O(window * passes).
void lazySmoothTail(MPointArray& points, int window, int passes);

// Points taken along `points` every `length` / `count` of 3D arc length, walking from the start
// (`forward`) or from the end. The walk ends at either end of the array, once the distance
// covered exceeds `length`, or after as many points as the array holds. Empty when `count` is 0.
MPointArray pointsAlongArc(const MPointArray& points, double length, int count, bool forward);

// Sum of the 3D lengths of the segments; 0 for fewer than two points.
double polylineLength(const MPointArray& points);

// `points` rotated so that it starts at index `start` (which must be within the array).
MPointArray rotatedToStart(const MPointArray& points, unsigned start);
