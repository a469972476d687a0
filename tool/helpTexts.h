#pragma once
// The tool's help and status texts. The viewport splits each text at its commas, one line of
// screen text per piece, so a comma at the end of a piece ends its line. Built once at load.

#include <maya/MString.h>

extern const MString helpSeparator;
extern const MString helpLmbStrokes;
extern const MString helpLmbSlice;
extern const MString helpSelectRow;
extern const MString helpModifyAnchors;
extern const MString helpRemoveLast;
extern const MString helpDeleteStroke;
extern const MString helpRelax;
extern const MString helpMove;
extern const MString helpHoldKeys;
extern const MString helpKeys;
extern const MString helpApply;
extern const MString helpPerpendicular;
extern const MString helpMergeVertices;
extern const MString helpBridgeOpposite;
extern const MString helpMergeOpposite;
extern const MString helpTraceStroke;
extern const MString helpRedrawLast;
extern const MString helpReselect;
extern const MString helpSubdivisions;
// The four brush lines: relax, move, the hold-a-key hint and the keys.
extern const MString helpBrushes;
// The help shown when the tool starts and whenever it goes back to its first state.
extern const MString helpStart;
// The status line of an active tool.
extern const MString activatedText;
