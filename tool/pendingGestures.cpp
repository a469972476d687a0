// Gesture work that the dispatch already calls but that is not built yet: the brushes, slices,
// freezing and the ring bevel. Each routine
// here does nothing and succeeds (or finds nothing), so that the dispatch around it runs unchanged;
// each moves to a source of its own when it is written.

#include "tool/kyStrake.h"



MStatus kyStrakeContext::relaxDrag(MHWRender::MUIDrawManager&) { return MS::kSuccess; }
MStatus kyStrakeContext::moveBrushStart(const MDagPath&) { return MS::kSuccess; }
MStatus kyStrakeContext::moveBrushDrag() { return MS::kSuccess; }
MStatus kyStrakeContext::moveBrushRelease() { return MS::kSuccess; }
void kyStrakeContext::drawMoveHover(MHWRender::MUIDrawManager&) {}


