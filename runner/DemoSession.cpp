#include "runner/DemoSession.h"

#include <cmath>

namespace kystrake {
namespace {

// A hand-drawn stroke from `from` to `to` in `points` drag events, bowed `sag` pixels downwards in
// its middle as a stroke that follows the brow's curve is.
std::vector<Pixel> bowedLine(Pixel from, Pixel to, int points, double sag) {
    std::vector<Pixel> path;
    for (int i = 1; i <= points; ++i) {
        const double t = double(i) / points;
        const double bow = sag * std::sin(t * M_PI);
        path.push_back({int(std::lround(from[0] + t * (to[0] - from[0]))),
                        int(std::lround(from[1] + t * (to[1] - from[1]) - bow))});
    }
    return path;
}

// One left-button stroke: press at `from`, drag along the path, release at its end. With a frame
// name, the picture is taken halfway through the drag, showing the stroke under way.
void stroke(std::vector<Step>& steps, Pixel from, const std::vector<Pixel>& path,
            const std::string& frame = "") {
    steps.push_back(Press{from, MouseButton::kLeft, {}});
    if (frame.empty()) {
        steps.push_back(Drag{path, MouseButton::kLeft, {}});
    } else {
        const auto middle = path.begin() + static_cast<long>(path.size() / 2);
        steps.push_back(Drag{{path.begin(), middle}, MouseButton::kLeft, {}});
        steps.push_back(Frame{frame});
        steps.push_back(Drag{{middle, path.end()}, MouseButton::kLeft, {}});
    }
    steps.push_back(Release{path.back(), MouseButton::kLeft, {}});
}

}  // namespace

Session demoSession() {
    Session session;
    session.source.procedural = "relief";
    session.source.triangles = 240000;
    session.viewWidth = 960;
    session.viewHeight = 640;
    auto& steps = session.steps;
    // Ten quads along each stroke and six across the band.
    steps.push_back(SetOptionVar{"ky_uspan", 10});
    steps.push_back(SetOptionVar{"ky_vspan", 6});

    // Three strokes across the forehead, left to right, each following the brow's gentle curve;
    // the frame halfway through the second shows it under way.
    stroke(steps, {380, 522}, bowedLine({380, 522}, {580, 522}, 40, 6.0));
    stroke(steps, {378, 477}, bowedLine({378, 477}, {582, 477}, 40, 8.0), "drawing");
    stroke(steps, {376, 432}, bowedLine({376, 432}, {584, 432}, 40, 10.0));
    steps.push_back(Frame{"strokes"});

    // ENTER builds the first patch from the strokes.
    steps.push_back(Key{Key::Name::kEnter});
    steps.push_back(Frame{"patch"});
    return session;
}

}  // namespace kystrake
