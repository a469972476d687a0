#include "drawing/PrimitivePainter.h"

#include <QFontMetricsF>
#include <algorithm>

#include "drawing/PrimitiveShapes.h"
#include "drawing/ProjectedLines.h"

namespace mhost {
namespace {

QColor toQColor(const MColor& c) {
    auto unit = [](float v) { return std::clamp(static_cast<double>(v), 0.0, 1.0); };
    return QColor::fromRgbF(unit(c.r), unit(c.g), unit(c.b), unit(c.a));
}

// On and off lengths, in pixels, of the named line styles.
QVector<qreal> namedDashes(DrawManager::LineStyle style) {
    switch (style) {
        case DrawManager::kShortDotted:
            return {1, 2};
        case DrawManager::kShortDashed:
            return {4, 4};
        case DrawManager::kDashed:
            return {8, 6};
        case DrawManager::kDotted:
            return {1, 4};
        case DrawManager::kSolid:
            break;
    }
    return {};
}

// The runs of a 16-bit stipple pattern (lowest bit first, each bit `factor` pixels), starting with an
// "on" run as QPen wants; empty for a solid pattern. The phase of the pattern is not kept.
QVector<qreal> stippleDashes(unsigned int factor, unsigned short pattern) {
    int first = 0;
    while (first < 16 && !(pattern >> first & 1)) ++first;
    QVector<qreal> runs;
    bool on = true;
    for (int i = 0; i < 16; ++i) {
        const bool bit = pattern >> ((first + i) % 16) & 1;
        if (runs.isEmpty() || bit != on) runs << 0;
        on = bit;
        runs.back() += factor;
    }
    if (runs.size() == 1) return {};
    if (runs.size() % 2) {  // the pattern ends "on" as it starts: join the two runs
        runs.front() += runs.back();
        runs.pop_back();
    }
    return runs;
}

QPen penOf(const DrawState& state) {
    const qreal width = std::max(1.0f, state.lineWidth);
    QPen pen(toQColor(state.color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    if (state.stippleFactor && state.stipplePattern == 0) return QPen(Qt::NoPen);
    QVector<qreal> dashes = state.stippleFactor ? stippleDashes(state.stippleFactor, state.stipplePattern)
                                                : namedDashes(state.lineStyle);
    if (dashes.isEmpty()) return pen;
    for (qreal& d : dashes) d /= width;  // QPen measures dashes in line widths
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern(dashes);
    return pen;
}

// The segment of a line list that starts at `first`.
std::vector<MPoint> segmentAt(const std::vector<MPoint>& points, size_t first) {
    return {points[first], points[first + 1]};
}

}  // namespace

PrimitivePainter::PrimitivePainter(QPainter& painter, const PictureSpace& space, const DepthBuffer& depth)
    : fPainter(painter), fSpace(space), fDepth(depth) {}

const DepthBuffer* PrimitivePainter::occluder(const DrawRecord& record) const {
    return record.is2D || record.state.xray ? nullptr : &fDepth;
}

bool PrimitivePainter::place(const MPoint& point, const DrawRecord& record, QPointF& pixel) const {
    if (record.is2D) {
        pixel = fSpace.fromView(point);
        return true;
    }
    const ImagePoint image = fSpace.fromWorld(point);
    pixel = image.pixel();
    const DepthBuffer* depth = occluder(record);
    return image.depth >= fSpace.nearDepth() && (!depth || depth->isVisible(image));
}

void PrimitivePainter::strokePolyline(const std::vector<MPoint>& points, bool closed,
                                      const DrawRecord& record) {
    fPainter.setPen(penOf(record.state));
    fPainter.setBrush(Qt::NoBrush);
    if (!record.is2D) {
        for (const auto& run : projectPolyline(points, closed, fSpace, occluder(record)))
            fPainter.drawPolyline(run);
        return;
    }
    QPolygonF line;
    for (const auto& p : points) line << fSpace.fromView(p);
    if (closed)
        fPainter.drawPolygon(line);
    else
        fPainter.drawPolyline(line);
}

void PrimitivePainter::fillPolygon(const std::vector<MPoint>& points, const QColor& color,
                                   const DrawRecord& record) {
    const std::vector<MPoint> visible = record.is2D ? points : fSpace.clipPolygon(points);
    if (visible.size() < 3) return;
    MVector sum;
    for (const auto& p : visible) sum += MVector(p);
    QPointF centre;
    if (!place(MPoint(sum / static_cast<double>(visible.size())), record, centre)) return;
    QPolygonF polygon;
    for (const auto& p : visible) polygon << (record.is2D ? fSpace.fromView(p) : fSpace.fromWorld(p).pixel());
    fPainter.setPen(Qt::NoPen);
    fPainter.setBrush(color);
    fPainter.drawPolygon(polygon);
}

void PrimitivePainter::paintPoint(const MPoint& point, const QColor& color, const DrawRecord& record) {
    QPointF pixel;
    if (!place(point, record, pixel)) return;
    const qreal size = std::max(1.0f, record.state.pointSize);
    fPainter.fillRect(QRectF(pixel.x() - size / 2, pixel.y() - size / 2, size, size), color);
}

void PrimitivePainter::paintOutline(const std::vector<MPoint>& outline, bool closed,
                                    const DrawRecord& record) {
    if (record.filled)
        fillPolygon(outline, toQColor(record.state.color), record);
    else
        strokePolyline(outline, closed, record);
}

void PrimitivePainter::paintText(const DrawRecord& record) {
    QPointF pixel;
    if (!place(record.points.front(), record, pixel)) return;
    QFont font;
    if (!record.state.fontName.empty()) font.setFamily(QString::fromStdString(record.state.fontName));
    font.setPixelSize(static_cast<int>(std::max(1u, record.state.fontSize)));
    const QString text = QString::fromStdString(record.text);
    const qreal advance = QFontMetricsF(font).horizontalAdvance(text);
    if (record.alignment == DrawManager::kCenter) pixel.rx() -= advance / 2;
    if (record.alignment == DrawManager::kRight) pixel.rx() -= advance;
    fPainter.setFont(font);
    fPainter.setPen(toQColor(record.state.color));
    fPainter.drawText(pixel, text);
}

void PrimitivePainter::paintMesh(const DrawRecord& record) {
    std::vector<size_t> order;
    if (record.indices.empty())
        for (size_t i = 0; i < record.points.size(); ++i) order.push_back(i);
    for (unsigned int index : record.indices)
        if (index < record.points.size()) order.push_back(index);
    auto colorAt = [&](size_t i) {
        return i < record.colors.size() ? toQColor(record.colors[i]) : toQColor(record.state.color);
    };
    std::vector<MPoint> corners;
    for (size_t i : order) corners.push_back(record.points[i]);
    switch (record.primitive) {
        case DrawManager::kTriangles:
        case DrawManager::kTriStrip: {
            const bool strip = record.primitive == DrawManager::kTriStrip;
            for (size_t i = 0; i + 2 < order.size(); i += strip ? 1 : 3)
                fillPolygon({corners[i], corners[i + 1], corners[i + 2]}, colorAt(order[i]), record);
            break;
        }
        case DrawManager::kLines:
            for (size_t i = 0; i + 1 < corners.size(); i += 2)
                strokePolyline(segmentAt(corners, i), false, record);
            break;
        case DrawManager::kLineStrip:
            strokePolyline(corners, false, record);
            break;
        case DrawManager::kClosedLine:
            strokePolyline(corners, true, record);
            break;
        case DrawManager::kPoints:
            for (size_t i = 0; i < corners.size(); ++i) paintPoint(corners[i], colorAt(order[i]), record);
            break;
    }
}

void PrimitivePainter::paint(const DrawRecord& record) {
    const std::vector<MPoint>& p = record.points;
    switch (record.call) {
        case DrawCall::kLine:
            strokePolyline(p, false, record);
            break;
        case DrawCall::kLineList:
            for (size_t i = 0; i + 1 < p.size(); i += 2) strokePolyline(segmentAt(p, i), false, record);
            break;
        case DrawCall::kLineStrip:
            strokePolyline(p, false, record);
            break;
        case DrawCall::kPoint:
        case DrawCall::kPoints:
            for (const auto& point : p) paintPoint(point, toQColor(record.state.color), record);
            break;
        case DrawCall::kCircle:
            paintOutline(circleOutline(p.front(), record.normal, record.radius, record.subdivisions), true,
                         record);
            break;
        case DrawCall::kArc: {
            std::vector<MPoint> outline = arcOutline(p.front(), record.arcStart, record.arcEnd, record.normal,
                                                     record.radius, record.subdivisions);
            if (record.filled) outline.insert(outline.begin(), p.front());
            paintOutline(outline, false, record);
            break;
        }
        case DrawCall::kRect:
            paintOutline(rectOutline(p.front(), record.up, record.normal, record.scaleX, record.scaleY), true,
                         record);
            break;
        case DrawCall::kText:
            paintText(record);
            break;
        case DrawCall::kMesh:
            paintMesh(record);
            break;
        default:
            break;
    }
}

}  // namespace mhost
