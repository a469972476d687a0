#pragma once
// The driver's interaction part: what a program or a test uses to stand in for the artist at the
// view — size the view and choose its camera, choose the tool, and send mouse gestures and keys.
// Positions are view pixels with the origin at the bottom left, as M3dView's. Everything runs on the
// caller's thread, which plays Maya's main thread.

#include <maya/MPoint.h>
#include <maya/MStatus.h>

#include <string>

namespace mhost {
namespace driver {

enum class MouseButton { kLeft, kMiddle };
enum class Key { kEnter, kEscape, kBackspace };

// The modifier keys held during an event.
struct Modifiers {
    bool shift = false;
    bool control = false;
};

// Resizes the view (640 x 480 until set); kInvalidParameter for a size below one pixel.
MStatus setViewSize(int width, int height);
// Looks through the named camera: a camera shape, or the transform directly above one.
// kInvalidParameter when the name names no camera.
MStatus setViewCamera(const std::string& name);
// Places the camera of that transform name at `eye`, looking at `target` with world +Y up, and looks
// through it. A missing camera is made: transform `name` with shape `name` + "Shape". The lens stays
// as it is (a new camera has Maya's defaults: 35 mm focal length, 36 x 24 mm film).
// kInvalidParameter when eye and target coincide or the name is taken by something else.
MStatus placeCamera(const MPoint& eye, const MPoint& target, const std::string& name = "persp");
// How many view refreshes (M3dView::refresh, scheduleRefresh) plug-in code has asked for.
int viewRefreshCount();

// Makes a tool context current by name, as "setToolTo name" does; kNotFound for an unknown name.
MStatus setToolTo(const std::string& contextName);
// Deletes a tool context by name, as Maya's "deleteUI name" does: a current one is switched off
// first and the selection tool becomes current. Contexts outlive scene resets, so a program that
// runs several sessions deletes its context to start each with a fresh one. kNotFound when none.
MStatus deleteToolContext(const std::string& contextName);
// The current tool's name ("selectSuperContext" when no plug-in context is current), and the help
// text and cursor name ("default", "doubleCrossHair", ...) its context last set.
std::string currentTool();
std::string currentToolHelp();
std::string currentToolCursor();

// One mouse gesture: a press, any number of drags, a release, all of one button. Each returns the
// status of the context's handler; kNotFound when no plug-in context is current, kInvalidParameter
// for a position outside the range of short or an event out of gesture order (a drag without a
// press, say), which reaches no context.
MStatus press(int x, int y, MouseButton button, Modifiers modifiers = Modifiers());
MStatus drag(int x, int y, MouseButton button, Modifiers modifiers = Modifiers());
MStatus release(int x, int y, MouseButton button, Modifiers modifiers = Modifiers());
// The pointer moving with no button down.
MStatus movePointer(int x, int y, Modifiers modifiers = Modifiers());
// ENTER, ESC or BACKSPACE: completeAction, abortAction or deleteAction of the current context.
MStatus sendKey(Key key);

// Makes sure the process has a Qt application, as Maya always has, so that a program can build the
// panel widgets a tool finds by name. Made once on the "offscreen" platform (unless QT_QPA_PLATFORM
// names another) and kept for the life of the process.
void ensureQtApplication();

}  // namespace driver
}  // namespace mhost
