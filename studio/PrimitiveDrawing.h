#pragma once
// Draws with OpenGL what the draw override and the tool's feedback recorded through MUIDrawManager in
// the host's last frame: 3D primitives in the world under the caller's camera matrices, 2D ones in
// view pixels. Texts are returned for the caller to paint over the picture, since fixed-function GL
// has no text.

#include <QtCore/QPointF>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <vector>

namespace kystrake {

struct ViewText {
    QPointF pixel;  // bottom-left origin, as the view's pixels
    QString text;
    QColor color;
    int alignment = 0;  // MUIDrawManager::TextAlignment
};

// Draws every primitive of the last frame's drawings; the caller has loaded the camera's projection
// and model-view matrices and keeps the GL context current. `viewWidth` and `viewHeight` are the
// port's size for the 2D primitives.
std::vector<ViewText> drawFramePrimitives(int viewWidth, int viewHeight);

}  // namespace kystrake
