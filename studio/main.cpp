// kystrake-studio: the kyStrake tool live in a window on the headless host, with the artist's panel
// and a recording of the session that `kystrake run` replays.

#include <GL/gl.h>

#include <CLI/CLI.hpp>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <iostream>

#include "runner/SessionRun.h"
#include "runner/SessionWriter.h"
#include "studio/StudioWindow.h"
#include "studio/ViewportWidget.h"

namespace {

using namespace kystrake;

// Tumbles the view once round in `frames` steps, painting each, and prints the mean time of a paint
// (the GL work finished) and the part of it the tool's own drawing took.
int measureOrbit(StudioWindow& window, int frames) {
    ViewportWidget& viewport = window.viewport();
    while (!window.windowHandle() || !window.windowHandle()->isExposed()) QApplication::processEvents();
    viewport.tumbleAndRepaint(0);
    const int paintsBefore = viewport.paintCount();
    double paint = 0.0, tool = 0.0, worst = 0.0;
    for (int i = 0; i < frames; ++i) {
        viewport.tumbleAndRepaint(900 / frames);
        paint += viewport.lastFrameMilliseconds();
        tool += viewport.lastToolDrawingMilliseconds();
        worst = std::max(worst, viewport.lastFrameMilliseconds());
    }
    const int painted = viewport.paintCount() - paintsBefore;
    viewport.makeCurrent();
    const auto* renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    std::cout << "kystrake-studio: OpenGL " << (renderer ? renderer : "unknown") << "\n"
              << "kystrake-studio: source " << window.session().sourcePolygons() << " polygons, " << painted
              << " of " << frames << " orbit frames painted: " << paint / frames << " ms a frame (worst "
              << worst << " ms); the tool's drawing " << tool / frames << " ms a frame\n";
    return painted == frames ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    CLI::App app{"kystrake-studio: the kyStrake retopology tool live on the headless Maya host"};
    std::string pluginPath = KY_PLUGIN_MODULE_PATH, sessionPath, sourcePath, procedural, recordPath;
    int triangles = 0, orbitFrames = 0;
    app.add_option("--source", sourcePath, "source mesh OBJ");
    app.add_option("--procedural", procedural, "built-in source: limb, relief, sphere, torus or plane");
    app.add_option("--triangles", triangles, "density of the built-in source");
    app.add_option("--session", sessionPath,
                   "session JSON to start from: its source, view, camera and steps");
    app.add_option("--record", recordPath, "write the recorded session here when the window closes");
    app.add_option("--plugin", pluginPath, "kyStrake plug-in module to load");
    app.add_option("--orbit-frames", orbitFrames, "measure the frame time of orbiting the source and quit");
    CLI11_PARSE(app, argc, argv);
    try {
        Session start = sessionPath.empty() ? Session() : loadSession(sessionPath);
        if (!sourcePath.empty()) start.source.objPath = sourcePath;
        if (!procedural.empty()) start.source = {"", procedural, start.source.triangles};
        if (triangles > 0) start.source.triangles = triangles;
        StudioWindow window(start, pluginPath);
        window.show();
        if (orbitFrames > 0) return measureOrbit(window, orbitFrames);
        const int status = application.exec();
        if (!recordPath.empty()) saveSession(window.session().session(), recordPath);
        return status;
    } catch (const std::exception& error) {
        std::cerr << "kystrake-studio: " << error.what() << "\n";
        return 1;
    }
}
