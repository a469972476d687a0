#include "drawing/MeshPainter.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "drawing/ProjectedLines.h"

namespace mhost {
namespace {

const QColor kWireColor = QColor::fromRgbF(0.45, 0.85, 1.0);

std::vector<MPoint> cornersOf(const MeshView& mesh, const std::vector<int>& polygon) {
    std::vector<MPoint> corners;
    for (int id : polygon) corners.push_back(mesh.points.at(static_cast<size_t>(id)));
    return corners;
}

// Newell's normal, unit length (zero for a polygon without area).
MVector normalOf(const std::vector<MPoint>& corners) {
    MVector normal;
    for (size_t i = 0; i < corners.size(); ++i) {
        const MPoint& a = corners[i];
        const MPoint& b = corners[(i + 1) % corners.size()];
        normal += MVector((a.y - b.y) * (a.z + b.z), (a.z - b.z) * (a.x + b.x), (a.x - b.x) * (a.y + b.y));
    }
    return normal.length() > 0.0 ? normal.normal() : normal;
}

MPoint centroidOf(const std::vector<MPoint>& corners) {
    MVector sum;
    for (const auto& p : corners) sum += MVector(p);
    return MPoint(sum / static_cast<double>(corners.size()));
}

QRgb shadeOf(const std::vector<MPoint>& corners, const MPoint& eye, const MVector& towardsLight) {
    const MVector normal = normalOf(corners);
    const bool facesEye = normal * (eye - centroidOf(corners)) > 0.0;
    const double lambert = std::abs(normal * towardsLight);
    const double light = 0.18 + 0.82 * lambert;
    if (facesEye) return QColor::fromRgbF(0.78 * light, 0.78 * light, 0.76 * light).rgb();
    return QColor::fromRgbF(0.45 * light, 0.22 * light, 0.22 * light).rgb();
}

}  // namespace

void paintShadedMesh(const MeshView& mesh, const MPoint& eye, const MVector& towardsLight,
                     const PictureSpace& space, DepthBuffer& depth, QImage& image) {
    for (const auto& polygon : mesh.polygons) {
        const std::vector<MPoint> corners = cornersOf(mesh, polygon);
        const std::vector<MPoint> visible = space.clipPolygon(corners);
        if (visible.size() < 3) continue;
        const QRgb color = shadeOf(corners, eye, towardsLight);
        const ImagePoint first = space.fromWorld(visible[0]);
        for (size_t i = 1; i + 1 < visible.size(); ++i)
            depth.fillTriangle(first, space.fromWorld(visible[i]), space.fromWorld(visible[i + 1]), color,
                               image);
    }
}

void paintWireframe(const MeshView& mesh, const PictureSpace& space, const DepthBuffer& depth,
                    QPainter& painter) {
    painter.setPen(QPen(kWireColor, 1.0));
    std::set<std::pair<int, int>> drawn;
    for (const auto& polygon : mesh.polygons) {
        for (size_t i = 0; i < polygon.size(); ++i) {
            const int a = polygon[i], b = polygon[(i + 1) % polygon.size()];
            if (!drawn.insert({std::min(a, b), std::max(a, b)}).second) continue;
            const std::vector<MPoint> edge = {mesh.points.at(static_cast<size_t>(a)),
                                              mesh.points.at(static_cast<size_t>(b))};
            for (const auto& run : projectPolyline(edge, false, space, &depth)) painter.drawPolyline(run);
        }
    }
}

}  // namespace mhost
