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
void frame(std::vector<Step>& steps, const std::string& name) { steps.push_back(Frame{name}); }

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

    // Anchors on the two ends of the patch's bottom border select it as the player row; a stroke
    // below it grows a strake patch, and ENTER ends the row.
    addClick(steps, {376, 432}, MouseButton::kLeft, kCtrlShift);
    frame(steps, "first-anchor");
    addClick(steps, {584, 432}, MouseButton::kLeft, kCtrlShift);
    frame(steps, "anchors");
    addStroke(steps, {374, 400}, bowedLine({374, 400}, {586, 400}, 40, 6.0));
    frame(steps, "strake");
    enter(steps);

    // A second band across the cheeks, joined to the same mesh by ENTER.
    addStroke(steps, {376, 320}, bowedLine({376, 320}, {584, 320}, 40, 4.0));
    addStroke(steps, {378, 290}, bowedLine({378, 290}, {582, 290}, 40, 4.0));
    enter(steps);
    frame(steps, "second-band");

    // The strake's far border and the second band's top border: anchors on the first, MMB with CTRL
    // on the second's first corner for the opposite row, an MMB-SHIFT drag to the right for two
    // divisions, and ENTER for the bridge.
    addClick(steps, {374, 400}, MouseButton::kLeft, kCtrlShift);
    addClick(steps, {586, 400}, MouseButton::kLeft, kCtrlShift);
    addClick(steps, {376, 320}, MouseButton::kMiddle, kCtrl);
    frame(steps, "bridge-preview");
    addHorizontalDrag(steps, {480, 360}, 100, MouseButton::kMiddle, kShift);
    frame(steps, "bridge-divisions");
    enter(steps);
    frame(steps, "bridge");

    // A third band just below the second, merged on to it: anchors on the second band's bottom
    // border, MMB with SHIFT on the third band's first corner, ENTER.
    addStroke(steps, {378, 280}, bowedLine({378, 280}, {582, 280}, 40, 4.0));
    addStroke(steps, {380, 240}, bowedLine({380, 240}, {580, 240}, 40, 4.0));
    enter(steps);
    addClick(steps, {378, 290}, MouseButton::kLeft, kCtrlShift);
    addClick(steps, {582, 290}, MouseButton::kLeft, kCtrlShift);
    addClick(steps, {378, 280}, MouseButton::kMiddle, kShift);
    frame(steps, "merge-preview");
    enter(steps);
    frame(steps, "merge");

    // BACKSPACE takes back a stroke; ESC drops an anchor selection.
    addStroke(steps, {380, 200}, bowedLine({380, 200}, {580, 200}, 30, 3.0));
    frame(steps, "stray-stroke");
    steps.push_back(Key{Key::Name::kBackspace});
    frame(steps, "backspace");
    addClick(steps, {380, 240}, MouseButton::kLeft, kCtrlShift);
    frame(steps, "stray-anchor");
    steps.push_back(Key{Key::Name::kEscape});
    frame(steps, "escape");

    // Undo walks back through the merge (its moves and the merge itself) and the bridge; redo
    // brings them back.
    steps.push_back(Undo{1});
    frame(steps, "undo-merge");
    steps.push_back(Redo{1});
    frame(steps, "redo-merge");
    return session;
}

}  // namespace kystrake
