#include "tool/helpTexts.h"

// The spellings below are what the artist has always seen ("perpendiclar", "Move brush.Drag");
// they stay as they are.
const MString helpSeparator("_________________________,");
const MString helpLmbStrokes("LMB: Drag on the source surface to draw strokes,");
const MString helpLmbSlice("SHIFT-LMB: Stroke through the main surface for slicing,");
const MString helpSelectRow("LMB-CTRL-SHIFT: Select the boundary vertices for strake creation,");
const MString helpModifyAnchors("LMB-CTRL-SHIFT: To modify the anchor selection, the latest");
const MString helpRemoveLast("BACKSPACE: Remove the last point from selection");
const MString helpDeleteStroke("BACKSPACE: Delete last stroke,");
const MString helpRelax("MMB-CTRL-SHIFT: Relax brush. Drag on the retopo mesh to proceed,");
const MString helpMove("MMB: Move brush.Drag on the retopo mesh to proceed,");
const MString helpHoldKeys("Press and hold one of these keys to change the brush properties,");
const MString helpKeys("n: (Relax intensity),b: (Relax radius),m: (Move radius),");
const MString helpApply("ENTER: Apply the operation,ESC: Abort the operation,");
const MString helpPerpendicular("LMB-SHIFT: Drag on the source surface to draw a perpendiclar patch,");
const MString helpMergeVertices("MMB-CTRL: On boundary vertices to merge them,");
const MString helpBridgeOpposite("MMB-CTRL = On an opposite boundary vertex to create a bridge,");
const MString helpMergeOpposite("MMB-SHIFT = On an opposite boundary vertex to merge the strakes,");
const MString helpTraceStroke("LMB: Trace a stroke on the source mesh to generate a patch,");
const MString helpRedrawLast("CTRL-LMB: Drag to redraw the last strake stroke,");
const MString helpReselect(
    "LMB-CTRL-SHIFT: Reselect the same point to have a closed selection whenever it is possible,");
const MString helpSubdivisions("MMB-SHIFT: Hold SHIFT then MMB drag left/right to add/reduce subdivisions,");

// Composed after their parts, which this file defines above them.
const MString helpBrushes = helpRelax + helpMove + helpHoldKeys + helpKeys;
const MString helpStart = helpLmbStrokes + helpLmbSlice + helpSelectRow + helpSeparator + helpSeparator +
                          helpBrushes + helpSeparator + helpDeleteStroke + helpApply;
const MString activatedText = MString("kyStrake activated,") + MString("");
