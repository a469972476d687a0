#pragma once
// The requests plug-ins made through MRenderer::setGeometryDrawDirty since the current (or last)
// frame began, in order; the driver hands them out.

#include <mhost/Frames.h>

#include <vector>

namespace mhost {

std::vector<driver::DrawDirtyRequest>& drawDirtyRequests();

}  // namespace mhost
