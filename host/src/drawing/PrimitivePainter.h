#pragma once
// Display-list primitives in a frame's picture, drawn with QPainter in their recorded colour, line
// width, line style, point size and font. 3D primitives outside X-ray are hidden where the shaded
// mesh lies in front of them; 2D and X-ray primitives always show.

#include <QPainter>
#include <vector>

#include "drawing/DepthBuffer.h"
#include "drawing/DisplayList.h"
#include "drawing/PictureSpace.h"

namespace mhost {

class PrimitivePainter {
public:
    PrimitivePainter(QPainter& painter, const PictureSpace& space, const DepthBuffer& depth);

    // Draws one record; records that draw nothing are ignored.
    void paint(const DrawRecord& record);

private:
    // The depth buffer that may hide the record, or null when nothing hides it.
    const DepthBuffer* occluder(const DrawRecord& record) const;
    void strokePolyline(const std::vector<MPoint>& points, bool closed, const DrawRecord& record);
    void fillPolygon(const std::vector<MPoint>& points, const QColor& color, const DrawRecord& record);
    void paintPoint(const MPoint& point, const QColor& color, const DrawRecord& record);
    void paintOutline(const std::vector<MPoint>& outline, bool closed, const DrawRecord& record);
    void paintText(const DrawRecord& record);
    void paintMesh(const DrawRecord& record);
    // Where a point of the record lands; false when it is hidden or behind the near plane.
    bool place(const MPoint& point, const DrawRecord& record, QPointF& pixel) const;

    QPainter& fPainter;
    const PictureSpace& fSpace;
    const DepthBuffer& fDepth;
};

}  // namespace mhost
