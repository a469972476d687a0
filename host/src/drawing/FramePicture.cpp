#include "drawing/FramePicture.h"

#include <maya/MFnCamera.h>

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

#include "drawing/DepthBuffer.h"
#include "drawing/GuiApplication.h"
#include "drawing/MeshPainter.h"
#include "drawing/PictureSpace.h"
#include "drawing/PrimitivePainter.h"

namespace mhost {
namespace {

void paintBackground(QImage& image) {
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, 0, image.height());
    gradient.setColorAt(0.0, QColor::fromRgbF(0.38, 0.42, 0.48));
    gradient.setColorAt(1.0, QColor::fromRgbF(0.09, 0.09, 0.11));
    painter.fillRect(image.rect(), gradient);
}

void paintSource(const MeshView& mesh, const Frame& frame, const PictureSpace& space, DepthBuffer& depth,
                 QImage& image) {
    MFnCamera camera(frame.camera);
    const MPoint eye = camera.eyePoint(MSpace::kWorld);
    // A key light from above the camera's left shoulder, so that round shapes read as round.
    const MVector towardsLight =
        (-camera.viewDirection(MSpace::kWorld) + camera.upDirection(MSpace::kWorld) * 0.6 -
         camera.rightDirection(MSpace::kWorld) * 0.4)
            .normal();
    paintShadedMesh(mesh, eye, towardsLight, space, depth, image);
}

// Every primitive of the frame, by depth priority; a stable sort keeps the drawing order among equals.
std::vector<const DrawRecord*> primitivesInDrawOrder(const Frame& frame) {
    std::vector<const DrawRecord*> records;
    for (const auto& layer : frame.layers)
        for (const DrawRecord* record : layer.list->primitives()) records.push_back(record);
    std::stable_sort(records.begin(), records.end(), [](const DrawRecord* a, const DrawRecord* b) {
        return a->state.depthPriority < b->state.depthPriority;
    });
    return records;
}

}  // namespace

QImage renderFrame(const Frame& frame, const PictureMeshes& meshes) {
    ensureGuiApplication();
    const PictureSpace space(frame.projection);
    QImage image(space.width(), space.height(), QImage::Format_RGB32);
    paintBackground(image);
    DepthBuffer depth(space.width(), space.height());
    if (meshes.source) paintSource(*meshes.source, frame, space, depth, image);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    for (const auto& mesh : meshes.wireframes) paintWireframe(mesh, space, depth, painter);
    PrimitivePainter primitives(painter, space, depth);
    for (const DrawRecord* record : primitivesInDrawOrder(frame)) primitives.paint(*record);
    return image;
}

}  // namespace mhost
