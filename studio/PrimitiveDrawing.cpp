#include "studio/PrimitiveDrawing.h"

#include <GL/gl.h>
#include <mhost/Frames.h>

#include <cmath>

#include "drawing/DisplayList.h"

namespace kystrake {
namespace {

using mhost::DrawCall;
using mhost::DrawRecord;
using MHWRender::MUIDrawManager;

constexpr int kDefaultCircleSegments = 48;

void setState(const DrawRecord& record) {
    const MColor& c = record.state.color;
    glColor4f(c.r, c.g, c.b, c.a);
    glLineWidth(record.state.lineWidth);
    glPointSize(record.state.pointSize);
    static const unsigned short patterns[] = {0xFFFF, 0x3333, 0x0F0F, 0x00FF, 0x0101};
    const bool stippled = record.state.stippleFactor > 0 || record.state.lineStyle != MUIDrawManager::kSolid;
    if (stippled) {
        glEnable(GL_LINE_STIPPLE);
        if (record.state.stippleFactor > 0)
            glLineStipple(GLint(record.state.stippleFactor), record.state.stipplePattern);
        else
            glLineStipple(1, patterns[record.state.lineStyle]);
    } else {
        glDisable(GL_LINE_STIPPLE);
    }
    // X-ray and raised depth priority show through the source, as the tool means them to.
    if (record.state.xray || record.state.depthPriority > 0)
        glDisable(GL_DEPTH_TEST);
    else
        glEnable(GL_DEPTH_TEST);
}

void vertex(const MPoint& p) { glVertex3d(p.x, p.y, p.z); }

void drawPoints(GLenum mode, const std::vector<MPoint>& points) {
    glBegin(mode);
    for (const MPoint& p : points) vertex(p);
    glEnd();
}

// A circle, arc or rectangle outline in the plane through `centre` spanned by `across` and `up`.
void drawRound(const DrawRecord& r, const MVector& across, const MVector& up, double from, double to) {
    const int segments = r.subdivisions > 2 ? r.subdivisions : kDefaultCircleSegments;
    glBegin(r.filled ? GL_TRIANGLE_FAN : GL_LINE_STRIP);
    if (r.filled) vertex(r.points[0]);
    for (int i = 0; i <= segments; ++i) {
        const double angle = from + (to - from) * i / segments;
        vertex(r.points[0] + r.radius * (std::cos(angle) * across + std::sin(angle) * up));
    }
    glEnd();
}

// Two unit directions at right angles to `normal` and to each other.
void planeAxes(const MVector& normal, MVector& across, MVector& up) {
    const MVector n = normal.length() > 0 ? normal.normal() : MVector(0, 0, 1);
    across = (std::abs(n.x) < 0.9 ? MVector(1, 0, 0) : MVector(0, 1, 0)) ^ n;
    across.normalize();
    up = n ^ across;
}

void drawArc(const DrawRecord& r) {
    MVector across, up;
    planeAxes(r.is2D ? MVector(0, 0, 1) : r.normal, across, up);
    double from = 0.0, to = 2.0 * M_PI;
    if (r.call == DrawCall::kArc) {
        from = std::atan2(r.arcStart * up, r.arcStart * across);
        to = std::atan2(r.arcEnd * up, r.arcEnd * across);
        if (to <= from) to += 2.0 * M_PI;
    }
    drawRound(r, across, up, from, to);
}

void drawRect(const DrawRecord& r) {
    MVector up = r.up.length() > 0 ? r.up.normal() : MVector(0, 1, 0);
    const MVector normal = r.is2D ? MVector(0, 0, 1) : r.normal;
    MVector across = (up ^ normal);
    if (across.length() > 0) across.normalize();
    const MPoint& c = r.points[0];
    glBegin(r.filled ? GL_QUADS : GL_LINE_LOOP);
    vertex(c - r.scaleX * across - r.scaleY * up);
    vertex(c + r.scaleX * across - r.scaleY * up);
    vertex(c + r.scaleX * across + r.scaleY * up);
    vertex(c - r.scaleX * across + r.scaleY * up);
    glEnd();
}

void drawMesh(const DrawRecord& r) {
    static const GLenum modes[] = {GL_POINTS,    GL_LINES,     GL_LINE_STRIP,
                                   GL_LINE_LOOP, GL_TRIANGLES, GL_TRIANGLE_STRIP};
    glBegin(modes[r.primitive]);
    const size_t count = r.indices.empty() ? r.points.size() : r.indices.size();
    for (size_t i = 0; i < count; ++i) {
        const size_t at = r.indices.empty() ? i : r.indices[i];
        if (at >= r.points.size()) continue;
        if (at < r.colors.size()) glColor4f(r.colors[at].r, r.colors[at].g, r.colors[at].b, r.colors[at].a);
        vertex(r.points[at]);
    }
    glEnd();
}

void drawRecord(const DrawRecord& r, std::vector<ViewText>& texts) {
    if (r.points.empty()) return;
    setState(r);
    switch (r.call) {
        case DrawCall::kLine:
        case DrawCall::kLineList:
            drawPoints(GL_LINES, r.points);
            break;
        case DrawCall::kLineStrip:
            drawPoints(GL_LINE_STRIP, r.points);
            break;
        case DrawCall::kPoint:
        case DrawCall::kPoints:
            drawPoints(GL_POINTS, r.points);
            break;
        case DrawCall::kCircle:
        case DrawCall::kArc:
            drawArc(r);
            break;
        case DrawCall::kRect:
            drawRect(r);
            break;
        case DrawCall::kMesh:
            drawMesh(r);
            break;
        case DrawCall::kText: {
            const MColor& c = r.state.color;
            texts.push_back({QPointF(r.points[0].x, r.points[0].y), QString::fromStdString(r.text),
                             QColor::fromRgbF(c.r, c.g, c.b, c.a), int(r.alignment)});
            break;
        }
        default:
            break;
    }
}

// 3D text positions are projected to view pixels with the matrices in force.
void projectText(const DrawRecord& r, std::vector<ViewText>& texts, int viewWidth, int viewHeight) {
    if (!r.is2D && r.call == DrawCall::kText && !texts.empty()) {
        GLdouble model[16], projection[16];
        glGetDoublev(GL_MODELVIEW_MATRIX, model);
        glGetDoublev(GL_PROJECTION_MATRIX, projection);
        const MPoint& p = r.points[0];
        double eye[4], clip[4];
        for (int row = 0; row < 4; ++row)
            eye[row] = model[row] * p.x + model[4 + row] * p.y + model[8 + row] * p.z + model[12 + row];
        for (int row = 0; row < 4; ++row)
            clip[row] = projection[row] * eye[0] + projection[4 + row] * eye[1] +
                        projection[8 + row] * eye[2] + projection[12 + row] * eye[3];
        if (clip[3] <= 0) return texts.pop_back();
        texts.back().pixel =
            QPointF((clip[0] / clip[3] + 1) * 0.5 * viewWidth, (clip[1] / clip[3] + 1) * 0.5 * viewHeight);
    }
}

}  // namespace

std::vector<ViewText> drawFramePrimitives(int viewWidth, int viewHeight) {
    std::vector<ViewText> texts;
    for (const auto& drawing : mhost::driver::frameDrawings()) {
        if (!drawing.list) continue;
        for (const DrawRecord* record : drawing.list->primitives()) {
            if (record->is2D) {
                glMatrixMode(GL_PROJECTION);
                glPushMatrix();
                glLoadIdentity();
                glOrtho(0, viewWidth, 0, viewHeight, -1, 1);
                glMatrixMode(GL_MODELVIEW);
                glPushMatrix();
                glLoadIdentity();
                drawRecord(*record, texts);
                glPopMatrix();
                glMatrixMode(GL_PROJECTION);
                glPopMatrix();
                glMatrixMode(GL_MODELVIEW);
            } else {
                drawRecord(*record, texts);
                projectText(*record, texts, viewWidth, viewHeight);
            }
        }
    }
    glDisable(GL_LINE_STIPPLE);
    glEnable(GL_DEPTH_TEST);
    return texts;
}

}  // namespace kystrake
