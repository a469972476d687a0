#pragma once
// Placing a camera: the translation and rotation of its transform that put the eye at a world point
// looking along a world direction.

#include <maya/MPoint.h>
#include <maya/MStatus.h>
#include <maya/MVector.h>

#include "graph/Node.h"

namespace mhost {

// Writes translate and rotate (radians, XYZ order) of the camera shape's transform so that the camera
// looks from `eye` along `view`, rolled so that its up direction lies in the plane of `view` and `up`
// (any other up is taken when the two are parallel). A parent above the transform is accounted for;
// the transform's scale stays. kInvalidParameter for a zero view direction or a shape without a
// transform; the failing status of a locked plug otherwise.
MStatus aimCamera(const NodePtr& camera, const MPoint& eye, const MVector& view, const MVector& up);

}  // namespace mhost
