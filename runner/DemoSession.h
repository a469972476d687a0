#pragma once
// The built-in demo: a dense face relief (over 200,000 triangles) and the session an artist starts a
// retopology with: three roughly parallel strokes across the forehead, then ENTER for the first
// patch, with frames halfway through a stroke, after the strokes and after ENTER.

#include "runner/Session.h"

namespace kystrake {

Session demoSession();

}  // namespace kystrake
