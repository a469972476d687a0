// The shared ring marker of the viewport feedback.

#include <maya/MUIDrawManager.h>

#include "geometry/functionsInternal.h"

void drawMarker(MHWRender::MUIDrawManager& manager, const MPoint& point, const MColor& color, double radius,
                bool plain) {
    const bool keepColor = color == MColor(0.0f, 0.0f, 0.0f, 1.0f);
    if (!keepColor) manager.setColor(color);
    // A z of exactly 0.0 marks a point already in view pixels. A world point lying exactly on the
    // z = 0 plane is therefore taken for pixels too: a known limit of this test.
    const MPoint centre = point.z == 0.0 ? point : worldToScreen(point);
    manager.setLineWidth(plain ? 1.5f : 2.0f);
    manager.circle2d(centre, radius, false);
    manager.circle2d(centre, radius - 3.5, true);
    if (plain) return;
    // A thin dark edge inside and outside sets the ring off against any background.
    manager.setLineWidth(1.0f);
    manager.setColor(MColor(0.01f, 0.01f, 0.01f, 0.98f));
    manager.circle2d(centre, radius + 2.0, false);
    manager.circle2d(centre, radius - 1.0, false);
    manager.setColor(color);
}
