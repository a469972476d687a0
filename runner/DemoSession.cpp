#include "runner/DemoSession.h"

#include "runner/GestureSteps.h"

namespace kystrake {
namespace {

constexpr Modifiers kNoKeys{false, false};
constexpr Modifiers kShift{true, false};
constexpr Modifiers kCtrl{false, true};
constexpr Modifiers kCtrlShift{true, true};

Session faceReliefSession() {
    Session session;
    session.source.procedural = "relief";
    session.source.triangles = 240000;
    session.viewWidth = 960;
    session.viewHeight = 640;
    // Ten quads along each stroke and six across the band.
    session.steps.push_back(SetOptionVar{"ky_uspan", 10});
    session.steps.push_back(SetOptionVar{"ky_vspan", 6});
    return session;
}

// Three strokes across the forehead, left to right, each following the brow's gentle curve; the
// frame halfway through the second shows it under way. Their ends are the corners of the patch:
// (380, 522) and (580, 522) on the top border, (376, 432) and (584, 432) on the bottom one.
void foreheadStrokes(std::vector<Step>& steps) {
    addStroke(steps, {380, 522}, bowedLine({380, 522}, {580, 522}, 40, 6.0));
    addStroke(steps, {378, 477}, bowedLine({378, 477}, {582, 477}, 40, 8.0), "drawing");
    addStroke(steps, {376, 432}, bowedLine({376, 432}, {584, 432}, 40, 10.0));
}

void enter(std::vector<Step>& steps) { steps.push_back(Key{Key::Name::kEnter}); }

// Where to click to pick a patch's corner vertex as an anchor: a few pixels outside the corner. The
// pick takes the first border vertex within 9 pixels in index order, and the vertices up the patch's
// side lie closer than that to the corner itself, often with lower ids.
constexpr Pixel kLowerLeft{-6, -6};
constexpr Pixel kLowerRight{6, -6};
VertexPlace beside(int vertex, Pixel offset) { return VertexPlace{"", vertex, offset}; }
void frame(std::vector<Step>& steps, const std::string& name) { steps.push_back(Frame{name}); }

// Undo of the last `count` steps, a frame, their redo, a frame.
void undoRedo(std::vector<Step>& steps, int count, const std::string& what) {
    steps.push_back(Undo{count});
    frame(steps, what + "-undone");
    steps.push_back(Redo{count});
    frame(steps, what + "-redone");
}

}  // namespace

Session demoSession() {
    Session session = faceReliefSession();
    auto& steps = session.steps;
    foreheadStrokes(steps);
    frame(steps, "strokes");
    // ENTER builds the first patch from the strokes.
    enter(steps);
    frame(steps, "patch");
    return session;
}

Session fullRoadSession() {
    Session session = faceReliefSession();
    auto& steps = session.steps;
    foreheadStrokes(steps);
    enter(steps);
    frame(steps, "scratch");

    // Anchors on the two ends of the patch's bottom border (its vertices 88 and 142) select the
    // border as the player row; a stroke below it grows a strake patch, and ENTER ends the row.
    addClick(steps, beside(88, kLowerLeft), MouseButton::kLeft, kCtrlShift);
    frame(steps, "first-anchor");
    addClick(steps, beside(142, kLowerRight), MouseButton::kLeft, kCtrlShift);
    frame(steps, "anchors");
    addStroke(steps, {374, 400}, bowedLine({374, 400}, {586, 400}, 40, 6.0));
    frame(steps, "strake");
    undoRedo(steps, 1, "strake");
    enter(steps);

    // A second band across the cheeks, joined to the same mesh by ENTER: its top border runs from
    // vertex 209, its bottom border from 222 to 285.
    addStroke(steps, {376, 320}, bowedLine({376, 320}, {584, 320}, 40, 4.0));
    addStroke(steps, {378, 290}, bowedLine({378, 290}, {582, 290}, 40, 4.0));
    enter(steps);
    frame(steps, "second-band");

    // The strake's far border (154 to 208) and the second band's top border: anchors on the first,
    // MMB with CTRL on the second's first corner for the opposite row, an MMB-SHIFT drag to the
    // right for more divisions, and ENTER for the bridge.
    addClick(steps, beside(154, kLowerLeft), MouseButton::kLeft, kCtrlShift);
    addClick(steps, beside(208, kLowerRight), MouseButton::kLeft, kCtrlShift);
    addClick(steps, VertexPlace{"", 209, {0, 0}}, MouseButton::kMiddle, kCtrl);
    frame(steps, "bridge-preview");
    addHorizontalDrag(steps, {480, 360}, 100, MouseButton::kMiddle, kShift);
    frame(steps, "bridge-divisions");
    enter(steps);
    frame(steps, "bridge");
    undoRedo(steps, 1, "bridge");

    // A third band just below the second (its top border from vertex 319, after the bridge's 33 new
    // vertices), merged on to it: anchors
    // on the second band's bottom border, MMB with SHIFT beside the third band's first corner, ENTER.
    addStroke(steps, {378, 280}, bowedLine({378, 280}, {582, 280}, 40, 4.0));
    addStroke(steps, {380, 240}, bowedLine({380, 240}, {580, 240}, 40, 4.0));
    enter(steps);
    addClick(steps, beside(222, kLowerLeft), MouseButton::kLeft, kCtrlShift);
    addClick(steps, beside(285, kLowerRight), MouseButton::kLeft, kCtrlShift);
    addClick(steps, VertexPlace{"", 319, {-7, -2}}, MouseButton::kMiddle, kShift);
    frame(steps, "merge-preview");
    enter(steps);
    frame(steps, "merge");

    // BACKSPACE takes back a stroke; ESC drops an anchor selection.
    addStroke(steps, {380, 200}, bowedLine({380, 200}, {580, 200}, 30, 3.0));
    frame(steps, "stray-stroke");
    steps.push_back(Key{Key::Name::kBackspace});
    frame(steps, "backspace");
    addClick(steps, beside(332, kLowerLeft), MouseButton::kLeft, kCtrlShift);
    frame(steps, "stray-anchor");
    steps.push_back(Key{Key::Name::kEscape});
    frame(steps, "escape");

    // The merge ran as one script of 23 commands (a move of each of the 22 vertices to its pair's
    // midpoint, then the merge), each its own undo step as in Maya: undoing the merge takes 23.
    undoRedo(steps, 23, "merge");

    // A fourth band across the chin (a scratch patch, whose rows stay as the shadow for rework): an
    // MMB-SHIFT drag 50 pixels to the right gives it two more spans each way, and a CTRL stroke
    // redraws its second stroke lower down.
    addStroke(steps, {396, 205}, bowedLine({396, 205}, {564, 205}, 30, 3.0));
    addStroke(steps, {400, 175}, bowedLine({400, 175}, {560, 175}, 30, 3.0));
    enter(steps);
    frame(steps, "chin");
    addHorizontalDrag(steps, {480, 110}, 50, MouseButton::kMiddle, kShift);
    frame(steps, "chin-spans");
    addStroke(steps, {400, 165}, bowedLine({400, 165}, {560, 165}, 30, 3.0), "", kCtrl);
    frame(steps, "chin-redrawn");

    // The border frozen, a relax pass across the chin band (MMB with CTRL and SHIFT) that leaves the
    // frozen border where it is, and a move of its middle (MMB alone).
    steps.push_back(Command{"kyStrakeContext -e -freeze true kyStrakeContext1"});
    frame(steps, "freeze");
    addDrag(steps, {430, 188}, bowedLine({430, 188}, {530, 188}, 20, 0.0), MouseButton::kMiddle, kCtrlShift,
            "relaxing");
    frame(steps, "relaxed");
    addDrag(steps, {480, 188}, bowedLine({480, 188}, {480, 200}, 6, 0.0), MouseButton::kMiddle, kNoKeys);
    frame(steps, "moved");
    return session;
}

}  // namespace kystrake
