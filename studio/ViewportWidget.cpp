#include "studio/ViewportWidget.h"

#include <GL/gl.h>
#include <maya/M3dView.h>
#include <maya/MDagPath.h>
#include <maya/MFnCamera.h>
#include <maya/MGlobal.h>
#include <maya/MMatrix.h>
#include <maya/MUIDrawManager.h>
#include <mhost/Frames.h>
#include <mhost/Interaction.h>

#include <QtGui/QFontMetrics>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <cmath>
#include <sstream>

namespace kystrake {
namespace {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

Modifiers modifiersOf(Qt::KeyboardModifiers keys) {
    return {keys.testFlag(Qt::ShiftModifier), keys.testFlag(Qt::ControlModifier)};
}

std::optional<MouseButton> toolButton(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return MouseButton::kLeft;
    if (button == Qt::MiddleButton) return MouseButton::kMiddle;
    return std::nullopt;
}

// What a held brush key changes: the option the tool reads at a press, its range, and the context
// flag that shows the new size in the view.
struct BrushProperty {
    int key;
    const char* optionVar;
    double low, high;
    const char* flag;
    bool isInteger;
};
const BrushProperty kBrushProperties[] = {
    {Qt::Key_N, "ky_strakeIntens", 1.0, 100.0, "-iri", false},
    {Qt::Key_B, "ky_strakeRadius", 1.0, 100.0, "-rri", false},
    {Qt::Key_M, "ky_strakeTweakR", 1.0, 500.0, "-rmi", true},
};
constexpr double kBrushStepPerPixel = 0.5;
// What the tool reads for each of the three options while it is unset (or 0).
constexpr double kBrushOptionDefault = 50.0;

const BrushProperty* brushProperty(int key) {
    for (const BrushProperty& property : kBrushProperties)
        if (property.key == key) return &property;
    return nullptr;
}

// Maya's viewport grey and the retopo wireframe's blue.
const float kBackground[3] = {0.36f, 0.36f, 0.36f};
const float kWireColour[3] = {0.1f, 0.25f, 0.9f};

}  // namespace

ViewportWidget::ViewportWidget(LiveSession& session, QWidget* parent)
    : QOpenGLWidget(parent), session_(&session), camera_(*session.session().camera) {
    setFixedSize(session.session().viewWidth, session.session().viewHeight);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setObjectName("kyStrakeViewport");
}

ViewportWidget::~ViewportWidget() {
    makeCurrent();
    source_.reset();
    doneCurrent();
}

void ViewportWidget::sceneReplaced(LiveSession& session) {
    session_ = &session;
    camera_ = OrbitCamera(*session.session().camera);
    setFixedSize(session.session().viewWidth, session.session().viewHeight);
    sourceDirty_ = wireframeDirty_ = true;
    update();
}

bool ViewportWidget::perform(const Step& step) {
    const bool ok = session_->perform(step);
    if (const auto* placement = std::get_if<CameraPlacement>(&step)) camera_ = OrbitCamera(*placement);
    wireframeDirty_ = true;
    update();
    emit stepPerformed();
    return ok;
}

void ViewportWidget::initializeGL() {
    source_ = std::make_unique<ShadedMesh>();
    sourceDirty_ = true;
}

// The host camera's projection as a GL frustum, with the film fitted to the port as the host fits it,
// and its world-to-camera matrix (row vectors, which is GL's column-major layout as it stands).
void ViewportWidget::loadCameraMatrices() {
    MDagPath cameraPath;
    M3dView::active3dView().getCamera(cameraPath);
    MFnCamera lens(cameraPath);
    const double portAspect = double(width()) / height();
    double tanX = std::tan(lens.horizontalFieldOfView() / 2), tanY = std::tan(lens.verticalFieldOfView() / 2);
    if (portAspect >= tanX / tanY)
        tanY = tanX / portAspect;
    else
        tanX = tanY * portAspect;
    const double nearClip = lens.nearClippingPlane(), farClip = lens.farClippingPlane();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glFrustum(-nearClip * tanX, nearClip * tanX, -nearClip * tanY, nearClip * tanY, nearClip, farClip);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    // A headlight: placed in eye space before the camera's matrix applies.
    const GLfloat headlight[4] = {0.3f, 0.5f, 1.0f, 0.0f};
    glLightfv(GL_LIGHT0, GL_POSITION, headlight);
    const MMatrix worldToCamera = cameraPath.inclusiveMatrixInverse();
    glLoadMatrixd(&worldToCamera.matrix[0][0]);
}

void ViewportWidget::paintGL() {
    const auto start = Clock::now();
    if (sourceDirty_) {
        source_->load(session_->scene().sourceShape);
        sourceDirty_ = false;
    }
    if (wireframeDirty_) {
        wireframe_ = wireframeLines(session_->scene().sourceShape);
        wireframeDirty_ = false;
    }
    glClearColor(kBackground[0], kBackground[1], kBackground[2], 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    loadCameraMatrices();

    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_NORMALIZE);
    glColor3f(0.75f, 0.75f, 0.72f);
    // Pushed back a little, so that the wireframe and the tool's lines on the surface stay in front.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(1.0f, 2.0f);
    source_->draw();
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_LIGHTING);

    glColor3fv(kWireColour);
    glLineWidth(1.0f);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, wireframe_.data());
    glDrawArrays(GL_LINES, 0, GLsizei(wireframe_.size() / 3));
    glDisableClientState(GL_VERTEX_ARRAY);

    // The meshes finish first, so that the time below is the tool's drawing alone.
    glFinish();
    const auto toolStart = Clock::now();
    mhost::driver::runFrame();
    const std::vector<ViewText> texts = drawFramePrimitives(width(), height());
    glFinish();
    toolMs_ = millisecondsSince(toolStart);

    paintTexts(texts);
    glFinish();
    frameMs_ = millisecondsSince(start);
    ++paints_;
}

