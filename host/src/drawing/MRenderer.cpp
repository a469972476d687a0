#include <maya/MViewport2Renderer.h>

#include "drawing/DrawDirtyRequests.h"
#include "graph/Node.h"

namespace mhost {

std::vector<driver::DrawDirtyRequest>& drawDirtyRequests() {
    static std::vector<driver::DrawDirtyRequest> requests;
    return requests;
}

}  // namespace mhost

namespace MHWRender {

MRenderer::MRenderer() = default;
MRenderer::~MRenderer() = default;

MRenderer* MRenderer::theRenderer(bool) {
    static MRenderer renderer;
    return &renderer;
}

void MRenderer::setGeometryDrawDirty(MObject obj, bool topologyChanged) {
    // Called from a plug-in's callbacks: a stale or null object is ignored rather than reported.
    if (auto node = mhost::liveNodeOf(obj))
        mhost::drawDirtyRequests().push_back({node->name, topologyChanged});
}

DrawAPI MRenderer::drawAPI() const { return kOpenGLCoreProfile; }

}  // namespace MHWRender
