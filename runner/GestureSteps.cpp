#include "runner/GestureSteps.h"

#include <cmath>
#include <cstdlib>

namespace kystrake {

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

void addStroke(std::vector<Step>& steps, Pixel from, const std::vector<Pixel>& path, const std::string& frame,
               Modifiers modifiers) {
    addDrag(steps, from, path, MouseButton::kLeft, modifiers, frame);
}

void addDrag(std::vector<Step>& steps, Pixel from, const std::vector<Pixel>& path, MouseButton button,
             Modifiers modifiers, const std::string& frame) {
    steps.push_back(Press{from, button, modifiers});
    if (frame.empty()) {
        steps.push_back(Drag{path, button, modifiers});
    } else {
        const auto middle = path.begin() + static_cast<long>(path.size() / 2);
        steps.push_back(Drag{{path.begin(), middle}, button, modifiers});
        steps.push_back(Frame{frame});
        steps.push_back(Drag{{middle, path.end()}, button, modifiers});
    }
    steps.push_back(Release{path.back(), button, modifiers});
}

void addClick(std::vector<Step>& steps, const Place& at, MouseButton button, Modifiers modifiers) {
    steps.push_back(Press{at, button, modifiers});
    steps.push_back(Release{at, button, modifiers});
}

void addHorizontalDrag(std::vector<Step>& steps, Pixel from, int dx, MouseButton button,
                       Modifiers modifiers) {
    steps.push_back(Press{from, button, modifiers});
    Drag drag{{}, button, modifiers};
    const int direction = dx < 0 ? -1 : 1;
    for (int moved = 5; moved <= std::abs(dx); moved += 5)
        drag.path.push_back({from[0] + direction * moved, from[1]});
    if (!drag.path.empty()) steps.push_back(drag);
    steps.push_back(Release{Pixel{from[0] + dx, from[1]}, button, modifiers});
}

}  // namespace kystrake
