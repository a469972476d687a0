#pragma once
// The studio's main window: the viewport and the artist's panel side by side, and a File menu that
// opens an OBJ source, exports the retopo mesh, saves and loads the scene, and saves the recording.

#include <QtWidgets/QMainWindow>
#include <memory>
#include <string>

#include "studio/LiveSession.h"

namespace kystrake {

class StudioPanel;
class ViewportWidget;

class StudioWindow : public QMainWindow {
    Q_OBJECT
public:
    // Sets the scene up from the session's source, view and camera; its steps (but its frames) are
    // then run as the artist's, so the recording goes on from where the session ended. Throws what setting
    // the scene up throws.
    StudioWindow(const Session& start, const std::string& pluginPath);
    ~StudioWindow() override;

    ViewportWidget& viewport() { return *viewport_; }
    LiveSession& session() { return *session_; }

    // Replaces the scene with a new one on the OBJ source at `path`; the recording starts again.
    void openSource(const std::string& path);
    // Writes the retopo mesh as OBJ; false when the scene holds none.
    bool exportRetopo(const std::string& path);

private:
    void buildMenu();
    void reportProblem(const QString& what);

    std::unique_ptr<LiveSession> session_;
    ViewportWidget* viewport_ = nullptr;
    StudioPanel* panel_ = nullptr;
};

}  // namespace kystrake
