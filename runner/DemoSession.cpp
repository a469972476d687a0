#include "runner/DemoSession.h"

#include <cmath>

namespace kystrake {
namespace {

const char* const kContext = "kyStrakeContext1";

std::vector<Pixel> wavyLine(Pixel from, Pixel to, int points, double amplitude) {
    std::vector<Pixel> path;
    for (int i = 1; i <= points; ++i) {
        const double t = double(i) / points;
        const double sway = amplitude * std::sin(t * 2 * M_PI);
        path.push_back({int(from[0] + t * (to[0] - from[0]) + sway), int(from[1] + t * (to[1] - from[1]))});
    }
    return path;
}

std::vector<Pixel> straightLine(Pixel from, Pixel to, int points) { return wavyLine(from, to, points, 0.0); }

// One left-button stroke: press at the first pixel, drag along the rest, release at the last. With a
// frame name, the picture is taken halfway through the drag, showing the stroke under way.
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

void figure(std::vector<Step>& steps, int number) {
    steps.push_back(Command{"kyStrakeContext -e -figure " + std::to_string(number) + " " + kContext});
}

}  // namespace

Session demoSession() {
    Session session;
    session.source.procedural = "limb";
    session.source.triangles = 240000;
    session.viewWidth = 960;
    session.viewHeight = 640;
    auto& steps = session.steps;
    steps.push_back(SetOptionVar{"ky_uspan", 8});
    steps.push_back(SetOptionVar{"ky_vspan", 6});
    steps.push_back(Frame{"start"});

    // Freehand with glue and the lazy filter: a wavy stroke down the front of the limb.
    steps.push_back(SetOptionVar{"ky_glue", 1});
    steps.push_back(SetOptionVar{"ky_lazyActive", 1});
    steps.push_back(SetOptionVar{"ky_lazyDistance", 1});
    steps.push_back(SetOptionVar{"ky_lazyStrength", 2});
    stroke(steps, {450, 470}, wavyLine({450, 470}, {455, 190}, 60, 12.0), "freehand");
    steps.push_back(SetOptionVar{"ky_glue", 0});
    steps.push_back(SetOptionVar{"ky_lazyActive", 0});

    // A straight line beside it.
    figure(steps, 1);
    stroke(steps, {505, 470}, straightLine({505, 470}, {510, 190}, 30), "line");

    // A rectangle and a circle.
    figure(steps, 2);
    stroke(steps, {440, 420}, straightLine({440, 420}, {520, 360}, 20), "rectangle");
    figure(steps, 3);
    stroke(steps, {480, 280}, straightLine({480, 280}, {515, 250}, 20), "circle");
    figure(steps, 0);

    // The pointer resting over the limb shows the cursor feedback; ESC clears the strokes.
    steps.push_back(PointerMove{{480, 320}});
    steps.push_back(Frame{"hover"});
    steps.push_back(Key{Key::Name::kEscape});
    steps.push_back(Frame{"cleared"});
    return session;
}

}  // namespace kystrake
