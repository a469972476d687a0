#pragma once
// The built-in demo: a dense limb (over 200,000 triangles) and a session that draws the four stroke
// figures — freehand with glue and the lazy filter, line, rectangle and circle — capturing frames.

#include "runner/Session.h"

namespace kystrake {

Session demoSession();

}  // namespace kystrake
