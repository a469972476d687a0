#include "interaction/EventDispatch.h"

#include <maya/MPxContext.h>
#include <maya/MUIDrawManager.h>

#include "commands/MessageLog.h"
#include "drawing/DrawRecorder.h"
#include "drawing/HostFrameContext.h"
#include "interaction/ActiveView.h"
#include "interaction/ContextCall.h"
#include "interaction/ToolContexts.h"

namespace mhost {
namespace {

struct GestureState {
    int buttonDown = 0;  // the button of the gesture under way; 0 between gestures
    std::shared_ptr<const DisplayList> drawing = std::make_shared<DisplayList>();
};

GestureState& gestureState() {
    static GestureState state;
    return state;
}

const char* handlerName(Gesture gesture) {
    switch (gesture) {
        case Gesture::kPress:
            return "doPress";
        case Gesture::kDrag:
            return "doDrag";
        case Gesture::kRelease:
            return "doRelease";
        case Gesture::kPointerMove:
            return "doPtrMoved";
    }
    return "";
}

// Whether the event fits the gesture under way; logs why not.
bool fitsGesture(Gesture gesture, int button) {
    const int down = gestureState().buttonDown;
    const char* problem = nullptr;
    if (gesture == Gesture::kPress && down)
        problem = "a press while a button is down";
    else if ((gesture == Gesture::kDrag || gesture == Gesture::kRelease) && (!down || button != down))
        problem = "a drag or release without a press of the same button";
    if (problem) messageLog().error(std::string("view events: ") + problem);
    return !problem;
}

void trackButton(Gesture gesture, int button) {
    if (gesture == Gesture::kPress) gestureState().buttonDown = button;
    if (gesture == Gesture::kRelease) gestureState().buttonDown = 0;
}

MStatus callHandler(MPxContext& context, Gesture gesture, MEvent& event, MHWRender::MUIDrawManager& manager,
                    const MHWRender::MFrameContext& frame) {
    switch (gesture) {
        case Gesture::kPress:
            return context.doPress(event, manager, frame);
        case Gesture::kDrag:
            return context.doDrag(event, manager, frame);
        case Gesture::kRelease:
            return context.doRelease(event, manager, frame);
        case Gesture::kPointerMove:
            return context.doPtrMoved(event, manager, frame);
    }
    return MS::kFailure;
}

}  // namespace

MStatus dispatchGesture(Gesture gesture, const MEvent& event) {
    const int button = gesture == Gesture::kPointerMove ? 0 : static_cast<int>(event.mouseButton());
    if (!fitsGesture(gesture, button)) return MS::kInvalidParameter;
    trackButton(gesture, button);
    MPxContext* context = toolContexts().current();
    if (!context) return MS::kNotFound;
    auto drawing = std::make_shared<DisplayList>();
    gestureState().drawing = drawing;
    const ActiveView& view = activeView();
    HostFrameContext frame(view.cameraPath(), view.width(), view.height());
    mhost::DrawRecorder recorder(*drawing);
    MHWRender::MUIDrawManager& manager = recorder.manager();
    MEvent delivered(event);
    return callContext(toolContexts().currentName() + " " + handlerName(gesture),
                       [&] { return callHandler(*context, gesture, delivered, manager, frame); });
}

MStatus dispatchKey(ToolKey key) {
    MPxContext* context = toolContexts().current();
    if (!context) return MS::kNotFound;
    return callContext(toolContexts().currentName() + " key", [&] {
        switch (key) {
            case ToolKey::kEnter:
                context->completeAction();
                break;
            case ToolKey::kEscape:
                context->abortAction();
                break;
            case ToolKey::kBackspace:
                context->deleteAction();
                break;
        }
        return MStatus(MS::kSuccess);
    });
}

void endGesture() { gestureState().buttonDown = 0; }

std::shared_ptr<const DisplayList> eventDrawing() { return gestureState().drawing; }

}  // namespace mhost