// Texts go over the GL picture, placed at their pixel as the draw manager aligns them.
void ViewportWidget::paintTexts(const std::vector<ViewText>& texts) {
    QPainter painter(this);
    const QFontMetrics metrics = painter.fontMetrics();
    for (const ViewText& text : texts) {
        const int width = metrics.horizontalAdvance(text.text);
        const double shift = text.alignment == MHWRender::MUIDrawManager::kCenter  ? width / 2.0
                             : text.alignment == MHWRender::MUIDrawManager::kRight ? width
                                                                                   : 0.0;
        painter.setPen(text.color);
        painter.drawText(QPointF(text.pixel.x() - shift, height() - 1 - text.pixel.y()), text.text);
    }
}

Pixel ViewportWidget::viewPixel(const QPoint& position) const {
    return {position.x(), height() - 1 - position.y()};
}

void ViewportWidget::placeHostCamera() {
    const CameraPlacement& c = camera_.placement();
    mhost::driver::placeCamera(MPoint(c.eye[0], c.eye[1], c.eye[2]),
                               MPoint(c.target[0], c.target[1], c.target[2]));
}

void ViewportWidget::tumbleAndRepaint(int dx) {
    mhost::driver::setUserChangingView(true);
    camera_.tumble(dx, 0);
    placeHostCamera();
    // Painted here and now into the widget's framebuffer: repaint() only schedules a GL widget.
    makeCurrent();
    paintGL();
    doneCurrent();
    update();
    mhost::driver::setUserChangingView(false);
}

void ViewportWidget::mousePressEvent(QMouseEvent* event) {
    // A second button pressed during a gesture or a camera move is not a gesture of its own.
    if (gestureButton_ || cameraMove_ != CameraMove::kNone) return;
    lastPosition_ = event->pos();
    if (event->modifiers().testFlag(Qt::AltModifier)) {
        cameraMove_ = event->button() == Qt::LeftButton     ? CameraMove::kTumble
                      : event->button() == Qt::MiddleButton ? CameraMove::kTrack
                                                            : CameraMove::kDolly;
        mhost::driver::setUserChangingView(true);
        return;
    }
    if (heldBrushKey_) {
        adjustingBrush_ = true;
        return;
    }
    gestureButton_ = toolButton(event->button());
    if (gestureButton_)
        perform(Press{viewPixel(event->pos()), *gestureButton_, modifiersOf(event->modifiers())});
}

void ViewportWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPoint delta = event->pos() - lastPosition_;
    lastPosition_ = event->pos();
    switch (cameraMove_) {
        case CameraMove::kTumble:
            camera_.tumble(delta.x(), -delta.y());
            break;
        case CameraMove::kTrack:
            camera_.track(delta.x(), -delta.y(), height());
            break;
        case CameraMove::kDolly:
            camera_.dolly(delta.x(), -delta.y());
            break;
        case CameraMove::kNone:
            if (adjustingBrush_)
                adjustBrush(delta.x());
            else if (gestureButton_)
                perform(Drag{{viewPixel(event->pos())}, *gestureButton_, modifiersOf(event->modifiers())});
            else if (event->buttons() == Qt::NoButton)
                perform(PointerMove{viewPixel(event->pos())});
            return;
    }
    placeHostCamera();
    update();
}

void ViewportWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (cameraMove_ != CameraMove::kNone) {
        cameraMove_ = CameraMove::kNone;
        mhost::driver::setUserChangingView(false);
        // The camera goes into the recording once per move, where it came to rest.
        perform(camera_.placement());
        return;
    }
    if (adjustingBrush_) {
        adjustingBrush_ = false;
        return;
    }
    if (gestureButton_ && toolButton(event->button()) == gestureButton_) {
        perform(Release{viewPixel(event->pos()), *gestureButton_, modifiersOf(event->modifiers())});
        gestureButton_.reset();
    }
}

void ViewportWidget::adjustBrush(int dx) {
    const BrushProperty* property = brushProperty(heldBrushKey_);
    if (!property || dx == 0) return;
    const double current = property->isInteger ? MGlobal::optionVarIntValue(property->optionVar)
                                               : MGlobal::optionVarDoubleValue(property->optionVar);
    double value = std::clamp((current > 0 ? current : kBrushOptionDefault) + dx * kBrushStepPerPixel,
                              property->low, property->high);
    if (property->isInteger) {
        value = std::round(value);
        perform(SetOptionVar{property->optionVar, int(value)});
    } else {
        perform(SetOptionVar{property->optionVar, value});
    }
    std::ostringstream command;
    command.precision(17);
    command << "kyStrakeContext -e " << property->flag << " " << value << " " << session_->scene().context;
    perform(Command{command.str()});
}

void ViewportWidget::keyPressEvent(QKeyEvent* event) {
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            perform(Key{Key::Name::kEnter});
            return;
        case Qt::Key_Escape:
            perform(Key{Key::Name::kEscape});
            return;
        case Qt::Key_Backspace:
            perform(Key{Key::Name::kBackspace});
            return;
        case Qt::Key_Z:
            if (control) {
                if (shift)
                    perform(Redo{1});
                else
                    perform(Undo{1});
                return;
            }
            break;
        default:
            if (brushProperty(event->key()) && !event->isAutoRepeat()) {
                heldBrushKey_ = event->key();
                return;
            }
    }
    QOpenGLWidget::keyPressEvent(event);
}

void ViewportWidget::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == heldBrushKey_ && !event->isAutoRepeat()) {
        heldBrushKey_ = 0;
        return;
    }
    QOpenGLWidget::keyReleaseEvent(event);
}

}  // namespace kystrake
