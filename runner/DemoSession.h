#pragma once
// The built-in sessions, both on a dense face relief (over 200,000 triangles).
//
// demoSession is how an artist starts a retopology: three roughly parallel strokes across the
// forehead, then ENTER for the first patch, with frames halfway through a stroke, after the strokes
// and after ENTER.
//
// fullRoadSession walks the whole road from there: anchors on the first patch's border and a stroke
// that grows a strake patch from them, a second band lower down, a bridge between the two with its
// divisions changed by a drag, a third band merged on to the second, BACKSPACE and ESC, and undo and
// redo, with a frame after each step.

#include "runner/Session.h"

namespace kystrake {

Session demoSession();
Session fullRoadSession();

}  // namespace kystrake
