#include "studio/StudioWindow.h"

#include <mhost/SceneFile.h>

#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>

#include "runner/SessionPlayer.h"
#include "runner/SessionWriter.h"
#include "studio/StudioPanel.h"
#include "studio/ViewportWidget.h"

namespace kystrake {

StudioWindow::StudioWindow(const Session& start, const std::string& pluginPath)
    : session_(std::make_unique<LiveSession>(start, pluginPath)) {
    setWindowTitle("kyStrake Studio");
    auto* central = new QWidget;
    auto* layout = new QHBoxLayout(central);
    viewport_ = new ViewportWidget(*session_);
    panel_ = new StudioPanel(*viewport_);
    layout->addWidget(viewport_);
    layout->addWidget(panel_);
    setCentralWidget(central);
    connect(viewport_, &ViewportWidget::stepPerformed, panel_, &StudioPanel::showToolTexts);
    buildMenu();
    // Pictures are the runner's business; the window shows every step anyway.
    for (const Step& step : start.steps)
        if (!std::holds_alternative<Frame>(step)) viewport_->perform(step);
    viewport_->setFocus();
}

StudioWindow::~StudioWindow() = default;

void StudioWindow::openSource(const std::string& path) {
    Session start;
    start.source.objPath = path;
    start.viewWidth = session_->session().viewWidth;
    start.viewHeight = session_->session().viewHeight;
    session_->restart(start);
    viewport_->sceneReplaced(*session_);
    panel_->showToolTexts();
}

bool StudioWindow::exportRetopo(const std::string& path) { return writeRetopoMesh(session_->scene(), path); }

void StudioWindow::reportProblem(const QString& what) { QMessageBox::warning(this, "kyStrake Studio", what); }

void StudioWindow::buildMenu() {
    QMenu* file = menuBar()->addMenu("&File");
    file->addAction("&Open OBJ source...", [this] {
        const QString path = QFileDialog::getOpenFileName(this, "Open source mesh", {}, "OBJ meshes (*.obj)");
        if (path.isEmpty()) return;
        try {
            openSource(path.toStdString());
        } catch (const std::exception& error) {
            reportProblem(error.what());
        }
    });
    file->addAction("&Export retopo OBJ...", [this] {
        const QString path =
            QFileDialog::getSaveFileName(this, "Export retopo mesh", "retopo.obj", "OBJ (*.obj)");
        if (!path.isEmpty() && !exportRetopo(path.toStdString()))
            reportProblem("The scene has no retopo mesh yet.");
    });
    file->addSeparator();
    file->addAction("&Save scene...", [this] {
        const QString path =
            QFileDialog::getSaveFileName(this, "Save scene", "scene.json", "Scenes (*.json)");
        std::string error;
        if (!path.isEmpty() && !mhost::driver::saveScene(path.toStdString(), &error))
            reportProblem(QString::fromStdString(error));
    });
    file->addAction("&Load scene...", [this] {
        const QString path = QFileDialog::getOpenFileName(this, "Load scene", {}, "Scenes (*.json)");
        std::string error;
        if (path.isEmpty()) return;
        if (!session_->loadScene(path.toStdString(), error))
            return reportProblem(QString::fromStdString(error));
        viewport_->sceneReplaced(*session_);
        statusBar()->showMessage("Scene loaded: recording stopped, a replay starts from the source alone");
    });
    file->addSeparator();
    file->addAction("Save &recording...", [this] {
        const QString path =
            QFileDialog::getSaveFileName(this, "Save session", "session.json", "Sessions (*.json)");
        if (path.isEmpty()) return;
        try {
            saveSession(session_->session(), path.toStdString());
        } catch (const std::exception& error) {
            reportProblem(error.what());
        }
    });
    file->addSeparator();
    file->addAction("&Quit", this, &QWidget::close);
}

}  // namespace kystrake
