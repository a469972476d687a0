#pragma once
// Building blocks of the built-in sessions: an artist's hand-drawn line, a stroke, a click and a
// horizontal drag, each appended to a session's steps as the host would receive them.

#include <string>
#include <vector>

#include "runner/Session.h"

namespace kystrake {

// A hand-drawn line from `from` to `to` in `points` drag events, bowed `sag` pixels downwards in its
// middle, as a stroke that follows a curve of the face is.
std::vector<Pixel> bowedLine(Pixel from, Pixel to, int points, double sag);

// One left-button stroke: press at `from`, drag along the path, release at its end, with the
// modifiers held throughout. With a frame name, the picture is taken halfway through the drag,
// showing the stroke under way.
void addStroke(std::vector<Step>& steps, Pixel from, const std::vector<Pixel>& path,
               const std::string& frame = "", Modifiers modifiers = {});
// The same with any button: a brush stroke.
void addDrag(std::vector<Step>& steps, Pixel from, const std::vector<Pixel>& path, MouseButton button,
             Modifiers modifiers, const std::string& frame = "");

// A press and release at one place.
void addClick(std::vector<Step>& steps, const Place& at, MouseButton button, Modifiers modifiers);

// A press at `from`, a drag of `dx` pixels to the right (left when negative) in steps of 5 pixels,
// and the release.
void addHorizontalDrag(std::vector<Step>& steps, Pixel from, int dx, MouseButton button, Modifiers modifiers);

}  // namespace kystrake
