#include "drawing/FrameRunner.h"

#include <maya/MDGContext.h>
#include <maya/MEvaluationNode.h>
#include <maya/MPxNode.h>
#include <maya/MViewport2Renderer.h>

#include <optional>

#include "drawing/DagVisibility.h"
#include "drawing/DrawDirtyRequests.h"
#include "drawing/DrawOverrideCache.h"
#include "drawing/DrawRecorder.h"
#include "drawing/FeedbackHook.h"
#include "drawing/HostFrameContext.h"
#include "graph/Scene.h"
#include "interaction/ActiveView.h"
#include "interaction/EventDispatch.h"

namespace mhost {
namespace {

std::optional<Frame>& storedFrame() {
    static std::optional<Frame> frame;
    return frame;
}

// Whether every corner of the node's bounds lies behind the eye or past one side of the port.
// Corners on both sides of the eye plane never cull: their projections say nothing reliable.
bool isOutOfView(const MBoundingBox& box, const MDagPath& path, const ViewProjection& projection) {
    const MMatrix toWorld = path.inclusiveMatrix();
    const MPoint lo = box.min(), hi = box.max();
    int behind = 0, left = 0, right = 0, below = 0, above = 0;
    for (int corner = 0; corner < 8; ++corner) {
        const MPoint p((corner & 1 ? hi : lo).x, (corner & 2 ? hi : lo).y, (corner & 4 ? hi : lo).z);
        const PortPoint port = projection.toPort(p * toWorld);
        behind += port.depth <= 0.0;
        left += port.x < 0.0;
        right += port.x > projection.width();
        below += port.y < 0.0;
        above += port.y > projection.height();
    }
    if (behind == 8) return true;
    return behind == 0 && (left == 8 || right == 8 || below == 8 || above == 8);
}

// Maya's evaluation manager calls preEvaluation before it evaluates a node with dirty plugs; the host
// evaluates by pulling, so it does so before drawing such a node.
void preEvaluate(const NodePtr& node) {
    if (node->behaviour && !node->dirty.empty())
        node->behaviour->preEvaluation(MDGContext::fsNormal, MEvaluationNode(node));
}

using Drawer = driver::FrameDrawing::Drawer;

std::optional<driver::FrameDrawing> drawNode(const NodePtr& node, DrawOverrideCreator creator, Frame& frame,
                                             const MHWRender::MFrameContext& context) {
    preEvaluate(node);
    CachedOverride& entry = drawOverrideCache().overrideFor(node, creator);
    MHWRender::MPxDrawOverride& drawOverride = *entry.drawOverride;
    const MDagPath path = MDagPath::fromHostNode(node);
    const auto device = MHWRender::MRenderer::theRenderer()->drawAPI();
    if (!(drawOverride.supportedDrawAPIs() & device)) return std::nullopt;
    if (drawOverride.isBounded(path, frame.camera) &&
        isOutOfView(drawOverride.boundingBox(path, frame.camera), path, frame.projection))
        return std::nullopt;
    MUserData* data = drawOverride.prepareForDraw(path, frame.camera, context, entry.data.get());
    if (data != entry.data.get()) entry.data.reset(data);
    std::optional<driver::FrameDrawing> layer;
    if (drawOverride.hasUIDrawables()) {
        auto list = std::make_shared<DisplayList>();
        mhost::DrawRecorder recorder(*list);
        MHWRender::MUIDrawManager& manager = recorder.manager();
        drawOverride.addUIDrawables(path, manager, context, entry.data.get());
        layer = driver::FrameDrawing{Drawer::kDrawOverride, node->name, list};
    }
    if (entry.data && entry.data->deleteAfterUse()) entry.data.reset();
    return layer;
}

void drawFeedback(Frame& frame, const MHWRender::MFrameContext& context) {
    if (!contextFeedbackHook()) return;
    auto list = std::make_shared<DisplayList>();
    mhost::DrawRecorder recorder(*list);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    if (contextFeedbackHook()(manager, context)) frame.layers.push_back({Drawer::kContextFeedback, "", list});
}

void keepEventDrawing(Frame& frame) {
    std::shared_ptr<const DisplayList> list = eventDrawing();
    if (!list->records.empty()) frame.layers.push_back({Drawer::kContextEvent, "", list});
}

}  // namespace

FeedbackDrawer& contextFeedbackHook() {
    static FeedbackDrawer hook;
    return hook;
}

const Frame& runFrame() {
    const ActiveView& view = activeView();
    Frame frame{view.cameraPath(), view.projection(), {}};
    drawDirtyRequests().clear();
    drawOverrideCache().dropDeadNodes();
    HostFrameContext context(frame.camera, view.width(), view.height());
    drawFeedback(frame, context);
    keepEventDrawing(frame);
    // A copy: drawing code may create or delete nodes.
    const std::vector<NodePtr> nodes = scene().nodes();
    for (const auto& node : nodes) {
        DrawOverrideCreator creator = drawOverrideRegistry().creatorFor(node->type->classification);
        if (!creator || !isDrawn(node)) continue;
        if (auto layer = drawNode(node, creator, frame, context)) frame.layers.push_back(std::move(*layer));
    }
    storedFrame() = std::move(frame);
    return *storedFrame();
}

const Frame* lastFrame() { return storedFrame() ? &*storedFrame() : nullptr; }

}  // namespace mhost
