// When the host library is loaded, the interaction layer joins the rest of the host: the camera node
// type, the commands that switch tools, and the frame's call of the current context's drawFeedback.

#include <maya/MPxContext.h>

#include "drawing/FeedbackHook.h"
#include "graph/NodeType.h"
#include "interaction/CameraNode.h"
#include "interaction/ContextCall.h"
#include "interaction/ToolContexts.h"
#include "interaction/ToolSwitchCommands.h"

namespace {

bool drawCurrentFeedback(MHWRender::MUIDrawManager& manager, const MHWRender::MFrameContext& frame) {
    MPxContext* context = mhost::toolContexts().current();
    if (!context) return false;
    mhost::callContext(mhost::toolContexts().currentName() + " drawFeedback",
                       [&] { return context->drawFeedback(manager, frame); });
    return true;
}

struct InteractionAtLoad {
    InteractionAtLoad() {
        mhost::nodeTypes().add(mhost::makeCameraType());
        mhost::registerToolSwitchCommands(mhost::commandTable());
        mhost::contextFeedbackHook() = drawCurrentFeedback;
    }
};

const InteractionAtLoad registerAtLoad;

}  // namespace
