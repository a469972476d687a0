// Gesture work that the dispatch already calls but that is not built yet: anchor rows, brushes,
// slices, freezing, the bridge and merge of borders, and the rework of the last patch. Each routine
// here does nothing and succeeds (or finds nothing), so that the dispatch around it runs unchanged;
// each moves to a source of its own when it is written.

#include "tool/kyStrake.h"

MStatus kyStrakeContext::applyBridge(const MDagPath&) { return MS::kSuccess; }
MStatus kyStrakeContext::applyMerge(const MDagPath&) { return MS::kSuccess; }
MStatus kyStrakeContext::flushRelax() { return MS::kSuccess; }
void kyStrakeContext::divisionsDrag() {}

MStatus kyStrakeContext::selectPoints() { return MS::kSuccess; }
MStatus kyStrakeContext::selectOppositeRow(int) { return MS::kSuccess; }
MStatus kyStrakeContext::selectMagnetVertex() { return MS::kSuccess; }
MStatus kyStrakeContext::selectMergeRow() { return MS::kSuccess; }
MStatus kyStrakeContext::updateMagnetPoints() { return MS::kSuccess; }
MStatus kyStrakeContext::mergeMagnetVertices() { return MS::kSuccess; }
MIntArray kyStrakeContext::edgesToVertices(const MIntArray&, int) { return MIntArray(); }
MStatus kyStrakeContext::updateSublines() { return MS::kSuccess; }
MStatus kyStrakeContext::bevelRing() { return MS::kSuccess; }

MStatus kyStrakeContext::relaxDrag(MHWRender::MUIDrawManager&) { return MS::kSuccess; }
MStatus kyStrakeContext::moveBrushStart(const MDagPath&) { return MS::kSuccess; }
MStatus kyStrakeContext::moveBrushDrag() { return MS::kSuccess; }
MStatus kyStrakeContext::moveBrushRelease() { return MS::kSuccess; }
void kyStrakeContext::drawMoveHover(MHWRender::MUIDrawManager&) {}

MStatus kyStrakeContext::captureSliceStroke(MHWRender::MUIDrawManager&) { return MS::kSuccess; }
MStatus kyStrakeContext::closeSliceContour() { return MS::kSuccess; }

MStatus kyStrakeContext::refreshFreezeBorder() { return MS::kSuccess; }
MStatus kyStrakeContext::refreshFreezeMedian() { return MS::kSuccess; }
