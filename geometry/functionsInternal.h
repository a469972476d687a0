#pragma once
// Shared by the geometry library's sources only: the stem its failures are reported under, and
// the small helpers several of its files use.

#include "geometry/errorReporting.h"
#include "geometry/functions.h"

constexpr const char* kyErrorStem = "functions";

// The locator's attribute `name`, read afresh; empty when there is no locator or no value.
MIntArray locatorIntArray(const char* name, MStatus* status = nullptr);
MPointArray locatorPointArray(const char* name, MStatus* status = nullptr);

// Splits a flat stroke set into polylines by its sizes. No check that the sizes add up: a
// polyline running past the points simply ends with them.
PolylineList splitStrokeSet(const MPointArray& points, const MIntArray& sizes);
