#pragma once
// Delivers the view's mouse events and the ENTER, ESC and BACKSPACE keys to the current tool
// context. Each mouse event gets a fresh draw manager and a frame context of the active view; what
// the handler draws is kept as the view's event drawing until the next event. A gesture is one press,
// drags, one release, all of one button: a drag or release with no press before it, or with another
// button, and a press while a button is down, fail with kInvalidParameter and reach no context.

#include <maya/MEvent.h>
#include <maya/MStatus.h>

#include <memory>

#include "drawing/DisplayList.h"

namespace mhost {

enum class Gesture { kPress, kDrag, kRelease, kPointerMove };
enum class ToolKey { kEnter, kEscape, kBackspace };

// Sends the event to the current context's handler for the gesture and returns its status;
// kNotFound when no plug-in context is current (the event then has no effect). Pointer moves carry
// no button.
MStatus dispatchGesture(Gesture gesture, const MEvent& event);
// Calls completeAction (ENTER), abortAction (ESC) or deleteAction (BACKSPACE) of the current
// context; kNotFound when there is none.
MStatus dispatchKey(ToolKey key);
// Forgets the gesture under way, so that the next event may be a press; the tool switch does this.
void endGesture();
// What the last event's handler drew; an empty list before the first event.
std::shared_ptr<const DisplayList> eventDrawing();

}  // namespace mhost
