#pragma once
// Meshes in a frame's picture: the source shaded, the others as wireframes.

#include <maya/MVector.h>

#include <QImage>
#include <QPainter>

#include "drawing/DepthBuffer.h"
#include "drawing/MeshView.h"
#include "drawing/PictureSpace.h"

namespace mhost {

// Draws the mesh flat-shaded into `image` and `depth`: each polygon in one Lambert shade of a light
// grey by its normal against `towardsLight` (a unit world direction), faces turned away from `eye`
// in a darker, reddish shade. Polygons are cut at the near plane and fanned into triangles.
void paintShadedMesh(const MeshView& mesh, const MPoint& eye, const MVector& towardsLight,
                     const PictureSpace& space, DepthBuffer& depth, QImage& image);

// Draws every edge of the mesh once, as thin lines, where no shaded surface hides it.
void paintWireframe(const MeshView& mesh, const PictureSpace& space, const DepthBuffer& depth,
                    QPainter& painter);

}  // namespace mhost
