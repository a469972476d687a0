#pragma once
// The studio's 3D view: draws the shaded source, the retopo mesh as a wireframe and what the tool and
// its draw override draw, and turns the artist's mouse and keys into the events Maya sends the tool.
// Alt with the left, middle or right button tumbles, tracks or dollies the camera; n, b or m held
// while dragging changes the relax intensity, relax radius or move radius. The widget keeps the
// session's view size, so that recorded pixels mean the same in a replay.

#include <QtWidgets/QOpenGLWidget>
#include <chrono>
#include <memory>
#include <optional>

#include "studio/LiveSession.h"
#include "studio/MeshDrawing.h"
#include "studio/OrbitCamera.h"
#include "studio/PrimitiveDrawing.h"

namespace kystrake {

class ViewportWidget : public QOpenGLWidget {
    Q_OBJECT
public:
    explicit ViewportWidget(LiveSession& session, QWidget* parent = nullptr);
    ~ViewportWidget() override;

    // Runs a step as the artist's, then redraws; the panel uses it for its edits.
    bool perform(const Step& step);
    LiveSession& session() { return *session_; }
    // Reads the scene's meshes again, after a new scene or a loaded one.
    void sceneReplaced(LiveSession& session);

    // Milliseconds the last paint took in all, and in the part that ran the host's frame and drew
    // its primitives: the tool's own drawing.
    double lastFrameMilliseconds() const { return frameMs_; }
    double lastToolDrawingMilliseconds() const { return toolMs_; }
    // How many times the view has painted.
    int paintCount() const { return paints_; }
    // Tumbles the camera by `dx` pixels and repaints at once, for measuring orbit frame times.
    void tumbleAndRepaint(int dx);

signals:
    // A step ran: the panel shows the new status and help texts.
    void stepPerformed();

protected:
    void initializeGL() override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    enum class CameraMove { kNone, kTumble, kTrack, kDolly };

    Pixel viewPixel(const QPoint& position) const;
    void loadCameraMatrices();
    void placeHostCamera();
    void adjustBrush(int dx);
    void paintTexts(const std::vector<ViewText>& texts);

    LiveSession* session_;
    OrbitCamera camera_;
    std::unique_ptr<ShadedMesh> source_;
    std::vector<float> wireframe_;
    bool sourceDirty_ = true;
    bool wireframeDirty_ = true;
    CameraMove cameraMove_ = CameraMove::kNone;
    std::optional<MouseButton> gestureButton_;
    int heldBrushKey_ = 0;
    bool adjustingBrush_ = false;
    QPoint lastPosition_;
    double frameMs_ = 0.0;
    double toolMs_ = 0.0;
    int paints_ = 0;
};

}  // namespace kystrake
