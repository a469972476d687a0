// Gesture work that the dispatch already calls but that is not built yet: the brushes, slices,
// freezing and the ring bevel. Each routine
// here does nothing and succeeds (or finds nothing), so that the dispatch around it runs unchanged;
// each moves to a source of its own when it is written.

#include "tool/kyStrake.h"


MStatus kyStrakeContext::bevelRing() { return MS::kSuccess; }


MStatus kyStrakeContext::captureSliceStroke(MHWRender::MUIDrawManager&) { return MS::kSuccess; }
MStatus kyStrakeContext::closeSliceContour() { return MS::kSuccess; }

MStatus kyStrakeContext::refreshFreezeBorder() { return MS::kSuccess; }
MStatus kyStrakeContext::refreshFreezeMedian() { return MS::kSuccess; }
